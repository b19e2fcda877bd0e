// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Names and registration of character sets, look-up, and conversion through cached coders.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/cvtstr.h"

#include <stdexcept>
#include <utility>

namespace orv {

bool Charset::isDigit(char16 c) noexcept {
    return c >= u'0' && c <= u'9';
}

bool Charset::isLetter(char16 c) noexcept {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

bool Charset::isSpecial(char16 c) noexcept {
    return c == u'+' || c == u'-' || c == u'.' || c == u':' || c == u'_';
}

namespace {

// Gives the characters of a name that count in a comparison, one by one, and then 0.
class SignificantCharacters {
public:
    explicit SignificantCharacters(ustring_ref name) : name_(name) {}

    char32_t next() {
        while (index_ != name_.size()) {
            const char32_t c = codePoint();
            index_ += Char16::charCount(c);
            if (c >= U'A' && c <= U'Z') {
                return last_ = c;
            }
            if (c >= U'a' && c <= U'z') {
                return last_ = c - 0x20;
            }
            if (c == U'0' && !isDigit(last_) && index_ != name_.size()) {
                return last_ = afterLeadingZero();
            }
            if (isDigit(c)) {
                return last_ = c;
            }
            last_ = c;
        }
        return last_ = 0;
    }

private:
    static bool isDigit(char32_t c) { return c >= U'0' && c <= U'9'; }

    char32_t codePoint() const {
        const char16 unit = name_[index_];
        return Char16::isSurrogate(unit) ? Char16::codePointAt(name_, index_)
                                         : static_cast<char32_t>(unit);
    }

    // What stands for a number's leading zeros: the first digit behind them, the last zero at the
    // end of the name, or the unit that follows, which is not consumed.
    char32_t afterLeadingZero() {
        for (;;) {
            const auto unit = static_cast<char32_t>(name_[index_]);
            if (!isDigit(unit)) {
                return unit;
            }
            ++index_;
            if (unit != U'0' || index_ == name_.size()) {
                return unit;
            }
        }
    }

    ustring_ref name_;
    std::size_t index_ = 0;
    char32_t last_ = 0;
};

} // namespace

template <>
bool Charset::NameLess<ustring_ref>::operator()(const ustring_ref& a, const ustring_ref& b) const {
    SignificantCharacters left(a);
    SignificantCharacters right(b);
    for (;;) {
        const char32_t l = left.next();
        const char32_t r = right.next();
        if (l != r) {
            return l < r;
        }
        if (l == 0) {
            return false;
        }
    }
}

const ustring_ref& Charset::checkCharsetName(const ustring_ref& name) {
    bool wellFormed = !name.empty() && !isSpecial(name[0]);
    for (const char16 c : name) {
        wellFormed = wellFormed && (isLetter(c) || isDigit(c) || isSpecial(c));
    }
    if (!wellFormed) {
        // A pointer, for callers that catch it so.
        throw new std::invalid_argument("invalid charset name: " + cvtstr<std::string>(name));
    }
    return name;
}

Charset::AliasSet Charset::makeAliasSet(std::initializer_list<ustring_ref> aliases) {
    AliasSet set;
    for (const ustring_ref& alias : aliases) {
        if (!set.insert(checkCharsetName(alias)).second) {
            throw std::invalid_argument("duplicate alias");
        }
    }
    return set;
}

Charset::Charset(int mibEnum, const ustring_ref& name, std::initializer_list<ustring_ref> aliases)
    : mibEnum_(mibEnum), name_(checkCharsetName(name)), aliases_(makeAliasSet(aliases)) {
    const auto [entry, isNew] = s_byName.emplace(name_, this);
    if (!isNew) {
        throw std::logic_error("ambiguous charset names");
    }
    bool allAreOurs = true;
    try {
        for (const ustring_ref& alias : aliases_) {
            allAreOurs &= s_byAlias.emplace(alias, this).first->second == this;
        }
    } catch (...) {
        // Out of memory. The object never was, so nothing may lead to it.
        s_byName.erase(entry);
        std::erase_if(s_byAlias, [this](const auto& known) { return known.second == this; });
        throw;
    }
    // What takes an alias from another set comes last, when nothing can fail.
    if (allAreOurs) {
        return;
    }
    for (const ustring_ref& alias : aliases_) {
        if (Charset*& owner = s_byAlias.find(alias)->second; owner != this) {
            owner = nullptr;
        }
    }
}

Charset::~Charset() noexcept(false) {
    throw std::logic_error("Charset::~Charset");
}

Charset* Charset::forName(const ustring_ref& name) {
    if (const auto found = s_byName.find(name); found != s_byName.end()) {
        return found->second;
    }
    const auto found = s_byAlias.find(name);
    return found != s_byAlias.end() ? found->second : nullptr;
}

bool Charset::isSupported(const ustring& name) {
    return s_byName.contains(name) || s_byAlias.contains(name);
}

std::vector<Charset*> Charset::availableCharsets() {
    std::vector<Charset*> sets;
    sets.reserve(s_byName.size());
    for (const auto& [name, set] : s_byName) {
        sets.push_back(set);
    }
    return sets;
}

std::unique_ptr<CharsetDecoder> Charset::acquireDefaultDecoder() {
    std::unique_ptr<CharsetDecoder> decoder(defaultDecoder_.exchange(nullptr));
    if (decoder == nullptr) {
        decoder = newDecoder();
        decoder->onMalformedInput(REPLACE).onUnmappableCharacter(REPLACE);
    }
    return decoder;
}

std::unique_ptr<CharsetEncoder> Charset::acquireDefaultEncoder() {
    std::unique_ptr<CharsetEncoder> encoder(defaultEncoder_.exchange(nullptr));
    if (encoder == nullptr) {
        encoder = newEncoder();
        encoder->onMalformedInput(REPLACE).onUnmappableCharacter(REPLACE);
    }
    return encoder;
}

void Charset::releaseDefaultDecoder(std::unique_ptr<CharsetDecoder> decoder) noexcept {
    delete defaultDecoder_.exchange(decoder.release());
}

void Charset::releaseDefaultEncoder(std::unique_ptr<CharsetEncoder> encoder) noexcept {
    delete defaultEncoder_.exchange(encoder.release());
}

ustring Charset::decode(string_ref bytes) {
    std::unique_ptr<CharsetDecoder> decoder = acquireDefaultDecoder();
    ustring text = decoder->decode(bytes);
    releaseDefaultDecoder(std::move(decoder));
    return text;
}

std::string Charset::encode(ustring_ref text) {
    std::unique_ptr<CharsetEncoder> encoder = acquireDefaultEncoder();
    std::string bytes = encoder->encode(text);
    releaseDefaultEncoder(std::move(encoder));
    return bytes;
}

ustring Charset::decode(char byte) {
    return decode(string_ref(&byte, 1));
}

std::string Charset::encode(char16 unit) {
    return encode(ustring_ref(&unit, 1));
}

} // namespace orv
