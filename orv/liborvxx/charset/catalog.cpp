// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The catalogue: makes all character sets, in order, when the library is loaded.
///
/// This file owns the order of what must exist before the first call. The objects live in static
/// storage and are never destroyed, as destructors of other libraries may still use them; their
/// addresses are constants, so the public pointers need no code at load.
#include "orv/liborvxx/base/detail/immortal.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/default_charset.h"
#include "orv/liborvxx/charset/sets/definitions.h"

namespace orv {

namespace {

using detail::Immortal;
using Names = std::map<ustring_ref, Charset*, Charset::NameLess<ustring_ref>>;

constinit Immortal<Names> byName;
constinit Immortal<Names> byAlias;

// The object of a set.
template <const SetDefinition& DEFINITION>
constinit Immortal<DefinedSet<DEFINITION>> storage;

template <const SetDefinition&... DEFINITIONS>
void makeInOrder() {
    static_assert(((sizeof(DefinedSet<DEFINITIONS>) == sizeof(Charset)) && ...),
                  "a set is told from others by its definition alone");
    (storage<DEFINITIONS>.make(), ...);
}

} // namespace

constinit Charset::Registry& Charset::s_byName = byName.object;
constinit Charset::Registry& Charset::s_byAlias = byAlias.object;

constinit Charset* const Charset::US_ASCII = &storage<definitions::US_ASCII>.object;
constinit Charset* const Charset::ISO_8859_1 = &storage<definitions::ISO_8859_1>.object;
constinit Charset* const Charset::UTF_8 = &storage<definitions::UTF_8>.object;
constinit Charset* const Charset::UTF_16BE = &storage<definitions::UTF_16BE>.object;
constinit Charset* const Charset::UTF_16LE = &storage<definitions::UTF_16LE>.object;
constinit Charset* const Charset::CESU_8 = &storage<definitions::CESU_8>.object;

constinit Charset* Charset::s_defaultCharset = nullptr;

/// Fills the registry. The default comes last: its name is decoded by US-ASCII.
class Catalog {
public:
    Catalog() {
        using namespace definitions;
        byName.make();
        byAlias.make();
        makeInOrder<US_ASCII, UTF_8, UTF_16BE, UTF_16LE, CESU_8, ISO_8859_1, ISO_8859_2, ISO_8859_3,
                    ISO_8859_4, ISO_8859_5, ISO_8859_6, ISO_8859_7, ISO_8859_8, ISO_8859_9,
                    ISO_8859_10, ISO_8859_11, ISO_8859_13, ISO_8859_14, ISO_8859_15, ISO_8859_16,
                    Micsft_1250, Micsft_1251, Micsft_1252, Micsft_1253, Micsft_1254, Micsft_1255,
                    Micsft_1256, Micsft_1257, Micsft_1258, Micsft_874, Micsft_932, Micsft_936,
                    Micsft_949, Micsft_950, KOI8_R, KOI8_U, Big5, Big5_HKSCS, GBK, GB18030,
                    Shift_JIS>();
        Charset::s_defaultCharset = detail::chooseDefaultCharset();
    }
};

namespace {

ORVXX_INIT_EARLY const Catalog catalog;

} // namespace

} // namespace orv
