// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief String streams: construction, moves, and access to the text.
#include "orv/liborvxx/locale/ustringstream.h"

#include <utility>

namespace orv {

namespace {

using StringBuffer = std::basic_stringbuf<char16>;

std::ios_base::openmode openMode(int mode) {
    return static_cast<std::ios_base::openmode>(mode);
}

// Puts a new stream, or one that was moved from, on the buffer of its own.
void attach(std::basic_ios<char16>& stream, StringBuffer& buffer) {
    stream.rdbuf(&buffer);
    buffer.pubimbue(stream.getloc());
}

// Exchanges two buffers whose streams have been exchanged. A standard library may leave each buffer
// its locale.
void swapBuffers(const std::locale& loc, StringBuffer& buffer, const std::locale& otherLoc,
                 StringBuffer& otherBuffer) {
    buffer.swap(otherBuffer);
    buffer.pubimbue(loc);
    otherBuffer.pubimbue(otherLoc);
}

} // namespace

// uistringstream

uistringstream::uistringstream(int mode) : uistream(nullptr), buffer_(openMode(mode) | in) {
    attach(*this, buffer_);
}

uistringstream::uistringstream(ustring text, int mode)
    : uistream(nullptr), buffer_(std::move(text), openMode(mode) | in) {
    attach(*this, buffer_);
}

uistringstream::uistringstream(uistringstream&& other)
    : uistream(static_cast<uistream&&>(other)), buffer_(std::move(other.buffer_)) {
    set_rdbuf(&buffer_);
    attach(other, other.buffer_);
}

uistringstream& uistringstream::operator=(uistringstream&& other) {
    if (this != &other) {
        buffer_.str(ustring());
        swap(other);
        set_rdbuf(&buffer_);
        attach(other, other.buffer_);
    }
    return *this;
}

uistringstream::~uistringstream() = default;

void uistringstream::swap(uistringstream& other) {
    uistream::swap(other);
    swapBuffers(getloc(), buffer_, other.getloc(), other.buffer_);
}

std::basic_stringbuf<char16>* uistringstream::rdbuf() const {
    return const_cast<StringBuffer*>(&buffer_); // as [istringstream.members] says
}

ustring uistringstream::str() const {
    return buffer_.str();
}

void uistringstream::str(ustring text) {
    buffer_.str(std::move(text));
}

// uostringstream

uostringstream::uostringstream(int mode) : uostream(nullptr), buffer_(openMode(mode) | out) {
    attach(*this, buffer_);
}

uostringstream::uostringstream(ustring text, int mode)
    : uostream(nullptr), buffer_(std::move(text), openMode(mode) | out) {
    attach(*this, buffer_);
}

uostringstream::uostringstream(uostringstream&& other)
    : uostream(static_cast<uostream&&>(other)), buffer_(std::move(other.buffer_)) {
    set_rdbuf(&buffer_);
    attach(other, other.buffer_);
}

uostringstream& uostringstream::operator=(uostringstream&& other) {
    if (this != &other) {
        buffer_.str(ustring());
        swap(other);
        set_rdbuf(&buffer_);
        attach(other, other.buffer_);
    }
    return *this;
}

uostringstream::~uostringstream() = default;

void uostringstream::swap(uostringstream& other) {
    uostream::swap(other);
    swapBuffers(getloc(), buffer_, other.getloc(), other.buffer_);
}

std::basic_stringbuf<char16>* uostringstream::rdbuf() const {
    return const_cast<StringBuffer*>(&buffer_); // as [istringstream.members] says
}

ustring uostringstream::str() const {
    return buffer_.str();
}

void uostringstream::str(ustring text) {
    buffer_.str(std::move(text));
}

// ustringstream

ustringstream::ustringstream(int mode) : uiostream(nullptr), buffer_(openMode(mode)) {
    attach(*this, buffer_);
}

ustringstream::ustringstream(ustring text, int mode)
    : uiostream(nullptr), buffer_(std::move(text), openMode(mode)) {
    attach(*this, buffer_);
}

ustringstream::ustringstream(ustringstream&& other)
    : uiostream(static_cast<uiostream&&>(other)), buffer_(std::move(other.buffer_)) {
    set_rdbuf(&buffer_);
    attach(other, other.buffer_);
}

ustringstream& ustringstream::operator=(ustringstream&& other) {
    if (this != &other) {
        buffer_.str(ustring());
        swap(other);
        set_rdbuf(&buffer_);
        attach(other, other.buffer_);
    }
    return *this;
}

ustringstream::~ustringstream() = default;

void ustringstream::swap(ustringstream& other) {
    uiostream::swap(other);
    swapBuffers(getloc(), buffer_, other.getloc(), other.buffer_);
}

std::basic_stringbuf<char16>* ustringstream::rdbuf() const {
    return const_cast<StringBuffer*>(&buffer_); // as [istringstream.members] says
}

ustring ustringstream::str() const {
    return buffer_.str();
}

void ustringstream::str(ustring text) {
    buffer_.str(std::move(text));
}

} // namespace orv
