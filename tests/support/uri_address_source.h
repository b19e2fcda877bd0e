// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random IPv6 addresses, and what is wrong with a unit put into one.
#ifndef ORV_TESTS_SUPPORT_URI_ADDRESS_SOURCE_H
#define ORV_TESTS_SUPPORT_URI_ADDRESS_SOURCE_H

#include "tests/support/number_source.h"
#include "tests/support/uri_source.h"

#include <cstddef>
#include <string_view>

namespace orvtest {

/// Appends an address of the grammar of RFC 3986, section 3.2.2, to a sentence, with its traps and
/// pieces. Counts what came before as the parser does: a double colon is a field.
class UriAddressSource {
public:
    /// The sentence ends where the address begins.
    UriAddressSource(NumberSource& numbers, UriSentence& sentence)
        : numbers_(numbers), sentence_(sentence), begin_(sentence.text.size()) {}

    void ipv6Address();

private:
    void fields(unsigned count);
    void ls32();
    void h16();
    void ipv4Address();
    void decOctet(int octet);
    void single();
    void twofold();

    const char* behindField() const;
    const char* behindTwofold() const;
    void trapBehindField();
    void trap(const char* expected);
    void trap(const AddressTrap& reasons);
    void put(std::string_view units);

    NumberSource& numbers_;
    UriSentence& sentence_;
    std::size_t begin_;
    unsigned fields_ = 0;
    bool sawTwofold_ = false;
};

} // namespace orvtest

#endif
