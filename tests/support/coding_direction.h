// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decoding and encoding under common names, so that a check is written once for both.
#ifndef ORV_TESTS_SUPPORT_CODING_DIRECTION_H
#define ORV_TESTS_SUPPORT_CODING_DIRECTION_H

#include "orv/liborvxx/charset/charset.h"

#include <memory>
#include <string>
#include <vector>

namespace orvtest {

/// What decoding and encoding call differently.
struct Decoding {
    using In = unsigned char;
    using Out = orv::char16;
    using Coder = orv::CharsetDecoder;

    static std::unique_ptr<Coder> make(orv::Charset& set) { return set.newDecoder(); }
    static orv::CoderResult step(Coder& coder, orv::Buffer<const In>& in, orv::Buffer<Out>& out,
                                 bool end) {
        return coder.decode(in, out, end);
    }
    static orv::ustring whole(Coder& coder, orv::Buffer<const In>& in) { return coder.decode(in); }
    static orv::ustring wholeView(Coder& coder, const std::vector<In>& in) {
        return coder.decode(view(in));
    }
    static orv::ustring whole(orv::Charset& set, const std::vector<In>& in) {
        return set.decode(view(in));
    }

private:
    static orv::string_ref view(const std::vector<In>& in) {
        return {reinterpret_cast<const char*>(in.data()), in.size()};
    }
};

struct Encoding {
    using In = orv::char16;
    using Out = unsigned char;
    using Coder = orv::CharsetEncoder;

    static std::unique_ptr<Coder> make(orv::Charset& set) { return set.newEncoder(); }
    static orv::CoderResult step(Coder& coder, orv::Buffer<const In>& in, orv::Buffer<Out>& out,
                                 bool end) {
        return coder.encode(in, out, end);
    }
    static std::string whole(Coder& coder, orv::Buffer<const In>& in) { return coder.encode(in); }
    static std::string wholeView(Coder& coder, const std::vector<In>& in) {
        return coder.encode(orv::ustring_ref(in.data(), in.size()));
    }
    static std::string whole(orv::Charset& set, const std::vector<In>& in) {
        return set.encode(orv::ustring_ref(in.data(), in.size()));
    }
};

/// An action and a result in words.
inline const char* nameOf(orv::CodingErrorAction action) {
    return action == orv::IGNORE ? "IGNORE" : action == orv::REPLACE ? "REPLACE" : "REPORT";
}

inline std::string textOf(orv::CoderResult result) {
    static constexpr const char* KINDS[] = {"UNDERFLOW", "OVERFLOW", "MALFORMED", "UNMAPPABLE"};
    return std::string(KINDS[result.kind & 3]) + "(" + std::to_string(result.length) + ")";
}

} // namespace orvtest

#endif
