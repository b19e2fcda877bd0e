// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Edit distance over the registry.
#include "examples/recode/suggestions.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/cvtstr.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace recode {

namespace {

constexpr std::size_t MOST_SUGGESTIONS = 3;
// Names are short; a longer argument is no slip of the finger.
constexpr std::size_t LONGEST_NAME = 100;

// What the registry looks at when it compares names: letters and digits, in upper case.
orv::ustring key(orv::ustring_ref name) {
    orv::ustring letters;
    for (const orv::char16 unit : name) {
        if (orv::Char16::isLetterOrDigit(unit)) {
            letters.push_back(orv::Char16::toUpperCase(unit));
        }
    }
    return letters;
}

// Insertions, deletions and substitutions from one text to the other (Levenshtein).
std::size_t editDistance(orv::ustring_ref a, orv::ustring_ref b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t substituted = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({substituted, row[j] + 1, diagonal + 1});
        }
    }
    return row[b.size()];
}

struct Candidate {
    std::size_t distance;
    std::string text;
};

// The name of the set that is nearest; the canonical one where an alias is no nearer.
Candidate nearestName(const orv::Charset& set, const orv::ustring& wanted) {
    const std::string canonical = orv::cvtstr<std::string>(set.name());
    Candidate best{editDistance(key(set.name()), wanted), canonical};
    for (const orv::ustring_ref alias : set.aliases()) {
        const std::size_t distance = editDistance(key(alias), wanted);
        if (distance < best.distance) {
            best = {distance, orv::cvtstr<std::string>(alias) + " (" + canonical + ")"};
        }
    }
    return best;
}

} // namespace

std::vector<std::string> suggestNames(orv::ustring_ref unknown) {
    const orv::ustring wanted = key(unknown.substr(0, LONGEST_NAME));
    // A third of the name may be wrong, and a typing slip or two in a short one.
    const std::size_t furthest = std::max<std::size_t>(2, wanted.size() / 3);
    std::vector<Candidate> near;
    for (const orv::Charset* set : orv::Charset::availableCharsets()) {
        Candidate candidate = nearestName(*set, wanted);
        if (candidate.distance <= furthest && candidate.distance < wanted.size()) {
            near.push_back(std::move(candidate));
        }
    }
    std::stable_sort(near.begin(), near.end(), [](const Candidate& a, const Candidate& b) {
        return a.distance < b.distance;
    });
    near.resize(std::min(near.size(), MOST_SUGGESTIONS));
    std::vector<std::string> names;
    for (Candidate& candidate : near) {
        names.push_back(std::move(candidate.text));
    }
    return names;
}

} // namespace recode
