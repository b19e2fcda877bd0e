// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URISyntaxError`.
#include "orv/liborvxx/net/uri_syntax_error.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/text/literals.h"

#include <stdexcept>
#include <utility>

namespace orv::net {

using namespace literals;

namespace {

int checked(int index) {
    if (index < -1) {
        throw std::invalid_argument("index: out of range");
    }
    return index;
}

} // namespace

URISyntaxError::URISyntaxError(ustring input, ustring reason, int index)
    : RuntimeError(""), message_(std::make_shared<const std::string>(
                            constructMessage(input, reason, checked(index)))),
      input_(std::make_shared<const ustring>(std::move(input))),
      reason_(std::make_shared<const ustring>(std::move(reason))), index_(index) {}

URISyntaxError::URISyntaxError(ustring input, ustring reason)
    : URISyntaxError(std::move(input), std::move(reason), -1) {}

URISyntaxError::~URISyntaxError() = default;

const char* URISyntaxError::what() const noexcept {
    return message_->c_str();
}

std::string URISyntaxError::constructMessage(const ustring& input, const ustring& reason,
                                             int index) {
    ustring message = reason;
    if (index >= 0) {
        message += u" at index "_u;
        message += to_ustring_c(index);
    }
    message += u": "_u;
    message += input;
    return Charset::defaultCharset()->encode(message);
}

} // namespace orv::net
