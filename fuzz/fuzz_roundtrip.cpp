// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decoding and encoding undo each other, wherever a character has one form in its set.
///
/// Input: a byte of which the lowest bit says what follows, bytes to decode (0) or units to encode
/// (1), and the others choose a character set.
#include "fuzz/charsets.h"
#include "fuzz/check.h"
#include "fuzz/input.h"
#include "fuzz/several_forms.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/coding_error.h"

#include <algorithm>
#include <optional>

namespace {

bool isHigh(orv::char16 c) {
    return c >= u'\xD800' && c <= u'\xDBFF';
}
bool isLow(orv::char16 c) {
    return c >= u'\xDC00' && c <= u'\xDFFF';
}

// Pairs in the text; nothing if a surrogate stands alone.
std::optional<std::size_t> countPairs(const orv::ustring& text) {
    std::size_t pairs = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1])) {
            ++pairs;
            ++i;
        } else if (isHigh(text[i]) || isLow(text[i])) {
            return std::nullopt;
        }
    }
    return pairs;
}

std::optional<orv::ustring> tryDecode(orv::Charset* charset, const std::string& bytes) {
    try {
        return charset->newDecoder()->decode(bytes);
    } catch (const orv::CharacterCodingError&) {
        return std::nullopt;
    }
}

std::optional<std::string> tryEncode(orv::Charset* charset, const orv::ustring& text) {
    try {
        return charset->newEncoder()->encode(text);
    } catch (const orv::CharacterCodingError&) {
        return std::nullopt;
    }
}

// A text has one form, unless a character of it has several.
void checkBytes(orv::Charset* charset, const std::string& bytes) {
    const auto text = tryDecode(charset, bytes);
    if (!text) {
        return;
    }
    if (!countPairs(*text)) {
        FUZZ_CHECK(charset == orv::Charset::CESU_8);
        return;
    }
    const auto again = tryEncode(charset, *text);
    FUZZ_CHECK(again.has_value());
    if (!fuzz::hasSeveralForms(charset, *text)) {
        FUZZ_CHECK(*again == bytes);
    }
    FUZZ_CHECK(tryDecode(charset, *again) == text);
}

// What was encoded decodes to a text that encodes to the same bytes: the text itself, or that which
// a row from Unicode only leads to.
void checkUnits(orv::Charset* charset, const orv::ustring& text) {
    const auto bytes = tryEncode(charset, text);
    if (!bytes) {
        return;
    }
    const auto again = tryDecode(charset, *bytes);
    if (again) {
        FUZZ_CHECK(tryEncode(charset, *again) == bytes);
        return;
    }
    // The decoders of UTF-16 refuse U+FFFE, and four codes of Big5-HKSCS hold from Unicode only.
    const orv::char16* const end = text.data() + text.size();
    if (charset == orv::Charset::forName(fuzz::widen("Big5-HKSCS"))) {
        FUZZ_CHECK(std::any_of(text.data(), end,
                               [](orv::char16 c) { return c >= u'\xE000' && c <= u'\xF8FF'; }));
    } else {
        FUZZ_CHECK(charset == orv::Charset::UTF_16BE || charset == orv::Charset::UTF_16LE);
        FUZZ_CHECK(std::find(text.data(), end, orv::char16(u'\xFFFE')) != end);
    }
}

// One sequence of bytes for each text: what decodes without an error encodes to the same bytes.
void checkBytes(const std::string& bytes) {
    if (const auto text = tryDecode(orv::Charset::UTF_8, bytes)) {
        FUZZ_CHECK(countPairs(*text).has_value());
        FUZZ_CHECK(tryEncode(orv::Charset::UTF_8, *text) == bytes);
    }
    if (const auto text = tryDecode(orv::Charset::CESU_8, bytes)) {
        // The decoder hands a lone surrogate through, which the encoder refuses.
        const bool paired = countPairs(*text).has_value();
        FUZZ_CHECK(tryEncode(orv::Charset::CESU_8, *text) ==
                   (paired ? std::optional(bytes) : std::nullopt));
    }
    const auto latin1 = tryDecode(orv::Charset::ISO_8859_1, bytes);
    FUZZ_CHECK(latin1 == fuzz::widen(bytes));
    FUZZ_CHECK(tryEncode(orv::Charset::ISO_8859_1, *latin1) == bytes);

    // With replacements there is a text for any bytes, and it is stable from then on.
    const orv::ustring repaired = orv::Charset::UTF_8->decode(bytes);
    const auto again = tryEncode(orv::Charset::UTF_8, repaired);
    FUZZ_CHECK(again.has_value() && tryDecode(orv::Charset::UTF_8, *again) == repaired);
}

void checkUnits(const orv::ustring& text) {
    const auto pairs = countPairs(text);
    const auto utf8 = tryEncode(orv::Charset::UTF_8, text);
    const auto cesu8 = tryEncode(orv::Charset::CESU_8, text);
    FUZZ_CHECK(utf8.has_value() == pairs.has_value());
    FUZZ_CHECK(cesu8.has_value() == pairs.has_value());
    if (pairs) {
        FUZZ_CHECK(tryDecode(orv::Charset::UTF_8, *utf8) == text);
        FUZZ_CHECK(tryDecode(orv::Charset::CESU_8, *cesu8) == text);
        // Six bytes for a pair instead of four, and no other difference in length.
        FUZZ_CHECK(cesu8->size() == utf8->size() + 2 * *pairs);
    }
    if (std::all_of(text.begin(), text.end(), [](orv::char16 c) { return c <= u'\xFF'; })) {
        const auto latin1 = tryEncode(orv::Charset::ISO_8859_1, text);
        FUZZ_CHECK(latin1.has_value() && tryDecode(orv::Charset::ISO_8859_1, *latin1) == text);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::uint8_t choice = input.byte();
    orv::Charset* const charset = fuzz::chooseCharset(choice / 2);
    if (choice % 2 == 0) {
        const std::string bytes = input.rest();
        checkBytes(bytes);
        checkBytes(charset, bytes);
    } else {
        const orv::ustring text = fuzz::toUnits(input.rest());
        checkUnits(text);
        checkUnits(charset, text);
    }
    return 0;
}
