// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random URI references beside Boost.URL and uriparser: every difference is of a known
/// class.
#include "tests/differential/net/uri_differences.h"
#include "tests/differential/net/uri_peers.h"
#include "tests/support/case_count.h"
#include "tests/support/uri_near_miss.h"
#include "tests/support/uri_source.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

namespace {

using orvtest::BOOST_URIS;
using orvtest::caseCount;
using orvtest::nearMissOf;
using orvtest::NumberSource;
using orvtest::OWN_URIS;
using orvtest::uriAnswer;
using orvtest::UriDifference;
using orvtest::uriDifferences;
using orvtest::UriLibrary;
using orvtest::UriOperation;
using orvtest::URIPARSER_URIS;
using orvtest::UriQuestion;
using orvtest::UriSource;

constexpr UriOperation OPERATIONS[] = {UriOperation::PARSE, UriOperation::NORMALIZE,
                                       UriOperation::RESOLVE};

// Texts of ASCII: sentences of the grammar, broken ones, edited ones, and rows of delimiters.
class TextSource {
public:
    explicit TextSource(std::uint64_t seed) : uris_(seed, false) {}

    std::string text() {
        switch (numbers().below(5)) {
        case 0:
            return ofDelimiters();
        case 1:
            return ofPieces();
        case 2:
            return narrow(nearMissOf(uris_).text);
        case 3:
            return edited(narrow(uris_.uriReference().text));
        default:
            return narrow(uris_.uriReference().text);
        }
    }

    // With a scheme and an absolute path, more often than not.
    std::string base() {
        switch (numbers().below(4)) {
        case 0:
            return text();
        case 1:
            return narrow(uris_.uri().text);
        case 2:
            return "s:/" + ofPieces();
        default:
            return "s://h/" + ofPieces();
        }
    }

private:
    NumberSource& numbers() { return uris_.numbers(); }

    // Units beyond ASCII as "^", which is in no class as little as those put in to break a text.
    static std::string narrow(const orv::ustring& text) {
        std::string result;
        result.reserve(text.size());
        for (const orv::char16 unit : text) {
            const auto value = static_cast<unsigned>(unit);
            result.push_back(value > 0 && value < 128 ? static_cast<char>(value) : '^');
        }
        return result;
    }

    char delimiter() {
        constexpr std::string_view UNITS = "aAvV1g0:/?#[]@%.-!:/::..//%41 ";
        return UNITS[numbers().below(static_cast<unsigned>(UNITS.size()))];
    }

    std::string ofDelimiters() {
        std::string text(numbers().below(numbers().below(3) == 0 ? 24 : 10), ' ');
        for (char& unit : text) {
            unit = delimiter();
        }
        return text;
    }

    std::string ofPieces() {
        constexpr const char* PIECES[] = {"a",     "/",  ".",  "..",  "/",  "//", "/..",
                                          "/.",    "b",  "s:", "//h", "?q", "#f", "%2e",
                                          "s://h", "./", "a:", "%41", "h",  "?",  "#"};
        std::string text;
        for (unsigned count = numbers().below(8); count > 0; --count) {
            text += PIECES[numbers().below(std::size(PIECES))];
        }
        return text;
    }

    std::string edited(std::string text) {
        for (unsigned edits = 1 + numbers().below(3); edits > 0; --edits) {
            const std::size_t at = numbers().below(static_cast<unsigned>(text.size()) + 1);
            const std::size_t removed = numbers().below(2);
            const std::size_t added = removed == 0 ? 1 : numbers().below(2);
            text.replace(at, removed, added, delimiter());
        }
        return text;
    }

    UriSource uris_;
};

// Whether both libraries take the text, and take it apart alike.
bool areAgreed(const UriLibrary& other, const std::string& text) {
    const auto own = OWN_URIS.parse(text);
    return own && own == other.parse(text);
}

std::string shown(const UriQuestion& question) {
    return '"' + question.text +
           (question.operation == UriOperation::RESOLVE ? "\" from \"" + question.base : "") + '"';
}

class URIPeers : public ::testing::TestWithParam<const UriLibrary*> {
protected:
    // Texts that the libraries parse differently are a matter of parsing alone.
    static bool isComparable(const UriLibrary& other, const UriQuestion& question) {
        return question.operation == UriOperation::PARSE ||
               (areAgreed(other, question.text) &&
                (question.operation == UriOperation::NORMALIZE || areAgreed(other, question.base)));
    }

    // Asks both, and counts differences by class.
    void compare(UriOperation operation, std::size_t count) {
        const UriLibrary& other = *GetParam();
        TextSource texts(static_cast<std::uint64_t>(operation) + 1);
        std::map<std::string, int> counts;
        for (; count > 0 && !HasFailure(); --count) {
            const UriQuestion question{operation, texts.text(),
                                       operation == UriOperation::RESOLVE ? texts.base()
                                                                          : std::string()};
            if (!isComparable(other, question)) {
                continue;
            }
            const std::string own = uriAnswer(OWN_URIS, question);
            const std::string others = uriAnswer(other, question);
            if (own != others) {
                const UriDifference* const difference = explanation(other, question);
                ASSERT_NE(difference, nullptr)
                    << shown(question) << " gives " << own << ", and by " << other.name << ' '
                    << others << ", for no known reason";
                ++counts[difference->name];
            }
        }
        for (const auto& [name, differences] : counts) {
            RecordProperty(name, differences);
        }
    }
};

TEST_P(URIPeers, TakeApartAndRefuseTheSameTexts) {
    compare(UriOperation::PARSE, caseCount(300'000));
}

TEST_P(URIPeers, NormalizeAlikeButForKnownDifferences) {
    compare(UriOperation::NORMALIZE, caseCount(150'000));
}

TEST_P(URIPeers, ResolveAlikeButForKnownDifferences) {
    compare(UriOperation::RESOLVE, caseCount(150'000));
}

TEST_P(URIPeers, DifferAsTheExampleOfEachClassShows) {
    const UriLibrary& other = *GetParam();
    for (const UriOperation operation : OPERATIONS) {
        for (const UriDifference& difference : uriDifferences(operation)) {
            const UriQuestion& example = difference.example;
            if (concerns(difference, other)) {
                EXPECT_NE(uriAnswer(OWN_URIS, example), uriAnswer(other, example))
                    << difference.name;
                EXPECT_EQ(explanation(other, example), &difference) << difference.name;
            } else if (uriAnswer(OWN_URIS, example) != uriAnswer(other, example)) {
                EXPECT_NE(explanation(other, example), nullptr) << difference.name;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BoostURL, URIPeers, ::testing::Values(&BOOST_URIS));
INSTANTIATE_TEST_SUITE_P(Uriparser, URIPeers, ::testing::Values(&URIPARSER_URIS));

} // namespace
