// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Charset`: a character set by name, its coders, and the registry of all of them.
#ifndef ORV_LIBORVXX_CHARSET_CHARSET_H
#define ORV_LIBORVXX_CHARSET_CHARSET_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/charset_decoder.h"
#include "orv/liborvxx/charset/charset_encoder.h"
#include "orv/liborvxx/text/case_insensitive.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <atomic>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace orv {

/// A character set: names, MIB number, and a factory for its decoders and encoders.
///
/// Every set is one object that is never destroyed. Constructing one registers it; those of the
/// library are made when it is loaded, and the registry is then only read, without a lock. A
/// program may derive a set of its own and construct it before it starts other threads.
///
/// Names are looked up loosely: case, punctuation and leading zeros of a number do not count, so
/// "utf8", "UTF-8" and "utf_8" are one name.
///
/// \par Example
/// \code
/// using namespace orv::literals;
/// orv::Charset* latin1 = orv::Charset::forName(u"latin1"_u);
/// orv::ustring text = latin1->decode("gr\xFC\xDF");
/// std::string bytes = orv::Charset::UTF_8->encode(text);
/// \endcode
class ORVXX_API Charset {
public:
    /// Strict weak order of names by their letters and digits; see the class.
    template <typename T>
    struct NameLess {
        bool operator()(const T& a, const T& b) const;
    };

    using AliasSet = std::set<ustring_ref, case_insensitive_less<ustring_ref>>;

    Charset(const Charset&) = delete;
    Charset& operator=(const Charset&) = delete;

    /// New coders, whose actions are `REPORT`. They belong to the caller.
    virtual std::unique_ptr<CharsetDecoder> newDecoder() = 0;
    virtual std::unique_ptr<CharsetEncoder> newEncoder() = 0;

    /// Converts a whole text. Bad bytes become U+FFFD; bad text throws nothing. Safe from any
    /// thread: one decoder is kept for the next call, so that a repeated call allocates only its
    /// result.
    virtual ustring decode(string_ref bytes);

    /// Converts a whole text. What has no counterpart becomes the encoder's replacement; otherwise
    /// as `decode`.
    virtual std::string encode(ustring_ref text);

    /// The text of one byte, the bytes of one unit.
    ustring decode(char byte);
    std::string encode(char16 unit);

    /// The number of the set in IANA's registry of character sets, 0 if it has none there.
    int MIBenum() const noexcept { return mibEnum_; }
    /// The canonical name.
    const ustring_ref& name() const noexcept { return name_; }
    /// The other names.
    const AliasSet& aliases() const noexcept { return aliases_; }

    /// The set with this canonical name, else with this alias; null for an unknown name and for an
    /// alias that several sets claim. Never throws for a name, whatever its characters. O(log n).
    static Charset* forName(const ustring_ref& name);

    /// Whether the name is known. An alias that several sets claim is, though `forName` gives null.
    static bool isSupported(const ustring& name);

    /// All sets, in the order of their names.
    static std::vector<Charset*> availableCharsets();

    /// The set of narrow text in this process, chosen when the library is loaded: by the
    /// environment variable `ORV_DEFAULT_CHARSET` if it is set and not empty (US-ASCII if it names
    /// no known set); else by the system's ANSI code page where there is one; else by the codeset
    /// of the environment's locale; else US-ASCII.
    static Charset* defaultCharset() noexcept { return s_defaultCharset; }

    /// \name Sets that are at hand without a look-up
    /// Valid also in the static initialisers of a program.
    /// @{
    static Charset* const US_ASCII;
    static Charset* const ISO_8859_1;
    static Charset* const UTF_8;
    static Charset* const UTF_16BE;
    static Charset* const UTF_16LE;
    static Charset* const CESU_8;
    /// @}

protected:
    /// Registers the set. The texts must live as long as the program.
    ///
    /// A name consists of ASCII letters and digits and of `+ - . : _`, which may not come first.
    /// \exception std::invalid_argument* (thrown as a pointer) "invalid charset name: " and the
    ///            name
    /// \exception std::invalid_argument "duplicate alias" for two aliases that differ in case
    ///            alone
    /// \exception std::logic_error "ambiguous charset names" if another set has the name
    Charset(int mibEnum, const ustring_ref& name, std::initializer_list<ustring_ref> aliases);

    /// Must never run.
    /// \exception std::logic_error "Charset::~Charset"
    virtual ~Charset() noexcept(false);

private:
    using Registry = std::map<ustring_ref, Charset*, NameLess<ustring_ref>>;
    friend class Catalog;

    static const ustring_ref& checkCharsetName(const ustring_ref& name);
    static AliasSet makeAliasSet(std::initializer_list<ustring_ref> aliases);
    static bool isDigit(char16 c) noexcept;
    static bool isLetter(char16 c) noexcept;
    static bool isSpecial(char16 c) noexcept;

    std::unique_ptr<CharsetDecoder> acquireDefaultDecoder();
    std::unique_ptr<CharsetEncoder> acquireDefaultEncoder();
    void releaseDefaultDecoder(std::unique_ptr<CharsetDecoder> decoder) noexcept;
    void releaseDefaultEncoder(std::unique_ptr<CharsetEncoder> encoder) noexcept;

    static Registry& s_byName;
    // Null marks an alias that several sets claim.
    static Registry& s_byAlias;
    static Charset* s_defaultCharset;

    int mibEnum_;
    ustring_ref name_;
    AliasSet aliases_;
    std::atomic<CharsetDecoder*> defaultDecoder_ = nullptr;
    std::atomic<CharsetEncoder*> defaultEncoder_ = nullptr;
};

template <>
ORVXX_API bool Charset::NameLess<ustring_ref>::operator()(const ustring_ref& a,
                                                          const ustring_ref& b) const;

} // namespace orv

#endif
