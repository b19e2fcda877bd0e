// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Text written through `charset_streambuf`, and what it costs.
#include "tests/locale/charset_streambuf_ends.h"

#include "orv/liborvxx/charset/coding_error.h"
#include "orv/liborvxx/locale/uostream.h"
#include "tests/support/case_count.h"
#include "tests/support/counting_allocator.h"
#include "tests/support/shown_text.h"
#include "tests/support/thrown_message.h"

#include <new>
#include <optional>
#include <sstream>

namespace {

using orv::char16;
using orv::charset_streambuf;
using orv::ustring;
using orvtest::hasEndMark;
using orvtest::randomSizes;
using orvtest::readAll;
using orvtest::shown;
using orvtest::Sink;
using orvtest::u;
using orvtest::ustringOf;
using orvtest::written;
using Traits = std::char_traits<orv::char16>;

TEST(CharsetStreambuf, AgreesWithEncodeForRandomTextInRandomPieces) {
    std::mt19937 random(2);
    const auto sets = orv::Charset::availableCharsets();
    for (std::size_t i = 0; i < orvtest::caseCount(20000); ++i) {
        orv::Charset& charset = *sets[random() % sets.size()];
        const std::size_t length = i % 50 == 0 ? 9000 : 60;
        const ustring text = ustringOf(
            orvtest::mutated(orvtest::mixedText(1 + random() % length, 40, random), random));
        auto sizes = randomSizes(length, random);
        if (hasEndMark(text)) {
            sizes = {37};
        }
        ASSERT_EQ(charset.encode(text), written(charset, text, sizes))
            << shown(charset.name()) << ", case " << i;
    }
}

TEST(CharsetStreambuf, KeepsAHighSurrogateForItsPartner) {
    Sink sink;
    charset_streambuf buffer(sink);
    EXPECT_EQ(2, buffer.sputn(u(u"a\xD83D").data(), 2));
    EXPECT_EQ(0, buffer.pubsync());
    EXPECT_EQ("a", sink.taken);
    EXPECT_EQ(0, buffer.pubsync());
    buffer.sputc(u'\xDE00');
    EXPECT_EQ(0, buffer.pubsync());
    EXPECT_EQ("a\xF0\x9F\x98\x80", sink.taken);
}

TEST(CharsetStreambuf, EndsATextOnceAndBeginsAnother) {
    Sink sink;
    {
        charset_streambuf buffer(sink);
        EXPECT_TRUE(buffer.finish());
        EXPECT_EQ(0, sink.synced);
        buffer.sputc(u'\xD83D');
        EXPECT_TRUE(buffer.finish());
        EXPECT_EQ("?", sink.taken);
        EXPECT_EQ(1, sink.synced);
        EXPECT_TRUE(buffer.finish());
        EXPECT_EQ(1, sink.synced);
        // No partner of the half before.
        buffer.sputc(u'\xDE00');
        buffer.sputc(u'a');
        EXPECT_EQ("?", sink.taken);
    }
    EXPECT_EQ("??a", sink.taken);
    EXPECT_EQ(2, sink.synced);
}

TEST(CharsetStreambuf, HasNoTextToEndWhereNothingWasPutSinceTheLast) {
    Sink sink;
    charset_streambuf buffer(sink);
    buffer.sputc(u'a');
    EXPECT_TRUE(buffer.finish());
    EXPECT_EQ(0, buffer.pubsync());
    EXPECT_EQ(2, sink.synced);
    EXPECT_TRUE(buffer.finish());
    EXPECT_EQ(2, sink.synced);
}

TEST(CharsetStreambuf, ReportsALoneSurrogateAtTheEnd) {
    Sink sink;
    charset_streambuf buffer(sink, *orv::Charset::UTF_8, orv::REPORT);
    EXPECT_EQ(2, buffer.sputn(u(u"a\xD83D").data(), 2));
    EXPECT_THROW(buffer.finish(), orv::MalformedInputError);
    EXPECT_EQ("a", sink.taken);
    EXPECT_TRUE(buffer.finish());
    buffer.sputc(u'b');
    EXPECT_TRUE(buffer.finish());
    EXPECT_EQ("ab", sink.taken);
}

TEST(CharsetStreambuf, WritesAllThatCanBeWrittenWhenDestroyed) {
    Sink sink;
    {
        charset_streambuf buffer(sink, *orv::Charset::US_ASCII, orv::REPORT);
        buffer.sputn(u(u"a\u00E9b\u00E9\u00E9"
                       u"c\xD83D")
                         .data(),
                     7);
    }
    EXPECT_EQ("abc", sink.taken);
}

TEST(CharsetStreambuf, SynchronisesTheBytesAlsoWithoutText) {
    Sink sink;
    charset_streambuf buffer(sink);
    EXPECT_EQ(0, buffer.pubsync());
    EXPECT_EQ(1, sink.synced);
    sink.syncs = false;
    EXPECT_EQ(-1, buffer.pubsync());
    buffer.sputc(u'a');
    EXPECT_EQ(-1, buffer.pubsync());
    EXPECT_EQ("a", sink.taken);
    EXPECT_FALSE(buffer.finish());
}

TEST(CharsetStreambuf, LosesAndDoublesNothingWhereTheSinkRefuses) {
    ustring text;
    for (int i = 0; i < 3000; ++i) {
        text += u(u"a\u00E9\u20AC\xD83D\xDE00");
    }
    const std::string bytes = orv::Charset::UTF_8->encode(text);
    for (const std::size_t step : {std::size_t{977}, std::size_t{8192}, bytes.size() - 1}) {
        Sink sink;
        sink.room = 0;
        charset_streambuf buffer(sink);
        std::size_t done = 0;
        std::size_t refusals = 0;
        while (done < text.size()) {
            const auto left = static_cast<std::streamsize>(text.size() - done);
            const auto count = static_cast<std::size_t>(buffer.sputn(text.data() + done, left));
            done += count;
            if (done < text.size()) {
                ++refusals;
                EXPECT_EQ(-1, buffer.pubsync());
                sink.room += step;
            }
        }
        while (!buffer.finish()) {
            ++refusals;
            sink.room += step;
        }
        EXPECT_TRUE(bytes == sink.taken);
        EXPECT_GE(refusals, bytes.size() / step);
    }
}

TEST(CharsetStreambuf, TakesNoUnitForWhichThereIsNoRoomWhereTheSinkRefuses) {
    Sink sink;
    sink.room = 0;
    charset_streambuf buffer(sink);
    const auto putAll = [&] {
        std::size_t count = 0;
        while (buffer.sputc(u'a') == u'a') {
            ++count;
        }
        return count;
    };
    EXPECT_EQ(4096U, putAll()); // encoded then
    EXPECT_EQ(4096U, putAll());
    EXPECT_EQ(0U, putAll());
    sink.room = 10000;
    EXPECT_TRUE(buffer.finish());
    EXPECT_TRUE(std::string(8192, 'a') == sink.taken);
}

TEST(CharsetStreambuf, TriesAgainToWriteTheEndOfATextThatTheSinkRefused) {
    Sink sink;
    sink.room = 0;
    charset_streambuf buffer(sink);
    buffer.sputc(u'\xD83D');
    EXPECT_FALSE(buffer.finish());
    EXPECT_FALSE(buffer.finish());
    sink.room = 100;
    EXPECT_TRUE(buffer.finish());
    EXPECT_EQ("?", sink.taken);
    EXPECT_TRUE(buffer.finish());
    EXPECT_EQ("?", sink.taken);
}

TEST(CharsetStreambuf, MakesAStreamBadWhereTheSinkRefuses) {
    Sink sink;
    sink.room = 1;
    charset_streambuf buffer(sink);
    orv::uostream out(&buffer);
    out.put(u'a').put(u'b');
    EXPECT_TRUE(out.good());
    EXPECT_TRUE(out.flush().bad());
    EXPECT_EQ("a", sink.taken);
    EXPECT_FALSE(buffer.finish());
}

TEST(CharsetStreambuf, CountsWhatTheSinkWasGivenAsWrittenWhenItThrows) {
    Sink sink;
    {
        charset_streambuf buffer(sink);
        buffer.sputn(u(u"abc\xD83D").data(), 4);
        sink.room = 1;
        sink.throws = true;
        EXPECT_EQ("sink", orvtest::thrownMessage<std::runtime_error>([&] { buffer.pubsync(); }));
        EXPECT_EQ("a", sink.taken);
        sink.room = 100;
        buffer.sputc(u'\xDE00');
        EXPECT_EQ(0, buffer.pubsync());
        EXPECT_EQ("a\xF0\x9F\x98\x80", sink.taken);
        buffer.sputc(u'b');
        sink.room = 0;
    }
    EXPECT_EQ("a\xF0\x9F\x98\x80", sink.taken);
}

TEST(CharsetStreambuf, CarriesTheEndMarkInBlocksOnly) {
    std::stringbuf source("a\xEF\xBF\xBF"
                          "b");
    charset_streambuf in(source);
    EXPECT_EQ(3, in.in_avail());
    EXPECT_EQ(u'a', in.sbumpc());
    EXPECT_EQ(Traits::eof(), in.sgetc());
    EXPECT_EQ(2, in.in_avail());
    EXPECT_EQ(u(u"\xFFFF"
                u"b"),
              readAll(in));

    Sink sink;
    charset_streambuf out(sink);
    EXPECT_EQ(3, out.sputn(u(u"a\xFFFF"
                             u"b")
                               .data(),
                           3));
    EXPECT_TRUE(out.finish());
    EXPECT_EQ("a\xEF\xBF\xBF"
              "b",
              sink.taken);
    EXPECT_EQ(Traits::eof(), out.sputc(u'\xFFFF'));
}

TEST(CharsetStreambuf, ReadsAndWritesOneBufferIndependently) {
    std::stringbuf bytes("\xE2\x82\xAC");
    charset_streambuf buffer(bytes);
    bytes.pubseekoff(0, std::ios::end, std::ios::out);
    buffer.sputc(u'\xD83D');
    EXPECT_EQ(u'\x20AC', buffer.sbumpc());
    EXPECT_EQ(Traits::eof(), buffer.sgetc());
    buffer.sputc(u'\xDE00');
    EXPECT_TRUE(buffer.finish());
    EXPECT_EQ(u(u"\xD83D\xDE00"), readAll(buffer));
}

TEST(CharsetStreambuf, DoesNotTouchTheBytesWhenNothingIsWritten) {
    std::optional<Sink> sink(std::in_place);
    charset_streambuf unused(*sink);
    charset_streambuf finished(*sink);
    finished.sputc(u'a');
    EXPECT_TRUE(finished.finish());
    EXPECT_EQ(1, sink->synced);
    // Both buffers are destroyed after it.
    sink.reset();
}

TEST(CharsetStreambuf, AllocatesAtTheFirstUseOfADirectionOnly) {
    const std::string bytes = orv::Charset::UTF_8->encode(ustring(20000, u'\u20AC'));
    std::stringbuf source(bytes);
    Sink sink;
    sink.taken.reserve(2 * bytes.size());
    std::vector<char16> block(20000);
    const std::size_t before = orvtest::allocations();
    charset_streambuf in(source);
    charset_streambuf out(sink);
    EXPECT_EQ(before, orvtest::allocations());
    EXPECT_EQ(u'\u20AC', in.sgetc());
    out.sputc(u'x');
    const std::size_t used = orvtest::allocations();
    EXPECT_LT(before, used);
    const auto size = static_cast<std::streamsize>(block.size());
    EXPECT_EQ(size, in.sgetn(block.data(), size));
    EXPECT_EQ(size, out.sputn(block.data(), size));
    EXPECT_TRUE(out.finish());
    EXPECT_EQ(Traits::eof(), in.sgetc());
    EXPECT_EQ(used, orvtest::allocations());
}

TEST(CharsetStreambuf, SurvivesEveryAllocationThatFails) {
    for (std::size_t n = 1;; ++n) {
        const std::size_t live = orvtest::liveBlocks();
        bool failed = false;
        {
            std::stringbuf source("a");
            Sink sink;
            charset_streambuf in(source);
            charset_streambuf out(sink);
            orvtest::failAllocation(n);
            try {
                in.sgetc();
                out.sputc(u'b');
            } catch (const std::bad_alloc&) {
                failed = true;
            }
            orvtest::failAllocation(0);
            EXPECT_EQ(u'a', in.sgetc());
            out.sputc(u'c');
            EXPECT_TRUE(out.finish());
            EXPECT_EQ(failed ? "c" : "bc", sink.taken);
        }
        EXPECT_EQ(live, orvtest::liveBlocks());
        if (!failed) {
            EXPECT_GE(n, 5U);
            return;
        }
    }
}

} // namespace
