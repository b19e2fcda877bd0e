// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A character set as a library has it, this one or another: single codes to text, single
/// characters to bytes.
#ifndef ORV_TESTS_DIFFERENTIAL_CHARSET_PEERS_H
#define ORV_TESTS_DIFFERENTIAL_CHARSET_PEERS_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvtest {

/// A converter in both directions.
class CharsetPeer {
public:
    CharsetPeer() = default;
    CharsetPeer(const CharsetPeer&) = delete;
    CharsetPeer& operator=(const CharsetPeer&) = delete;
    virtual ~CharsetPeer() = default;

    /// The text of a whole input; empty where it is bad, incomplete or unmapped.
    virtual std::u32string decode(std::string_view bytes) = 0;

    /// The bytes of a character that is no surrogate; empty where there are none.
    virtual std::string encode(char32_t character) = 0;

    /// Whether any of the characters of a text may have bytes. False is certain, true is not.
    virtual bool encodesAny(std::u32string_view text) = 0;

    /// For each 256 characters whether any of them may have bytes; found out once. Surrogates have
    /// none.
    const std::vector<bool>& encodedBlocks() {
        for (char32_t block = 0; encodedBlocks_.size() < 0x1100; block += 0x100) {
            std::u32string text;
            for (char32_t c = block; c < block + 0x100; ++c) {
                text += c;
            }
            const bool isSurrogate = block >= 0xD800 && block <= 0xDFFF;
            encodedBlocks_.push_back(!isSurrogate && encodesAny(text));
        }
        return encodedBlocks_;
    }

private:
    std::vector<bool> encodedBlocks_;
};

/// The set of this library, of ICU, of the C library's iconv.
/// \exception std::runtime_error if there is none of that name
std::unique_ptr<CharsetPeer> openOwnCharset(std::string_view name);
std::unique_ptr<CharsetPeer> openIcuConverter(const std::string& name);
std::unique_ptr<CharsetPeer> openIconvConverter(const std::string& name);

/// The other libraries by name and version.
std::string icuVersion();
std::string iconvVersion();

} // namespace orvtest

#endif
