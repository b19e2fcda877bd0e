// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The ways to break a sentence.
#include "tests/support/uri_near_miss.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace orvtest {

namespace {

using Miss = std::optional<UriNearMiss>;

// Units of no class: ASCII ones, controls, separators, private use, unassigned.
constexpr char16_t STRANGERS[] = {u' ',   u'"',   u'<',   u'>',   u'\\',  u'^',   u'`',
                                  u'{',   u'|',   u'}',   0,      0x1F,   0x7F,   0x80,
                                  0x85,   0xA0,   0x0378, 0x1680, 0x2028, 0x2029, 0x3000,
                                  0xE000, 0xF8FF, 0xFDD0, 0xFDEF, 0xFFFE, 0xFFFF};

orv::ustring textOf(std::u16string_view units) {
    orv::ustring text;
    for (const char16_t unit : units) {
        text.push_back(orv::char16(unit));
    }
    return text;
}

template <std::size_t COUNT>
orv::ustring oneOf(NumberSource& numbers, const char16_t (&units)[COUNT]) {
    return {1, orv::char16(units[numbers.below(COUNT)])};
}

bool isDigit(orv::char16 unit) {
    return unit >= u'0' && unit <= u'9';
}

bool isAlpha(orv::char16 unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool isScheme(orv::ustring_ref text) {
    return !text.empty() && isAlpha(text[0]) &&
           std::all_of(text.begin(), text.end(), [](orv::char16 unit) {
               return isAlpha(unit) || isDigit(unit) || unit == u'+' || unit == u'-' ||
                      unit == u'.';
           });
}

class Breaker {
public:
    explicit Breaker(UriSource& source)
        : numbers_(source.numbers()), sentence_(source.uriReference()) {}

    Miss broken() {
        switch (numbers_.below(10)) {
        case 0:
            return withUnitInLiteral();
        case 1:
            return withCutLiteral();
        case 2:
            return withBadField();
        case 3:
            return withLetterInPort();
        case 4:
            return withSecondHash();
        case 5:
            return withSecondAt();
        case 6:
            return withColonInFirstSegment();
        case 7:
            return withTextBehindLiteral();
        default:
            return withUnitAnywhere();
        }
    }

private:
    Miss miss(std::size_t at, const orv::ustring& inserted, std::size_t index, const char* reason,
              std::size_t removed = 0) const {
        UriNearMiss result{
            .text = sentence_.text, .index = index, .reason = reason, .outOfRange = false};
        result.text.replace(at, removed, inserted);
        return result;
    }

    std::size_t placeIn(UriRange range) {
        return range.begin + numbers_.below(static_cast<unsigned>(range.end - range.begin) + 1);
    }

    bool isInLiteral(std::size_t at) const { return trapAt(sentence_, at) != nullptr; }

    std::size_t stopAt(std::size_t at) const { return stopIfEndedAt(sentence_, at); }

    // A "%" that is no escape, whatever follows it but a quote.
    orv::ustring badEscape() {
        constexpr std::u16string_view ESCAPES[] = {u"%\"", u"%/",   u"%g0", u"%0g",
                                                   u"%%",  u"%F\"", u"%-1", u"%\u0660\u0660",
                                                   u"%:a", u"%@A"};
        return textOf(ESCAPES[numbers_.below(std::size(ESCAPES))]);
    }

    Miss withUnitAnywhere() {
        const std::size_t at = placeIn({0, sentence_.text.size()});
        if (isInLiteral(at)) {
            return std::nullopt;
        }
        const std::size_t index = stopAt(at);
        switch (numbers_.below(4)) {
        case 0:
            if (sentence_.host && at == sentence_.host->begin) {
                return std::nullopt; // of an IP literal
            }
            if (sentence_.userInfo && at == sentence_.userInfo->begin) {
                return std::nullopt;
            }
            return miss(at, textOf(u"["), index, UNEXPECTED_AT_END);
        case 1:
            return miss(at, textOf(u"]"), index, UNEXPECTED_AT_END);
        case 2:
            return miss(at, badEscape(), index, UNEXPECTED_AT_END);
        default:
            return miss(at, oneOf(numbers_, STRANGERS), index,
                        index == at ? UNEXPECTED : UNEXPECTED_AT_END);
        }
    }

    // A place within the brackets, and what is wrong there.
    std::size_t literalPlace(AddressTrap& trap) {
        const std::size_t i = numbers_.below(static_cast<unsigned>(sentence_.traps.size()));
        trap = sentence_.traps[i];
        return sentence_.host->begin + 1 + i;
    }

    Miss withUnitInLiteral() {
        constexpr char16_t SOFT[] = {u'/', u'?', u'#', u'[', u'@', u'%'};
        constexpr char16_t SOFT_IN_IPV6[] = {u'-', u'!', u'~', u'_', 0x20AC, 0x0301, 0xDC00};
        constexpr char16_t HARD[] = {u'g', u'z', u'Z', 0xE9, 0x0660, 0xFF11, 0x4E00};
        if (sentence_.traps.empty()) {
            return std::nullopt;
        }
        AddressTrap trap;
        const std::size_t at = literalPlace(trap);
        const bool isIPv6 = !sentence_.pieces.empty() || sentence_.traps.size() == 3; // "::"
        orv::ustring unit;
        const char* reason = trap.soft;
        switch (numbers_.below(6)) {
        case 0:
            unit = oneOf(numbers_, HARD);
            reason = trap.hard;
            break;
        case 1:
            unit = textOf(u":");
            reason = trap.colon;
            break;
        case 2:
            unit = textOf(u".");
            reason = trap.dot;
            break;
        case 3:
            unit = isIPv6 ? oneOf(numbers_, SOFT_IN_IPV6) : oneOf(numbers_, SOFT);
            break;
        case 4:
            unit = oneOf(numbers_, SOFT);
            break;
        default:
            unit = oneOf(numbers_, STRANGERS);
            break;
        }
        return reason == nullptr ? std::nullopt : miss(at, unit, at, reason);
    }

    // The literal, or the text, ends too early.
    Miss withCutLiteral() {
        if (sentence_.traps.empty()) {
            return std::nullopt;
        }
        AddressTrap trap;
        const std::size_t at = literalPlace(trap);
        const bool complete = std::string_view(trap.soft) == "']' expected";
        const orv::ustring rest = complete || numbers_.coin() ? orv::ustring() : textOf(u"]");
        return miss(at, rest, at, trap.soft, sentence_.text.size() - at);
    }

    Miss withBadField() {
        if (sentence_.pieces.empty()) {
            return std::nullopt;
        }
        const AddressPiece& piece =
            sentence_.pieces[numbers_.below(static_cast<unsigned>(sentence_.pieces.size()))];
        const std::size_t begin = piece.range.begin;
        const std::size_t length = piece.range.end - begin;
        if (piece.octet < 0) {
            return miss(begin, textOf(u"0a1B2"), begin + 4, piece.tooLong, length);
        }
        orv::ustring octet;
        if (numbers_.coin()) {
            for (const char digit : std::to_string(256 + numbers_.below(744))) {
                octet.push_back(orv::char16(digit));
            }
            Miss result = miss(begin, octet, begin + 2, "value greater than 255", length);
            result->outOfRange = true;
            return result;
        }
        return miss(begin, textOf(u"07"), begin + 1,
                    piece.octet < 3 ? "'.' expected" : "letter, digit and '.' not allowed here",
                    length);
    }

    Miss withLetterInPort() {
        constexpr char16_t LETTERS[] = {u'a', u'F', u'-', u':', u'!', 0xE9, 0x0661, 0xFF11, 0xD800};
        if (!sentence_.port) {
            return std::nullopt;
        }
        const std::size_t at = placeIn(*sentence_.port);
        return miss(at, oneOf(numbers_, LETTERS), at, UNEXPECTED_AT_END);
    }

    Miss withSecondHash() {
        if (!sentence_.fragment) {
            return std::nullopt;
        }
        const std::size_t at = placeIn(*sentence_.fragment);
        return miss(at, textOf(u"#"), stopAt(at), UNEXPECTED_AT_END);
    }

    Miss withSecondAt() {
        if (!sentence_.userInfo) {
            return std::nullopt;
        }
        const std::size_t at = placeIn({sentence_.host->begin, sentence_.authority->end});
        return isInLiteral(at) ? std::nullopt
                               : miss(at, textOf(u"@"), stopAt(at), UNEXPECTED_AT_END);
    }

    Miss withColonInFirstSegment() {
        if (sentence_.scheme || sentence_.hierarchical) {
            return std::nullopt;
        }
        const orv::ustring_ref path = sentence_.view(sentence_.path);
        const std::size_t first = std::min(path.find(orv::char16(u'/')), path.size());
        const std::size_t at = placeIn({0, first});
        return isScheme(path.substr(0, at)) ? std::nullopt
                                            : miss(at, textOf(u":"), stopAt(at), UNEXPECTED_AT_END);
    }

    Miss withTextBehindLiteral() {
        constexpr char16_t UNITS[] = {u'a', u'1', u'.', u'@', u'[', u']', u'%', u'!', 0xE9, 0xDFFF};
        if (sentence_.traps.empty()) {
            return std::nullopt;
        }
        const std::size_t at = sentence_.host->end;
        return miss(at, oneOf(numbers_, UNITS), at, UNEXPECTED_AT_END);
    }

    NumberSource& numbers_;
    UriSentence sentence_;
};

} // namespace

std::size_t stopIfEndedAt(const UriSentence& sentence, std::size_t at) {
    if (sentence.userInfo && sentence.userInfo->begin <= at && at <= sentence.userInfo->end) {
        // No "@" is seen: a host, and a port behind the first colon, up to what is no digit.
        const auto begin = sentence.text.begin();
        const auto place = [begin](std::size_t i) {
            return begin + static_cast<std::ptrdiff_t>(i);
        };
        const auto colon = std::find(place(sentence.userInfo->begin), place(at), u':');
        if (colon != place(at)) {
            const auto stop = std::find_if_not(colon + 1, place(at), isDigit);
            return static_cast<std::size_t>(stop - begin);
        }
    }
    for (const UriRange escape : sentence.escapes) {
        if (escape.begin < at && at < escape.end) {
            return escape.begin;
        }
    }
    return at;
}

const AddressTrap* trapAt(const UriSentence& sentence, std::size_t at) {
    return !sentence.traps.empty() && at > sentence.host->begin && at < sentence.host->end
               ? &sentence.traps[at - sentence.host->begin - 1]
               : nullptr;
}

UriNearMiss nearMissOf(UriSource& source) {
    for (;;) {
        if (Miss result = Breaker(source).broken()) {
            return *result;
        }
    }
}

} // namespace orvtest
