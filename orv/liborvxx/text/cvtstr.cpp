// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The six string conversions.
#include "orv/liborvxx/text/cvtstr.h"

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/code_points.h"

#include <climits>
#include <cwchar>

namespace orv {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;
constexpr bool WIDE_IS_UTF16 = sizeof(wchar_t) == sizeof(char16);

} // namespace

template <>
std::string cvtstr<std::string>(ustring_ref text) {
    return Charset::defaultCharset()->encode(text);
}

template <>
ustring cvtstr<ustring>(string_ref text) {
    return Charset::defaultCharset()->decode(text);
}

template <>
std::string cvtstr<std::string>(wstring_ref text) {
    std::string result;
    result.reserve(2 * text.size());
    std::mbstate_t state{};
    for (const wchar_t unit : text) {
        char bytes[MB_LEN_MAX];
        const std::size_t count = std::wcrtomb(bytes, unit, &state);
        if (count == static_cast<std::size_t>(-1)) {
            result.push_back('?');
        } else {
            result.append(bytes, count);
        }
    }
    return result;
}

template <>
std::wstring cvtstr<std::wstring>(string_ref text) {
    constexpr auto BAD = static_cast<std::size_t>(-1);
    constexpr auto INCOMPLETE = static_cast<std::size_t>(-2);
    std::wstring result;
    result.reserve(text.size());
    std::mbstate_t state{};
    bool lastWasBad = false;
    while (!text.empty()) {
        wchar_t unit;
        std::size_t count = std::mbrtowc(&unit, text.data(), text.size(), &state);
        if (count == INCOMPLETE) {
            if (!lastWasBad) {
                result.push_back(static_cast<wchar_t>(REPLACEMENT));
            }
            break;
        }
        if (count == BAD) {
            if (!lastWasBad) {
                result.push_back(static_cast<wchar_t>(REPLACEMENT));
            }
            lastWasBad = true;
            // After a bad sequence the state is unspecified; the next byte starts anew.
            state = std::mbstate_t{};
            text.remove_prefix(1);
            continue;
        }
        lastWasBad = false;
        result.push_back(unit);
        // 0 stands for a NUL byte.
        text.remove_prefix(count == 0 ? 1 : count);
    }
    return result;
}

template <>
std::wstring cvtstr<std::wstring>(ustring_ref text) {
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if constexpr (WIDE_IS_UTF16) {
            result.push_back(static_cast<wchar_t>(text[i++]));
        } else {
            const char32_t cp = Char16::codePointAt(text, i);
            result.push_back(static_cast<wchar_t>(cp));
            i += Char16::charCount(cp);
        }
    }
    return result;
}

template <>
ustring cvtstr<ustring>(wstring_ref text) {
    ustring result;
    result.reserve(text.size());
    for (const wchar_t unit : text) {
        // Zero extension where wchar_t has 16 bits and a sign.
        using Unsigned = std::make_unsigned_t<wchar_t>;
        const auto cp = static_cast<char32_t>(static_cast<Unsigned>(unit));
        Char16::toChars(cp <= Char16::MAX_CODE_POINT ? cp : REPLACEMENT, result);
    }
    return result;
}

ustring to_ustring(const std::exception& e) {
    return cvtstr<ustring>(to_string(e));
}

ustring to_ustring(const std::exception_ptr& p) {
    return cvtstr<ustring>(to_string(p));
}

} // namespace orv
