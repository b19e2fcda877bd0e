// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Input operations by name, on streams of any type of characters.
#ifndef ORV_TESTS_LOCALE_STREAM_CONFORMANCE_INPUT_H
#define ORV_TESTS_LOCALE_STREAM_CONFORMANCE_INPUT_H

#include "tests/locale/stream_conformance.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace orvtest {

/// Performs operations on an input stream; each gives a line of what it did.
template <class CharT>
class InputScript {
public:
    using In = typename StreamsOf<CharT>::In;
    using Traits = std::char_traits<CharT>;
    using String = std::basic_string<CharT>;

    explicit InputScript(In& in) : in_(in) {}

    /// Result, count, state and position after the operation.
    std::string perform(const std::string& operation) {
        result_.clear();
        Words words(operation);
        const std::string thrown = thrownBy([&] {
            if (!applySetting<CharT>(in_, words) && !applyFormatted(words) &&
                !applyUnformatted(words)) {
                ADD_FAILURE() << "no operation " << operation;
            }
        });
        const auto position =
            std::streamoff(in_.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::in));
        return operation + ": " + result_ + thrown + " count " + std::to_string(in_.gcount()) +
               " state " + shownState(in_.rdstate()) + " width " + std::to_string(in_.width()) +
               " at " + std::to_string(position) + '\n';
    }

private:
    template <class T>
    bool extract(T value) {
        try {
            in_ >> value;
        } catch (...) {
            show(value);
            throw;
        }
        show(value);
        return true;
    }

    template <class T>
    void show(const T& value) {
        if constexpr (std::is_same_v<T, CharT>) {
            result_ = shownUnits(String(1, value));
        } else if constexpr (std::is_same_v<T, String>) {
            result_ = shownUnits(value);
        } else {
            std::ostringstream text;
            text.precision(std::numeric_limits<long double>::max_digits10);
            text << value;
            result_ = text.str();
        }
    }

    bool applyFormatted(Words& words) {
        if (words.is(">>short")) {
            return extract<short>(99);
        }
        if (words.is(">>ushort")) {
            return extract<unsigned short>(99);
        }
        if (words.is(">>int")) {
            return extract<int>(99);
        }
        if (words.is(">>uint")) {
            return extract<unsigned int>(99);
        }
        if (words.is(">>long")) {
            return extract<long>(99);
        }
        if (words.is(">>ulong")) {
            return extract<unsigned long>(99);
        }
        if (words.is(">>longlong")) {
            return extract<long long>(99);
        }
        if (words.is(">>ulonglong")) {
            return extract<unsigned long long>(99);
        }
        if (words.is(">>float")) {
            return extract<float>(99);
        }
        if (words.is(">>double")) {
            return extract<double>(99);
        }
        if (words.is(">>longdouble")) {
            return extract<long double>(99);
        }
        if (words.is(">>bool")) {
            return extract<bool>(true);
        }
        if (words.is(">>pointer")) {
            return extract<void*>(nullptr);
        }
        if (words.is(">>unit")) {
            return extract<CharT>(CharT('Q'));
        }
        if (words.is(">>string")) {
            return extract<String>(textIn<CharT>("QQ"));
        }
        if (words.is(">>array")) {
            return into([this](CharT(&array)[SIZE]) { in_ >> array; });
        }
        if (words.is(">>ws")) {
            in_ >> std::ws;
            return true;
        }
        if (words.is(">>hex")) {
            in_ >> std::hex;
            return true;
        }
        if (words.is(">>buffer")) {
            return intoBuffer(words, [this](auto& sink) { in_ >> &sink; });
        }
        if (words.is(">>null")) {
            in_ >> static_cast<std::basic_streambuf<CharT>*>(nullptr);
            return true;
        }
        return false;
    }

    bool applyUnformatted(Words& words) {
        if (words.is("get")) {
            result_ = shownInt<CharT>(in_.get());
        } else if (words.is("peek")) {
            result_ = shownInt<CharT>(in_.peek());
        } else if (words.is("getunit")) {
            CharT unit('Q');
            in_.get(unit);
            show(unit);
        } else if (words.is("getarray")) {
            const long size = words.number();
            if (words.hasMore()) {
                const auto delimiter = words.template unit<CharT>();
                return into([&](CharT* array) { in_.get(array, size, delimiter); });
            }
            return into([&](CharT* array) { in_.get(array, size); });
        } else if (words.is("getline")) {
            const long size = words.number();
            if (words.hasMore()) {
                const auto delimiter = words.template unit<CharT>();
                return into([&](CharT* array) { in_.getline(array, size, delimiter); });
            }
            return into([&](CharT* array) { in_.getline(array, size); });
        } else if (words.is("read")) {
            const long size = words.number();
            return into([&](CharT* array) { in_.read(array, size); });
        } else if (words.is("readsome")) {
            const long size = words.number();
            return into([&](CharT* array) {
                const std::string count = std::to_string(in_.readsome(array, size));
                array[SIZE - 1] = CharT(count[0]);
            });
        } else if (words.is("getbuffer")) {
            return intoBuffer(words, [&](auto& sink) {
                if (words.hasMore()) {
                    in_.get(sink, words.template unit<CharT>());
                } else {
                    in_.get(sink);
                }
            });
        } else {
            return applyPositions(words) || applyLines(words);
        }
        return true;
    }

    bool applyLines(Words& words) {
        if (words.is("ignore")) {
            const long number = words.number(1);
            const auto count = number < 0 ? std::numeric_limits<std::streamsize>::max() : number;
            if (words.hasMore()) {
                in_.ignore(count, Traits::to_int_type(words.template unit<CharT>()));
            } else {
                in_.ignore(count);
            }
        } else if (words.is("getlinestring")) {
            String line = textIn<CharT>("QQ");
            const std::string thrown = thrownBy([&] {
                if (words.hasMore()) {
                    std::getline(in_, line, words.template unit<CharT>());
                } else {
                    std::getline(in_, line);
                }
            });
            result_ = shownUnits(line) + thrown;
        } else {
            return false;
        }
        return true;
    }

    bool applyPositions(Words& words) {
        if (words.is("putback")) {
            in_.putback(words.template unit<CharT>());
        } else if (words.is("unget")) {
            in_.unget();
        } else if (words.is("sync")) {
            result_ = std::to_string(in_.sync());
        } else if (words.is("tellg")) {
            result_ = std::to_string(std::streamoff(in_.tellg()));
        } else if (words.is("seekg")) {
            in_.seekg(typename In::pos_type(words.number()));
        } else if (words.is("seekgby")) {
            const long offset = words.number();
            const std::string from = words.text();
            in_.seekg(offset, from == "end"   ? std::ios_base::end
                              : from == "cur" ? std::ios_base::cur
                                              : std::ios_base::beg);
        } else {
            return false;
        }
        return true;
    }

    static constexpr std::size_t SIZE = 12;

    // An array that shows what was left alone.
    template <class Call>
    bool into(Call call) {
        CharT array[SIZE];
        std::fill(std::begin(array), std::end(array), CharT('Q'));
        std::string thrown = thrownBy([&] { call(array); });
        result_ = shownUnits(String(array, SIZE)) + thrown;
        return true;
    }

    // A buffer that takes all, or as many units as the script says: "so many", "throws".
    template <class Call>
    bool intoBuffer(Words& words, Call call) {
        const long good = words.number(1000);
        FaultyBuffer<CharT> sink({}, static_cast<std::size_t>(good % 1000), good >= 1000);
        const std::string thrown = thrownBy([&] { call(sink); });
        result_ = shownUnits(sink.written()) + thrown;
        return true;
    }

    In& in_;
    std::string result_;
};

} // namespace orvtest

#endif
