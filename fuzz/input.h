// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Input`: takes parameters off the front of a fuzzer's bytes.
#ifndef ORV_FUZZ_INPUT_H
#define ORV_FUZZ_INPUT_H

#include "orv/liborvxx/text/ustring.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

/// The entry point, called by the fuzzer and by the replay program. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// The bytes not yet taken.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool empty() const { return size_ == 0; }

    /// The next byte; 0 at the end.
    std::uint8_t byte() {
        if (size_ == 0) {
            return 0;
        }
        --size_;
        return *data_++;
    }

    /// Up to \p n bytes.
    std::string bytes(std::size_t n) {
        const std::size_t count = std::min(n, size_);
        std::string taken(data_, data_ + count);
        data_ += count;
        size_ -= count;
        return taken;
    }

    /// All that is left.
    std::string rest() { return bytes(size_); }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

/// Units of two bytes each, the high byte first. A last odd byte is dropped.
inline orv::ustring toUnits(const std::string& bytes) {
    orv::ustring units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        units.push_back(orv::char16(static_cast<unsigned char>(bytes[i]) << 8 |
                                    static_cast<unsigned char>(bytes[i + 1])));
    }
    return units;
}

/// One unit for each byte, of the same value.
inline orv::ustring widen(const std::string& bytes) {
    orv::ustring units;
    for (const char c : bytes) {
        units.push_back(orv::char16(static_cast<unsigned char>(c)));
    }
    return units;
}

} // namespace fuzz

#endif
