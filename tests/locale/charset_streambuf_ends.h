// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The ends of a `charset_streambuf` in tests: byte buffers that hand out pieces, refuse and
/// throw, and readers and writers of text in blocks.
#ifndef ORV_TESTS_LOCALE_CHARSET_STREAMBUF_ENDS_H
#define ORV_TESTS_LOCALE_CHARSET_STREAMBUF_ENDS_H

#include "orv/liborvxx/locale/charset_streambuf.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/support/sample_texts.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvtest {

using Traits = std::char_traits<orv::char16>;

inline orv::ustring u(std::u16string_view text) {
    return {orv::as_char16(text.data()), text.size()};
}

inline orv::ustring ustringOf(const std::vector<orv::char16>& units) {
    return {units.data(), units.size()};
}

/// Hands its bytes out in pieces and at the end of each may pretend to be at its end, as a terminal
/// or a growing file does. Notes how often it was asked for more.
class Source : public std::streambuf {
public:
    explicit Source(std::vector<std::string> pieces) : pieces_(std::move(pieces)) {}

    static std::vector<std::string> cut(const std::string& bytes, std::size_t size) {
        std::vector<std::string> pieces;
        for (std::size_t i = 0; i < bytes.size(); i += size) {
            pieces.push_back(bytes.substr(i, size));
        }
        return pieces;
    }

    void add(const std::string& piece) { pieces_.push_back(piece); }
    int asked = 0;
    /// Whether `in_avail` tells of pieces that were not asked for yet.
    bool tellsAhead = false;

protected:
    int_type underflow() override {
        if (gptr() != egptr()) {
            return traits_type::to_int_type(*gptr());
        }
        ++asked;
        if (next_ == pieces_.size()) {
            return traits_type::eof();
        }
        std::string& piece = pieces_[next_++];
        if (piece == "throw") {
            throw std::runtime_error("source");
        }
        if (piece.empty()) {
            return traits_type::eof();
        }
        setg(piece.data(), piece.data(), piece.data() + piece.size());
        return traits_type::to_int_type(*gptr());
    }

    std::streamsize showmanyc() override {
        const bool hasMore = next_ < pieces_.size();
        return tellsAhead && hasMore ? static_cast<std::streamsize>(pieces_[next_].size())
               : tellsAhead          ? -1
                                     : 0;
    }

private:
    std::vector<std::string> pieces_;
    std::size_t next_ = 0;
};

/// Takes so many bytes, then refuses or throws.
class Sink : public std::streambuf {
public:
    std::string taken;
    std::size_t room = std::numeric_limits<std::size_t>::max();
    bool throws = false;
    bool syncs = true;
    int synced = 0;

protected:
    int_type overflow(int_type c) override {
        const char byte = traits_type::to_char_type(c);
        return xsputn(&byte, 1) == 1 ? c : traits_type::eof();
    }

    std::streamsize xsputn(const char* bytes, std::streamsize size) override {
        const std::size_t count = std::min(room, static_cast<std::size_t>(size));
        taken.append(bytes, count);
        room -= count;
        if (throws && count < static_cast<std::size_t>(size)) {
            throw std::runtime_error("sink");
        }
        return static_cast<std::streamsize>(count);
    }

    int sync() override {
        ++synced;
        return syncs ? 0 : -1;
    }
};

/// All units up to the end, in blocks of the given sizes in turn; 0 stands for one `sbumpc`.
inline orv::ustring readAll(std::basic_streambuf<orv::char16>& buffer,
                            const std::vector<std::size_t>& sizes) {
    orv::ustring text;
    std::vector<orv::char16> block(*std::max_element(sizes.begin(), sizes.end()) + 1);
    for (std::size_t i = 0;; ++i) {
        const std::size_t size = sizes[i % sizes.size()];
        if (size == 0) {
            const auto unit = buffer.sbumpc();
            if (unit == Traits::eof()) {
                return text;
            }
            text.push_back(Traits::to_char_type(unit));
            continue;
        }
        const auto count = static_cast<std::size_t>(
            buffer.sgetn(block.data(), static_cast<std::streamsize>(size)));
        text.append(block.data(), count);
        if (count < size) {
            return text;
        }
    }
}

inline orv::ustring readAll(std::basic_streambuf<orv::char16>& buffer) {
    return readAll(buffer, {1000});
}

/// Writes the text in blocks of the given sizes in turn; 0 stands for one `sputc`.
inline void writeAll(std::basic_streambuf<orv::char16>& buffer, orv::ustring_ref text,
                     const std::vector<std::size_t>& sizes) {
    for (std::size_t i = 0, done = 0; done < text.size(); ++i) {
        const std::size_t size = std::min(sizes[i % sizes.size()], text.size() - done);
        if (size == 0) {
            ASSERT_EQ(Traits::to_int_type(text[done]), buffer.sputc(text[done]));
            ++done;
            continue;
        }
        ASSERT_EQ(static_cast<std::streamsize>(size),
                  buffer.sputn(text.data() + done, static_cast<std::streamsize>(size)));
        done += size;
    }
}

inline std::string written(orv::Charset& charset, orv::ustring_ref text,
                           const std::vector<std::size_t>& sizes = {1000}) {
    Sink sink;
    orv::charset_streambuf buffer(sink, charset);
    writeAll(buffer, text, sizes);
    EXPECT_TRUE(buffer.finish());
    return sink.taken;
}

inline std::vector<std::size_t> randomSizes(std::size_t largest, std::mt19937& random) {
    std::vector<std::size_t> sizes(1 + random() % 5);
    for (std::size_t& size : sizes) {
        size = random() % (largest + 1);
    }
    return sizes;
}

inline std::string randomBytes(orv::Charset& charset, std::size_t units, std::mt19937& random) {
    const std::string bytes = charset.encode(ustringOf(mixedText(units, 40, random)));
    const auto changed = mutated(std::vector<unsigned char>(bytes.begin(), bytes.end()), random);
    return {changed.begin(), changed.end()};
}

inline bool hasEndMark(orv::ustring_ref text) {
    return std::find(text.begin(), text.end(), u'\xFFFF') != text.end();
}

} // namespace orvtest

#endif
