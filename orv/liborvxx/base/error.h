// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The exception classes that the subsystems share, and exceptions as text.
///
/// Every class stands on a standard one, so a caller who knows only `std::exception` gets a
/// message. Objects are values; the functions below are safe on any thread.
#ifndef ORV_LIBORVXX_BASE_ERROR_H
#define ORV_LIBORVXX_BASE_ERROR_H

#include "orv/liborvxx/base/platform.h"

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace orv {

/// A mistake in the calling program.
class ORVXX_API LogicError : public std::logic_error {
public:
    explicit LogicError(const std::string& message);
    explicit LogicError(const char* message);
    LogicError(const LogicError&) = default;
    LogicError& operator=(const LogicError&) = default;
    ~LogicError() override;
};

/// A failure that only shows at run time.
class ORVXX_API RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(const std::string& message);
    explicit RuntimeError(const char* message);
    RuntimeError(const RuntimeError&) = default;
    RuntimeError& operator=(const RuntimeError&) = default;
    ~RuntimeError() override;
};

/// Input or output failed.
class ORVXX_API IOError : public RuntimeError {
public:
    explicit IOError(const std::string& message);
    explicit IOError(const char* message);
    IOError(const IOError&) = default;
    IOError& operator=(const IOError&) = default;
    ~IOError() override;
};

/// A file is not of the kind that it was taken for.
class ORVXX_API FileTypeError : public IOError {
public:
    explicit FileTypeError(const std::string& message);
    explicit FileTypeError(const char* message);
    FileTypeError(const FileTypeError&) = default;
    FileTypeError& operator=(const FileTypeError&) = default;
    ~FileTypeError() override;
};

/// A text could not be parsed.
class ORVXX_API ParseError : public RuntimeError {
public:
    ParseError(const std::string& message, std::size_t errorOffset);
    ParseError(const char* message, std::size_t errorOffset);
    ParseError(const ParseError&) = default;
    ParseError& operator=(const ParseError&) = default;
    ~ParseError() override;

    /// Position in the parsed text, in units of that text.
    std::size_t getErrorOffset() const noexcept { return errorOffset_; }

private:
    std::size_t errorOffset_;
};

/// A number was read correctly and does not fit. Not to be taken for `std::out_of_range`, which is
/// a bad index.
class ORVXX_API OutOfRangeError : public ParseError {
public:
    OutOfRangeError(const std::string& message, std::size_t errorOffset);
    OutOfRangeError(const char* message, std::size_t errorOffset);
    OutOfRangeError(const OutOfRangeError&) = default;
    OutOfRangeError& operator=(const OutOfRangeError&) = default;
    ~OutOfRangeError() override;
};

/// A precondition does not hold.
///
/// The message is `file[line] (function): assertion 'expression' failed`; without a file,
/// `function[line]: assertion 'expression' failed`; without an expression, nothing stands between
/// "assertion" and "failed".
class ORVXX_API AssertionError : public LogicError {
public:
    /// \p expression and \p file may be null or empty; \p function may be neither.
    AssertionError(const char* expression, const char* file, int line, const char* function);
    AssertionError(const AssertionError&) = default;
    AssertionError& operator=(const AssertionError&) = default;
    ~AssertionError() override;

    /// Throws an `AssertionError` made from the arguments.
    [[noreturn]] static void raise(const char* expression, const char* file, int line,
                                   const char* function);
};

/// A method has no implementation: "method not implemented: " and its name.
class ORVXX_API NotImplementedError : public LogicError {
public:
    explicit NotImplementedError(const char* method);
    NotImplementedError(const NotImplementedError&) = default;
    NotImplementedError& operator=(const NotImplementedError&) = default;
    ~NotImplementedError() override;

    /// Throws a `NotImplementedError` made from the argument.
    [[noreturn]] static void raise(const char* method);
};

/// An object is not in a state that allows the call.
class ORVXX_API IllegalStateError : public LogicError {
public:
    explicit IllegalStateError(const std::string& message);
    explicit IllegalStateError(const char* message);
    IllegalStateError(const IllegalStateError&) = default;
    IllegalStateError& operator=(const IllegalStateError&) = default;
    ~IllegalStateError() override;
};

/// An object does not support the call at all.
class ORVXX_API UnsupportedOperationError : public LogicError {
public:
    explicit UnsupportedOperationError(const std::string& message);
    explicit UnsupportedOperationError(const char* message);
    UnsupportedOperationError(const UnsupportedOperationError&) = default;
    UnsupportedOperationError& operator=(const UnsupportedOperationError&) = default;
    ~UnsupportedOperationError() override;
};

/// The undecorated name of a type, such as "orv::ParseError".
ORVXX_API std::string type_info_name(const std::type_info& type);

/// The name of the exception's dynamic type, ": " and what it says.
ORVXX_API std::string to_string(const std::exception& e);

/// The text of whatever \p p holds: as above for a `std::exception`,
/// "non-standard exception type" for anything else, empty for a null pointer.
ORVXX_API std::string to_string(const std::exception_ptr& p);

/// The exceptions nested under \p e (`std::throw_with_nested`), nearest first, without \p e itself.
ORVXX_API std::vector<std::exception_ptr> get_nested_exceptions(const std::exception& e);

/// The same for the exception that \p p holds; empty for a null pointer.
ORVXX_API std::vector<std::exception_ptr> get_nested_exceptions(const std::exception_ptr& p);

} // namespace orv

#endif
