// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Dot segments and merging of paths.
#include "orv/liborvxx/net/detail/uri_path.h"

#include <algorithm>
#include <cassert>

namespace orv::net::detail {

namespace {

// What may come in front of a path.
constexpr std::size_t PREFIX_SIZE = 2;

std::size_t skipSlashes(const char16* units, std::size_t index, std::size_t size) noexcept {
    while (index < size && units[index] == u'/') {
        ++index;
    }
    return index;
}

std::size_t findSlash(const char16* units, std::size_t index, std::size_t size) noexcept {
    while (index < size && units[index] != u'/') {
        ++index;
    }
    return index;
}

bool isDot(const char16* segment, std::size_t size) noexcept {
    return size == 1 && segment[0] == u'.';
}

bool isDotDot(const char16* segment, std::size_t size) noexcept {
    return size == 2 && segment[0] == u'.' && segment[1] == u'.';
}

// Where the last segment of a text begins that ends with a slash.
std::size_t lastSegment(const char16* units, std::size_t size) noexcept {
    assert(size != 0 && units[size - 1] == u'/');
    --size;
    while (size != 0 && units[size - 1] != u'/') {
        --size;
    }
    return size;
}

// Drops what normalising drops, in place; the new size. What is written never overtakes what is
// read.
std::size_t dropDotSegments(char16* units, std::size_t size) noexcept {
    std::size_t in = 0;
    std::size_t out = 0;
    std::size_t depth = 0;
    while (in < size) {
        if (units[in] == u'/') {
            units[out++] = u'/';
            in = skipSlashes(units, in, size);
        }
        const std::size_t end = findSlash(units, in, size);
        const std::size_t length = end - in;
        if (isDot(units + in, length)) {
            in = skipSlashes(units, end, size);
        } else if (depth > 0 && isDotDot(units + in, length)) {
            in = skipSlashes(units, end, size);
            out = lastSegment(units, out);
            --depth;
        } else {
            depth += isDotDot(units + in, length) ? 0U : 1U;
            std::copy(units + in, units + end, units + out);
            in = end;
            out += length;
        }
    }
    return out;
}

// Whether the first segment of the path reads as a scheme.
bool looksLikeScheme(const char16* units, std::size_t size) noexcept {
    std::size_t i = 0;
    while (i < size && units[i] != u'/' && units[i] != u':') {
        ++i;
    }
    return i < size && units[i] == u':';
}

} // namespace

bool isNormalizedPath(ustring_ref path) noexcept {
    std::size_t depth = 0;
    std::size_t i = 0;
    while (i < path.size()) {
        if (path[i] == u'/') {
            ++i;
            if (i < path.size() && path[i] == u'/') {
                return false;
            }
        }
        const std::size_t end = findSlash(path.data(), i, path.size());
        if (isDot(path.data() + i, end - i)) {
            return false;
        }
        if (!isDotDot(path.data() + i, end - i)) {
            ++depth;
        } else if (depth > 0) {
            return false;
        }
        i = end;
    }
    return true;
}

PathText::PathText(std::size_t capacity) : units_(local_.data()) {
    if (capacity + PREFIX_SIZE > local_.size()) {
        // NOLINTNEXTLINE(modernize-make-unique): it would write zeros
        heap_.reset(new char16[capacity + PREFIX_SIZE]);
        units_ = heap_.get();
    }
}

void PathText::append(ustring_ref part) noexcept {
    std::copy(part.begin(), part.end(), units_ + size_);
    size_ += part.size();
}

void PathText::normalize() noexcept {
    size_ = dropDotSegments(units_, size_);
    if (looksLikeScheme(units_, size_)) {
        std::copy_backward(units_, units_ + size_, units_ + size_ + PREFIX_SIZE);
        units_[0] = u'.';
        units_[1] = u'/';
        size_ += PREFIX_SIZE;
    }
}

void mergePaths(bool baseHasHost, ustring_ref basePath, ustring_ref refPath,
                PathText& result) noexcept {
    static constexpr char16 SLASH = u'/';
    if (baseHasHost && basePath.empty()) {
        result.append(ustring_ref(&SLASH, 1));
    } else {
        const std::size_t slash = basePath.rfind(SLASH);
        result.append({basePath.data(), slash == ustring_ref::npos ? 0 : slash + 1});
    }
    result.append(refPath);
}

} // namespace orv::net::detail
