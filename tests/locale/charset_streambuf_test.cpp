// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Text read through `charset_streambuf`, however it is cut up.
#include "tests/locale/charset_streambuf_ends.h"

#include "orv/liborvxx/charset/coding_error.h"
#include "orv/liborvxx/locale/uistream.h"
#include "orv/liborvxx/locale/uostream.h"
#include "tests/support/case_count.h"
#include "tests/support/shown_text.h"
#include "tests/support/thrown_message.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <type_traits>

namespace {

using orv::char16;
using orv::charset_streambuf;
using orv::ustring;
using orvtest::hasEndMark;
using orvtest::randomBytes;
using orvtest::randomSizes;
using orvtest::readAll;
using orvtest::shown;
using orvtest::Sink;
using orvtest::Source;
using orvtest::u;
using orvtest::ustringOf;
using orvtest::written;
using Traits = std::char_traits<orv::char16>;

TEST(CharsetStreambuf, IsASpecialBufferThatCannotBeCopied) {
    static_assert(!std::is_copy_constructible_v<charset_streambuf>);
    static_assert(!std::is_copy_assignable_v<charset_streambuf>);
    static_assert(!std::is_convertible_v<std::streambuf&, charset_streambuf>);
    std::stringbuf bytes;
    EXPECT_EQ(
        "charset_streambuf::charset_streambuf", orvtest::thrownMessage<std::invalid_argument>([&] {
            charset_streambuf(bytes, *orv::Charset::UTF_8, static_cast<orv::CodingErrorAction>(3));
        }));
}

TEST(CharsetStreambuf, ReadsAndWritesSamplesInEverySet) {
    const auto sets = orv::Charset::availableCharsets();
    EXPECT_EQ(41U, sets.size());
    for (orv::Charset* const charset : sets) {
        for (const auto& sample : orvtest::sampleTexts()) {
            const ustring text = ustringOf(sample);
            const std::string bytes = charset->encode(text);
            EXPECT_EQ(bytes, written(*charset, text, {7, 0, 300})) << shown(charset->name());
            std::stringbuf source(bytes);
            charset_streambuf buffer(source, *charset);
            EXPECT_EQ(charset->decode(bytes), readAll(buffer, {300, 0, 5}))
                << shown(charset->name());
        }
    }
}

TEST(CharsetStreambuf, ReadsATextCutAtEveryByte) {
    const ustring text = u(u"a\u00E9\u20AC\xD83D\xDE00z");
    for (orv::Charset* const charset :
         {orv::Charset::UTF_8, orv::Charset::CESU_8, orv::Charset::UTF_16BE, orv::Charset::UTF_16LE,
          orv::Charset::forName(u(u"GB18030"))}) {
        const std::string bytes = charset->encode(text);
        for (std::size_t size = 1; size <= bytes.size(); ++size) {
            Source source(Source::cut(bytes, size));
            charset_streambuf buffer(source, *charset);
            EXPECT_EQ(text, readAll(buffer)) << shown(charset->name()) << ' ' << size;
        }
        for (std::size_t at = 0; at <= bytes.size(); ++at) {
            Source source({bytes.substr(0, at) + "", bytes.substr(at)});
            charset_streambuf buffer(source, *charset);
            ustring read = readAll(buffer);
            // An empty piece is an end of the source before the text has begun.
            read += readAll(buffer);
            EXPECT_EQ(text, read) << shown(charset->name()) << ' ' << at;
        }
    }
}

TEST(CharsetStreambuf, AgreesWithDecodeForRandomBytesInRandomPieces) {
    std::mt19937 random(1);
    const auto sets = orv::Charset::availableCharsets();
    for (std::size_t i = 0; i < orvtest::caseCount(20000); ++i) {
        orv::Charset& charset = *sets[random() % sets.size()];
        const std::size_t length = i % 50 == 0 ? 9000 : 60;
        const std::string bytes = randomBytes(charset, 1 + random() % length, random);
        const ustring expected = charset.decode(bytes);
        std::vector<std::string> pieces;
        for (std::size_t at = 0; at < bytes.size();) {
            pieces.push_back(bytes.substr(at, 1 + random() % (i % 3 == 0 ? 3 : length)));
            at += pieces.back().size();
        }
        Source source(pieces);
        source.tellsAhead = random() % 2 == 0;
        charset_streambuf buffer(source, charset);
        auto sizes = randomSizes(length, random);
        if (hasEndMark(expected)) {
            sizes = {37};
        }
        ASSERT_EQ(expected, readAll(buffer, sizes)) << shown(charset.name()) << ", case " << i;
    }
}

TEST(CharsetStreambuf, CarriesTextsOfSizesAroundTheAreas) {
    for (const std::size_t size : {4095U, 4096U, 4097U, 8191U, 8192U, 8193U, 12288U}) {
        // A pair, and a character of three bytes, lies across every limit in one of the texts.
        for (const auto* const unit : {u"x", u"\u20AC", u"\xD83D\xDE00"}) {
            ustring text;
            while (text.size() < size) {
                text += u(unit);
            }
            for (const std::size_t shift : {0U, 1U, 2U}) {
                text.insert(0, ustring(shift, u'y'));
                const std::string bytes = orv::Charset::UTF_8->encode(text);
                std::stringbuf source(bytes);
                charset_streambuf buffer(source);
                EXPECT_EQ(text, readAll(buffer, {size})) << size;
                EXPECT_EQ(bytes, written(*orv::Charset::UTF_8, text, {size})) << size;
                EXPECT_EQ(bytes, written(*orv::Charset::UTF_8, text, {0})) << size;
            }
        }
    }
}

TEST(CharsetStreambuf, IsAsFarAsTheBytesAre) {
    Source source({"ab", "c\xE2\x82", "\xAC", "", "d"});
    charset_streambuf buffer(source);
    EXPECT_EQ(u'a', buffer.sgetc());
    EXPECT_EQ(2, buffer.in_avail());
    EXPECT_EQ(u'a', buffer.sbumpc());
    EXPECT_EQ(u'b', buffer.sbumpc());
    EXPECT_EQ(1, source.asked);
    EXPECT_EQ(u'c', buffer.sbumpc());
    EXPECT_EQ(2, source.asked);
    EXPECT_EQ(u'\x20AC', buffer.sbumpc());
    EXPECT_EQ(3, source.asked);
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
    EXPECT_EQ(4, source.asked);
    // What came since then is read.
    EXPECT_EQ(u'd', buffer.sgetc());
    EXPECT_EQ(u'd', buffer.sbumpc());
    EXPECT_EQ(5, source.asked);
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
    EXPECT_EQ(7, source.asked);
    source.add("e");
    EXPECT_EQ(u'e', buffer.sgetc());
}

TEST(CharsetStreambuf, ReportsTheEndOnceBehindACharacterCutOffThere) {
    Source source({"a\xE2\x82", "", "\xAC"});
    charset_streambuf buffer(source);
    EXPECT_EQ(u'a', buffer.sbumpc());
    EXPECT_EQ(u'\xFFFD', buffer.sbumpc());
    EXPECT_EQ(2, source.asked);
    EXPECT_EQ(-1, buffer.in_avail());
    // The end that the character was found at; the source is not asked again.
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
    EXPECT_EQ(2, source.asked);
    EXPECT_EQ(u'\xFFFD', buffer.sgetc());
}

TEST(CharsetStreambuf, ReadsAFileThatGrows) {
    const std::string name = testing::TempDir() + "charset_streambuf_grows.txt";
    std::ofstream out(name, std::ios::binary);
    std::ifstream in(name, std::ios::binary);
    charset_streambuf buffer(*in.rdbuf());
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
    out << "gr\xC3\xBC" << std::flush;
    EXPECT_EQ(3, buffer.in_avail());
    EXPECT_EQ(u(u"gr\u00FC"), readAll(buffer));
    out << "\xC3\x9F" << std::flush;
    EXPECT_EQ(u(u"\u00DF"), readAll(buffer));
    std::remove(name.c_str());
}

TEST(CharsetStreambuf, TellsWhatCanBeReadWithoutWaiting) {
    Source source({"ab", "\xE2", "\x82\xAC", "\xE2\x82"});
    charset_streambuf buffer(source);
    EXPECT_EQ(0, buffer.in_avail());
    EXPECT_EQ(0, source.asked);
    source.tellsAhead = true;
    EXPECT_EQ(2, buffer.in_avail());
    EXPECT_EQ(1, source.asked);
    EXPECT_EQ(u'a', buffer.sbumpc());
    EXPECT_EQ(1, buffer.in_avail());
    EXPECT_EQ(u'b', buffer.sbumpc());
    EXPECT_EQ(1, buffer.in_avail());
    EXPECT_EQ(u'\x20AC', buffer.sbumpc());
    // Half a character is at hand, of which something will become.
    EXPECT_EQ(0, buffer.in_avail());
    EXPECT_EQ(u'\xFFFD', buffer.sbumpc());
    EXPECT_EQ(-1, buffer.in_avail());
    EXPECT_EQ(Traits::eof(), buffer.sbumpc());
    EXPECT_EQ(-1, buffer.in_avail());
}

TEST(CharsetStreambuf, DoesNotThrowWhenAskedWhatIsAtHand) {
    Source source({"\xFF"
                   "a"});
    source.tellsAhead = true;
    charset_streambuf buffer(source, *orv::Charset::UTF_8, orv::REPORT);
    EXPECT_EQ(0, buffer.in_avail());
    EXPECT_EQ(0, buffer.in_avail());
    EXPECT_THROW(buffer.sgetc(), orv::MalformedInputError);
    EXPECT_EQ(1, buffer.in_avail());
}

TEST(CharsetStreambuf, PutsBackAcrossAreas) {
    Source source({"abcdefghijklmnopqrst", "u", "v"});
    charset_streambuf buffer(source);
    const std::string letters = "abcdefghijklmnopqrstuv";
    EXPECT_EQ(Traits::eof(), buffer.sungetc());
    EXPECT_EQ(22U, readAll(buffer, {0}).size());
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(char16(letters[21 - i]), char16(buffer.sungetc()));
    }
    EXPECT_EQ(Traits::eof(), buffer.sungetc());
    EXPECT_EQ(Traits::eof(), buffer.sputbackc(u'x'));
    EXPECT_EQ(u(u"ghijklmnopqrstuv"), readAll(buffer, {3}));
    EXPECT_EQ(u'v', buffer.sputbackc(u'v'));
    EXPECT_EQ(u'x', buffer.sputbackc(u'x'));
    EXPECT_EQ(u(u"xv"), readAll(buffer));
}

TEST(CharsetStreambuf, DoesNotSeek) {
    std::stringbuf bytes("abc");
    charset_streambuf buffer(bytes);
    EXPECT_EQ(u'a', buffer.sbumpc());
    EXPECT_EQ(std::streamoff(-1), std::streamoff(buffer.pubseekoff(0, std::ios::cur)));
    EXPECT_EQ(std::streamoff(-1), std::streamoff(buffer.pubseekpos(0)));
    EXPECT_EQ(u'b', buffer.sbumpc());
}

TEST(CharsetStreambuf, TreatsBadBytesAsTheActionSays) {
    const std::string bytes = "a\xFF\xFE"
                              "b\xC3";
    const auto read = [&](orv::CodingErrorAction action) {
        Source source(Source::cut(bytes, 1));
        charset_streambuf buffer(source, *orv::Charset::UTF_8, action);
        return readAll(buffer, {0});
    };
    EXPECT_EQ(u(u"a\xFFFD\xFFFD"
                u"b\xFFFD"),
              read(orv::REPLACE));
    EXPECT_EQ(u(u"ab"), read(orv::IGNORE));
    EXPECT_THROW(read(orv::REPORT), orv::MalformedInputError);

    std::stringbuf source(bytes);
    charset_streambuf buffer(source, *orv::Charset::UTF_8, orv::REPORT);
    std::vector<unsigned int> lengths;
    ustring text;
    for (bool atEnd = false; !atEnd;) {
        try {
            text += readAll(buffer, {0});
            atEnd = true;
        } catch (const orv::MalformedInputError& error) {
            lengths.push_back(error.getInputLength());
        }
    }
    EXPECT_EQ((std::vector<unsigned int>{1, 1, 1}), lengths);
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
}

TEST(CharsetStreambuf, ReportsWhatHasNoCounterpart) {
    orv::Charset& charset = *orv::Charset::forName(u(u"windows-1252"));
    std::stringbuf source("a\x81"
                          "b");
    charset_streambuf in(source, charset, orv::REPORT);
    EXPECT_EQ(u'a', in.sbumpc());
    EXPECT_THROW(in.sgetc(), orv::UnmappableCharacterError);
    EXPECT_EQ(u'b', in.sbumpc());

    Sink sink;
    charset_streambuf out(sink, charset, orv::REPORT);
    EXPECT_EQ(3, out.sputn(u(u"a\u0416b").data(), 3));
    EXPECT_THROW(out.pubsync(), orv::UnmappableCharacterError);
    EXPECT_EQ("a", sink.taken);
    EXPECT_EQ(0, out.pubsync());
    EXPECT_EQ("ab", sink.taken);
}

TEST(CharsetStreambuf, MakesAStreamBadAndThrowsIfAsked) {
    std::stringbuf source("a\xFF"
                          "bc");
    charset_streambuf buffer(source, *orv::Charset::UTF_8, orv::REPORT);
    orv::uistream in(&buffer);
    EXPECT_EQ(u'a', in.get());
    EXPECT_EQ(Traits::eof(), in.get());
    EXPECT_TRUE(in.bad());
    EXPECT_FALSE(in.eof());
    in.clear();
    EXPECT_EQ(u'b', in.get());

    std::stringbuf again("\xFF"
                         "a");
    charset_streambuf other(again, *orv::Charset::UTF_8, orv::REPORT);
    orv::uistream asking(&other);
    asking.exceptions(std::ios::badbit);
    EXPECT_THROW(asking.get(), orv::MalformedInputError);
    EXPECT_TRUE(asking.bad());

    Sink sink;
    charset_streambuf ascii(sink, *orv::Charset::US_ASCII, orv::REPORT);
    orv::uostream out(&ascii);
    out.put(u'a').put(u'\u00E9').put(u'b');
    EXPECT_TRUE(out.good());
    EXPECT_TRUE(out.flush().bad());
    EXPECT_EQ("a", sink.taken);
    out.clear();
    out.exceptions(std::ios::badbit);
    EXPECT_TRUE(out.flush().good());
    EXPECT_EQ("ab", sink.taken);
    out.put(u'\u00E9');
    EXPECT_THROW(out.flush(), orv::UnmappableCharacterError);
}

TEST(CharsetStreambuf, EndsWhereTheSourceShowsAByteAndGivesNone) {
    struct Stuck : Source {
        using Source::Source;
        std::streamsize xsgetn(char*, std::streamsize) override { return 0; }
    };
    Stuck source({"a"});
    charset_streambuf buffer(source);
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
}

TEST(CharsetStreambuf, PassesExceptionsOfTheSourceOnAndGoesOn) {
    Source source({"a\xC3", "throw", "\xA9z"});
    charset_streambuf buffer(source);
    EXPECT_EQ(u'a', buffer.sbumpc());
    EXPECT_EQ("source", orvtest::thrownMessage<std::runtime_error>([&] { buffer.sgetc(); }));
    EXPECT_EQ(u'a', buffer.sungetc());
    EXPECT_EQ(u(u"a\u00E9z"), readAll(buffer));
}

} // namespace
