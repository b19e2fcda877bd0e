// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief ICU's converters, ICU's UTF-8 functions and the C library's iconv as transcoders.
#include "bench/transcoder.h"

#include <bit>
#include <cstring>

#if ORV_BENCH_ICU
#include <unicode/ucnv.h>
#include <unicode/ustring.h>
#endif
#if ORV_BENCH_ICONV
#include <iconv.h>
#endif

namespace bench {

namespace {

#if ORV_BENCH_ICU

class IcuConverter : public Transcoder {
public:
    explicit IcuConverter(UConverter* converter) : converter_(converter) {}

    const char* name() const override { return "ICU"; }

    std::u16string_view decode(std::string_view bytes, std::span<char16_t> out) override {
        UErrorCode error = U_ZERO_ERROR;
        const char* from = bytes.data();
        char16_t* to = out.data();
        // Flushing at the end of the text also resets the converter.
        ucnv_toUnicode(converter_.get(), &to, to + out.size(), &from, from + bytes.size(), nullptr,
                       true, &error);
        return {out.data(), static_cast<std::size_t>(to - out.data())};
    }

    std::string_view encode(std::u16string_view text, std::span<char> out) override {
        UErrorCode error = U_ZERO_ERROR;
        const char16_t* from = text.data();
        char* to = out.data();
        ucnv_fromUnicode(converter_.get(), &to, to + out.size(), &from, from + text.size(), nullptr,
                         true, &error);
        return {out.data(), static_cast<std::size_t>(to - out.data())};
    }

private:
    struct Close {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };
    std::unique_ptr<UConverter, Close> converter_;
};

// ICU's fastest between UTF-8 and UTF-16: plain functions without a converter.
class IcuUtf8Functions : public Transcoder {
public:
    const char* name() const override { return "ICU-u_str"; }

    std::u16string_view decode(std::string_view bytes, std::span<char16_t> out) override {
        UErrorCode error = U_ZERO_ERROR;
        int32_t size = 0;
        u_strFromUTF8(out.data(), static_cast<int32_t>(out.size()), &size, bytes.data(),
                      static_cast<int32_t>(bytes.size()), &error);
        return {out.data(), U_SUCCESS(error) ? static_cast<std::size_t>(size) : 0};
    }

    std::string_view encode(std::u16string_view text, std::span<char> out) override {
        UErrorCode error = U_ZERO_ERROR;
        int32_t size = 0;
        u_strToUTF8(out.data(), static_cast<int32_t>(out.size()), &size, text.data(),
                    static_cast<int32_t>(text.size()), &error);
        return {out.data(), U_SUCCESS(error) ? static_cast<std::size_t>(size) : 0};
    }
};

#endif

#if ORV_BENCH_ICONV

class Iconv : public Transcoder {
public:
    Iconv(iconv_t decoder, iconv_t encoder) : decoder_(decoder), encoder_(encoder) {}
    ~Iconv() override {
        iconv_close(decoder_);
        iconv_close(encoder_);
    }

    const char* name() const override { return "iconv"; }

    std::u16string_view decode(std::string_view bytes, std::span<char16_t> out) override {
        return {out.data(),
                convert(decoder_, bytes.data(), bytes.size(), out.data(), out.size_bytes()) /
                    sizeof(char16_t)};
    }

    std::string_view encode(std::u16string_view text, std::span<char> out) override {
        return {out.data(), convert(encoder_, text.data(), text.size() * sizeof(char16_t),
                                    out.data(), out.size())};
    }

private:
    // Bytes written.
    static std::size_t convert(iconv_t descriptor, const void* in, std::size_t size, void* out,
                               std::size_t room) {
        char* from = static_cast<char*>(const_cast<void*>(in));
        char* to = static_cast<char*>(out);
        std::size_t left = room;
        iconv(descriptor, nullptr, nullptr, nullptr, nullptr);
        iconv(descriptor, &from, &size, &to, &left);
        // Some sets keep a last character back, as a combining one might follow.
        iconv(descriptor, nullptr, nullptr, &to, &left);
        return room - left;
    }

    iconv_t decoder_;
    iconv_t encoder_;
};

bool isOpen(iconv_t descriptor) {
    return descriptor != reinterpret_cast<iconv_t>(-1);
}

#endif

#if ORV_BENCH_ICONV

// The name that iconv knows the character set by.
const char* iconvNameOf(const char* charset) {
    return std::strcmp(charset, "x-windows-949") == 0 ? "CP949" : charset;
}

#endif

} // namespace

Transcoders makePeers([[maybe_unused]] const char* charset) {
    Transcoders peers;
#if ORV_BENCH_ICU
    UErrorCode error = U_ZERO_ERROR;
    if (UConverter* const converter = ucnv_open(charset, &error)) {
        peers.push_back(std::make_unique<IcuConverter>(converter));
    }
    if (std::strcmp(charset, "UTF-8") == 0) {
        peers.push_back(std::make_unique<IcuUtf8Functions>());
    }
#endif
#if ORV_BENCH_ICONV
    constexpr bool little = std::endian::native == std::endian::little;
    const char* const utf16 = little ? "UTF-16LE" : "UTF-16BE";
    const iconv_t decoder = iconv_open(utf16, iconvNameOf(charset));
    const iconv_t encoder = iconv_open(iconvNameOf(charset), utf16);
    if (isOpen(decoder) && isOpen(encoder)) {
        peers.push_back(std::make_unique<Iconv>(decoder, encoder));
    }
#endif
    return peers;
}

} // namespace bench
