// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Whether a text is an IP address.
#include "orv/liborvxx/net/detail/ip_address.h"

#include "orv/liborvxx/net/detail/uri_units.h"

#include <cstddef>

namespace orv::net::detail {

namespace {

// What is left of a text.
class Rest {
public:
    explicit Rest(ustring_ref text) noexcept : rest_(text) {}

    ustring_ref get() const noexcept { return rest_; }
    bool empty() const noexcept { return rest_.empty(); }

    // Whether the rest begins with the unit, or a unit of the classes.
    bool at(char16_t c) const noexcept { return !rest_.empty() && rest_.front() == c; }
    bool atUnit(unsigned int bits) const noexcept {
        return !rest_.empty() && isAscii(rest_.front(), bits);
    }

    // Whether it begins with "::".
    bool atGap() const noexcept { return at(u':') && rest_.size() > 1 && rest_[1] == u':'; }

    // Steps over a unit if it is the next one.
    bool take(char16_t c) noexcept {
        const bool found = at(c);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }

    // Steps over units of the classes, up to `most`, and counts them.
    std::size_t takeAll(unsigned int bits, std::size_t most = ustring_ref::npos) noexcept {
        std::size_t count = 0;
        for (; count < most && atUnit(bits); ++count) {
            rest_.remove_prefix(1);
        }
        return count;
    }

    // A number up to 255; a first digit 0 is all of it.
    bool takeOctet() noexcept {
        if (take(u'0')) {
            return true;
        }
        unsigned int value = 0;
        for (; value <= 255 && atUnit(DIGIT); rest_.remove_prefix(1)) {
            value = value * 10 + (static_cast<unsigned int>(rest_.front()) - u'0');
        }
        return value != 0 && value <= 255;
    }

private:
    ustring_ref rest_;
};

} // namespace

bool is_IPv4_address(ustring_ref text) noexcept {
    Rest rest(text);
    return rest.takeOctet() && rest.take(u'.') && rest.takeOctet() && rest.take(u'.') &&
           rest.takeOctet() && rest.take(u'.') && rest.takeOctet() && rest.empty();
}

bool is_IPv6_address(ustring_ref text) noexcept {
    Rest rest(text);
    unsigned int groups = 0; // "::" is one of them
    bool gap = false;        // "::" was seen
    bool colon = false;      // a group must follow
    while (!rest.empty()) {
        if (rest.atGap() && !gap) {
            rest.take(u':');
            rest.take(u':');
            gap = true;
            ++groups;
            continue;
        }
        const ustring_ref group = rest.get();
        if (rest.takeAll(HEX_DIGIT, 4) == 0) {
            return false;
        }
        if (rest.at(u'.')) {
            return (gap ? groups <= 6 : groups == 6) && is_IPv4_address(group);
        }
        ++groups;
        colon = !rest.empty() && !rest.atGap();
        if (colon && !rest.take(u':')) {
            return false;
        }
    }
    return !colon && (gap ? groups < 9 : groups == 8);
}

bool is_IPvFuture(ustring_ref text) noexcept {
    Rest rest(text);
    return (rest.take(u'v') || rest.take(u'V')) && rest.takeAll(HEX_DIGIT) != 0 &&
           rest.take(u'.') && rest.takeAll(UNRESERVED | SUB_DELIM | COLON) != 0 && rest.empty();
}

bool is_IP_literal(ustring_ref text) noexcept {
    if (text.size() < 2 || text.front() != u'[' || text.back() != u']') {
        return false;
    }
    text.remove_prefix(1);
    text.remove_suffix(1);
    return is_IPv6_address(text) || is_IPvFuture(text);
}

} // namespace orv::net::detail
