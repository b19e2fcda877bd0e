// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A character set as this library, ICU and glibc's iconv have it.
#include "tests/differential/charset_peers.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <gnu/libc-version.h>
#include <iconv.h>
#include <unicode/ucnv.h>
#include <unicode/uset.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace orvtest {

namespace {

[[noreturn]] void throwUnknown(const char* library, std::string_view name) {
    throw std::runtime_error(std::string(library) + " has no character set " + std::string(name));
}

std::u16string utf16Of(std::u32string_view text) {
    std::u16string units;
    for (const char32_t c : text) {
        if (c > 0xFFFF) {
            units += static_cast<char16_t>(0xD7C0 + (c >> 10));
            units += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else {
            units += static_cast<char16_t>(c);
        }
    }
    return units;
}

// Well-formed text.
std::u32string utf32Of(std::u16string_view units) {
    std::u32string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t c = units[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < units.size()) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (units[++i] & 0x3FF);
        }
        text += c;
    }
    return text;
}

class OwnCharset : public CharsetPeer {
public:
    explicit OwnCharset(orv::Charset& set)
        : decoder_(set.newDecoder()), encoder_(set.newEncoder()), filter_(set.newEncoder()) {
        filter_->onUnmappableCharacter(orv::IGNORE);
    }

    std::u32string decode(std::string_view bytes) override {
        std::array<orv::char16, 16> units;
        orv::Buffer<const unsigned char> in(reinterpret_cast<const unsigned char*>(bytes.data()),
                                            bytes.size());
        orv::Buffer<orv::char16> out(units.data(), units.size());
        const orv::CoderResult result = decoder_->decode(in, out, true);
        return result == orv::CoderResult::underflow()
                   ? utf32Of({orv::as_char16_t(units.data()), out.position()})
                   : std::u32string();
    }

    std::string encode(char32_t character) override {
        const std::u16string text = utf16Of({&character, 1});
        std::array<unsigned char, 16> bytes;
        const orv::ustring_ref view = orv::as_ustring_ref(text);
        orv::Buffer<const orv::char16> in(view.data(), view.size());
        orv::Buffer<unsigned char> out(bytes.data(), bytes.size());
        const orv::CoderResult result = encoder_->encode(in, out, true);
        return result == orv::CoderResult::underflow()
                   ? std::string(reinterpret_cast<const char*>(bytes.data()), out.position())
                   : std::string();
    }

    bool encodesAny(std::u32string_view text) override {
        return !filter_->encode(orv::as_ustring_ref(utf16Of(text))).empty();
    }

private:
    std::unique_ptr<orv::CharsetDecoder> decoder_;
    std::unique_ptr<orv::CharsetEncoder> encoder_;
    std::unique_ptr<orv::CharsetEncoder> filter_;
};

class IcuConverter : public CharsetPeer {
public:
    explicit IcuConverter(const std::string& name)
        : converter_(open(name)), encoded_(uset_openEmpty(), uset_close) {
        UErrorCode error = U_ZERO_ERROR;
        ucnv_setToUCallBack(converter_.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                            &error);
        ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr,
                              nullptr, &error);
        ucnv_getUnicodeSet(converter_.get(), encoded_.get(), UCNV_ROUNDTRIP_AND_FALLBACK_SET,
                           &error);
        if (U_FAILURE(error)) {
            throw std::runtime_error(u_errorName(error));
        }
    }

    std::u32string decode(std::string_view bytes) override {
        std::array<char16_t, 16> units;
        const char* in = bytes.data();
        char16_t* out = units.data();
        UErrorCode error = U_ZERO_ERROR;
        ucnv_resetToUnicode(converter_.get());
        ucnv_toUnicode(converter_.get(), &out, out + units.size(), &in, in + bytes.size(), nullptr,
                       true, &error);
        return U_SUCCESS(error)
                   ? utf32Of({units.data(), static_cast<std::size_t>(out - units.data())})
                   : std::u32string();
    }

    std::string encode(char32_t character) override {
        const std::u16string units = utf16Of({&character, 1});
        std::array<char, 16> bytes;
        const char16_t* in = units.data();
        char* out = bytes.data();
        UErrorCode error = U_ZERO_ERROR;
        ucnv_resetFromUnicode(converter_.get());
        ucnv_fromUnicode(converter_.get(), &out, out + bytes.size(), &in, in + units.size(),
                         nullptr, true, &error);
        return U_SUCCESS(error) ? std::string(bytes.data(), out) : std::string();
    }

    bool encodesAny(std::u32string_view text) override {
        return std::any_of(text.begin(), text.end(), [&](char32_t c) {
            return uset_contains(encoded_.get(), static_cast<UChar32>(c)) != 0;
        });
    }

private:
    using Handle = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

    static Handle open(const std::string& name) {
        UErrorCode error = U_ZERO_ERROR;
        Handle converter(ucnv_open(name.c_str(), &error), ucnv_close);
        if (U_FAILURE(error)) {
            throwUnknown("ICU", name);
        }
        return converter;
    }

    Handle converter_;
    std::unique_ptr<USet, decltype(&uset_close)> encoded_;
};

// A direction of iconv.
class IconvDirection {
public:
    IconvDirection(const std::string& to, const std::string& from)
        : descriptor_(iconv_open(to.c_str(), from.c_str())) {
        // What iconv_open gives for a name that it does not know.
        if (reinterpret_cast<std::intptr_t>(descriptor_) == -1) {
            throwUnknown("iconv", to == TEXT ? from : to);
        }
    }
    IconvDirection(const IconvDirection&) = delete;
    IconvDirection& operator=(const IconvDirection&) = delete;
    ~IconvDirection() { iconv_close(descriptor_); }

    // Converts a whole input into a buffer and gives the length of the result, 0 for an error.
    // Some converters hold a character back until they have seen the next one, or the end.
    std::size_t convert(const void* input, std::size_t size, void* output, std::size_t room) {
        char* in = const_cast<char*>(static_cast<const char*>(input));
        char* out = static_cast<char*>(output);
        std::size_t left = room;
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        const bool good = iconv(descriptor_, &in, &size, &out, &left) != FAILED && size == 0 &&
                          iconv(descriptor_, nullptr, nullptr, &out, &left) != FAILED;
        return good ? room - left : 0;
    }

    // Whether an input gives any output, past all errors. Those that the direction does not step
    // over by itself are \p step long.
    bool givesAnything(const void* input, std::size_t size, std::size_t step) {
        char* in = const_cast<char*>(static_cast<const char*>(input));
        std::array<char, 16> bytes;
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        for (;;) {
            char* out = bytes.data();
            std::size_t left = bytes.size();
            const bool good = iconv(descriptor_, &in, &size, &out, &left) != FAILED;
            if (size == 0) {
                iconv(descriptor_, nullptr, nullptr, &out, &left);
            }
            if (left != bytes.size() || (!good && errno == E2BIG)) {
                return true;
            }
            if (size == 0) {
                return false;
            }
            in += step;
            size -= step;
        }
    }

    static constexpr const char* TEXT = "UTF-32LE";

private:
    static constexpr std::size_t FAILED = static_cast<std::size_t>(-1);

    iconv_t descriptor_;
};

class IconvConverter : public CharsetPeer {
public:
    explicit IconvConverter(const std::string& name)
        : decoder_(IconvDirection::TEXT, name), encoder_(name, IconvDirection::TEXT),
          filter_(name + "//IGNORE", IconvDirection::TEXT) {}

    std::u32string decode(std::string_view bytes) override {
        std::array<std::uint8_t, 64> text;
        const std::size_t size =
            decoder_.convert(bytes.data(), bytes.size(), text.data(), text.size());
        std::u32string result;
        for (std::size_t i = 0; i + 4 <= size; i += 4) {
            result += static_cast<char32_t>(text[i] | text[i + 1] << 8 | text[i + 2] << 16 |
                                            text[i + 3] << 24);
        }
        return result;
    }

    std::string encode(char32_t character) override {
        std::array<char, 16> bytes;
        const std::string text = littleEndian({&character, 1});
        const std::size_t size =
            encoder_.convert(text.data(), text.size(), bytes.data(), bytes.size());
        return {bytes.data(), size};
    }

    bool encodesAny(std::u32string_view text) override {
        const std::string bytes = littleEndian(text);
        return filter_.givesAnything(bytes.data(), bytes.size(), 4);
    }

private:
    static std::string littleEndian(std::u32string_view text) {
        std::string bytes;
        for (const char32_t c : text) {
            for (unsigned int shift = 0; shift < 32; shift += 8) {
                bytes += static_cast<char>(c >> shift);
            }
        }
        return bytes;
    }

    IconvDirection decoder_;
    IconvDirection encoder_;
    IconvDirection filter_;
};

} // namespace

std::unique_ptr<CharsetPeer> openOwnCharset(std::string_view name) {
    const std::u16string wide(name.begin(), name.end());
    orv::Charset* const set = orv::Charset::forName(orv::as_ustring_ref(wide));
    if (set == nullptr) {
        throwUnknown("The library", name);
    }
    return std::make_unique<OwnCharset>(*set);
}

std::unique_ptr<CharsetPeer> openIcuConverter(const std::string& name) {
    return std::make_unique<IcuConverter>(name);
}

std::unique_ptr<CharsetPeer> openIconvConverter(const std::string& name) {
    return std::make_unique<IconvConverter>(name);
}

std::string icuVersion() {
    UVersionInfo version;
    u_getVersion(version);
    std::array<char, U_MAX_VERSION_STRING_LENGTH> text{};
    u_versionToString(version, text.data());
    return std::string("ICU ") + text.data();
}

std::string iconvVersion() {
    return std::string("glibc ") + gnu_get_libc_version();
}

} // namespace orvtest
