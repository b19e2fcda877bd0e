// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The texts that the benchmarks convert: words in random order, the same in every run.
#ifndef ORV_BENCH_TEXTS_H
#define ORV_BENCH_TEXTS_H

#include <cstddef>
#include <string>

namespace bench {

/// What a text is made of.
enum class Script {
    /// English, nothing above U+007F.
    ASCII,
    /// English with an é or a curly quote once in a while.
    ENGLISH,
    /// German, French and Spanish within Latin-1.
    WESTERN,
    /// Polish.
    POLISH,
    /// Esperanto, as ISO-8859-3 has it.
    ESPERANTO,
    /// Russian.
    CYRILLIC,
    /// Modern Greek with accents.
    GREEK,
    /// Modern Hebrew without points.
    HEBREW,
    /// Thai, with a space now and then.
    THAI,
    /// Chinese without spaces, with digits and full-width punctuation.
    CHINESE,
    /// The same in traditional characters.
    TRADITIONAL_CHINESE,
    /// Cantonese as it is spoken, with characters of the Hong Kong supplement.
    CANTONESE,
    /// Japanese: kanji, both kana, digits.
    JAPANESE,
    /// Korean: Hangul with spaces.
    KOREAN,
    /// Chat messages: short English words between emoji, some of them sequences.
    EMOJI
};

/// Name for tables.
const char* nameOf(Script script);

/// A text of at least \p units code units, cut at the end of a word. Equal arguments give equal
/// texts.
///
/// The words come in random order, because a short text said over and over teaches the branch
/// predictor where its characters are, which makes loops that branch look much faster than they
/// are.
std::u16string makeText(Script script, std::size_t units);

} // namespace bench

#endif
