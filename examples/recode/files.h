// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The streams that recode reads and writes: file descriptors with errors as exceptions.
#ifndef ORV_EXAMPLES_RECODE_FILES_H
#define ORV_EXAMPLES_RECODE_FILES_H

#include "orv/liborvxx/base/error.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct stat;

namespace recode {

/// The reader of the output has gone away; nobody is left to be told.
class BrokenPipe : public orv::IOError {
public:
    BrokenPipe();
};

/// An open file descriptor, closed at the end unless it is borrowed.
class Descriptor {
public:
    Descriptor(int number, bool owned) noexcept : number_(number), owned_(owned) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    int number() const noexcept { return number_; }

    /// Closes an owned descriptor now; false, with `errno` set, if that fails.
    bool close() noexcept;

private:
    int number_;
    bool owned_;
};

/// What is known of an input before it is read.
struct InputFacts {
    std::string name;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    /// Bytes to come, for a regular file only.
    std::optional<std::uint64_t> size;
    /// Somebody is typing it.
    bool isTerminal = false;
};

/// Looks at an input without reading it; "-" is the standard input.
/// \exception orv::IOError if it cannot be read
InputFacts inspectInput(const std::string& path);

/// A stream of bytes to read; "-" is the standard input.
class Input {
public:
    /// \exception orv::IOError
    explicit Input(const std::string& path);

    /// Reads up to \p room bytes, at least one unless the input is at its end.
    /// \exception orv::IOError
    std::size_t read(unsigned char* to, std::size_t room);

    /// How messages call it.
    const std::string& name() const noexcept { return name_; }

private:
    std::string name_;
    Descriptor descriptor_;
};

/// A stream of bytes to write; "-" is the standard output.
class Output {
public:
    /// Opens the stream. A file is cut to length 0, unless it is one of \p inputs.
    /// \exception orv::IOError if it cannot be opened or is one of the inputs
    Output(const std::string& path, const std::vector<InputFacts>& inputs);

    /// \exception orv::IOError, BrokenPipe
    void write(const void* from, std::size_t size);

    /// Some systems tell only now that there was no room.
    /// \exception orv::IOError
    void close();

    bool isTerminal() const noexcept;

private:
    void refuseInputs(const struct ::stat& self, const std::vector<InputFacts>& inputs) const;

    std::string name_;
    Descriptor descriptor_;
};

} // namespace recode

#endif
