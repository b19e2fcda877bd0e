// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers in streams over `char16`: the units taken read alike when nothing follows them
/// (but for a separator that ended the number), a double is the one that the C library reads, and
/// what is written reads back as the same.
///
/// Input: bytes for the type, the format (base, form of floats, showbase, showpos, uppercase,
/// boolalpha), the point, the separator and the group sizes (two); the text, a unit for each byte.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/locale/ustringstream.h"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <ios>
#include <limits>
#include <locale>
#include <string>
#include <type_traits>

namespace {

using orv::char16;
using orv::ustring;

struct Format {
    std::ios_base::fmtflags flags = {};
    char16 point = u'.';
    char16 separator = u',';
    std::string grouping;

    bool isHexFloat() const {
        const auto both = std::ios_base::fixed | std::ios_base::scientific;
        return (flags & std::ios_base::floatfield) == both;
    }
};

class Punctuation : public std::numpunct<char16> {
public:
    explicit Punctuation(const Format& format) : format_(format) {}

private:
    char16 do_decimal_point() const override { return format_.point; }
    char16 do_thousands_sep() const override { return format_.separator; }
    std::string do_grouping() const override { return format_.grouping; }

    Format format_;
};

Format takeFormat(fuzz::Input& input) {
    Format format;
    const unsigned bits = input.byte();
    constexpr std::ios_base::fmtflags BASES[] = {
        {}, std::ios_base::oct, std::ios_base::dec, std::ios_base::hex};
    constexpr std::ios_base::fmtflags FORMS[] = {{},
                                                 std::ios_base::fixed,
                                                 std::ios_base::scientific,
                                                 std::ios_base::fixed | std::ios_base::scientific};
    constexpr std::ios_base::fmtflags SINGLE[] = {std::ios_base::showbase, std::ios_base::showpos,
                                                  std::ios_base::uppercase,
                                                  std::ios_base::boolalpha};
    format.flags = BASES[bits & 3U] | FORMS[bits >> 2U & 3U];
    for (unsigned i = 0; i < 4; ++i) {
        if ((bits >> (4 + i) & 1U) != 0) {
            format.flags |= SINGLE[i];
        }
    }
    format.point = char16(input.byte());
    format.separator = char16(input.byte());
    format.grouping = input.bytes(2);
    return format;
}

template <class Value>
struct Reading {
    Value value{};
    std::ios_base::iostate state{};
    std::size_t taken = 0;
};

template <class Value>
Reading<Value> read(const ustring& text, const Format& format, const std::locale& locale) {
    orv::uistringstream in(text);
    in.std::basic_ios<char16>::imbue(locale);
    in.flags(format.flags); // white space is not skipped
    Reading<Value> reading;
    in >> reading.value;
    reading.state = in.rdstate();
    in.clear();
    reading.taken = text.size() - static_cast<std::size_t>(
                                      in.rdbuf()->in_avail() > 0 ? in.rdbuf()->in_avail() : 0);
    return reading;
}

template <class Value>
bool isSame(Value a, Value b) {
    return a == b;
}
bool isSame(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// Whether no character of a number is also one of the punctuation.
bool isPlain(const Format& format) {
    return format.point == u'.' && format.separator == u',';
}

// The C library reads exactly, too.
void compareWithStrtod(double value, const ustring& text, const Format& format) {
    if (format.isHexFloat() || !isPlain(format) || text.find(u',') != ustring::npos) {
        return;
    }
    std::string narrow;
    for (const char16 unit : text) {
        narrow += static_cast<char>(unit);
    }
    char* end = nullptr;
    const double peer = std::strtod(narrow.c_str(), &end);
    FUZZ_CHECK(end == narrow.c_str() + narrow.size() && isSame(peer, value));
}

template <class Value>
void readBack(Value value, const Format& format, const std::locale& locale) {
    orv::uostringstream out;
    out.std::basic_ios<char16>::imbue(locale);
    out.flags(format.flags);
    out.precision(std::numeric_limits<Value>::max_digits10);
    out << value;
    FUZZ_CHECK(out.good());
    const bool rounds = std::is_floating_point_v<Value> &&
                        (format.flags & std::ios_base::floatfield) == std::ios_base::fixed;
    // Bases without a prefix do not read back where the prefix decides, and no base but ten has
    // a sign.
    const bool has10 = (format.flags & (std::ios_base::oct | std::ios_base::hex)) == 0;
    if (isPlain(format) && !rounds && (has10 || std::is_floating_point_v<Value>)) {
        const auto again = read<Value>(out.str(), format, locale);
        FUZZ_CHECK((again.state & std::ios_base::failbit) == 0);
        FUZZ_CHECK(isSame(again.value, value));
    }
}

template <class Value>
void check(const ustring& text, const Format& format) {
    const std::locale locale(orv::ulocale::classic(), new Punctuation(format));
    const auto whole = read<Value>(text, format, locale);
    FUZZ_CHECK(whole.taken <= text.size());
    FUZZ_CHECK((whole.state & std::ios_base::badbit) == 0);
    FUZZ_CHECK(((whole.state & std::ios_base::eofbit) == 0) || whole.taken == text.size());
    const ustring taken = text.substr(0, whole.taken);
    const auto cut = read<Value>(taken, format, locale);
    FUZZ_CHECK(cut.taken == taken.size());
    const bool hasFailed = (whole.state & std::ios_base::failbit) != 0;
    // A separator without a digit of a group before it fails a number that may be one without it:
    // the zero of "0,1" says "octal", and is in no group.
    const bool isAtSeparator = whole.taken < text.size() && text[whole.taken] == format.separator;
    if (!hasFailed || !isAtSeparator) {
        FUZZ_CHECK(isSame(cut.value, whole.value));
        FUZZ_CHECK(((cut.state & std::ios_base::failbit) != 0) == hasFailed);
    }
    if (!hasFailed) {
        if constexpr (std::is_same_v<Value, double>) {
            compareWithStrtod(whole.value, taken, format);
        }
        readBack(whole.value, format, locale);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const unsigned type = input.byte() % 9;
    const Format format = takeFormat(input);
    const ustring text = fuzz::widen(input.bytes(4096));
    switch (type) {
    case 0:
        check<bool>(text, format);
        break;
    case 1:
        check<short>(text, format);
        break;
    case 2:
        check<unsigned short>(text, format);
        break;
    case 3:
        check<int>(text, format);
        break;
    case 4:
        check<unsigned long>(text, format);
        break;
    case 5:
        check<long long>(text, format);
        break;
    case 6:
        check<float>(text, format);
        break;
    case 7:
        check<double>(text, format);
        break;
    default:
        check<long double>(text, format);
        break;
    }
    return 0;
}
