// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Streams of any type of characters, and what an operation on one does as a line of text,
/// so that streams of several types can be compared.
#ifndef ORV_TESTS_LOCALE_STREAM_CONFORMANCE_H
#define ORV_TESTS_LOCALE_STREAM_CONFORMANCE_H

#include "orv/liborvxx/locale/ustringstream.h"
#include "tests/support/text_in.h"

#include <cstddef>
#include <cstdint>
#include <ios>
#include <istream>
#include <limits>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace orvtest {

/// The streams of a type of characters: the library's for `char16`, else the standard's.
template <class CharT>
struct StreamsOf {
    using In = std::basic_istream<CharT>;
    using Out = std::basic_ostream<CharT>;
    using StringIn = std::basic_istringstream<CharT>;
    using StringOut = std::basic_ostringstream<CharT>;
    using StringBoth = std::basic_stringstream<CharT>;
};
template <>
struct StreamsOf<orv::char16> {
    using In = orv::uistream;
    using Out = orv::uostream;
    using StringIn = orv::uistringstream;
    using StringOut = orv::uostringstream;
    using StringBoth = orv::ustringstream;
};

/// An operation as a script spells it: a name and arguments, separated by spaces.
class Words {
public:
    explicit Words(const std::string& line) : line_(line) { line_ >> name_; }

    const std::string& name() const { return name_; }

    bool is(std::string_view name) const { return name_ == name; }

    long number(long none = 0) {
        long value = 0;
        return line_ >> value ? value : none;
    }

    bool hasMore() { return !(line_ >> std::ws).eof(); }

    /// The text of the next word, in which "_" stands for a space and "|" for the end of a line.
    std::string text() {
        std::string word;
        line_ >> word;
        for (char& c : word) {
            c = c == '_' ? ' ' : c == '|' ? '\n' : c;
        }
        return word;
    }

    template <class CharT>
    CharT unit() {
        return textIn<CharT>(text().substr(0, 1)).at(0);
    }

private:
    std::istringstream line_;
    std::string name_;
};

/// ASCII as it is, other units as "<00E9>".
template <class CharT>
std::string shownUnits(const std::basic_string<CharT>& units) {
    std::string text;
    for (const CharT unit : units) {
        const auto value = static_cast<std::uint32_t>(unit) & 0xFFFF;
        if (value >= 0x20 && value < 0x7F) {
            text += static_cast<char>(value);
        } else {
            std::ostringstream hex;
            hex << '<' << std::hex << value << '>';
            text += hex.str();
        }
    }
    return text;
}

template <class CharT>
std::string shownInt(typename std::char_traits<CharT>::int_type value) {
    using Traits = std::char_traits<CharT>;
    return Traits::eq_int_type(value, Traits::eof())
               ? "end"
               : shownUnits(std::basic_string<CharT>(1, Traits::to_char_type(value)));
}

/// The bits of a state or a mask as letters.
inline std::string shownState(std::ios_base::iostate state) {
    return std::string((state & std::ios_base::badbit) != 0 ? "b" : "-") +
           ((state & std::ios_base::eofbit) != 0 ? "e" : "-") +
           ((state & std::ios_base::failbit) != 0 ? "f" : "-");
}

/// The bits that the letters b, e and f name.
inline std::ios_base::iostate stateOf(std::string_view letters) {
    std::ios_base::iostate state = std::ios_base::goodbit;
    for (const char c : letters) {
        state |= c == 'b'   ? std::ios_base::badbit
                 : c == 'e' ? std::ios_base::eofbit
                 : c == 'f' ? std::ios_base::failbit
                            : std::ios_base::goodbit;
    }
    return state;
}

/// What a buffer throws.
struct BufferFault {};

/// Calls; the name of what it throws, or nothing.
template <class Call>
std::string thrownBy(Call call) {
    try {
        call();
    } catch (const std::ios_base::failure&) {
        return " throws failure";
    } catch (const BufferFault&) {
        return " throws fault";
    }
    return "";
}

/// A string buffer that works for so many units, and then refuses or throws.
template <class CharT>
class FaultyBuffer : public std::basic_streambuf<CharT> {
public:
    using Base = std::basic_streambuf<CharT>;
    using Traits = typename Base::traits_type;
    using Int = typename Base::int_type;

    FaultyBuffer(std::basic_string<CharT> text, std::size_t good, bool throws)
        : text_(std::move(text)), good_(good), throws_(throws) {}

    const std::basic_string<CharT>& written() const { return written_; }

protected:
    // One unit at a time, so that each operation meets the fault just where it reads that far.
    Int underflow() override {
        if (next_ == text_.size()) {
            return Traits::eof();
        }
        if (!use()) {
            return Traits::eof();
        }
        this->setg(text_.data(), text_.data() + next_, text_.data() + next_ + 1);
        ++next_;
        return Traits::to_int_type(*this->gptr());
    }

    Int overflow(Int c) override {
        if (!use()) {
            return Traits::eof();
        }
        written_.push_back(Traits::to_char_type(c));
        return Traits::not_eof(c);
    }

    int sync() override { return use() ? 0 : -1; }

private:
    bool use() {
        if (good_ != 0) {
            --good_;
            return true;
        }
        if (throws_) {
            throw BufferFault();
        }
        return false;
    }

    std::basic_string<CharT> text_;
    std::basic_string<CharT> written_;
    std::size_t good_;
    std::size_t next_ = 0;
    bool throws_;
};

/// Settings that streams of both directions have; false if the operation is none of them.
template <class CharT>
bool applySetting(std::basic_ios<CharT>& stream, Words& words) {
    using std::ios_base;
    static const struct {
        std::string_view name;
        ios_base::fmtflags flags;
        ios_base::fmtflags mask;
    } flags[] = {
        {"dec", ios_base::dec, ios_base::basefield},
        {"hex", ios_base::hex, ios_base::basefield},
        {"oct", ios_base::oct, ios_base::basefield},
        {"anybase", {}, ios_base::basefield},
        {"left", ios_base::left, ios_base::adjustfield},
        {"right", ios_base::right, ios_base::adjustfield},
        {"internal", ios_base::internal, ios_base::adjustfield},
        {"fixed", ios_base::fixed, ios_base::floatfield},
        {"scientific", ios_base::scientific, ios_base::floatfield},
        {"hexfloat", ios_base::fixed | ios_base::scientific, ios_base::floatfield},
        {"defaultfloat", {}, ios_base::floatfield},
        {"boolalpha", ios_base::boolalpha, ios_base::boolalpha},
        {"noboolalpha", {}, ios_base::boolalpha},
        {"showbase", ios_base::showbase, ios_base::showbase},
        {"noshowbase", {}, ios_base::showbase},
        {"showpos", ios_base::showpos, ios_base::showpos},
        {"noshowpos", {}, ios_base::showpos},
        {"showpoint", ios_base::showpoint, ios_base::showpoint},
        {"uppercase", ios_base::uppercase, ios_base::uppercase},
        {"nouppercase", {}, ios_base::uppercase},
        {"skipws", ios_base::skipws, ios_base::skipws},
        {"noskipws", {}, ios_base::skipws},
        {"unitbuf", ios_base::unitbuf, ios_base::unitbuf},
        {"nounitbuf", {}, ios_base::unitbuf},
    };
    for (const auto& flag : flags) {
        if (words.is(flag.name)) {
            stream.setf(flag.flags, flag.mask);
            return true;
        }
    }
    if (words.is("width")) {
        stream.width(words.number());
    } else if (words.is("precision")) {
        stream.precision(words.number());
    } else if (words.is("fill")) {
        stream.fill(words.unit<CharT>());
    } else if (words.is("clear")) {
        stream.clear(stateOf(words.text()));
    } else if (words.is("setstate")) {
        stream.setstate(stateOf(words.text()));
    } else if (words.is("exceptions")) {
        stream.exceptions(stateOf(words.text()));
    } else {
        return false;
    }
    return true;
}

} // namespace orvtest

#endif
