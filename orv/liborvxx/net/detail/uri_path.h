// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Dot segments and merging of paths, as `URI` has them; `URIParser::normalizePath` has
/// other rules.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_PATH_H
#define ORV_LIBORVXX_NET_DETAIL_URI_PATH_H

#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <array>
#include <cstddef>
#include <memory>

namespace orv::net::detail {

/// Whether \p path has no "//", no "." segment, and ".." segments at its front alone.
bool isNormalizedPath(ustring_ref path) noexcept;

/// A path under construction. Paths of usual length need no allocation.
class PathText {
public:
    /// Empty, with room for \p capacity units to be appended.
    explicit PathText(std::size_t capacity);

    PathText(const PathText&) = delete;
    PathText& operator=(const PathText&) = delete;

    /// What is appended in all must not exceed the capacity.
    void append(ustring_ref part) noexcept;

    /// Each run of slashes becomes one; "." segments go, and so does a ".." segment with the
    /// segment that it cancels. ".." segments that find none to cancel stay, behind a root too.
    /// "./" comes in front where the first segment would else read as a scheme. O(size).
    void normalize() noexcept;

    ustring_ref view() const noexcept { return {units_, size_}; }

private:
    std::array<char16, 256> local_;
    std::unique_ptr<char16[]> heap_;
    char16* units_;
    std::size_t size_ = 0;
};

/// Appends \p refPath, as seen from \p basePath, to \p result: what stands up to the last "/" of
/// the base, or "/" for the empty path of a base with a host; then the reference.
void mergePaths(bool baseHasHost, ustring_ref basePath, ustring_ref refPath,
                PathText& result) noexcept;

} // namespace orv::net::detail

#endif
