// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The operations of `URI` on single components, stated plainly.
#include "tests/reference/uri_model.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/text/string_ref.h"

#include <algorithm>
#include <vector>

namespace orvtest {

namespace {

using orv::char16;
using orv::ustring;
using orv::ustring_ref;

const ustring DOT(1, u'.');
const ustring DOT_DOT(2, u'.');
const ustring SLASH(1, u'/');

// What stands between the slashes: one more than there are slashes.
std::vector<ustring> piecesOf(const ustring& path) {
    std::vector<ustring> pieces(1);
    for (const char16 c : path) {
        if (c == u'/') {
            pieces.emplace_back();
        } else {
            pieces.back().push_back(c);
        }
    }
    return pieces;
}

bool isRooted(const ustring& path) {
    return !path.empty() && path.front() == u'/';
}

bool hasScheme(const ustring& path) {
    return piecesOf(path).front().find(char16(u':')) != ustring::npos;
}

class PlainMix {
public:
    std::size_t hash = 0;

    void add(unsigned value) { hash = hash * 31 + value; }

    void addExact(ustring_ref text) {
        int escaped = 0;
        for (const char16 c : text) {
            auto value = static_cast<unsigned>(c);
            if (escaped > 0 && value >= 'a' && value <= 'z') {
                value -= 32;
            }
            escaped = escaped > 0 ? escaped - 1 : value == '%' ? 2 : 0;
            add(value);
        }
        for (; escaped > 0; --escaped) {
            add(0xFFFF);
        }
    }

    void addFolded(ustring_ref text) {
        for (const char16 c : text) {
            add(foldedUnit(static_cast<unsigned>(c)));
        }
    }
};

} // namespace

bool isNormalPath(const ustring& path) {
    std::vector<ustring> segments = piecesOf(path);
    if (segments.front().empty()) {
        segments.erase(segments.begin()); // before the root, or of the empty path
    }
    if (!segments.empty() && segments.back().empty()) {
        segments.pop_back(); // behind the last slash
    }
    const auto isName = [](const ustring& s) { return s != DOT_DOT; };
    const auto firstName = std::find_if(segments.begin(), segments.end(), isName);
    return std::find(segments.begin(), segments.end(), ustring()) == segments.end() &&
           std::find(segments.begin(), segments.end(), DOT) == segments.end() &&
           std::find(firstName, segments.end(), DOT_DOT) == segments.end();
}

ustring normalPath(const ustring& path) {
    std::vector<ustring> kept;
    bool endsInFolder = true;
    for (const ustring& piece : piecesOf(path)) {
        endsInFolder = piece.empty() || piece == DOT;
        if (piece.empty() || piece == DOT) {
            continue;
        }
        if (piece == DOT_DOT && !kept.empty() && kept.back() != DOT_DOT) {
            kept.pop_back();
            endsInFolder = true;
        } else {
            kept.push_back(piece);
        }
    }
    ustring result = isRooted(path) ? SLASH : ustring();
    for (const ustring& segment : kept) {
        result += segment + SLASH;
    }
    if (!kept.empty() && !endsInFolder) {
        result.pop_back();
    }
    return hasScheme(result) ? DOT + SLASH + result : result;
}

unsigned foldedUnit(unsigned unit) {
    return orvUniCharToLower(orvUniCharToUpper(unit)) & 0xFFFFU;
}

std::size_t uriHash(const orv::net::URI& uri) {
    PlainMix mix;
    if (uri.getScheme().data() != nullptr) {
        mix.add(':');
        mix.addFolded(uri.getScheme());
    }
    if (const ustring_ref info = uri.getRawUserInfo(); info.data() != nullptr) {
        mix.add('@');
        mix.addExact(info);
        mix.add('/');
        mix.addFolded(uri.getUserInfo()); // decoding leaves the units before the first escape alone
    }
    ustring port = uri.getRawPort();
    if (!port.empty()) {
        port.erase(0, std::min(port.find_first_not_of(char16(u'0')), port.size() - 1));
        mix.add(':');
        mix.addExact(port);
    }
    mix.addExact(uri.getRawPath());
    if (uri.getRawQuery().data() != nullptr) {
        mix.add('?');
        mix.addExact(uri.getRawQuery());
    }
    if (uri.getRawFragment().data() != nullptr) {
        mix.add('#');
        mix.addExact(uri.getRawFragment());
    }
    return mix.hash;
}

} // namespace orvtest
