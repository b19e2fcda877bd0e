// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Texts of several scripts, and random mixtures of characters of all lengths.
#include "tests/support/sample_texts.h"

#include "orv/liborvxx/text/utf16_interop.h"

#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace orvtest {

namespace {

using orv::char16;

constexpr std::u16string_view TEXTS[] = {
    u"All human beings are born free and equal in dignity and rights. They are endowed with reason "
    u"and conscience and should act towards one another in a spirit of brotherhood.",
    u"Alle Menschen sind frei und gleich an W\u00FCrde und Rechten geboren. Sie sind mit Vernunft "
    u"und Gewissen begabt und sollen einander im Geiste der Br\u00FCderlichkeit begegnen.",
    u"\u038C\u03BB\u03BF\u03B9 \u03BF\u03B9 \u03AC\u03BD\u03B8\u03C1\u03C9\u03C0\u03BF\u03B9 "
    u"\u03B3\u03B5\u03BD\u03BD\u03B9\u03BF\u03CD\u03BD\u03C4\u03B1\u03B9 "
    u"\u03B5\u03BB\u03B5\u03CD\u03B8\u03B5\u03C1\u03BF\u03B9 \u03BA\u03B1\u03B9 "
    u"\u03AF\u03C3\u03BF\u03B9.",
    u"\u0412\u0441\u0435 \u043B\u044E\u0434\u0438 "
    u"\u0440\u043E\u0436\u0434\u0430\u044E\u0442\u0441\u044F "
    u"\u0441\u0432\u043E\u0431\u043E\u0434\u043D\u044B\u043C\u0438 \u0438 "
    u"\u0440\u0430\u0432\u043D\u044B\u043C\u0438 \u0432 \u0441\u0432\u043E\u0451\u043C "
    u"\u0434\u043E\u0441\u0442\u043E\u0438\u043D\u0441\u0442\u0432\u0435 \u0438 "
    u"\u043F\u0440\u0430\u0432\u0430\u0445.",
    u"\u05DB\u05DC \u05D1\u05E0\u05D9 \u05D0\u05D3\u05DD \u05E0\u05D5\u05DC\u05D3\u05D5 "
    u"\u05D1\u05E0\u05D9 \u05D7\u05D5\u05E8\u05D9\u05DF \u05D5\u05E9\u05D5\u05D5\u05D9\u05DD "
    u"\u05D1\u05E2\u05E8\u05DB\u05DD "
    u"\u05D5\u05D1\u05D6\u05DB\u05D5\u05D9\u05D5\u05EA\u05D9\u05D4\u05DD.",
    u"\u0938\u092D\u0940 \u092E\u0928\u0941\u0937\u094D\u092F\u094B\u0902 \u0915\u094B "
    u"\u0917\u094C\u0930\u0935 \u0914\u0930 \u0905\u0927\u093F\u0915\u093E\u0930\u094B\u0902 "
    u"\u0915\u0947 \u092E\u093E\u092E\u0932\u0947 \u092E\u0947\u0902.",
    u"\u4EBA\u4EBA\u751F\u800C\u81EA\u7531\uFF0C\u5728\u5C0A\u4E25\u548C\u6743\u5229\u4E0A\u4E00"
    u"\u5F8B\u5E73\u7B49\u3002\u4ED6\u4EEC\u8D4B\u6709\u7406\u6027\u548C\u826F\u5FC3\u3002",
    u"\u3059\u3079\u3066\u306E\u4EBA\u9593\u306F\u3001\u751F\u307E\u308C\u306A\u304C\u3089\u306B"
    u"\u3057\u3066\u81EA\u7531\u3067\u3042\u308A\u3001Tokyo 2020 \u306E\u5C0A\u53B3\u3002",
    u"\uBAA8\uB4E0 \uC778\uAC04\uC740 \uD0DC\uC5B4\uB0A0 \uB54C\uBD80\uD130 "
    u"\uC790\uC720\uB85C\uC6B0\uBA70 \uADF8 \uC874\uC5C4\uACFC \uAD8C\uB9AC\uC5D0 \uC788\uC5B4.",
    u"\U0001F600\U0001F601 hi \U0001F468\u200D\U0001F469\u200D\U0001F467 \u2764\uFE0F "
    u"\U00010330\U00010331\U00010332\U0001D11E\U0002F800\U0010FFFF\U00010000.",
    u"<p lang=\"fr\">Tous les \u00EAtres humains naissent libres &amp; \u00E9gaux \u2014 \u201Cen "
    u"dignit\u00E9\u201D</p>\r\n\t{\"\u20AC\": 1.5, \"\u65E5\": \"\U0001F5FE\"}",
};

std::size_t below(std::size_t bound, std::mt19937& random) {
    return random() % bound;
}

template <typename E>
std::vector<E> changed(std::vector<E> text, std::mt19937& random, E (*element)(std::mt19937&)) {
    for (std::size_t edits = 1 + below(4, random); edits > 0 && !text.empty(); --edits) {
        const auto place = text.begin() + static_cast<std::ptrdiff_t>(below(text.size(), random));
        switch (below(5, random)) {
        case 0:
            text.erase(place);
            break;
        case 1:
            text.insert(place, element(random));
            break;
        case 2: {
            const E same = *place;
            text.insert(place, same);
            break;
        }
        default:
            *place = element(random);
        }
    }
    return text;
}

} // namespace

const std::vector<std::vector<char16>>& sampleTexts() {
    static const std::vector<std::vector<char16>> texts = [] {
        std::vector<std::vector<char16>> all;
        for (const std::u16string_view text : TEXTS) {
            all.emplace_back(orv::as_char16(text.data()),
                             orv::as_char16(text.data()) + text.size());
        }
        return all;
    }();
    return texts;
}

void appendCharacter(std::vector<char16>& text, int utf8Length, std::mt19937& random) {
    // First and last code point of each length, without the surrogates.
    static constexpr std::array<std::array<std::size_t, 2>, 4> BOUNDS = {
        {{0, 0x7F}, {0x80, 0x7FF}, {0x800, 0xFFFF - 0x800}, {0x10000, 0x10FFFF}}};
    const auto& [first, last] = BOUNDS[static_cast<std::size_t>(utf8Length - 1)];
    std::size_t value = 0;
    switch (below(8, random)) {
    case 0:
        value = first;
        break;
    case 1:
        value = last;
        break;
    default:
        value = first + below(last - first + 1, random);
    }
    if (utf8Length == 3 && value >= 0xD800) {
        value += 0x800;
    }
    if (value > 0xFFFF) {
        text.push_back(char16(0xD7C0 + (value >> 10)));
        text.push_back(char16(0xDC00 + (value & 0x3FF)));
    } else {
        text.push_back(char16(value));
    }
}

std::vector<char16> mixedText(std::size_t units, std::size_t longestRun, std::mt19937& random) {
    std::vector<char16> text;
    while (text.size() < units) {
        const int length = static_cast<int>(1 + below(4, random));
        for (std::size_t run = 1 + below(longestRun, random); run > 0; --run) {
            appendCharacter(text, length, random);
        }
    }
    return text;
}

std::vector<unsigned char> mutated(std::vector<unsigned char> bytes, std::mt19937& random) {
    return changed<unsigned char>(std::move(bytes), random, [](std::mt19937& r) {
        // Bytes at the borders of the ranges that UTF-8 tells apart, and any.
        static constexpr unsigned char BORDERS[] = {
            0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0,
            0xE1, 0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF7, 0xF8, 0xFE, 0xFF};
        return below(2, r) == 0 ? BORDERS[below(sizeof BORDERS, r)]
                                : static_cast<unsigned char>(below(256, r));
    });
}

std::vector<char16> mutated(std::vector<char16> units, std::mt19937& random) {
    return changed<char16>(std::move(units), random, [](std::mt19937& r) {
        switch (below(4, r)) {
        case 0:
            return char16(below(0x10000, r));
        case 1:
            return char16(0xD800 + below(0x400, r));
        case 2:
            return char16(0xDC00 + below(0x400, r));
        default: {
            static constexpr char16_t BORDERS[] = {0x00,   0x7F,   0x80,   0x7FF,  0x800,  0xD7FF,
                                                   0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
            return char16(BORDERS[below(std::size(BORDERS), r)]);
        }
        }
    });
}

} // namespace orvtest
