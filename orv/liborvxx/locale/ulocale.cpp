// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The classic, the global and named locales.
#include "orv/liborvxx/locale/ulocale.h"

#include "orv/liborvxx/base/detail/immortal.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/locale/num_get.h"
#include "orv/liborvxx/locale/num_put.h"
#include "orv/liborvxx/text/literals.h"

#include <cassert>
#include <mutex>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace orv {

using namespace literals;

struct ulocale::Data {
    std::locale locale;
    ustring name;
};

// A handle and what guards it.
struct ulocale::Global {
    std::mutex mutex;
    std::shared_ptr<Data> data;
};

namespace {

// A facet without state: the one object of its type, which no locale deletes.
template <typename Facet>
Facet* sharedFacet() {
    static constinit detail::Immortal<Facet> storage;
    static Facet* const facet = storage.make(std::size_t(1));
    return facet;
}

constexpr bool isInRange(char16 unit, char16 low, char16 high) {
    return low <= unit && unit <= high;
}

// The C library's locale of a name, if it knows it.
std::optional<std::locale> findLocale(const std::string& name) {
    try {
        return std::locale(name.c_str());
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

[[noreturn]] void throwBadName() {
    throw std::runtime_error("bad locale name");
}

// As the C library may know the locale of a name of the form xx_YY, in order of preference.
struct Spelling {
    char separator;
    std::string_view suffix;
};
constexpr Spelling SPELLINGS[] = {{'_', ".UTF-8"}, {'_', ".utf8"}, {'_', ""}, {'-', ""}};

std::string spelled(const ustring_ref& name, const Spelling& spelling) {
    std::string text;
    text.reserve(name.size() + spelling.suffix.size());
    for (const char16 unit : name) {
        text.push_back(unit == u'_' ? spelling.separator : static_cast<char>(unit));
    }
    return text.append(spelling.suffix);
}

} // namespace

// The locales of all names but the environment's.

bool ulocale::isValidLocaleName(const ustring_ref& name) noexcept {
    return name.size() == 5 && isInRange(name[0], u'a', u'z') && isInRange(name[1], u'a', u'z') &&
           name[2] == u'_' && isInRange(name[3], u'A', u'Z') && isInRange(name[4], u'A', u'Z');
}

std::shared_ptr<ulocale::Data> ulocale::namedData(const ustring_ref& name) {
    for (const Spelling& spelling : SPELLINGS) {
        const std::string text = spelled(name, spelling);
        if (std::optional<std::locale> loc = findLocale(text)) {
            if (loc->name() != text) {
                return classic().data();
            }
            return makeData(addSpecificFacets(*loc), name);
        }
    }
    throwBadName();
}

// The environment's locale.

std::shared_ptr<ulocale::Data> ulocale::environmentData() {
    const std::optional<std::locale> loc = findLocale("");
    if (!loc) {
        throwBadName();
    }
    ustring name;
    for (const char c : loc->name()) {
        if (c == '.') {
            break;
        }
        name.push_back(char16(static_cast<unsigned char>(c)));
    }
    if (name.size() == 5 && name[2] == u'-') {
        name[2] = u'_';
    }
    return makeData(addSpecificFacets(*loc), isValidLocaleName(name) ? ustring_ref(name) : u"*"_u);
}

// Facets.

// NOLINTBEGIN(performance-unnecessary-value-param): a locale is a handle

std::locale ulocale::addGenericFacets(std::locale loc) {
    loc = std::locale(loc, sharedFacet<std::ctype<char16>>());
    loc = std::locale(loc, sharedFacet<std::num_get<char16>>());
    return {loc, sharedFacet<std::num_put<char16>>()};
}

std::locale ulocale::addClassicFacets(std::locale loc) {
    return {addGenericFacets(loc), sharedFacet<std::numpunct<char16>>()};
}

std::locale ulocale::addSpecificFacets(std::locale loc) {
    auto punctuation = std::make_unique<numpunct_from_wide>(loc);
    std::locale result(addGenericFacets(loc), punctuation.get());
    punctuation.release(); // NOLINT(bugprone-unused-return-value): the locale's from now on
    return result;
}

// NOLINTEND(performance-unnecessary-value-param)

ulocale::numpunct_from_wide::numpunct_from_wide(const std::locale& loc, std::size_t refs)
    : StoredNumpunct(refs) {
    copy(std::use_facet<std::numpunct<wchar_t>>(loc));
}

ulocale::numpunct_from_wide::~numpunct_from_wide() = default;

// Handles.

// NOLINTNEXTLINE(performance-unnecessary-value-param): a locale is a handle
std::shared_ptr<ulocale::Data> ulocale::makeData(std::locale loc, const ustring_ref& name) {
    return std::make_shared<Data>(Data{loc, name.to_string()});
}

std::shared_ptr<ulocale::Data> ulocale::classicData() {
    return makeData(addClassicFacets(std::locale::classic()), u"C"_u);
}

const ulocale& ulocale::classic() {
    static constinit detail::Immortal<ulocale> storage;
    static const ulocale* const made =
        ::new (static_cast<void*>(&storage.object)) ulocale(classicData());
    return *made;
}

ulocale::Global& ulocale::globalHandle() noexcept {
    static constinit detail::Immortal<Global> storage(std::in_place);
    return storage.object;
}

ulocale ulocale::global(const ulocale& loc) {
    Global& handle = globalHandle();
    std::shared_ptr<Data> data = loc.data();
    {
        const std::lock_guard lock(handle.mutex);
        handle.data.swap(data);
    }
    return ulocale(std::move(data));
}

ulocale::ulocale() {
    {
        Global& handle = globalHandle();
        const std::lock_guard lock(handle.mutex);
        data_ = handle.data;
    }
    if (!data_) {
        data_ = classic().data();
    }
}

ulocale::ulocale(const ustring_ref& name)
    : data_(name.empty()              ? environmentData()
            : isValidLocaleName(name) ? namedData(name)
                                      : classic().data()) {}

ulocale::ulocale(std::shared_ptr<Data> data) noexcept : data_(std::move(data)) {}

ulocale::ulocale(const ulocale&) noexcept = default;
ulocale& ulocale::operator=(const ulocale&) noexcept = default;
ulocale::~ulocale() = default;

ustring ulocale::name() const {
    assert(data_ != nullptr);
    return data_->name;
}

ulocale::operator std::locale() const {
    assert(data_ != nullptr);
    return data_->locale;
}

bool operator==(const ulocale& a, const ulocale& b) noexcept {
    assert(a.data_ != nullptr && b.data_ != nullptr);
    return a.data_->name == b.data_->name;
}

} // namespace orv
