// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Output operations by name, on streams of any type of characters.
#ifndef ORV_TESTS_LOCALE_STREAM_CONFORMANCE_OUTPUT_H
#define ORV_TESTS_LOCALE_STREAM_CONFORMANCE_OUTPUT_H

#include "tests/locale/stream_conformance.h"

#include <gtest/gtest.h>
#include <limits>

namespace orvtest {

/// Performs operations on an output stream; each gives a line of what it did.
template <class CharT>
class OutputScript {
public:
    using Out = typename StreamsOf<CharT>::Out;
    using String = std::basic_string<CharT>;

    explicit OutputScript(Out& out) : out_(out) {}

    /// Result, state, width and position after the operation.
    std::string perform(const std::string& operation) {
        result_.clear();
        Words words(operation);
        const std::string thrown = thrownBy([&] {
            if (!applySetting<CharT>(out_, words) && !applyNumber(words) && !applyText(words) &&
                !applyUnformatted(words)) {
                ADD_FAILURE() << "no operation " << operation;
            }
        });
        return operation + ": " + result_ + thrown + " state " + shownState(out_.rdstate()) +
               " width " + std::to_string(out_.width()) + '\n';
    }

private:
    // Each type with its smallest, largest or some value in between.
    template <class T>
    bool insert(Words& words) {
        using Limits = std::numeric_limits<T>;
        const std::string which = words.text();
        if (which == "max") {
            out_ << Limits::max();
        } else if (which == "lowest") {
            out_ << Limits::lowest();
        } else if (which == "min") {
            out_ << Limits::min();
        } else if (which == "infinity") {
            out_ << Limits::infinity();
        } else if (which == "nan") {
            out_ << Limits::quiet_NaN();
        } else {
            long double value = 0;
            std::istringstream(which) >> value;
            out_ << static_cast<T>(value);
        }
        return true;
    }

    bool applyNumber(Words& words) {
        return words.is("<<short")        ? insert<short>(words)
               : words.is("<<ushort")     ? insert<unsigned short>(words)
               : words.is("<<int")        ? insert<int>(words)
               : words.is("<<uint")       ? insert<unsigned int>(words)
               : words.is("<<long")       ? insert<long>(words)
               : words.is("<<ulong")      ? insert<unsigned long>(words)
               : words.is("<<longlong")   ? insert<long long>(words)
               : words.is("<<ulonglong")  ? insert<unsigned long long>(words)
               : words.is("<<float")      ? insert<float>(words)
               : words.is("<<double")     ? insert<double>(words)
               : words.is("<<longdouble") ? insert<long double>(words)
                                          : false;
    }

    bool applyText(Words& words) {
        if (words.is("<<bool")) {
            out_ << (words.number() != 0);
        } else if (words.is("<<pointer")) {
            const auto value = static_cast<std::uintptr_t>(words.number());
            out_ << reinterpret_cast<const void*>(value);
        } else if (words.is("<<unit")) {
            out_ << words.template unit<CharT>();
        } else if (words.is("<<narrow")) {
            out_ << words.text()[0];
        } else if (words.is("<<text")) {
            out_ << textIn<CharT>(words.text()).c_str();
        } else if (words.is("<<narrowtext")) {
            out_ << words.text().c_str();
        } else if (words.is("<<string")) {
            out_ << textIn<CharT>(words.text());
        } else if (words.is("<<endl")) {
            out_ << std::endl;
        } else if (words.is("<<ends")) {
            out_ << std::ends;
        } else if (words.is("<<flush")) {
            out_ << std::flush;
        } else if (words.is("<<hex")) {
            out_ << std::hex << std::showbase;
        } else if (words.is("<<null")) {
            out_ << static_cast<std::basic_streambuf<CharT>*>(nullptr);
        } else if (words.is("<<buffer")) {
            // Good for so many units; from 1000 on it throws then, else it ends.
            const long good = words.number();
            FaultyBuffer<CharT> source(textIn<CharT>(words.text()),
                                       static_cast<std::size_t>(good % 1000), good >= 1000);
            const std::string thrown = thrownBy([&] { out_ << &source; });
            result_ = (good < 1000 ? shownInt<CharT>(source.sgetc()) : "") + thrown;
        } else {
            return false;
        }
        return true;
    }

    bool applyUnformatted(Words& words) {
        if (words.is("put")) {
            out_.put(words.template unit<CharT>());
        } else if (words.is("write")) {
            const String text = textIn<CharT>(words.text());
            out_.write(text.data(), static_cast<std::streamsize>(text.size()));
        } else if (words.is("flush")) {
            out_.flush();
        } else if (words.is("tellp")) {
            result_ = std::to_string(std::streamoff(out_.tellp()));
        } else if (words.is("seekp")) {
            out_.seekp(typename Out::pos_type(words.number()));
        } else if (words.is("seekpby")) {
            const long offset = words.number();
            const std::string from = words.text();
            out_.seekp(offset, from == "end"   ? std::ios_base::end
                               : from == "cur" ? std::ios_base::cur
                                               : std::ios_base::beg);
        } else {
            return false;
        }
        return true;
    }

    Out& out_;
    std::string result_;
};

} // namespace orvtest

#endif
