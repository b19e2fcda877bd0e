// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loop that fills a buffer from a random source: interruptions, short reads, failures.

#include "orv/liborv/system/error.h"
#include "orv/liborv/uuid/entropy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <vector>

namespace {

/// One answer of the scripted source: a count, or -1 with an errno.
struct Answer {
    ssize_t count;
    int error;
};

std::vector<Answer> script;
std::vector<std::size_t> asked;

ssize_t scriptedSource(void* buffer, std::size_t size, unsigned int flags) {
    EXPECT_EQ(flags, 0U);
    EXPECT_LT(asked.size(), script.size()) << "asked more often than expected";
    if (asked.size() >= script.size())
        return 0;
    const Answer answer = script[asked.size()];
    asked.push_back(size);
    if (answer.count > 0)
        std::memset(buffer, static_cast<int>(asked.size()),
                    std::min(size, static_cast<std::size_t>(answer.count)));
    errno = answer.error;
    return answer.count;
}

using Bytes = std::array<unsigned char, 8>;

int fill(std::vector<Answer> answers, Bytes& bytes) {
    script = std::move(answers);
    asked.clear();
    bytes.fill(0);
    return orvEntropyFill(scriptedSource, bytes.data(), bytes.size());
}

TEST(Entropy, OneFullReadIsEnough) {
    Bytes bytes;
    EXPECT_EQ(fill({{8, 0}}, bytes), 0);
    EXPECT_EQ(bytes, (Bytes{1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST(Entropy, AShortReadIsContinuedBehindWhatItGave) {
    Bytes bytes;
    EXPECT_EQ(fill({{3, 0}, {1, 0}, {4, 0}}, bytes), 0);
    EXPECT_EQ(bytes, (Bytes{1, 1, 1, 2, 3, 3, 3, 3}));
    EXPECT_EQ(asked, (std::vector<std::size_t>{8, 5, 4}));
}

TEST(Entropy, AnInterruptedReadIsRepeated) {
    Bytes bytes;
    EXPECT_EQ(fill({{-1, EINTR}, {-1, EINTR}, {5, 0}, {-1, EINTR}, {3, 0}}, bytes), 0);
    EXPECT_EQ(bytes, (Bytes{3, 3, 3, 3, 3, 5, 5, 5}));
}

TEST(Entropy, FailuresBecomeTheLibrarysCodes) {
    Bytes bytes;
    EXPECT_EQ(fill({{-1, EPERM}}, bytes), ORV_ERROR_NOT_PERMITTED);
    EXPECT_EQ(fill({{-1, EACCES}}, bytes), ORV_ERROR_NOT_PERMITTED);
    EXPECT_EQ(fill({{-1, ENOSYS}}, bytes), ORV_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(fill({{-1, EIO}}, bytes), ORV_ERROR_IO);
    EXPECT_EQ(fill({{-1, EFAULT}}, bytes), ORV_ERROR_IO);
    EXPECT_EQ(fill({{4, 0}, {-1, EAGAIN}}, bytes), ORV_ERROR_IO);
}

TEST(Entropy, ASourceThatGivesNothingIsAFailureAndNotALoop) {
    Bytes bytes;
    EXPECT_EQ(fill({{4, 0}, {0, 0}}, bytes), ORV_ERROR_IO);
}

TEST(Entropy, ASourceThatClaimsMoreThanAskedIsAFailure) {
    Bytes bytes;
    EXPECT_EQ(fill({{9, 0}}, bytes), ORV_ERROR_IO);
}

TEST(Entropy, NoBytesNeedNoSource) {
    script.clear();
    asked.clear();
    EXPECT_EQ(orvEntropyFill(scriptedSource, nullptr, 0), 0);
    EXPECT_TRUE(asked.empty());
}

TEST(Entropy, TheSystemsSourceFillsALargeBufferWithEvenlySpreadBytes) {
    std::vector<unsigned char> bytes(100'000);
    ASSERT_EQ(orvEntropyRead(bytes.data(), bytes.size()), 0);
    std::array<std::size_t, 256> counts = {};
    for (unsigned char byte : bytes)
        ++counts[byte];
    // Each value is expected 391 times, with a standard deviation of 20.
    for (std::size_t count : counts) {
        EXPECT_GT(count, 190U);
        EXPECT_LT(count, 590U);
    }
}

} // namespace
