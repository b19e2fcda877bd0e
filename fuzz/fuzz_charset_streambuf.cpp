// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `charset_streambuf`: bytes in any pieces, read in any blocks, give the text of
/// `Charset::decode`; that text, written in any blocks, gives the bytes of `Charset::encode`.
///
/// Input: set, number of steps modulo 16, that many steps (low half: size of a piece, high half: of
/// a block), then the bytes to decode.
#include "fuzz/coder_fuzz.h"

#include "orv/liborvxx/locale/charset_streambuf.h"

#include <sstream>
#include <streambuf>

namespace {

/// Hands the bytes out in the pieces of the plan; an empty one is taken as one byte.
class Pieces : public std::streambuf {
public:
    Pieces(std::string bytes, const fuzz::Plan& plan) : bytes_(std::move(bytes)), plan_(plan) {}

protected:
    int_type underflow() override {
        if (next_ == bytes_.size()) {
            return traits_type::eof();
        }
        const std::size_t wanted = std::max<std::size_t>(1, plan_.at(step_++).more);
        const std::size_t size = std::min(wanted, bytes_.size() - next_);
        char* const begin = bytes_.data() + next_;
        setg(begin, begin, begin + size);
        next_ += size;
        return traits_type::to_int_type(*begin);
    }

private:
    std::string bytes_;
    const fuzz::Plan& plan_;
    std::size_t next_ = 0;
    std::size_t step_ = 0;
};

orv::ustring readAll(orv::charset_streambuf& buffer, const fuzz::Plan& plan) {
    orv::ustring text;
    for (std::size_t i = 0;; ++i) {
        const std::streamsize atHand = buffer.in_avail();
        orv::ustring block(std::max<std::size_t>(1, plan.at(i).room), orv::char16());
        const auto size = static_cast<std::streamsize>(block.size());
        const std::streamsize count = buffer.sgetn(block.data(), size);
        FUZZ_CHECK(count >= std::min(atHand, size));
        text.append(block, 0, static_cast<std::size_t>(count));
        if (count < size) {
            return text;
        }
    }
}

std::string writeAll(orv::Charset& charset, const orv::ustring& text, const fuzz::Plan& plan) {
    std::stringbuf bytes;
    orv::charset_streambuf buffer(bytes, charset);
    std::size_t done = 0;
    for (std::size_t i = 0; done < text.size(); ++i) {
        const std::size_t wanted = std::max<std::size_t>(1, plan.at(i).room);
        const std::size_t size = std::min(wanted, text.size() - done);
        FUZZ_CHECK(buffer.sputn(text.data() + done, static_cast<std::streamsize>(size)) ==
                   static_cast<std::streamsize>(size));
        if (plan.at(i).more % 2 == 0) {
            FUZZ_CHECK(buffer.pubsync() == 0);
        }
        done += size;
    }
    FUZZ_CHECK(buffer.finish());
    return bytes.str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    orv::Charset* const charset = fuzz::chooseCharset(input.byte());
    const fuzz::Plan plan = fuzz::choosePlan(input);
    const std::string bytes = input.rest();

    Pieces pieces(bytes, plan);
    orv::charset_streambuf buffer(pieces, *charset);
    const orv::ustring text = readAll(buffer, plan);
    FUZZ_CHECK(text == charset->decode(bytes));
    FUZZ_CHECK(writeAll(*charset, text, plan) == charset->encode(text));
    // Any units, most of them without a counterpart.
    const orv::ustring units = fuzz::toUnits(bytes);
    FUZZ_CHECK(writeAll(*charset, units, plan) == charset->encode(units));
    return 0;
}
