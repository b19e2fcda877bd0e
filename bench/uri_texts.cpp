// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief URLs by patterns, from word lists.
#include "bench/uri_texts.h"

#include "bench/chooser.h"
#include "bench/words.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace bench {

namespace {

constexpr std::size_t COUNT = 10'000;

constexpr std::string_view HEX_DIGITS = "0123456789ABCDEF";

void escape(std::u16string& text, unsigned char byte) {
    text += u'%';
    text += static_cast<char16_t>(HEX_DIGITS[byte >> 4U]);
    text += static_cast<char16_t>(HEX_DIGITS[byte & 15U]);
}

// Units beyond ASCII as escaped bytes of UTF-8.
std::string ascii(const orv::ustring& text) {
    std::string result;
    for (const char c : orv::Charset::UTF_8->encode(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            result += '%';
            result += HEX_DIGITS[byte >> 4U];
            result += HEX_DIGITS[byte & 15U];
        }
    }
    return result;
}

UriText both(const std::u16string& text) {
    UriText result{orv::ustring(), std::string()};
    result.wide.reserve(text.size());
    for (const char16_t unit : text) {
        result.wide += orv::char16(unit);
    }
    result.narrow = ascii(result.wide);
    return result;
}

// Makes parts of URLs from the words of one language.
class Maker {
public:
    Maker(Chooser& choose, std::u16string_view words) : choose_(choose), words_(split(words)) {}

    std::u16string word() { return std::u16string(choose_.word(words_)); }

    std::u16string number(unsigned int limit) {
        std::u16string text;
        for (const char c : std::to_string(choose_.below(limit))) {
            text += static_cast<char16_t>(c);
        }
        return text;
    }

    std::u16string host() {
        constexpr std::u16string_view TOP[] = {u".com", u".org", u".net", u".de", u".co.uk"};
        std::u16string text = choose_.oneIn(2) ? u"www." : u"";
        text += word() + (choose_.oneIn(3) ? u"-" + word() : u"");
        text += TOP[choose_.below(std::size(TOP))];
        return text;
    }

    // "/a/b-c/d.html"
    std::u16string path() {
        std::u16string text;
        for (unsigned int i = 1 + choose_.below(4); i != 0; --i) {
            text += u'/' + word();
            if (choose_.oneIn(3)) {
                text += u'-' + word();
            }
            if (choose_.oneIn(8)) {
                escape(text, choose_.oneIn(2) ? ' ' : '"');
                text += word();
            }
        }
        return text + (choose_.oneIn(3) ? u".html" : choose_.oneIn(4) ? u"/" : u"");
    }

    // "a=b&c=12"
    std::u16string query() {
        std::u16string text;
        for (unsigned int i = 1 + choose_.below(4); i != 0; --i) {
            text += word() + u'=' + (choose_.oneIn(3) ? number(100'000) : word());
            if (choose_.oneIn(6)) {
                text += u'+' + word();
            }
            text += i == 1 ? u"" : u"&";
        }
        return text;
    }

    std::u16string url() {
        std::u16string text = (choose_.oneIn(4) ? u"http://" : u"https://") + host();
        text += choose_.oneIn(12) ? u":" + number(65'536) : u"";
        text += path();
        text += choose_.oneIn(3) ? u"?" + query() : u"";
        return text + (choose_.oneIn(8) ? u"#" + word() : u"");
    }

    // What is rarer: addresses, user info, opaque and relative ones.
    std::u16string rareUrl() {
        switch (choose_.below(8)) {
        case 0:
            return u"http://192.168." + number(256) + u'.' + number(256) + path();
        case 1:
            return u"http://[2001:db8::" + number(10'000) + u"]:" + number(65'536) + path();
        case 2:
            return u"ftp://" + word() + u':' + word() + u'@' + host() + path();
        case 3:
            return u"mailto:" + word() + u'.' + word() + u'@' + host();
        case 4:
            return u"urn:" + word() + u':' + number(1'000'000);
        case 5:
            return path() + u'?' + query();
        case 6:
            return u"../" + word() + path();
        default:
            return u"//" + host() + path();
        }
    }

private:
    Chooser& choose_;
    Words words_;
};

UriSet hundredUnits() {
    Chooser choose;
    Maker make(choose, words::ENGLISH);
    UriSet set{"100 units", {}};
    while (set.texts.size() < COUNT) {
        std::u16string text = u"https://" + make.host() + make.path() + u'?' + make.query();
        while (text.size() < 100) {
            text += u'&' + make.word() + u'=' + make.word();
        }
        text.resize(100);
        // An escape that the end would cut.
        for (std::size_t i = 98; i < 100; ++i) {
            text[i] = text[i] == u'%' ? u'x' : text[i];
        }
        set.texts.push_back(both(text));
    }
    return set;
}

UriSet fromPages() {
    Chooser choose;
    Maker make(choose, words::ENGLISH);
    UriSet set{"mixed", {}};
    while (set.texts.size() < COUNT) {
        set.texts.push_back(both(choose.oneIn(4) ? make.rareUrl() : make.url()));
    }
    return set;
}

UriSet beyondAscii() {
    Chooser choose;
    std::vector<Maker> makers;
    for (const std::u16string_view list :
         {words::WESTERN, words::POLISH, words::CYRILLIC, words::GREEK, words::HEBREW,
          words::CHINESE, words::JAPANESE, words::KOREAN}) {
        makers.emplace_back(choose, list);
    }
    UriSet set{"beyond ASCII", {}};
    while (set.texts.size() < COUNT) {
        Maker& make = makers[choose.below(makers.size())];
        set.texts.push_back(both(make.url()));
    }
    return set;
}

} // namespace

const std::vector<UriSet>& uriSets() {
    static const std::vector<UriSet> sets = {hundredUnits(), fromPages(), beyondAscii()};
    return sets;
}

const std::vector<UriText>& untidyUris() {
    static const std::vector<UriText> texts = [] {
        Chooser choose;
        Maker make(choose, words::ENGLISH);
        std::vector<UriText> list;
        while (list.size() < COUNT) {
            std::u16string text = choose.oneIn(2) ? u"HTTP://" : u"http://";
            text += choose.oneIn(2) ? u"Www." : u"";
            text += make.host() + u'/' + make.word();
            text += choose.oneIn(2) ? u"/./" : u"/x/../";
            text += make.word() + (choose.oneIn(2) ? u"%7e" : u"%2d") + make.word();
            text += make.path() + (choose.oneIn(2) ? u"?q=%c3%a9" : u"");
            list.push_back(both(text));
        }
        return list;
    }();
    return texts;
}

std::vector<UriText> respelled(const std::vector<UriText>& texts) {
    std::vector<UriText> list;
    for (const UriText& text : texts) {
        std::u16string other;
        const std::size_t path = text.narrow.find('/', 8);
        for (std::size_t i = 0; i < text.narrow.size(); ++i) {
            const char c = text.narrow[i];
            const bool digitOfEscape =
                (i >= 1 && text.narrow[i - 1] == '%') || (i >= 2 && text.narrow[i - 2] == '%');
            if (i < path && i % 3 == 0 && c >= 'a' && c <= 'z') {
                other += static_cast<char16_t>(c - 'a' + 'A');
            } else if (digitOfEscape && c >= 'A' && c <= 'F') {
                other += static_cast<char16_t>(c - 'A' + 'a');
            } else {
                other += static_cast<char16_t>(c);
            }
        }
        list.push_back(both(other));
    }
    return list;
}

const std::vector<UriText>& relativeReferences() {
    static const std::vector<UriText> texts = [] {
        Chooser choose;
        Maker make(choose, words::ENGLISH);
        std::vector<UriText> list;
        while (list.size() < COUNT) {
            std::u16string text = choose.oneIn(3) ? u"../" : choose.oneIn(4) ? u"./" : u"";
            text += make.word() + make.path();
            text += choose.oneIn(3) ? u"?" + make.query() : u"";
            text += choose.oneIn(6) ? u"#" + make.word() : u"";
            list.push_back(both(text));
        }
        return list;
    }();
    return texts;
}

} // namespace bench
