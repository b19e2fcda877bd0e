// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the conformance tests perform: texts and scripts, by the clauses of the standard.
#ifndef ORV_TESTS_LOCALE_STREAM_CONFORMANCE_ROWS_H
#define ORV_TESTS_LOCALE_STREAM_CONFORMANCE_ROWS_H

#include <string_view>

namespace orvtest {

/// A text, and what is done with it.
struct InputRow {
    std::string_view text;
    std::string_view script;
};

inline constexpr InputRow UNFORMATTED_INPUT[] = {
    // get, [istream.unformatted] 4 to 7
    {"ab", "get; get; get; get"},
    {"", "get; clear; get"},
    {"ab", "getunit; getunit; getunit; getunit"},
    {"", "getunit"},
    // get into an array, 8 to 12
    {"abc|de", "getarray 3; getarray 12; getarray 12; get; getarray 12"},
    {"abcdef", "getarray 1; getarray 0; clear; getarray 2; getarray 12"},
    {"abc.de", "getarray 12 .; getarray 12 .; clear; get; getarray 12 ."},
    {"abc", "getarray 4; peek"},
    {"", "getarray 5; clear; getarray 1"},
    // get into a buffer, 13 to 17
    {"abc\ndef", "getbuffer; getbuffer; clear; get; getbuffer; clear; getbuffer"},
    {"abc.def", "getbuffer 1000 .; getbuffer 2; getbuffer 0; clear; getbuffer 1001"},
    {"abcdef", "exceptions b; getbuffer 1002; peek"},
    // getline, 18 to 24
    {"abc\ndef\n\ng", "getline 12; getline 12; getline 12; getline 12; getline 12"},
    {"abc\ndef", "getline 4; getline 4; clear; getline 5"},
    {"abcdef", "getline 4; clear; getline 4; clear; getline 4"},
    {"abcd", "getline 5; peek"},
    {"abc.d", "getline 12 .; getline 1 .; clear; getline 0; clear; getline 2 ."},
    {"\n", "getline 1; getline 1"},
    {"", "getline 12"},
    // ignore, 25 to 27
    {"abcdef", "ignore; ignore 2; peek; ignore 0; ignore 9; ignore"},
    {"abcadef", "ignore 9 c; ignore 2 x; ignore 9 e; ignore 1 f; ignore"},
    {"abc\nde", "ignore -1 |; get; ignore -1; clear; ignore -1"},
    {"aab", "ignore 1 a; ignore 1 b; get"},
    // peek, read, readsome, 28 to 35
    {"a", "peek; peek; get; peek; peek"},
    {"abcdef", "read 3; read 0; read 9; read 1; clear; read 0"},
    {"abcdef", "readsome 2; readsome 9; readsome 2; clear; readsome 1"},
    {"", "readsome 3; get; readsome 3"},
    // putback, unget, sync, 36 to 40
    {"ab", "putback x; clear; get; putback a; get; unget; unget; clear; get; putback x"},
    {"ab", "get; get; get; putback b; clear; get; get; clear e; unget; get"},
    {"ab", "sync; get; sync; get; get; sync; clear b; sync"},
    // tellg, seekg, 41 to 49
    {"abcd", "tellg; seekg 2; tellg; get; seekg 9; tellg; clear; seekg 4; get; seekg 0; tellg"},
    {"abcd", "seekgby 1 beg; seekgby 1 cur; seekgby -1 end; get; seekgby -9 cur; clear; get"},
    {"abcd", "ignore 9; tellg; clear e; seekg 1; get; clear f; seekg 0; get; tellg"},
    {"abcd", "exceptions f; seekg 9; seekg 1; tellg"},
    // the sentry and exceptions, [istream.sentry], [istream::sentry], [iostate.flags]
    {"ab", "setstate f; get; peek; read 1; ignore; getline 5; >>unit; tellg; seekg 1; get"},
    {"ab", "exceptions f; ignore 9; get; get; getline 3; exceptions; get"},
    {"ab", "exceptions e; read 3; clear; peek; get; exceptions b; clear; setstate b; get"},
    {"ab", "setstate bf; exceptions f; clear; setstate e; exceptions e; get"},
};

inline constexpr InputRow FORMATTED_INPUT[] = {
    // white space, [istream.manip] and the sentry
    {"  a \n\tb  ", ">>unit; >>unit; >>unit; >>ws; get"},
    {"  a ", "noskipws; >>unit; >>ws; >>unit; >>unit; skipws; >>unit"},
    {"   ", ">>ws; >>ws; clear; >>ws"},
    {" \v\f\r x", ">>unit; >>unit"},
    // arrays and strings, [istream.extractors]
    {"hello world again-and-again", ">>array; width 3; >>array; >>array; >>array; >>array"},
    {"ab", "width 1; >>array; clear; width 2; >>array; width 12; >>array; >>array"},
    {"ab cd  efg", ">>string; width 1; >>string; >>string; >>string; >>string"},
    {"", ">>string; clear; >>array; clear; >>unit"},
    {"  ", ">>string; clear; >>array; clear; width 5; >>unit"},
    // buffers
    {" ab cd", ">>buffer; get; >>buffer; clear; >>buffer"},
    {" ab cd", "noskipws; >>buffer 3; >>buffer 0; clear; >>buffer 1000; clear; >>null; clear; get"},
    {"abc", "exceptions f; >>buffer 1000; >>buffer 0; clear; >>null"},
    {"abc", "exceptions b; >>null; clear; >>null"},
    // lines into strings
    {"ab\ncd", "getlinestring; getlinestring; getlinestring"},
    {"ab.cd", "getlinestring .; peek; getlinestring .; clear; getlinestring"},
    {"\n\n", "getlinestring; getlinestring; getlinestring"},
    {"ab", "exceptions f; getlinestring; getlinestring"},
    {"ab", "setstate f; getlinestring"},
};

inline constexpr InputRow NUMBER_INPUT[] = {
    {"12 -34 +56", ">>int; >>int; >>int; >>int"},
    {"12abc", ">>int; >>int; clear; get"},
    {"x", ">>int; clear; >>double; clear; >>bool; clear; >>pointer; clear; get"},
    {"", ">>int"},
    {"- +", ">>int; clear; >>int"},
    {"32767 32768 -32768 -32769", ">>short; >>short; clear; >>short; >>short; clear; get"},
    {"65535 65536 -1 -65535 -65536", ">>ushort; >>ushort; clear; >>ushort; >>ushort; >>ushort"},
    {"2147483647 2147483648 -2147483649", ">>int; >>int; clear; >>int"},
    {"4294967295 4294967296 -1", ">>uint; >>uint; clear; >>uint"},
    {"9223372036854775807 9223372036854775808", ">>long; >>long"},
    {"-9223372036854775808 -9223372036854775809", ">>longlong; >>longlong"},
    {"18446744073709551615 18446744073709551616 -1", ">>ulong; >>ulonglong; clear; >>ulong"},
    {"ff 0xff 0XFF -f 0x", "hex; >>int; >>int; >>int; >>int; >>int"},
    {"17 017 18 08", "oct; >>int; >>int; >>int; clear; get; >>int"},
    {"17 017 0x17 08 0x", "anybase; >>int; >>int; >>int; >>int; clear; >>int; >>int"},
    {"0 1 2 -1 true", ">>bool; >>bool; >>bool; clear; >>bool; clear; >>bool"},
    {"1.5 .5 5. 1e3 1e+3 1.5e-3", ">>double; >>double; >>double; >>double; >>double; >>double"},
    {"1e 1e+ . 1e5x", ">>double; clear; >>double; clear; >>double; clear; get; >>double; get"},
    {"1e999 -1e999 1e-999", ">>double; clear; >>double; clear; >>double"},
    {"3.5e38 1e-50 1e5000 0.1",
     ">>float; clear; >>float; clear; >>longdouble; clear; >>longdouble"},
    {"inf nan infinity", ">>double; clear; >>string; >>double; clear; >>string; >>double"},
    {"1,234 1,5", ">>int; get; >>int; >>double; get; >>double"},
    {"0x1f 0 1f", ">>pointer; >>pointer; >>pointer"},
    {"  42", "noskipws; >>int; clear; skipws; >>int"},
    {"7 8", "width 5; >>int; width 1; >>int; exceptions e; clear; >>int"},
    {"12x", "exceptions f; >>int; >>int; clear; >>double"},
    {"-0 +0 -0.0", ">>int; >>uint; >>double"},
    {"00012 000", ">>int; >>double"},
};

inline constexpr InputRow NAME_INPUT[] = {
    {"true false tru truex 1", "boolalpha; >>bool; >>bool; >>bool; clear; >>bool; get; >>bool"},
    {"false\ntrue ", "boolalpha; >>bool; noskipws; >>bool; clear; get; >>bool; get; get"},
    {"trUE 1", "boolalpha; >>bool; clear; get; get; get; noboolalpha; >>bool"},
};

inline constexpr std::string_view OUTPUT[] = {
    // [ostream.unformatted], [ostream.seeks]
    "put a; put b; write cde; write x; flush; tellp",
    "write abcdef; seekp 2; put X; tellp; seekpby -1 end; put Y; seekpby 0 beg; put Z; seekp 99; "
    "tellp; put x; clear; seekpby -9 cur; put y; clear; put z",
    "setstate f; put a; write b; <<int 1; flush; seekp 0; tellp; clear; put c",
    "setstate e; put a; tellp; <<text b; flush",
    "width 5; put a; write b; <<text c",
    // text, [ostream.inserters.character]
    "<<unit a; <<narrow b; <<text cd; <<narrowtext ef; <<string gh",
    "fill *; width 4; <<unit a; width 4; <<narrow b; width 4; <<text cd; width 4; <<narrowtext ef; "
    "width 4; <<string gh; <<string i",
    "fill *; left; width 4; <<unit a; width 4; <<narrow b; width 4; <<text cd; width 4; "
    "<<narrowtext ef; width 4; <<string gh",
    "fill *; internal; width 4; <<unit a; width 4; <<text cd; width 2; <<text abc; width 0; <<text "
    "x",
    "width -3; <<text a; width 3; <<endl; <<text a; <<ends; <<flush",
    // buffers
    "<<buffer 100 abc; <<buffer 2 abc; <<buffer 0 abc; clear; <<buffer 1002 abc; clear; <<null; "
    "clear; put x",
    "exceptions f; <<buffer 0 abc; <<buffer 1000 abc; <<buffer 1002 abc; clear; <<null",
    "exceptions b; <<null; put a; clear; <<buffer 1001 abc; put b",
    "unitbuf; put a; <<int 5; nounitbuf; put b; <<endl",
    "exceptions f; setstate f; put a; clear; exceptions; setstate f; exceptions f; clear; put b",
};

inline constexpr std::string_view NUMBER_OUTPUT[] = {
    "<<short -5; <<ushort 5; <<int -7; <<uint 7; <<long -9; <<ulong 9; <<longlong -11; <<ulonglong "
    "11",
    "<<short max; <<short min; <<ushort max; <<int min; <<uint max; <<long min; <<ulong max; "
    "<<longlong max; <<ulonglong max",
    "hex; <<short -1; <<int -1; <<long -1; uppercase; showbase; <<int 255; <<int 0; <<ulong max",
    "oct; <<short -1; <<int 8; showbase; <<int 8; <<int 0; anybase; <<int 8",
    "showpos; <<int 5; <<int 0; <<uint 5; <<double 1.5; hex; <<int 5; <<pointer 255",
    "fill *; internal; width 8; <<int -42; showbase; hex; width 8; <<int 42; showpos; dec; width "
    "8; "
    "<<int 42; width 8; <<double -1.5; width 8; <<double infinity",
    "fill *; left; width 8; <<int -42; width 8; <<double 1.5; width 8; <<bool 1; width 8; "
    "<<pointer 1",
    "fill *; width 8; <<int -42; width 3; <<int 12345; width 8; <<bool 0; boolalpha; width 8; "
    "<<bool 0; left; width 8; <<bool 1; internal; width 8; <<bool 1",
    "<<double 0; <<double 1; <<double 1e100; <<double 1e-100; <<double 123456789; <<double 0.1",
    "precision 0; <<double 1.5; precision 20; <<double 0.1; precision -1; <<double 1.5; "
    "precision 1; <<double 99.5; precision 17; <<float 0.1",
    "fixed; <<double 1.5; <<double 1e20; precision 0; <<double 2.5; <<double 0.5; showpoint; "
    "<<double 2.5; precision 3; <<double -0.0005",
    "scientific; <<double 1.5; <<double 0; uppercase; <<double 1e100; precision 0; <<double 15",
    "hexfloat; <<double 1.5; <<double 0; uppercase; <<double -0.1; precision 3; <<double 0.1",
    "<<double infinity; <<double nan; uppercase; <<double infinity; scientific; <<double nan",
    "showpoint; <<double 1; <<double 100000; <<double 1000000; precision 0; <<double 5",
    "<<double max; <<double min; <<double lowest; <<float max; <<longdouble max; <<longdouble min",
    "fixed; <<double max; <<longdouble 1e30; precision 400; <<double min",
    "hexfloat; <<longdouble 1; <<longdouble max; <<float 0.1; <<longdouble 0",
    "<<pointer 0; <<pointer 255; uppercase; <<pointer 255; showpos; oct; <<pointer 255; "
    "width 10; internal; fill *; <<pointer 16",
    "<<hex; <<int 255; width 9; internal; fill 0; <<int 255; <<endl",
};

} // namespace orvtest

#endif
