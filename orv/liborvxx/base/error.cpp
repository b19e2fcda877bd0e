// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Error messages, exceptions as text, and the walk along nested exceptions.
#include "orv/liborvxx/base/error.h"

#include <cstdlib>
#include <memory>

#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#define ORV_HAS_CXXABI 1
#else
#define ORV_HAS_CXXABI 0
#endif

namespace orv {

// Destructors stand here so that each class has its type information and vtable in one place.
#define ORV_MESSAGE_ERROR(Class, Base)                                                             \
    Class::Class(const std::string& message) : Base(message) {}                                    \
    Class::Class(const char* message) : Base(message) {}                                           \
    Class::~Class() = default;

ORV_MESSAGE_ERROR(LogicError, std::logic_error)
ORV_MESSAGE_ERROR(RuntimeError, std::runtime_error)
ORV_MESSAGE_ERROR(IOError, RuntimeError)
ORV_MESSAGE_ERROR(FileTypeError, IOError)
ORV_MESSAGE_ERROR(IllegalStateError, LogicError)
ORV_MESSAGE_ERROR(UnsupportedOperationError, LogicError)

#undef ORV_MESSAGE_ERROR

ParseError::ParseError(const std::string& message, std::size_t errorOffset)
    : RuntimeError(message), errorOffset_(errorOffset) {}
ParseError::ParseError(const char* message, std::size_t errorOffset)
    : RuntimeError(message), errorOffset_(errorOffset) {}
ParseError::~ParseError() = default;

OutOfRangeError::OutOfRangeError(const std::string& message, std::size_t errorOffset)
    : ParseError(message, errorOffset) {}
OutOfRangeError::OutOfRangeError(const char* message, std::size_t errorOffset)
    : ParseError(message, errorOffset) {}
OutOfRangeError::~OutOfRangeError() = default;

namespace {

bool given(const char* text) {
    return text != nullptr && *text != '\0';
}

std::string assertionMessage(const char* expression, const char* file, int line,
                             const char* function) {
    // std::to_string knows no locale, so the line is in plain digits.
    const std::string place = "[" + std::to_string(line) + "]";
    std::string message = given(file) ? file + place + " (" + function + ")" : function + place;
    message += ": assertion";
    if (given(expression)) {
        message += " '";
        message += expression;
        message += "'";
    }
    return message + " failed";
}

} // namespace

AssertionError::AssertionError(const char* expression, const char* file, int line,
                               const char* function)
    : LogicError(assertionMessage(expression, file, line, function)) {}
AssertionError::~AssertionError() = default;

void AssertionError::raise(const char* expression, const char* file, int line,
                           const char* function) {
    throw AssertionError(expression, file, line, function);
}

NotImplementedError::NotImplementedError(const char* method)
    : LogicError(std::string("method not implemented: ") + method) {}
NotImplementedError::~NotImplementedError() = default;

void NotImplementedError::raise(const char* method) {
    throw NotImplementedError(method);
}

std::string type_info_name(const std::type_info& type) {
#if ORV_HAS_CXXABI
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    if (status == 0 && name != nullptr) {
        return name.get();
    }
#endif
    return type.name();
}

std::string to_string(const std::exception& e) {
    std::string text = type_info_name(typeid(e));
    if (const char* what = e.what(); what != nullptr) {
        text += ": ";
        text += what;
    }
    return text;
}

std::string to_string(const std::exception_ptr& p) {
    if (p == nullptr) {
        return {};
    }
    try {
        std::rethrow_exception(p);
    } catch (const std::exception& e) {
        return to_string(e);
    } catch (...) {
        return "non-standard exception type";
    }
}

namespace {

// What is nested under the exception that `p` holds, or null.
std::exception_ptr nestedUnder(const std::exception_ptr& p) {
    try {
        std::rethrow_exception(p);
    } catch (const std::nested_exception& e) {
        return e.nested_ptr();
    } catch (...) {
        return nullptr;
    }
}

std::vector<std::exception_ptr> chainFrom(std::exception_ptr p) {
    std::vector<std::exception_ptr> chain;
    for (; p != nullptr; p = nestedUnder(p)) {
        chain.push_back(p);
    }
    return chain;
}

} // namespace

std::vector<std::exception_ptr> get_nested_exceptions(const std::exception& e) {
    const auto* nested = dynamic_cast<const std::nested_exception*>(&e);
    return chainFrom(nested == nullptr ? nullptr : nested->nested_ptr());
}

std::vector<std::exception_ptr> get_nested_exceptions(const std::exception_ptr& p) {
    return chainFrom(p == nullptr ? nullptr : nestedUnder(p));
}

} // namespace orv
