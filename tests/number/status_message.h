// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The messages of the readers of numbers that throw.
#ifndef ORV_TESTS_NUMBER_STATUS_MESSAGE_H
#define ORV_TESTS_NUMBER_STATUS_MESSAGE_H

#include "orv/liborvxx/number/number_status.h"
#include "tests/support/thrown_message.h"

#include <stdexcept>
#include <string>

namespace orvtest {

/// The message that \p call throws, if it throws the exception that \p status stands for; else a
/// text that is no message.
template <class Call>
std::string messageOf(orv::number_status status, Call call) {
    return status == orv::number_status::out_of_range ? thrownMessage<std::out_of_range>(call)
                                                      : thrownMessage<std::invalid_argument>(call);
}

} // namespace orvtest

#endif
