// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16 over bytes by definition: slow, obvious, and sharing nothing with the library.
#ifndef ORV_TESTS_REFERENCE_UTF16_MODEL_H
#define ORV_TESTS_REFERENCE_UTF16_MODEL_H

#include "tests/support/coding_trace.h"

#include <vector>

namespace orvtest {

/// The two byte orders.
enum class ByteOrder { BIG, LITTLE };

/// The bytes of the units, good or bad.
std::vector<unsigned char> bytesOf(ByteOrder order, const std::vector<orv::char16>& units);

/// A whole input as the steps that a coder takes.
DecodeVector utf16DecodeTrace(ByteOrder order, const std::vector<unsigned char>& bytes);
EncodeVector utf16EncodeTrace(ByteOrder order, const std::vector<orv::char16>& units);

} // namespace orvtest

#endif
