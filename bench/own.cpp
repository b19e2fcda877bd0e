// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief This library's two ways of converting a text.
#include "bench/transcoder.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"

namespace bench {

namespace {

// As ICU's and iconv's converters are used: coders made once, memory given.
class Incremental : public Transcoder {
public:
    explicit Incremental(orv::Charset* charset)
        : decoder_(charset->newDecoder()), encoder_(charset->newEncoder()) {}

    const char* name() const override { return "orvxx"; }

    std::u16string_view decode(std::string_view bytes, std::span<char16_t> out) override {
        orv::Buffer<const unsigned char> from(reinterpret_cast<const unsigned char*>(bytes.data()),
                                              bytes.size());
        orv::Buffer<orv::char16> to(orv::as_char16(out.data()), out.size());
        decoder_->reset();
        decoder_->decode(from, to, true);
        decoder_->flush(to);
        return {out.data(), to.position()};
    }

    std::string_view encode(std::u16string_view text, std::span<char> out) override {
        orv::Buffer<const orv::char16> from(orv::as_char16(text.data()), text.size());
        orv::Buffer<unsigned char> to(reinterpret_cast<unsigned char*>(out.data()), out.size());
        encoder_->reset();
        encoder_->encode(from, to, true);
        encoder_->flush(to);
        return {out.data(), to.position()};
    }

private:
    std::unique_ptr<orv::CharsetDecoder> decoder_;
    std::unique_ptr<orv::CharsetEncoder> encoder_;
};

// The convenient form, which allocates its result.
class Whole : public Transcoder {
public:
    explicit Whole(orv::Charset* charset) : charset_(charset) {}

    const char* name() const override { return "orvxx-whole"; }

    std::u16string_view decode(std::string_view bytes, std::span<char16_t>) override {
        text_ = charset_->decode(bytes);
        return orv::as_u16string_view(text_);
    }

    std::string_view encode(std::u16string_view text, std::span<char>) override {
        bytes_ = charset_->encode(orv::as_ustring_ref(text));
        return bytes_;
    }

private:
    orv::Charset* charset_;
    orv::ustring text_;
    std::string bytes_;
};

} // namespace

Transcoders makeOwn(const char* charset) {
    const std::string_view name = charset;
    orv::Charset* const set =
        orv::Charset::forName(orv::to_ustring(std::u16string(name.begin(), name.end())));
    Transcoders own;
    own.push_back(std::make_unique<Incremental>(set));
    own.push_back(std::make_unique<Whole>(set));
    return own;
}

} // namespace bench
