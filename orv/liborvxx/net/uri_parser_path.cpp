// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URIParser::normalizePath`.
#include "orv/liborvxx/net/uri_parser.h"

#include "orv/liborvxx/base/error.h"

namespace orv::net {

namespace {

// What the path that is kept so far ends in.
enum class End {
    NOTHING,         // it is empty
    SEGMENT,         // a segment that is neither "." nor ".." behind a "/"
    FIRST_DOT,       // "." at the start
    FIRST_DOT_SLASH, // "./" at the start
    SLASH,           // "/"
    SLASH_DOT,       // "/."
    SLASH_DOT_DOT    // "/.."
};

// Where the path that ends in "/.." at length ends when that segment has cancelled the one before
// it; ".." has none to cancel at the start, and behind another "..".
std::size_t removeDotDot(char16* path, std::size_t length) noexcept {
    if (length == 3) {
        return length;
    }
    const std::size_t end = length - 3;
    std::size_t begin = end;
    while (begin != 0 && path[begin - 1] != u'/') {
        --begin;
    }
    if (end - begin == 2 && path[begin] == u'.' && path[begin + 1] == u'.') {
        return length;
    }
    if (begin == 0) {
        path[0] = u'.';
        return 1;
    }
    return begin - 1;
}

} // namespace

// One unit after the other is written behind the path that is kept so far, from which first goes
// what the unit shows to be superfluous. What is kept is never longer than what was read.
void URIParser::normalizePath(ustring& text, std::size_t start) {
    if (text.size() == start) {
        text.push_back(u'.');
        return;
    }
    char16* const units = text.data() + start;
    const std::size_t length = text.size() - start;
    End end = End::NOTHING;
    std::size_t kept = 0;
    for (std::size_t i = 0; i != length; ++i) {
        const char16 unit = units[i];
        const bool isSlash = unit == u'/';
        const bool isDot = unit == u'.';
        switch (end) {
        case End::NOTHING:
            end = isSlash ? End::SLASH : isDot ? End::FIRST_DOT : End::SEGMENT;
            break;
        case End::SEGMENT:
            end = isSlash ? End::SLASH : End::SEGMENT;
            break;
        case End::FIRST_DOT:
            end = isSlash ? End::FIRST_DOT_SLASH : End::SEGMENT;
            break;
        case End::FIRST_DOT_SLASH:
            kept -= isSlash ? 1 : 2;
            end = isSlash ? End::FIRST_DOT_SLASH : isDot ? End::FIRST_DOT : End::SEGMENT;
            break;
        case End::SLASH:
            kept -= isSlash ? 1 : 0;
            end = isSlash ? End::SLASH : isDot ? End::SLASH_DOT : End::SEGMENT;
            break;
        case End::SLASH_DOT:
            kept -= isSlash ? 2 : 0;
            end = isSlash ? End::SLASH : isDot ? End::SLASH_DOT_DOT : End::SEGMENT;
            break;
        case End::SLASH_DOT_DOT:
            if (isSlash) {
                kept = removeDotDot(units, kept);
                end = kept == 1 && units[0] == u'.' ? End::FIRST_DOT_SLASH : End::SLASH;
            } else {
                end = End::SEGMENT;
            }
            break;
        default:
            AssertionError::raise(nullptr, nullptr, 3292, "normalizePath");
        }
        units[kept++] = unit;
    }
    if (end == End::SLASH_DOT && kept != 2) {
        kept -= 2;
    } else if (end == End::SLASH_DOT_DOT) {
        kept = removeDotDot(units, kept);
    }
    text.resize(start + kept);
}

ustring URIParser::normalizePath(ustring path) {
    normalizePath(path, 0);
    return path;
}

} // namespace orv::net
