// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The catalogue: makes all character sets, in order, when the library is loaded.
///
/// This file owns the order of what must exist before the first call. The objects live in static
/// storage and are never destroyed, as destructors of other libraries may still use them; their
/// addresses are constants, so the public pointers need no code at load.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/default_charset.h"
#include "orv/liborvxx/charset/sets/definitions.h"

#include <new>

namespace orv {

namespace {

// Storage for an object that is made by hand and never destroyed.
template <typename T>
union Immortal {
    constexpr Immortal() noexcept : unused() {}
    constexpr ~Immortal() {}
    Immortal(const Immortal&) = delete;
    Immortal& operator=(const Immortal&) = delete;

    void make() { ::new (static_cast<void*>(&object)) T(); }

    char unused;
    T object;
};

using Names = std::map<ustring_ref, Charset*, Charset::NameLess<ustring_ref>>;

constinit Immortal<Names> byName;
constinit Immortal<Names> byAlias;

constinit Immortal<DefinedSet<definitions::US_ASCII>> usAscii;
constinit Immortal<DefinedSet<definitions::UTF_8>> utf8;
constinit Immortal<DefinedSet<definitions::CESU_8>> cesu8;
constinit Immortal<DefinedSet<definitions::ISO_8859_1>> iso8859_1;

} // namespace

constinit Charset::Registry& Charset::s_byName = byName.object;
constinit Charset::Registry& Charset::s_byAlias = byAlias.object;

constinit Charset* const Charset::US_ASCII = &usAscii.object;
constinit Charset* const Charset::ISO_8859_1 = &iso8859_1.object;
constinit Charset* const Charset::UTF_8 = &utf8.object;
constinit Charset* const Charset::CESU_8 = &cesu8.object;

constinit Charset* Charset::s_defaultCharset = nullptr;

/// Fills the registry. The default comes last: its name is decoded by US-ASCII.
class Catalog {
public:
    Catalog() {
        byName.make();
        byAlias.make();
        usAscii.make();
        utf8.make();
        cesu8.make();
        iso8859_1.make();
        Charset::s_defaultCharset = detail::chooseDefaultCharset();
    }
};

namespace {

ORVXX_INIT_EARLY const Catalog catalog;

} // namespace

} // namespace orv
