// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::numpunct<char16>` and `std::numpunct_byname<char16>`.
#include "orv/liborvxx/locale/numpunct.h"

#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"

#include <cassert>

using orv::char16;
using orv::ustring;
using namespace orv::literals;

// The classic locale.

std::locale::id std::numpunct<char16>::id;

std::numpunct<char16>::numpunct(std::size_t refs) : std::locale::facet(refs) {}

std::numpunct<char16>::numpunct::~numpunct() = default;

char16 std::numpunct<char16>::do_decimal_point() const {
    return u'.';
}

char16 std::numpunct<char16>::do_thousands_sep() const {
    return u',';
}

std::string std::numpunct<char16>::do_grouping() const {
    return {};
}

ustring std::numpunct<char16>::do_truename() const {
    return u"true"_u;
}

ustring std::numpunct<char16>::do_falsename() const {
    return u"false"_u;
}

// Stored punctuation.

namespace orv::detail {

StoredNumpunct::StoredNumpunct(std::size_t refs)
    : numpunct(refs), decimalPoint_(), thousandsSep_() {}

StoredNumpunct::~StoredNumpunct() = default;

void StoredNumpunct::copy(const std::numpunct<wchar_t>& wide) {
    decimalPoint_ = char16(wide.decimal_point());
    thousandsSep_ = char16(wide.thousands_sep());
    grouping_ = wide.grouping();
    trueName_ = cvtstr<ustring>(wide.truename());
    falseName_ = cvtstr<ustring>(wide.falsename());
}

char16 StoredNumpunct::do_decimal_point() const {
    return decimalPoint_;
}

char16 StoredNumpunct::do_thousands_sep() const {
    return thousandsSep_;
}

std::string StoredNumpunct::do_grouping() const {
    return grouping_;
}

ustring StoredNumpunct::do_truename() const {
    return trueName_;
}

ustring StoredNumpunct::do_falsename() const {
    return falseName_;
}

} // namespace orv::detail

// The locale of a name.

namespace {

// A facet that needs no locale to live in.
struct WideNumpunct : std::numpunct_byname<wchar_t> {
    using std::numpunct_byname<wchar_t>::numpunct_byname;
};

} // namespace

std::numpunct_byname<char16>::numpunct_byname(const char* name, std::size_t refs)
    : StoredNumpunct(refs) {
    init(name);
}

std::numpunct_byname<char16>::numpunct_byname(const std::string& name, std::size_t refs)
    : numpunct_byname(name.c_str(), refs) {}

std::numpunct_byname<char16>::numpunct_byname::~numpunct_byname() = default;

void std::numpunct_byname<char16>::init(const char* name) {
    assert(name != nullptr);
    copy(WideNumpunct(name, 1));
}
