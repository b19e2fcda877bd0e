// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Registration of character sets, look-up, whole-text conversion and the kept coders.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/support/scripted_charset.h"
#include "tests/support/thrown_message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;
using orv::ustring;
using orv::ustring_ref;
using orvtest::ScriptedCharset;
using orvtest::thrownMessage;
using testing::ElementsAre;

static_assert(std::is_abstract_v<Charset>);
static_assert(!std::is_copy_constructible_v<Charset>);
static_assert(!std::is_destructible_v<Charset>, "the destructor is not for callers");

// Names that a test registers; each name serves once in a process.
ScriptedCharset* registered(ustring_ref name, std::initializer_list<ustring_ref> aliases = {}) {
    // Reachable for as long as the program runs, as every character set has to be.
    static std::vector<ScriptedCharset*>& sets = *new std::vector<ScriptedCharset*>;
    sets.push_back(nullptr);
    sets.back() = new ScriptedCharset(9100, name, aliases);
    return sets.back();
}

// The message with which the constructor throws a pointer; the exception object is the catcher's.
std::string thrownPointerMessage(ustring_ref name,
                                 std::initializer_list<ustring_ref> aliases = {}) {
    try {
        registered(name, aliases);
    } catch (std::invalid_argument* e) {
        const std::unique_ptr<std::invalid_argument> owner(e);
        return e->what();
    } catch (const std::exception& e) {
        return std::string("thrown as an object: ") + e.what();
    }
    return "nothing thrown";
}

// Look-up.

TEST(CharsetForName, FindsTheConstantsByName) {
    EXPECT_EQ(Charset::forName(u"US-ASCII"_u), Charset::US_ASCII);
    EXPECT_EQ(Charset::forName(u"ISO-8859-1"_u), Charset::ISO_8859_1);
    EXPECT_EQ(Charset::forName(u"UTF-8"_u), Charset::UTF_8);
    EXPECT_EQ(Charset::forName(u"CESU-8"_u), Charset::CESU_8);
}

TEST(CharsetForName, IsLooseInCasePunctuationAndLeadingZeros) {
    for (const ustring_ref name : {u"UTF8"_u, u"utf-8"_u, u"U.T.F:8"_u, u"utf_8"_u, u"UTF-08"_u,
                                   u"--utf--008--"_u, u"u t f 8"_u, u"\u00E9utf8\U0001F600"_u}) {
        EXPECT_EQ(Charset::forName(name), Charset::UTF_8) << testing::PrintToString(name);
    }
    EXPECT_EQ(Charset::forName(u"ISO-8859-01"_u), Charset::ISO_8859_1);
    EXPECT_NE(Charset::forName(u"ISO-8859-10"_u), Charset::ISO_8859_1);
}

TEST(CharsetForName, FindsAliases) {
    EXPECT_EQ(Charset::forName(u"latin1"_u), Charset::ISO_8859_1);
    EXPECT_EQ(Charset::forName(u"DEFAULT"_u), Charset::US_ASCII);
    EXPECT_EQ(Charset::forName(u"cp367"_u), Charset::US_ASCII);
}

TEST(CharsetForName, GivesNullForAnythingElseAndThrowsNothing) {
    const char16 lone = u'\xD800';
    const char16 zero = u'\0';
    for (const ustring_ref name :
         {ustring_ref(), u""_u, u"$$"_u, u"-"_u, u"no such set"_u, u"UTF-88"_u, u"8"_u,
          ustring_ref(&lone, 1), ustring_ref(&zero, 1)}) {
        EXPECT_EQ(Charset::forName(name), nullptr) << testing::PrintToString(name);
    }
    EXPECT_EQ(Charset::forName(ustring(100000, u'0')), nullptr);
}

TEST(CharsetForName, PrefersTheCanonicalName) {
    ScriptedCharset* const named = registered(u"x-canonical-and-alias"_u);
    ScriptedCharset* const other = registered(u"x-other-name"_u, {u"X-CANONICAL-AND-ALIAS"_u});
    EXPECT_EQ(Charset::forName(u"x-canonical-and-alias"_u), named);
    EXPECT_EQ(Charset::forName(u"x-other-name"_u), other);
    EXPECT_EQ(other->aliases().size(), 1U);
    // Whichever is registered first.
    ScriptedCharset* const first = registered(u"x-alias-first"_u, {u"x-named-later"_u});
    EXPECT_EQ(Charset::forName(u"x-named-later"_u), first);
    ScriptedCharset* const later = registered(u"x-named-later"_u);
    EXPECT_EQ(Charset::forName(u"x-named-later"_u), later);
}

TEST(CharsetIsSupported, KnowsNamesAndAliases) {
    EXPECT_TRUE(Charset::isSupported(ustring(u"UTF-8"_u)));
    EXPECT_TRUE(Charset::isSupported(ustring(u"iso8859_1"_u)));
    EXPECT_FALSE(Charset::isSupported(ustring(u"UTF-88"_u)));
    EXPECT_FALSE(Charset::isSupported(ustring()));
    EXPECT_FALSE(Charset::isSupported(ustring(u"$$"_u)));
}

TEST(CharsetRegistry, AnAliasOfTwoSetsBelongsToNeither) {
    ScriptedCharset* const one = registered(u"x-claim-1"_u, {u"x-claimed"_u, u"x-mine-1"_u});
    EXPECT_EQ(Charset::forName(u"x-claimed"_u), one);
    ScriptedCharset* const two = registered(u"x-claim-2"_u, {u"X_CLAIMED"_u});
    EXPECT_EQ(Charset::forName(u"x-claimed"_u), nullptr);
    EXPECT_TRUE(Charset::isSupported(ustring(u"x-claimed"_u))) << "though nothing is found";
    ScriptedCharset* const three = registered(u"x-claim-3"_u, {u"x-claimed"_u});
    EXPECT_EQ(Charset::forName(u"x-claimed"_u), nullptr) << "and stays so";
    EXPECT_EQ(Charset::forName(u"x-mine-1"_u), one);
    EXPECT_EQ(Charset::forName(u"x-claim-2"_u), two);
    EXPECT_EQ(Charset::forName(u"x-claim-3"_u), three);
}

TEST(CharsetRegistry, TwoSpellingsOfAnAliasInOneSetAreFine) {
    // Different by case alone they would not be; by punctuation they are two aliases of one key.
    ScriptedCharset* const set = registered(u"x-spelt"_u, {u"x-spelling-1"_u, u"xspelling_01"_u});
    EXPECT_EQ(set->aliases().size(), 2U);
    EXPECT_EQ(Charset::forName(u"xspelling1"_u), set);
}

TEST(CharsetRegistry, ADuplicateAliasIsRefused) {
    for (const ustring_ref twin : {u"x-twin"_u, u"X-TWIN"_u}) {
        EXPECT_EQ(thrownMessage<std::invalid_argument>([&] {
                      registered(u"x-duplicate"_u, {u"x-twin"_u, u"x-single"_u, twin});
                  }),
                  "duplicate alias");
    }
    EXPECT_EQ(Charset::forName(u"x-duplicate"_u), nullptr);
    EXPECT_FALSE(Charset::isSupported(ustring(u"x-twin"_u)));
}

TEST(CharsetRegistry, TwoSetsOfOneLooseNameAreRefused) {
    const auto before = Charset::availableCharsets();
    for (const ustring_ref name : {u"UTF-8"_u, u"utf_08"_u, u"u.t.f.8"_u}) {
        EXPECT_EQ(thrownMessage<std::logic_error>([&] { registered(name, {u"x-never"_u}); }),
                  "ambiguous charset names");
    }
    EXPECT_EQ(Charset::forName(u"UTF-8"_u), Charset::UTF_8);
    EXPECT_FALSE(Charset::isSupported(ustring(u"x-never"_u)));
    EXPECT_EQ(Charset::availableCharsets(), before);
}

TEST(CharsetRegistry, AnIllFormedNameIsThrownAsAPointer) {
    const auto message = [](const std::string& name) { return "invalid charset name: " + name; };
    EXPECT_EQ(thrownPointerMessage(u""_u), message(""));
    EXPECT_EQ(thrownPointerMessage(u"a b"_u), message("a b"));
    EXPECT_EQ(thrownPointerMessage(u"x/y"_u), message("x/y"));
    EXPECT_EQ(thrownPointerMessage(u"x-ok"_u, {u"x-fine"_u, u"-x"_u}), message("-x"));
    EXPECT_EQ(thrownPointerMessage(u"x-ok"_u, {u""_u}), message(""));
    // The name goes through the default character set.
    EXPECT_EQ(thrownPointerMessage(u"x\u00E9"_u),
              message(Charset::defaultCharset()->encode(u"x\u00E9"_u)));
    EXPECT_EQ(Charset::forName(u"x-ok"_u), nullptr);
}

TEST(CharsetRegistry, ANameIsMadeOfLettersDigitsAndFiveSpecials) {
    int serial = 0;
    // Names live as long as the program, as does what is registered.
    static std::vector<std::unique_ptr<ustring>>& names =
        *new std::vector<std::unique_ptr<ustring>>;
    for (unsigned int value = 0; value < 0x180; ++value) {
        const bool special =
            std::string("+-.:_").find(static_cast<char>(value)) != std::string::npos &&
            value != 0 && value < 0x80;
        const bool plain = (value >= '0' && value <= '9') || (value >= 'A' && value <= 'Z') ||
                           (value >= 'a' && value <= 'z');
        for (const bool first : {true, false}) {
            std::string base = "xname" + std::to_string(++serial) + "end";
            ustring name;
            for (const char c : base) {
                name.push_back(char16(static_cast<unsigned char>(c)));
            }
            name.insert(name.begin() + (first ? 0 : 1), char16(value));
            names.push_back(std::make_unique<ustring>(name));
            const std::string thrown = thrownPointerMessage(*names.back());
            EXPECT_EQ(thrown == "nothing thrown", plain || (special && !first))
                << value << (first ? " in front: " : " inside: ") << thrown;
        }
    }
}

TEST(CharsetAccessors, GiveWhatTheConstructorWasGiven) {
    const ustring_ref name = u"x-accessors"_u;
    ScriptedCharset* const set = registered(name, {u"x-b"_u, u"X-A"_u});
    EXPECT_EQ(set->MIBenum(), 9100);
    EXPECT_EQ(set->name(), name);
    EXPECT_EQ(set->name().data(), name.data()) << "a view, not a copy";
    const std::vector<ustring_ref> aliases(set->aliases().begin(), set->aliases().end());
    EXPECT_THAT(aliases, ElementsAre(u"X-A"_u, u"x-b"_u)) << "in order, without regard to case";
    EXPECT_EQ(set->aliases().count(u"x-a"_u), 1U);
}

TEST(CharsetAvailable, ListsEverySetOnceInOrderOfTheirNames) {
    registered(u"x-available"_u, {u"x-not-listed"_u});
    const std::vector<Charset*> sets = Charset::availableCharsets();
    const std::set<Charset*> distinct(sets.begin(), sets.end());
    EXPECT_EQ(distinct.size(), sets.size());
    EXPECT_EQ(distinct.count(nullptr), 0U);
    for (Charset* const set :
         {Charset::US_ASCII, Charset::ISO_8859_1, Charset::UTF_8, Charset::CESU_8}) {
        EXPECT_EQ(distinct.count(set), 1U);
    }
    const Charset::NameLess<ustring_ref> less;
    EXPECT_TRUE(std::is_sorted(sets.begin(), sets.end(),
                               [&](Charset* a, Charset* b) { return less(a->name(), b->name()); }));
    for (Charset* const set : sets) {
        EXPECT_EQ(Charset::forName(set->name()), set);
    }
}

// Whole texts.

TEST(CharsetConversion, BadInputIsReplacedAndNothingIsThrown) {
    EXPECT_EQ(Charset::UTF_8->decode("a\xFF\xC3"), u"a\uFFFD\uFFFD"_u);
    EXPECT_EQ(Charset::US_ASCII->decode("caf\xC3\xA9"), u"caf\uFFFD\uFFFD"_u);
    EXPECT_EQ(Charset::US_ASCII->encode(u"caf\u00E9 \U0001F600"_u), "caf? ?");
    const ustring lone{u'a', u'\xDC00', u'\xD800'};
    EXPECT_EQ(Charset::UTF_8->encode(lone), "a??");
    EXPECT_THROW(Charset::UTF_8->newDecoder()->decode("a\xFF"), orv::MalformedInputError);
    EXPECT_THROW(Charset::US_ASCII->newEncoder()->encode(u"\u00E9"_u),
                 orv::UnmappableCharacterError);
}

TEST(CharsetConversion, OfNothingIsNothing) {
    EXPECT_EQ(Charset::UTF_8->decode(""), u""_u);
    EXPECT_EQ(Charset::UTF_8->decode(orv::string_ref()), u""_u);
    EXPECT_EQ(Charset::UTF_8->encode(u""_u), "");
    EXPECT_EQ(Charset::UTF_8->encode(ustring_ref()), "");
}

TEST(CharsetConversion, OfOneByteAndOfOneUnit) {
    EXPECT_EQ(Charset::ISO_8859_1->decode('\xE9'), u"\u00E9"_u);
    EXPECT_EQ(Charset::UTF_8->decode('\xE9'), u"\uFFFD"_u);
    EXPECT_EQ(Charset::UTF_8->decode('\0'), ustring(1, u'\0'));
    EXPECT_EQ(Charset::UTF_8->encode(char16(u'\x20AC')), "\xE2\x82\xAC");
    EXPECT_EQ(Charset::UTF_8->encode(char16(u'\xD800')), "?");
    EXPECT_EQ(Charset::ISO_8859_1->encode(char16(u'\xE9')), "\xE9");
}

// The kept coders.

TEST(CharsetCache, KeepsOneCoderOfEachKind) {
    ScriptedCharset* const set = registered(u"x-cache"_u);
    EXPECT_EQ(set->decodersMade, 0) << "coders are made on demand";
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(set->decode("a\x80\x81"), u"a\uFFFD\uFFFD"_u);
    }
    EXPECT_EQ(set->decodersMade, 1);
    EXPECT_EQ(set->encodersMade, 0);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(set->encode(u"a\u00E9"_u), "a?");
    }
    EXPECT_EQ(set->encodersMade, 1);
    EXPECT_EQ(set->decodersMade, 2) << "the encoder asked for one to check its replacement";
}

TEST(CharsetCache, NewCodersAreNotTheKeptOnes) {
    ScriptedCharset* const set = registered(u"x-cache-fresh"_u);
    set->decode("a");
    set->encode(u"a"_u);
    EXPECT_EQ(set->newDecoder()->malformedInputAction(), orv::REPORT);
    EXPECT_EQ(set->newEncoder()->unmappableCharacterAction(), orv::REPORT);
    EXPECT_EQ(set->newDecoder()->charset(), set);
    EXPECT_EQ(set->newEncoder()->charset(), set);
}

TEST(CharsetCache, ADecoderThatThrewIsNotKept) {
    ScriptedCharset* const set = registered(u"x-cache-throws"_u);
    set->decoderLoop = [](orv::Buffer<const unsigned char>&,
                          orv::Buffer<char16>&) -> orv::CoderResult {
        throw std::runtime_error("loop");
    };
    EXPECT_EQ(thrownMessage<std::runtime_error>([&] { set->decode("a"); }), "loop");
    EXPECT_EQ(set->decodersMade, 1);
    set->decoderLoop = nullptr;
    EXPECT_EQ(set->decode("a"), u"a"_u);
    EXPECT_EQ(set->decodersMade, 2);
    EXPECT_EQ(set->decode("a"), u"a"_u);
    EXPECT_EQ(set->decodersMade, 2);
}

TEST(CharsetCache, ADecoderInUseIsNotShared) {
    // A set whose decoder converts with the set itself.
    ScriptedCharset* const set = registered(u"x-cache-nested"_u);
    set->decoderLoop = [set](orv::Buffer<const unsigned char>& in, orv::Buffer<char16>& out) {
        while (in.hasRemaining()) {
            const char byte = static_cast<char>(in.get());
            const ustring inner = byte == '(' ? set->decode("x") : ustring(1, char16(u'o'));
            out.put(inner.data(), inner.size());
        }
        return orv::CoderResult::underflow();
    };
    EXPECT_EQ(set->decode("a("), u"oo"_u);
    EXPECT_EQ(set->decodersMade, 2);
    EXPECT_EQ(set->decode("a("), u"oo"_u) << "one of the two was kept";
    EXPECT_EQ(set->decodersMade, 3);
}

} // namespace
