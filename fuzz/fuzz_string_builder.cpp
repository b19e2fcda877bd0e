// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringBuilder` agrees with a model over `std::u16string`, whatever is done to it; what
/// fails leaves the text as it was.
///
/// Input: a program. Each operation is a byte that chooses it, two bytes for positions, and what it
/// needs besides: a text is a byte for its length, 0 to 15, and its units, a byte each; from 240 on
/// that byte stands for a part of the builder's own text.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

using orv::StringBuilder;

// Longer texts say nothing new, and an operation may double the length.
constexpr std::size_t MAX_LENGTH = 4096;

bool isHigh(char16_t c) {
    return c >= 0xD800 && c < 0xDC00;
}
bool isLow(char16_t c) {
    return c >= 0xDC00 && c < 0xE000;
}

// The units of interest are few: every second byte stands for a surrogate.
char16_t unitOf(unsigned int byte) {
    return static_cast<char16_t>(byte % 2 == 0   ? byte
                                 : byte % 4 == 1 ? 0xD800 + byte
                                                 : 0xDC00 + byte);
}

class Program {
public:
    explicit Program(fuzz::Input input) : input_(input) {}

    void run() {
        while (!input_.empty()) {
            step();
            FUZZ_CHECK(orv::to_u16string(builder_.get()) == model_);
            FUZZ_CHECK(builder_.length() == model_.size());
            FUZZ_CHECK(builder_.capacity() >= model_.size());
            if (model_.size() > MAX_LENGTH) {
                FUZZ_CHECK(orv::to_u16string(builder_.release()) == model_);
                model_.clear();
            }
        }
    }

private:
    using Operation = void (Program::*)();

    void step() {
        static constexpr std::array<Operation, 16> OPERATIONS = {
            &Program::appendUnit,   &Program::appendText,  &Program::appendRange,
            &Program::appendSelf,   &Program::appendNull,  &Program::appendNumber,
            &Program::appendPoint,  &Program::insertText,  &Program::insertUnit,
            &Program::replaceRange, &Program::deleteRange, &Program::deleteUnit,
            &Program::reverse,      &Program::setUnit,     &Program::setLength,
            &Program::lookAtPlaces};
        const Operation operation = OPERATIONS[input_.byte() % OPERATIONS.size()];
        from_ = position();
        to_ = position();
        (this->*operation)();
    }

    // Some beyond the end, and some that no text has.
    std::size_t position() {
        const std::size_t byte = input_.byte();
        return byte == 255 ? StringBuilder::npos : byte % (model_.size() + 3);
    }

    // A text from the input, or a view into the builder itself; and what the model takes for it.
    orv::ustring_ref text() {
        const std::size_t length = input_.byte();
        if (length >= 240) {
            const std::size_t start = model_.size() * (length - 240) / 16;
            own_ = model_.substr(start);
            return orv::ustring_ref(builder_.get()).substr(start);
        }
        own_.clear();
        for (const char c : input_.bytes(length % 16)) {
            own_.push_back(unitOf(static_cast<unsigned char>(c)));
        }
        text_ = orv::to_ustring(own_);
        return text_;
    }

    // Does it to the builder; whether that went well must be as expected.
    template <typename Call>
    bool done(bool expected, Call call) {
        try {
            call();
        } catch (const std::out_of_range&) {
            FUZZ_CHECK(!expected);
            return false;
        }
        FUZZ_CHECK(expected);
        return true;
    }

    void appendUnit() {
        builder_.append(orv::char16(unitOf(static_cast<unsigned int>(from_ & 0xFF))));
        model_.push_back(unitOf(static_cast<unsigned int>(from_ & 0xFF)));
    }
    void appendText() {
        builder_.append(text());
        model_ += own_;
    }
    void appendRange() {
        const orv::ustring_ref part = text();
        if (done(from_ <= to_ && to_ <= own_.size(), [&] { builder_.append(part, from_, to_); })) {
            model_ += own_.substr(from_, to_ - from_);
        }
    }
    void appendSelf() {
        if (done(from_ <= to_ && to_ <= model_.size(),
                 [&] { builder_.append(&builder_, from_, to_); })) {
            model_ += model_.substr(from_, to_ - from_);
        }
    }
    void appendNull() {
        if (done(from_ <= to_ && to_ <= 4, [&] { builder_.append(nullptr, from_, to_); })) {
            model_ += std::u16string(u"null").substr(from_, to_ - from_);
        }
    }
    void appendNumber() {
        const auto number = static_cast<long long>(from_ << 32) - static_cast<long long>(to_);
        builder_.append(number).append(1.0 / static_cast<double>(number)).append(from_ > to_);
        model_ += orv::to_u16string(orv::to_ustring_c(number));
        model_ += orv::to_u16string(orv::to_ustring_c(1.0 / static_cast<double>(number)));
        model_ += from_ > to_ ? u"true" : u"false";
    }
    void appendPoint() {
        const auto cp = static_cast<char32_t>(from_ * 0x1001 % 0x110000);
        builder_.appendCodePoint(cp);
        if (cp > 0xFFFF) {
            model_.push_back(static_cast<char16_t>(0xD800 + ((cp - 0x10000) >> 10)));
            model_.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
        } else {
            model_.push_back(static_cast<char16_t>(cp));
        }
    }
    void insertText() {
        const orv::ustring_ref part = text();
        if (done(from_ <= model_.size(), [&] { builder_.insert(from_, part); })) {
            model_.insert(from_, own_);
        }
    }
    void insertUnit() {
        const char16_t unit = unitOf(static_cast<unsigned int>(to_ & 0xFF));
        if (done(from_ <= model_.size(), [&] { builder_.insert(from_, unit); })) {
            model_.insert(from_, 1, unit);
        }
    }
    void replaceRange() {
        const orv::ustring_ref part = text();
        if (done(from_ <= to_ && from_ <= model_.size(),
                 [&] { builder_.replace(from_, to_, part); })) {
            model_ = model_.substr(0, from_) + own_ + model_.substr(std::min(to_, model_.size()));
        }
    }
    void deleteRange() {
        if (done(from_ <= to_ && from_ <= model_.size(),
                 [&] { builder_.deleteChars(from_, to_); })) {
            model_ = model_.substr(0, from_) + model_.substr(std::min(to_, model_.size()));
        }
    }
    void deleteUnit() {
        if (done(from_ < model_.size(), [&] { builder_.deleteCharAt(from_); })) {
            model_.erase(from_, 1);
        }
    }
    // Character by character: a pair is one.
    void reverse() {
        builder_.reverse();
        std::u16string turned;
        for (std::size_t i = 0; i < model_.size(); ++i) {
            const bool isPair = isHigh(model_[i]) && i + 1 < model_.size() && isLow(model_[i + 1]);
            turned.insert(0, model_, i, isPair ? 2U : 1U);
            i += isPair ? 1U : 0U;
        }
        model_ = turned;
    }
    void setUnit() {
        const char16_t unit = unitOf(static_cast<unsigned int>(to_ & 0xFF));
        if (done(from_ < model_.size(), [&] { builder_.setCharAt(from_, unit); })) {
            model_[from_] = unit;
        }
    }
    void setLength() {
        const std::size_t length = from_ % (model_.size() + 8);
        builder_.setLength(length);
        model_.resize(length, u'\0');
    }
    // What only reads.
    void lookAtPlaces() {
        const orv::ustring_ref needle = text();
        FUZZ_CHECK(builder_.indexOf(needle, from_) == model_.find(own_, from_));
        FUZZ_CHECK(builder_.lastIndexOf(needle, from_) == model_.rfind(own_, from_));
        done(from_ < model_.size(), [&] {
            const orv::char16 unit = builder_.charAt(from_);
            FUZZ_CHECK(unit == model_[from_]);
        });
        const bool isRange = from_ <= to_ && to_ <= model_.size();
        done(isRange, [&] {
            const auto part = builder_.subSequence(from_, to_);
            FUZZ_CHECK(orv::to_u16string(part->toString()) == model_.substr(from_, to_ - from_));
        });
        done(isRange, [&] {
            const std::size_t counted = builder_.codePointCount(from_, to_);
            std::size_t points = 0;
            for (std::size_t i = from_; i < to_; ++i, ++points) {
                i += isHigh(model_[i]) && i + 1 < to_ && isLow(model_[i + 1]) ? 1U : 0U;
            }
            FUZZ_CHECK(counted == points);
        });
    }

    fuzz::Input input_;
    StringBuilder builder_;
    std::u16string model_;
    orv::ustring text_;  // what the builder's operation takes, if it is not of the builder
    std::u16string own_; // the same for the model
    std::size_t from_ = 0;
    std::size_t to_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Program(fuzz::Input(data, size)).run();
    return 0;
}
