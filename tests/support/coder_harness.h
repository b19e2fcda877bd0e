// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The harness that every coder goes through: a character set feeds it with vectors only.
///
/// Each vector runs behind 0 to 31 characters of padding, with the input split at every point and
/// handed over element by element, with every output capacity from 0 to one more than needed, under
/// each action, in steps and as a whole input. At every call the result, the error length, both
/// positions, the elements written and those around the output are compared with the vector.
#ifndef ORV_TESTS_SUPPORT_CODER_HARNESS_H
#define ORV_TESTS_SUPPORT_CODER_HARNESS_H

#include "orv/liborvxx/charset/charset.h"
#include "tests/support/coding_trace.h"

#include <cstddef>

namespace orvtest {

/// One character of padding, by its place: its bytes and its unit, in a trace of one step.
using DecodePadding = DecodeVector (*)(std::size_t place);
using EncodePadding = EncodeVector (*)(std::size_t place);

/// Letters of ASCII, each as its own byte. A set of wider units brings padding of its own.
DecodeVector asciiDecodePadding(std::size_t place);
EncodeVector asciiEncodePadding(std::size_t place);

/// Runs the vector through new decoders of the set and through `Charset::decode`. The first
/// difference is a test failure that says how to meet it again; returns whether there was none.
bool checkDecoder(orv::Charset& charset, const DecodeVector& vector,
                  DecodePadding padding = asciiDecodePadding);

/// The same for encoders.
bool checkEncoder(orv::Charset& charset, const EncodeVector& vector,
                  EncodePadding padding = asciiEncodePadding);

} // namespace orvtest

#endif
