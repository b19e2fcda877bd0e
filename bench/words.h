// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The word lists that texts are made of.
///
/// Words stand between single spaces, roughly by falling frequency: those near the front are drawn
/// more often.
#ifndef ORV_BENCH_WORDS_H
#define ORV_BENCH_WORDS_H

#include <string_view>

namespace bench::words {

extern const std::u16string_view ENGLISH;
extern const std::u16string_view ENGLISH_RARE;
extern const std::u16string_view WESTERN;
extern const std::u16string_view POLISH;
extern const std::u16string_view ESPERANTO;
extern const std::u16string_view CHAT;
extern const std::u16string_view EMOJI;
extern const std::u16string_view CYRILLIC;
extern const std::u16string_view GREEK;
extern const std::u16string_view HEBREW;
extern const std::u16string_view THAI;
extern const std::u16string_view CHINESE;
extern const std::u16string_view TRADITIONAL_CHINESE;
extern const std::u16string_view CANTONESE;
extern const std::u16string_view JAPANESE;
extern const std::u16string_view KOREAN;

} // namespace bench::words

#endif
