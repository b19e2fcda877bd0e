// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading and writing by file descriptor.
#include "examples/recode/files.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace recode {

namespace {

[[noreturn]] void fail(const std::string& what, const std::string& name, int error) {
    throw orv::IOError(what + " " + name + ": " + std::strerror(error));
}

int openOrFail(const std::string& path, int flags, const char* what) {
    const int number = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
    if (number < 0) {
        fail(what, path, errno);
    }
    return number;
}

std::string inputName(const std::string& path) {
    return path == "-" ? "standard input" : path;
}

} // namespace

BrokenPipe::BrokenPipe() : IOError("broken pipe") {}

Descriptor::~Descriptor() {
    close();
}

bool Descriptor::close() noexcept {
    if (!owned_) {
        return true;
    }
    owned_ = false;
    // Closed even where it fails, so it is never tried again.
    return ::close(number_) == 0;
}

InputFacts inspectInput(const std::string& path) {
    InputFacts facts;
    facts.name = inputName(path);
    struct ::stat status = {};
    const bool isStandard = path == "-";
    if ((isStandard ? ::fstat(STDIN_FILENO, &status) : ::stat(path.c_str(), &status)) != 0) {
        fail("cannot read", facts.name, errno);
    }
    if (S_ISDIR(status.st_mode)) {
        fail("cannot read", facts.name, EISDIR);
    }
    if (!isStandard && ::access(path.c_str(), R_OK) != 0) {
        fail("cannot read", facts.name, errno);
    }
    facts.device = status.st_dev;
    facts.inode = status.st_ino;
    facts.isTerminal = isStandard && ::isatty(STDIN_FILENO) != 0;
    if (S_ISREG(status.st_mode)) {
        // A shell may hand over a file that is already half read.
        const ::off_t done = isStandard ? ::lseek(STDIN_FILENO, 0, SEEK_CUR) : 0;
        facts.size = static_cast<std::uint64_t>(status.st_size > done ? status.st_size - done : 0);
    }
    return facts;
}

Input::Input(const std::string& path)
    : name_(inputName(path)),
      descriptor_(path == "-" ? STDIN_FILENO : openOrFail(path, O_RDONLY, "cannot read"),
                  path != "-") {}

std::size_t Input::read(unsigned char* to, std::size_t room) {
    for (;;) {
        const ::ssize_t count = ::read(descriptor_.number(), to, room);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) {
            fail("cannot read", name_, errno);
        }
    }
}

Output::Output(const std::string& path, const std::vector<InputFacts>& inputs)
    : name_(path == "-" ? "standard output" : path),
      // Not cut to length 0 by opening it: it might be an input.
      descriptor_(path == "-" ? STDOUT_FILENO
                              : openOrFail(path, O_WRONLY | O_CREAT, "cannot write"),
                  path != "-") {
    struct ::stat status = {};
    if (::fstat(descriptor_.number(), &status) != 0) {
        fail("cannot write", name_, errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return;
    }
    refuseInputs(status, inputs);
    if (path != "-" && ::ftruncate(descriptor_.number(), 0) != 0) {
        fail("cannot write", name_, errno);
    }
}

void Output::refuseInputs(const struct ::stat& self, const std::vector<InputFacts>& inputs) const {
    for (const InputFacts& input : inputs) {
        if (input.device == self.st_dev && input.inode == self.st_ino) {
            throw orv::IOError("cannot write " + name_ + ": it is the same file as the input " +
                               input.name);
        }
    }
}

void Output::write(const void* from, std::size_t size) {
    const char* next = static_cast<const char*>(from);
    while (size != 0) {
        const ::ssize_t count = ::write(descriptor_.number(), next, size);
        if (count >= 0) {
            next += count;
            size -= static_cast<std::size_t>(count);
        } else if (errno == EPIPE) {
            throw BrokenPipe();
        } else if (errno != EINTR) {
            fail("cannot write", name_, errno);
        }
    }
}

void Output::close() {
    if (!descriptor_.close()) {
        fail("cannot write", name_, errno);
    }
}

bool Output::isTerminal() const noexcept {
    return ::isatty(descriptor_.number()) != 0;
}

} // namespace recode
