// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The message with which a call throws, to be compared in one line.
#ifndef ORV_TESTS_SUPPORT_THROWN_MESSAGE_H
#define ORV_TESTS_SUPPORT_THROWN_MESSAGE_H

#include <exception>
#include <string>
#include <typeinfo>

namespace orvtest {

/// What the call throws, if it is exactly an `Error`; else a text that says what came instead.
template <typename Error, typename Call>
std::string thrownMessage(Call call) {
    try {
        call();
    } catch (const Error& e) {
        return typeid(e) == typeid(Error)
                   ? e.what()
                   : std::string("of type ") + typeid(e).name() + ": " + e.what();
    } catch (const std::exception& e) {
        return std::string("of type ") + typeid(e).name() + ": " + e.what();
    }
    return "nothing thrown";
}

} // namespace orvtest

#endif
