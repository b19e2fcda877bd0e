// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The MD5 digest against the vectors of its RFC and against digests made elsewhere.

#include "orv/liborv/uuid/md5.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

using Digest = std::array<std::uint8_t, ORV_MD5_DIGEST_SIZE>;

std::string toHex(const Digest& digest) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (std::uint8_t byte : digest) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

Digest digestOf(const std::string& text) {
    OrvMD5 md5;
    orvMD5Init(&md5);
    orvMD5Update(&md5, text.data(), text.size());
    Digest digest;
    orvMD5Final(&md5, digest.data());
    return digest;
}

/// A text without a short period: byte i is (7 i + 3) mod 251.
std::string pattern(std::size_t size) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>(static_cast<unsigned char>((i * 7 + 3) % 251));
    return text;
}

TEST(MD5, GivesTheDigestsOfTheRfc) {
    // RFC 1321, section A.5.
    EXPECT_EQ(toHex(digestOf("")), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(toHex(digestOf("a")), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(toHex(digestOf("abc")), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(toHex(digestOf("message digest")), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(toHex(digestOf("abcdefghijklmnopqrstuvwxyz")), "c3fcd3d76192e4007dfb496cca67e13b");
    EXPECT_EQ(toHex(digestOf("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789")),
              "d174ab98d277d9f5a5611c2c9f419d9f");
    EXPECT_EQ(toHex(digestOf("1234567890123456789012345678901234567890"
                             "1234567890123456789012345678901234567890")),
              "57edf4a22be3c955ac49da2e2107b67a");
}

TEST(MD5, GivesTheDigestsOfPythonAroundTheBlockEdges) {
    struct Row {
        std::size_t size;
        const char* digest;
    };
    const std::vector<Row> rows = {
        {0, "d41d8cd98f00b204e9800998ecf8427e"},    {1, "8666683506aacd900bbd5a74ac4edf68"},
        {54, "87383386432d970a20307b3cd7cf620c"},   {55, "030157be00035d098644cfc70e5deaea"},
        {56, "8e758df1ec8681fc06daa64253668f13"},   {57, "7cc4dbe44c422ac3e98466e4ff92bb95"},
        {63, "4a805576b511a836fefee199fb797ae5"},   {64, "7a0cbe2eab91195c56eae7f83588d243"},
        {65, "940b4e909b09d4828b0eebe642613192"},   {119, "c78b1987e67f5f382adb7de5fed3e55e"},
        {120, "4bebaf2293f8b2e434f1a4f024eea593"},  {127, "72a9cc53dbae65d0146d626d46f6fb74"},
        {128, "087b965e51e4b1200ebfd13e9761caa5"},  {129, "ed0fec46be329a097e88d7e3a1643f35"},
        {1000, "c90582fbbeb1275142915b85da61ade9"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(toHex(digestOf(pattern(row.size))), row.digest) << row.size;
    EXPECT_EQ(toHex(digestOf(pattern(1 << 20))), "bac259e6f14c8b831c02f85042e13805");
}

TEST(MD5, EveryLengthUpToTwoHundredIsRight) {
    // The digest of the digests of all lengths from 0 to 200, as Python's hashlib gives it.
    std::string all;
    for (std::size_t size = 0; size <= 200; ++size) {
        const Digest digest = digestOf(pattern(size));
        all.append(digest.begin(), digest.end());
    }
    EXPECT_EQ(toHex(digestOf(all)), "07929dad7c406b72f369bda3af676c16");
}

TEST(MD5, DoesNotDependOnHowTheInputIsCutInTwo) {
    const std::string text = pattern(200);
    const Digest whole = digestOf(text);
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        OrvMD5 md5;
        orvMD5Init(&md5);
        orvMD5Update(&md5, text.data(), cut);
        orvMD5Update(&md5, text.data() + cut, text.size() - cut);
        Digest digest;
        orvMD5Final(&md5, digest.data());
        EXPECT_EQ(digest, whole) << cut;
    }
}

TEST(MD5, DoesNotDependOnTheSizeOfThePieces) {
    const std::string text = pattern(1000);
    const Digest whole = digestOf(text);
    for (std::size_t piece = 1; piece <= 130; ++piece) {
        OrvMD5 md5;
        orvMD5Init(&md5);
        for (std::size_t i = 0; i < text.size(); i += piece)
            orvMD5Update(&md5, text.data() + i, std::min(piece, text.size() - i));
        orvMD5Update(&md5, nullptr, 0);
        Digest digest;
        orvMD5Final(&md5, digest.data());
        EXPECT_EQ(digest, whole) << piece;
    }
}

TEST(MD5, TheLengthIsWrittenInSixtyFourBitsLeastSignificantByteFirst) {
    // Long inputs are simulated: "abc" behind blocks that were counted but not mixed in. The
    // reference is the state after the same block with its padding and length spelt out.
    for (std::uint64_t before : {std::uint64_t{1} << 29, std::uint64_t{0x123456789ABCC0},
                                 std::uint64_t{0} - std::uint64_t{64}}) {
        OrvMD5 md5;
        orvMD5Init(&md5);
        md5.size = before;
        orvMD5Update(&md5, "abc", 3);
        Digest digest;
        orvMD5Final(&md5, digest.data());

        std::array<std::uint8_t, ORV_MD5_BLOCK_SIZE> block = {'a', 'b', 'c', 0x80};
        const std::uint64_t bits = (before + 3) * 8;
        for (std::size_t i = 0; i < 8; ++i)
            block[56 + i] = static_cast<std::uint8_t>(bits >> 8 * i);
        OrvMD5 reference;
        orvMD5Init(&reference);
        orvMD5Update(&reference, block.data(), block.size());
        for (std::size_t i = 0; i < digest.size(); ++i)
            EXPECT_EQ(digest[i], reference.state[i / 4] >> 8 * (i % 4) & 0xFF) << i;
    }
}

} // namespace
