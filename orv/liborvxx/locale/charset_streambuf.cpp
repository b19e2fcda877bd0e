// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The areas of the buffer, and the coders between them and the bytes.
#include "orv/liborvxx/locale/charset_streambuf.h"

#include "orv/liborvxx/charset/buffer.h"
#include "orv/liborvxx/charset/charset_decoder.h"
#include "orv/liborvxx/charset/charset_encoder.h"
#include "orv/liborvxx/charset/detail/coder_run.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <utility>

namespace orv {

namespace {

constexpr std::size_t UNITS = 4096;
constexpr std::size_t BYTES = 8192;
constexpr std::size_t PUTBACK = 16;

template <typename Coder>
std::unique_ptr<Coder> withAction(std::unique_ptr<Coder> coder, CodingErrorAction action) {
    coder->onMalformedInput(action).onUnmappableCharacter(action);
    return coder;
}

} // namespace

/// The reading direction: the decoder, the bytes not yet decoded, and the memory of the get area.
class detail::CharsetReader {
public:
    CharsetReader(std::streambuf& source, Charset& charset, CodingErrorAction onError)
        : source_(source), decoder_(withAction(charset.newDecoder(), onError)) {}

    /// Where decoded units go. `PUTBACK` units before it are free for those read last.
    char16* area() noexcept { return units_ + PUTBACK; }

    /// Decodes into the area; the number of units, which is 0 at the end. Where it may not wait it
    /// is 0 as well if there is nothing at hand or an error is next.
    std::size_t decode(bool mayWait) {
        Buffer<char16> out(area(), UNITS);
        while (!endIsDue_) {
            const CoderResult result = step(out);
            if (out.position() != 0) {
                return out.position();
            }
            if (result.isError()) {
                if (!mayWait) {
                    return 0;
                }
                begin_ += result.length;
                throwCodingError(result);
            }
            assert(result.kind == CoderResult::UNDERFLOW);
            if (!endIsDue_) {
                if (!mayWait && source_.in_avail() <= 0) {
                    return 0;
                }
                atEnd_ = !readBytes();
            }
        }
        endIsDue_ = !mayWait;
        return 0;
    }

    /// Whether no unit will come.
    bool isExhausted() { return endIsDue_ || (begin_ == end_ && source_.in_avail() < 0); }

private:
    CoderResult step(Buffer<char16>& out) {
        Buffer<const unsigned char> in(bytes_, begin_, end_, BYTES);
        CoderResult result = decoder_->decode(in, out, atEnd_);
        begin_ = in.position();
        if (atEnd_ && result.kind == CoderResult::UNDERFLOW) {
            result = decoder_->flush(out);
            if (result.kind == CoderResult::UNDERFLOW) {
                decoder_->reset();
                atEnd_ = false;
                endIsDue_ = true;
            }
        }
        return result;
    }

    // One read of the source, behind the bytes of an unfinished character: what it has at hand,
    // else a byte for which it waits. False at the end.
    bool readBytes() {
        using Traits = std::streambuf::traits_type;
        if (Traits::eq_int_type(source_.sgetc(), Traits::eof())) {
            return false;
        }
        std::copy(bytes_ + begin_, bytes_ + end_, bytes_);
        end_ -= begin_;
        begin_ = 0;
        const auto room = static_cast<std::streamsize>(BYTES - end_);
        const auto wanted = std::clamp<std::streamsize>(source_.in_avail(), 1, room);
        const std::streamsize count = source_.sgetn(reinterpret_cast<char*>(bytes_ + end_), wanted);
        end_ += static_cast<std::size_t>(count);
        return count != 0;
    }

    std::streambuf& source_;
    std::unique_ptr<CharsetDecoder> decoder_;
    // The bytes from begin_ to end_ wait to be decoded.
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    // The source came to its end; the decoder has not ended the text yet.
    bool atEnd_ = false;
    // The text has ended; the reader does not know yet.
    bool endIsDue_ = false;
    unsigned char bytes_[BYTES];
    char16 units_[PUTBACK + UNITS];
};

/// The writing direction: the encoder, the memory of the put area, and the bytes not yet taken.
class detail::CharsetWriter {
public:
    CharsetWriter(std::streambuf& sink, Charset& charset, CodingErrorAction onError)
        : sink_(sink), encoder_(withAction(charset.newEncoder(), onError)) {}

    char16* area() noexcept { return units_; }

    /// Whether there is a text to be ended, or bytes of one to be handed on.
    bool isOpen() const noexcept { return isOpen_ || begin_ != end_; }

    /// Encodes whole characters and hands the bytes on; false if the sink does not take all.
    /// \p in is then behind what was encoded, and behind an error that is thrown.
    bool encode(Buffer<const char16>& in) {
        CoderResult result = CoderResult::overflow();
        while (result.kind == CoderResult::OVERFLOW) {
            if (!drain()) {
                return false;
            }
            isOpen_ = isOpen_ || in.hasRemaining();
            Buffer<unsigned char> out(bytes_, BYTES);
            result = encoder_->encode(in, out, false);
            end_ = out.position();
        }
        if (!drain()) {
            return false;
        }
        if (result.isError()) {
            in.position(in.position() + result.length);
            throwCodingError(result);
        }
        return true;
    }

    /// Encodes the rest, to which nothing is added, and ends the text. No bytes may wait.
    bool end(Buffer<const char16>& in) {
        assert(begin_ == end_);
        std::optional<CoderResult> error;
        Buffer<unsigned char> out(bytes_, BYTES);
        for (;;) {
            CoderResult result = encoder_->encode(in, out, true);
            if (result.kind == CoderResult::UNDERFLOW) {
                result = encoder_->flush(out);
            }
            if (!result.isError()) {
                assert(result.kind == CoderResult::UNDERFLOW);
                break;
            }
            in.position(in.position() + result.length);
            error = error.value_or(result);
        }
        end_ = out.position();
        encoder_->reset();
        isOpen_ = false;
        const bool isTaken = drain();
        if (error) {
            throwCodingError(*error);
        }
        return isTaken;
    }

private:
    // What the sink was given when it throws counts as taken.
    bool drain() {
        if (begin_ == end_) {
            return true;
        }
        const std::size_t begin = std::exchange(begin_, 0);
        const std::size_t end = std::exchange(end_, 0);
        const auto count =
            static_cast<std::size_t>(sink_.sputn(reinterpret_cast<const char*>(bytes_ + begin),
                                                 static_cast<std::streamsize>(end - begin)));
        if (count == end - begin) {
            return true;
        }
        begin_ = begin + count;
        end_ = end;
        return false;
    }

    std::streambuf& sink_;
    std::unique_ptr<CharsetEncoder> encoder_;
    // The bytes from begin_ to end_ were refused by the sink.
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    // Units went into the encoder since the last text was ended.
    bool isOpen_ = false;
    unsigned char bytes_[BYTES];
    char16 units_[UNITS];
};

charset_streambuf::charset_streambuf(std::streambuf& bytes, Charset& charset,
                                     CodingErrorAction onError)
    : bytes_(bytes), charset_(charset), onError_(onError) {
    if (!detail::isValid(onError)) {
        throw std::invalid_argument("charset_streambuf::charset_streambuf");
    }
}

charset_streambuf::~charset_streambuf() {
    // An error that is reported is skipped, so that what stands behind it is written as well.
    for (std::ptrdiff_t waiting = pptr() - pbase();; waiting = pptr() - pbase()) {
        try {
            finish();
            return;
        } catch (...) {
            if (pptr() - pbase() >= waiting) {
                return;
            }
        }
    }
}

bool charset_streambuf::finish() {
    if (writer_ == nullptr || (pptr() == pbase() && !writer_->isOpen())) {
        return true;
    }
    return encodePut(false) && (!writer_->isOpen() || encodePut(true)) && bytes_.pubsync() != -1;
}

// Decodes into a get area that is empty; false if it stays so.
bool charset_streambuf::fill(bool mayWait) {
    assert(gptr() == egptr());
    if (reader_ == nullptr) {
        reader_ = std::make_unique<detail::CharsetReader>(bytes_, charset_, onError_);
    }
    char16* const area = reader_->area();
    const std::ptrdiff_t kept = std::min<std::ptrdiff_t>(PUTBACK, gptr() - eback());
    std::copy(gptr() - kept, gptr(), area - kept);
    setg(area - kept, area, area);
    setg(area - kept, area, area + reader_->decode(mayWait));
    return gptr() != egptr();
}

charset_streambuf::int_type charset_streambuf::underflow() {
    return gptr() != egptr() || fill(true) ? traits_type::to_int_type(*gptr()) : traits_type::eof();
}

std::streamsize charset_streambuf::showmanyc() {
    return gptr() != egptr() || fill(false) ? egptr() - gptr() : reader_->isExhausted() ? -1 : 0;
}

std::streamsize charset_streambuf::xsgetn(char16* text, std::streamsize size) {
    std::streamsize done = 0;
    while (done < size && (gptr() != egptr() || fill(true))) {
        const std::streamsize count = std::min<std::streamsize>(egptr() - gptr(), size - done);
        std::copy_n(gptr(), count, text + done);
        gbump(static_cast<int>(count));
        done += count;
    }
    return done;
}

charset_streambuf::int_type charset_streambuf::pbackfail(int_type unit) {
    if (gptr() == eback()) {
        return traits_type::eof();
    }
    gbump(-1);
    if (!traits_type::eq_int_type(unit, traits_type::eof())) {
        *gptr() = traits_type::to_char_type(unit);
    }
    return traits_type::not_eof(unit);
}

// Encodes the put area; with `last` all of it, as the end of the text. What is left is moved to the
// front. False if the byte buffer refused something.
bool charset_streambuf::encodePut(bool last) {
    if (writer_ == nullptr) {
        writer_ = std::make_unique<detail::CharsetWriter>(bytes_, charset_, onError_);
        setp(writer_->area(), writer_->area() + UNITS);
    }
    struct Put {
        charset_streambuf& buffer;
        Buffer<const char16> units;
        ~Put() {
            char16* const area = buffer.pbase();
            std::copy(area + units.position(), area + units.limit(), area);
            buffer.setp(area, area + UNITS);
            buffer.pbump(static_cast<int>(units.remaining()));
        }
    } put{*this, {pbase(), static_cast<std::size_t>(pptr() - pbase())}};
    return last ? writer_->end(put.units) : writer_->encode(put.units);
}

charset_streambuf::int_type charset_streambuf::overflow(int_type unit) {
    if (!encodePut(false)) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(unit, traits_type::eof())) {
        assert(pptr() != epptr());
        *pptr() = traits_type::to_char_type(unit);
        pbump(1);
    }
    return traits_type::not_eof(unit);
}

std::streamsize charset_streambuf::xsputn(const char16* text, std::streamsize size) {
    std::streamsize done = 0;
    while (done < size && (pptr() != epptr() || encodePut(false))) {
        const std::streamsize count = std::min<std::streamsize>(epptr() - pptr(), size - done);
        std::copy_n(text + done, count, pptr());
        pbump(static_cast<int>(count));
        done += count;
    }
    return done;
}

int charset_streambuf::sync() {
    const bool isEncoded = writer_ == nullptr || encodePut(false);
    return isEncoded && bytes_.pubsync() != -1 ? 0 : -1;
}

} // namespace orv
