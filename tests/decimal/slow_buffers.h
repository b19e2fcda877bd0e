// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Stream buffers that hand out a text in small steps.
#ifndef ORV_TESTS_DECIMAL_SLOW_BUFFERS_H
#define ORV_TESTS_DECIMAL_SLOW_BUFFERS_H

#include <cstddef>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

namespace orvtest {

/// Hands out one character at a time, and throws instead of the character at `trap`.
class Trickle : public std::streambuf {
public:
    static constexpr std::size_t NEVER = static_cast<std::size_t>(-1);

    explicit Trickle(std::string text, std::size_t trap = NEVER)
        : text_(std::move(text)), trap_(trap) {}

private:
    int_type underflow() override {
        if (next_ == trap_) {
            throw std::runtime_error("sprung");
        }
        if (next_ == text_.size()) {
            return traits_type::eof();
        }
        current_ = text_[next_++];
        setg(&current_, &current_, &current_ + 1);
        return traits_type::to_int_type(current_);
    }

    std::string text_;
    std::size_t trap_;
    std::size_t next_ = 0;
    char current_ = '\0';
};

/// Has no get area: every character is asked for, and taken, by a call.
class Unbuffered : public std::streambuf {
public:
    explicit Unbuffered(std::string text) : text_(std::move(text)) {}

private:
    int_type underflow() override {
        return next_ == text_.size() ? traits_type::eof() : traits_type::to_int_type(text_[next_]);
    }

    int_type uflow() override {
        return next_ == text_.size() ? traits_type::eof()
                                     : traits_type::to_int_type(text_[next_++]);
    }

    std::string text_;
    std::size_t next_ = 0;
};

} // namespace orvtest

#endif
