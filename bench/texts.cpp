// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Sentences drawn from word lists.
#include "bench/texts.h"

#include "bench/chooser.h"
#include "bench/words.h"

#include <string_view>

namespace bench {

namespace {

// How the words of a script become sentences.
struct Style {
    const char* name;
    std::u16string_view words;
    // Drawn instead of a word once in `rareOneIn` times; 0 for never.
    std::u16string_view rareWords;
    unsigned int rareOneIn;
    std::u16string_view space;
    std::u16string_view comma;
    std::u16string_view stops;
};

constexpr std::u16string_view STOPS = u". . . ? !";
constexpr std::u16string_view WIDE_STOPS = u"\u3002 \u3002 \uFF01 \uFF1F \uFF1B";

Style spaced(const char* name, std::u16string_view words) {
    return {name, words, {}, 0, u" ", u",", STOPS};
}
Style unspaced(const char* name, std::u16string_view words) {
    return {name, words, {}, 0, u"", u"\uFF0C", WIDE_STOPS};
}

Style styleOf(Script script) {
    switch (script) {
    case Script::ENGLISH:
        return {"English", words::ENGLISH, words::ENGLISH_RARE, 40, u" ", u",", STOPS};
    case Script::WESTERN:
        return spaced("Western", words::WESTERN);
    case Script::POLISH:
        return spaced("Polish", words::POLISH);
    case Script::ESPERANTO:
        return spaced("Esperanto", words::ESPERANTO);
    case Script::CYRILLIC:
        return spaced("Cyrillic", words::CYRILLIC);
    case Script::GREEK:
        return spaced("Greek", words::GREEK);
    case Script::HEBREW:
        return spaced("Hebrew", words::HEBREW);
    case Script::THAI:
        // A space now and then, and no marks: the list of stops holds an empty one.
        return {"Thai", words::THAI, {}, 0, u"", u" ", u" "};
    case Script::CHINESE:
        return unspaced("Chinese", words::CHINESE);
    case Script::TRADITIONAL_CHINESE:
        return unspaced("Traditional", words::TRADITIONAL_CHINESE);
    case Script::CANTONESE:
        return unspaced("Cantonese", words::CANTONESE);
    case Script::JAPANESE:
        return {"Japanese", words::JAPANESE, {}, 0, u"", u"\u3001", u"\u3002"};
    case Script::KOREAN:
        return spaced("Korean", words::KOREAN);
    case Script::EMOJI:
        return {"emoji", words::CHAT, words::EMOJI, 3, u" ", u",", STOPS};
    case Script::ASCII:
        break;
    }
    return spaced("ASCII", words::ENGLISH);
}

} // namespace

const char* nameOf(Script script) {
    return styleOf(script).name;
}

std::u16string makeText(Script script, std::size_t units) {
    const Style style = styleOf(script);
    const Words common = split(style.words);
    const Words rare = split(style.rareWords);
    const Words stops = split(style.stops);
    Chooser choose;
    std::u16string text;
    while (text.size() < units) {
        const unsigned int sentence = 4 + choose.below(14);
        for (unsigned int i = 0; i < sentence; ++i) {
            if (i != 0) {
                text += choose.oneIn(9) ? style.comma : std::u16string_view();
                text += style.space;
            }
            text += choose.word(choose.oneIn(style.rareOneIn) ? rare : common);
        }
        text += stops[choose.below(stops.size())];
        text += choose.oneIn(6) ? std::u16string_view(u"\n") : style.space;
    }
    return text;
}

} // namespace bench
