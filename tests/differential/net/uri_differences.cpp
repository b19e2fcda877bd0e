// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The conditions of classes of differences.
#include "tests/differential/net/uri_differences.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace orvtest {

namespace {

bool isRefused(const UriComparison& c) {
    return !c.own && c.other;
}

// Segments, those between slashes; escaped dots as dots. A path that begins with "/" has an empty
// one first.
std::vector<std::string> segmentsOf(const std::string& path) {
    std::vector<std::string> segments(1);
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '/') {
            segments.emplace_back();
        } else if (path.compare(i, 3, "%2e") == 0 || path.compare(i, 3, "%2E") == 0) {
            segments.back() += '.';
            i += 2;
        } else {
            segments.back() += path[i];
        }
    }
    return segments;
}

bool isDots(const std::string& segment) {
    return segment == "." || segment == "..";
}

bool hasDots(const std::string& path) {
    const auto segments = segmentsOf(path);
    return std::any_of(segments.begin(), segments.end(), isDots);
}

bool endsInDots(const std::string& path) {
    return isDots(segmentsOf(path).back());
}

bool hasTwoSlashes(const std::string& path) {
    return path.find("//") != std::string::npos;
}

// Segments that no ".." behind them cancels; negative where a ".." has none to cancel.
int depthOf(const std::string& path) {
    int depth = 0;
    for (const std::string& segment : segmentsOf(path)) {
        if (segment == "..") {
            if (--depth < 0) {
                return depth;
            }
        } else if (!segment.empty() && segment != ".") {
            ++depth;
        }
    }
    return depth;
}

bool goesAboveItsRoot(const std::string& path) {
    return depthOf(path) < 0;
}

// Whether a relative path has a "." where ".." segments have left nothing.
bool hasDotBehindCancelled(const std::string& path) {
    const auto segments = segmentsOf(path);
    int depth = 0;
    bool isCancelled = false;
    for (const std::string& segment : segments) {
        if (segment == "..") {
            --depth;
            isCancelled = true;
        } else if (segment != ".") {
            ++depth;
        } else if (isCancelled && depth == 0) {
            return !path.starts_with('/');
        }
    }
    return false;
}

bool leavesNothing(const std::string& path) {
    return depthOf(path) == 0;
}

bool beginsWith(const std::optional<std::string>& part, std::string_view start) {
    return part && part->starts_with(start);
}

bool hasLeadingZero(const std::string& port) {
    return port.size() > 1 && port.front() == '0';
}

// Whether there is an escape of one of the characters.
bool hasEscapeOf(const std::string& text, std::string_view characters) {
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1)) {
        const int value = std::stoi(text.substr(at + 1, 2), nullptr, 16);
        if (value != 0 && characters.find(static_cast<char>(value)) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

bool hasEscapedCapital(const std::string& text) {
    return hasEscapeOf(text, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

bool hasEscapedDelimiter(const std::string& text) {
    return hasEscapeOf(text, ":/?#[]@!$&'()*+,;=");
}

bool isIPv6(const UriParts& parts) {
    return parts.host && parts.host->starts_with('[') && !parts.host->starts_with("[v");
}

// Whether a reference is merged with the path of the base.
bool isMerged(const UriParts& reference) {
    return !reference.scheme && !reference.host && !reference.path.starts_with('/');
}

// RFC 3986, section 5.2.3
std::string mergedPath(const UriComparison& c) {
    return c.base->host && c.base->path.empty()
               ? "/" + c.own->path
               : c.base->path.substr(0, c.base->path.rfind('/') + 1) + c.own->path;
}

// Four octets and something behind them.
bool beginsWithIPv4Address(const std::string& host) {
    std::size_t at = 0;
    for (int octet = 0; octet < 4; ++octet) {
        if (octet > 0 && (at >= host.size() || host[at++] != '.')) {
            return false;
        }
        const std::size_t first = at;
        int value = 0;
        while (at < host.size() && std::isdigit(static_cast<unsigned char>(host[at])) != 0 &&
               value * 10 + (host[at] - '0') <= 255 && (at == first || value > 0)) {
            value = value * 10 + (host[at++] - '0');
        }
        if (at == first) {
            return false;
        }
    }
    return at < host.size();
}

} // namespace

const std::vector<UriDifference>& uriDifferences(UriOperation operation) {
    static const std::vector<UriDifference> PARSING = {
        {"Text between an authority and its path",
         "RFC 3986 wants an authority to be followed by a slash, a question mark, a number sign or "
         "the end. Boost.URL takes what else follows for a path.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return isRefused(c) && c.other->host && !c.other->path.empty() &&
                    c.other->path.front() != '/';
         },
         {UriOperation::PARSE, "s://[::1]a/b", ""}},
        {"Host that begins with an IPv4 address",
         "The first rule of a host that matches wins in RFC 3986, and here the whole is a "
         "registered name. Boost.URL ends the host behind the address.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return c.own && c.own->host && beginsWithIPv4Address(*c.own->host);
         },
         {UriOperation::PARSE, "s://1.2.3.4a/", ""}},
        {"Future address with a capital V",
         "Text in quotes is without case in RFC 3986. This library takes the small letter alone.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) { return isRefused(c) && beginsWith(c.other->host, "[V"); },
         {UriOperation::PARSE, "s://[V1.x]/", ""}}};
    static const std::vector<UriDifference> NORMALIZING = {
        {"Empty path",
         "A path of no segments is written as a dot. Behind an authority that makes the host "
         "another one.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return c.own->path.empty(); },
         {UriOperation::NORMALIZE, "s://h?q", ""}},
        {"Slashes in a row",
         "They become one. RFC 3986 keeps the empty segments between them.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return hasTwoSlashes(c.own->path); },
         {UriOperation::NORMALIZE, "s://h/a//b", ""}},
        {"Path that ends in a dot segment",
         "It ends without a slash, and what is left of nothing is a dot. RFC 3986 keeps the slash "
         "that stood before the segment.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return endsInDots(c.own->path); },
         {UriOperation::NORMALIZE, "s://h/a/b/..", ""}},
        {"Relative path of which nothing is left",
         "It becomes a dot and a slash, and an empty path for the others.",
         UriPeers::BOTH,
         [](const UriComparison& c) {
             return !c.own->path.starts_with('/') && hasDots(c.own->path) &&
                    leavesNothing(c.own->path);
         },
         {UriOperation::NORMALIZE, "a/../", ""}},
        {"Dot segments above the root",
         "They stay, in Boost.URL as a rule too. RFC 3986 drops them.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) { return goesAboveItsRoot(c.own->path); },
         {UriOperation::NORMALIZE, "s://h/../a", ""}},
        {"Path of nothing but dot segments above its start",
         "They stay. Boost.URL drops them if they end in a slash.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return !c.own->path.starts_with('/') && goesAboveItsRoot(c.own->path);
         },
         {UriOperation::NORMALIZE, "s:a/../../../", ""}},
        {"Colon in a first segment laid bare",
         "Nothing is put before it, and what was a segment then reads as a scheme. The others "
         "keep the dot segment or escape the colon.",
         UriPeers::BOTH,
         [](const UriComparison& c) {
             return !c.own->scheme && hasDots(c.own->path) &&
                    c.own->path.find(':') != std::string::npos;
         },
         {UriOperation::NORMALIZE, "./a:b", ""}},
        {"Dot behind what was cancelled",
         "It goes, as elsewhere. Boost.URL keeps it at the start of a relative path.",
         UriPeers::BOOST,
         [](const UriComparison& c) { return hasDotBehindCancelled(c.own->path); },
         {UriOperation::NORMALIZE, "a/.././b", ""}},
        {"Leading zeros of a port",
         "They go. The others leave ports as they are.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return c.own->port && hasLeadingZero(*c.own->port); },
         {UriOperation::NORMALIZE, "s://h:080/", ""}},
        {"Escaped letter in a host",
         "The host is lower-cased before its escapes are decoded.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return c.own->host && hasEscapedCapital(*c.own->host); },
         {UriOperation::NORMALIZE, "s://%41B/", ""}},
        {"Escapes of delimiters",
         "They stay. Boost.URL decodes those that may stand in the component, and slashes.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return hasEscapedDelimiter(c.own->userInfo.value_or("") + c.own->host.value_or("") +
                                        c.own->path + c.own->query.value_or("") +
                                        c.own->fragment.value_or(""));
         },
         {UriOperation::NORMALIZE, "s://h/a%2Cb%2Fc", ""}},
        {"Escapes in a host",
         "uriparser writes their digits in small letters.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) {
             return c.own->host && c.own->host->find('%') != std::string::npos;
         },
         {UriOperation::NORMALIZE, "s://%C3%A9/", ""}},
        {"IPv6 addresses",
         "uriparser writes all groups with all digits.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) { return isIPv6(*c.own); },
         {UriOperation::NORMALIZE, "s://[::1]/", ""}}};
    static const std::vector<UriDifference> RESOLVING = {
        {"Base without a scheme",
         "The others need one.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return !c.base->scheme; },
         {UriOperation::RESOLVE, "b", "/a/c"}},
        {"Base without a hierarchy",
         "The result is the reference itself. The others merge the two.",
         UriPeers::BOTH,
         [](const UriComparison& c) {
             return !c.own->scheme && !c.base->host && !c.base->path.starts_with('/');
         },
         {UriOperation::RESOLVE, "y", "urn:x"}},
        {"Reference with an empty path",
         "It is merged like any other, unless it has a fragment alone, and leads to the folder of "
         "the base. For RFC 3986 it leads to the base.",
         UriPeers::BOTH,
         [](const UriComparison& c) {
             return !c.own->scheme && !c.own->host && c.own->path.empty() &&
                    (c.own->query || !c.own->fragment);
         },
         {UriOperation::RESOLVE, "?y", "s://h/a/b?x"}},
        {"Dot segments in a reference that is not merged",
         "They stay where the reference has a scheme, an authority or a path that begins with a "
         "slash.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return !isMerged(*c.own) && hasDots(c.own->path); },
         {UriOperation::RESOLVE, "/x/../y", "s://h/a"}},
        {"Slashes in a row in a merged path",
         "They become one. RFC 3986 keeps the empty segments between them.",
         UriPeers::BOTH,
         [](const UriComparison& c) { return isMerged(*c.own) && hasTwoSlashes(mergedPath(c)); },
         {UriOperation::RESOLVE, "b", "s://h//a/c"}},
        {"Dot segments above the root of a merged path",
         "They stay, in Boost.URL as a rule too. RFC 3986 drops them.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) { return isMerged(*c.own) && goesAboveItsRoot(mergedPath(c)); },
         {UriOperation::RESOLVE, "../../b", "s://h/a/c"}},
        {"Merged path that ends above its root",
         "It stays. Boost.URL may make it the root.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return isMerged(*c.own) && goesAboveItsRoot(mergedPath(c)) &&
                    endsInDots(mergedPath(c));
         },
         {UriOperation::RESOLVE, "../..", "s:/a"}},
        {"Dot segments of a base that gets a fragment",
         "They stay, as RFC 3986 has it. Boost.URL removes them.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return isMerged(*c.own) && c.own->path.empty() && hasDots(c.base->path);
         },
         {UriOperation::RESOLVE, "#f", "s://h/a/../b"}},
        {"Escapes in a path",
         "They stay as they are. Boost.URL decodes them, or writes their digits in capitals.",
         UriPeers::BOOST,
         [](const UriComparison& c) {
             return c.own->path.find('%') != std::string::npos ||
                    (isMerged(*c.own) && c.base->path.find('%') != std::string::npos);
         },
         {UriOperation::RESOLVE, "%7ea%c3", "s://h/"}},
        {"Merged path of which a slash is left, without an authority",
         "uriparser leaves a dot segment.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) {
             return isMerged(*c.own) && !c.base->host && leavesNothing(mergedPath(c));
         },
         {UriOperation::RESOLVE, "a/..", "s:/"}},
        {"IPv6 addresses",
         "uriparser writes all groups with all digits.",
         UriPeers::URIPARSER,
         [](const UriComparison& c) {
             return isIPv6(*c.own) || (!c.own->scheme && !c.own->host && isIPv6(*c.base));
         },
         {UriOperation::RESOLVE, "b", "s://[::1]/a"}}};
    return operation == UriOperation::PARSE       ? PARSING
           : operation == UriOperation::NORMALIZE ? NORMALIZING
                                                  : RESOLVING;
}

std::string uriAnswer(const UriLibrary& library, const UriQuestion& question) {
    std::optional<std::string> answer;
    switch (question.operation) {
    case UriOperation::PARSE:
        if (const auto parts = library.parse(question.text)) {
            answer = "";
            const auto add = [&answer](const char* name, const std::optional<std::string>& part) {
                if (part) {
                    *answer += (answer->empty() ? "" : ", ") + (name + (" \"" + *part + "\""));
                }
            };
            add("scheme", parts->scheme);
            add("user info", parts->userInfo);
            add("host", parts->host);
            add("port", parts->port);
            add("path", parts->path);
            add("query", parts->query);
            add("fragment", parts->fragment);
        }
        break;
    case UriOperation::NORMALIZE:
        answer = library.normalize(question.text);
        break;
    default:
        answer = library.resolve(question.base, question.text);
        break;
    }
    return answer ? *answer : "refused";
}

bool concerns(const UriDifference& difference, const UriLibrary& other) {
    return difference.peers == UriPeers::BOTH ||
           (difference.peers == UriPeers::BOOST) == (&other == &BOOST_URIS);
}

const UriDifference* explanation(const UriLibrary& other, const UriQuestion& question) {
    const UriComparison comparison{.own = OWN_URIS.parse(question.text),
                                   .other = other.parse(question.text),
                                   .base = OWN_URIS.parse(question.base)};
    for (const UriDifference& difference : uriDifferences(question.operation)) {
        if (concerns(difference, other) && difference.applies(comparison)) {
            return &difference;
        }
    }
    return nullptr;
}

} // namespace orvtest
