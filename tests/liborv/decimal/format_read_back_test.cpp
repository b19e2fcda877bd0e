// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers written in full are read back, by our parser and by Intel's.
#include "orv/liborv/decimal/format.h"

#include "orv/liborv/decimal/parse.h"

#include "tests/liborv/decimal/decimal_texts.h"
#include "tests/liborv/decimal/decimal_writing.h"
#include "tests/reference/decimal_text_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <bid_conf.h>

#include <bid_functions.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using orvtest::form;
using orvtest::read64;
using orvtest::record128;
using orvtest::record32;
using orvtest::record64;
using orvtest::write;

template <class Record, class Function, class GetValue, class ReadIntel>
void readBack(const orvtest::ModelFormat& width, Record record, Function function,
              GetValue getValue, ReadIntel readIntel) {
    orvtest::NumberSource source(width.bits);
    for (std::size_t i = orvtest::caseCount(100000); i > 0; --i) {
        const mpz_class bits = modelEncode(anyDecimal(source, width), width);
        DecimalFormat format = form(source.coin() ? 'G' : 'E', -1);
        std::string text = write(function, format, record(bits));
        DecimalParseState state;
        orvDecParseInit(&state, static_cast<int>(width.digits), '.', '\0', 0);
        std::size_t complete = 0;
        orvDecParseText(&state, text.data(), text.size(), &complete);
        ASSERT_EQ(complete, text.size()) << text;
        ASSERT_EQ(orvtest::modelBits(getValue(&state)), bits) << text;
        ASSERT_EQ(readIntel(text.data()), bits) << text;
    }
}

TEST(DecimalFormatReadBack, AllDigitsReadBackToTheSameEncoding) {
    readBack(orvtest::MODEL_32, record32, &orvDec32FormatString, &orvDec32ParseGetValue,
             [](char* text) {
                 _IDEC_flags flags = 0;
                 return orvtest::modelBits(ODecimal32{bid32_from_string(text, 0, &flags)});
             });
    readBack(orvtest::MODEL_64, record64, &orvDec64FormatString, &orvDec64ParseGetValue,
             [](char* text) {
                 _IDEC_flags flags = 0;
                 return orvtest::modelBits(ODecimal64{bid64_from_string(text, 0, &flags)});
             });
    readBack(orvtest::MODEL_128, record128, &orvDec128FormatString, &orvDec128ParseGetValue,
             [](char* text) {
                 _IDEC_flags flags = 0;
                 const BID_UINT128 bits = bid128_from_string(text, 0, &flags);
                 return orvtest::modelBits(ODecimal128{bits.w[0], bits.w[1]});
             });
}

TEST(DecimalFormatReadBack, WritesWhatIntelWrites) {
    orvtest::NumberSource source(9);
    for (std::size_t i = orvtest::caseCount(100000); i > 0; --i) {
        const mpz_class bits =
            modelEncode(anyDecimal(source, orvtest::MODEL_64), orvtest::MODEL_64);
        const ODecimal64 value = record64(bits);
        char theirs[64];
        _IDEC_flags flags = 0;
        bid64_to_string(theirs, value.bits, &flags);
        const std::string text = write(&orvDec64FormatString, form('G', -1), value);
        const BID_UINT64 back = bid64_from_string(theirs, 0, &flags);
        ASSERT_EQ(read64(text).bits, back) << text << ' ' << theirs;
    }
}

} // namespace
