#include "runtime/conversions.h"

#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

#include <limits>

namespace kestrelmoor::tests {

namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;

std::int32_t Refusal16(StringView text) {
    return RaisedNumber([&] { ToInteger16(text); });
}

std::int32_t Refusal32(StringView text) {
    return RaisedNumber([&] { ToInteger32(text); });
}

TEST(Conversions, DecimalTextBecomesANumber) {
    EXPECT_EQ(ToInteger16(u"0"), 0);
    EXPECT_EQ(ToInteger16(u"1033"), 1033);
    EXPECT_EQ(ToInteger16(u"-7"), -7);
    EXPECT_EQ(ToInteger16(u"+7"), 7);
    EXPECT_EQ(ToInteger16(u"0007"), 7);
    EXPECT_EQ(ToInteger16(u" 12 "), 12);
    EXPECT_EQ(ToInteger16(u"1."), 1);
    EXPECT_EQ(ToInteger16(u"1e3"), 1000);
    EXPECT_EQ(ToInteger16(u"25E-1"), 2);
    EXPECT_EQ(ToInteger16(u"1d2"), 100);
    EXPECT_EQ(ToInteger16(u"1D+2"), 100);
}

TEST(Conversions, NoSpaceOfAnyKindAroundANumberCounts) {
    EXPECT_EQ(ToInteger16(u"\t\n\v\f\r 12 \r\f\v\n\t"), 12);
    EXPECT_EQ(Refusal16(u"\b12"), kTypeMismatch);
    EXPECT_EQ(Refusal16(u"12\x0E"), kTypeMismatch);
}

TEST(Conversions, ANumberEndsWhereItsTextEnds) {
    EXPECT_EQ(ToInteger16(StringView(u"123").substr(0, 2)), 12);
    EXPECT_EQ(ToInteger16(StringView(u"12.5").substr(0, 2)), 12);
    EXPECT_EQ(ToInteger16(StringView(u"1e5").substr(0, 1)), 1);
}

TEST(Conversions, AHalfGoesToTheEvenNeighbour) {
    EXPECT_EQ(ToInteger16(u"0.5"), 0);
    EXPECT_EQ(ToInteger16(u"1.5"), 2);
    EXPECT_EQ(ToInteger16(u"2.5"), 2);
    EXPECT_EQ(ToInteger16(u"-0.5"), 0);
    EXPECT_EQ(ToInteger16(u"-1.5"), -2);
    EXPECT_EQ(ToInteger16(u"-2.5"), -2);
    EXPECT_EQ(ToInteger16(u"2.51"), 3);
    EXPECT_EQ(ToInteger16(u".49"), 0);
    EXPECT_EQ(ToInteger16(u"-.6"), -1);
    EXPECT_EQ(RoundToEven(3.5), 4.0);
    EXPECT_EQ(RoundToEven(-3.5), -4.0);
    EXPECT_EQ(RoundToEven(4503599627370497.0), 4503599627370497.0);
    EXPECT_EQ(RoundToInteger32(2147483647.5 - 0.25), 2147483647);
    EXPECT_EQ(RoundToInteger32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(RaisedNumber([] { RoundToInteger32(2147483647.5); }), kOverflow);
    EXPECT_EQ(RaisedNumber([] { RoundToInteger32(-2147483649.0); }), kOverflow);
    EXPECT_EQ(RaisedNumber([] { RoundToInteger32(std::numeric_limits<double>::quiet_NaN()); }), kOverflow);
}

TEST(Conversions, ANumberInHexadecimalOrOctalNotation) {
    EXPECT_EQ(ToInteger16(u"&H409"), 1033);
    EXPECT_EQ(ToInteger16(u"&h40f"), 1039);
    EXPECT_EQ(ToInteger16(u"&O17"), 15);
    EXPECT_EQ(ToInteger16(u"&H4"), 4);
    EXPECT_EQ(ToInteger16(u"&HA"), 10);
    EXPECT_EQ(ToInteger16(u"&O70"), 56);
    EXPECT_EQ(ToInteger16(u"&H7FFF"), 32767);
    EXPECT_EQ(ToInteger16(u"&HFFFF"), -1);
    EXPECT_EQ(ToInteger16(u"&H8000"), -32768);
    EXPECT_EQ(ToInteger32(u"&HFFFFFFFF"), -1);
    EXPECT_EQ(ToInteger32(u"&H10000"), 65536);
    EXPECT_EQ(Refusal16(u"&H10000"), kOverflow);
    EXPECT_EQ(Refusal32(u"&H100000000"), kOverflow);
}

TEST(Conversions, ANumberThatSixteenBitsDoNotHoldIsRefused) {
    EXPECT_EQ(Integer16(0), 0);
    EXPECT_EQ(Integer16(32767), 32767);
    EXPECT_EQ(Integer16(-32768), -32768);
    for (const std::int64_t value : {32768LL, -32769LL, 65536LL, 4294967296LL})
        EXPECT_EQ(RaisedNumber([&] { Integer16(value); }), kOverflow) << value;
}

TEST(Conversions, SixteenBitsHoldWhatRoundsIntoThem) {
    EXPECT_EQ(ToInteger16(u"32767"), 32767);
    EXPECT_EQ(ToInteger16(u"-32768"), -32768);
    EXPECT_EQ(ToInteger16(u"32767.4"), 32767);
    EXPECT_EQ(ToInteger16(u"-32768.5"), -32768);
    EXPECT_EQ(Refusal16(u"32767.5"), kOverflow);
    EXPECT_EQ(Refusal16(u"32768"), kOverflow);
    EXPECT_EQ(Refusal16(u"-32769"), kOverflow);
    EXPECT_EQ(Refusal16(u"70000"), kOverflow);
    EXPECT_EQ(Refusal16(u"1e400"), kOverflow);
}

TEST(Conversions, ThirtyTwoBitsEndAtTheirLimits) {
    EXPECT_EQ(ToInteger32(u"2147483647"), 2147483647);
    EXPECT_EQ(ToInteger32(u"-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Refusal32(u"2147483648"), kOverflow);
    EXPECT_EQ(Refusal32(u"-2147483649"), kOverflow);
}

TEST(Conversions, WhatIsNoNumberIsAMismatch) {
    for (const StringView text :
         {u"",   u"  ",  u"abc", u"12abc", u"1 2", u"&H",  u"&HG", u"&X1", u".",   u"-",
          u"1e", u"1e+", u"--1", u"&H-1",  u"1:",  u"&O8", u"&OA", u"&H@", u"&H[", u"1033\u00A0x"})
        EXPECT_EQ(Refusal16(text), kTypeMismatch) << ToUtf8(text);
}

TEST(Conversions, ANumericTextIsOneAsAWholeWhateverItsSize) {
    for (const StringView text : {u"0", u" 12 ", u"-1.5", u"&H1F", u"1e999", u"99999999999"})
        EXPECT_TRUE(IsNumeric(text)) << ToUtf8(text);
    for (const StringView text : {u"", u" ", u"abc", u"12 abc", u"1,2,x", u"&HXY"})
        EXPECT_FALSE(IsNumeric(text)) << ToUtf8(text);
}

TEST(Conversions, TheLeadingNumberOfAText) {
    EXPECT_EQ(LeadingNumber(u"14 days"), 14.0);
    EXPECT_EQ(LeadingNumber(u"-3.5x"), -3.5);
    EXPECT_EQ(LeadingNumber(u"1e2x"), 100.0);
    EXPECT_EQ(LeadingNumber(u"1e"), 1.0);
    EXPECT_EQ(LeadingNumber(u"1e+"), 1.0);
    EXPECT_EQ(LeadingNumber(u"1E-1"), 0.1);
    EXPECT_EQ(LeadingNumber(u"+2D1"), 20.0);
    EXPECT_EQ(LeadingNumber(u"7."), 7.0);
    EXPECT_EQ(LeadingNumber(u".5.5"), 0.5);
    EXPECT_EQ(LeadingNumber(u"days 14"), 0.0);
    EXPECT_EQ(LeadingNumber(u"-"), 0.0);
    EXPECT_EQ(LeadingNumber(u""), 0.0);
}

TEST(Conversions, BlanksTabsAndLineFeedsInALeadingNumberDoNotCount) {
    EXPECT_EQ(LeadingNumber(u"  1 4 days"), 14.0);
    EXPECT_EQ(LeadingNumber(u"\t1\n7"), 17.0);
}

TEST(Conversions, NumberFormats) {
    EXPECT_EQ(DecimalText(0), u"0");
    EXPECT_EQ(DecimalText(-12), u"-12");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
    EXPECT_EQ(PaddedText(7, 1), u"7");
    EXPECT_EQ(PaddedText(7, 2), u"07");
    EXPECT_EQ(PaddedText(7, 3), u"007");
    EXPECT_EQ(PaddedText(1234, 3), u"1234");
    EXPECT_EQ(PaddedText(0, 2), u"00");
    EXPECT_EQ(PaddedText(-5, 2), u"-05");
    EXPECT_EQ(HexText(0), u"0");
    EXPECT_EQ(HexText(0x10200), u"10200");
    EXPECT_EQ(HexText(0xFFFFFFFF), u"FFFFFFFF");
    EXPECT_EQ(HexText(0xABC), u"ABC");
    EXPECT_EQ(BooleanText(true), u"True");
    EXPECT_EQ(BooleanText(false), u"False");
}

TEST(Conversions, SinglePrecisionTextHasSevenDigitsAtMostAndNoZerosBehindThem) {
    EXPECT_EQ(SingleText(13.5F), u"13.5");
    EXPECT_EQ(SingleText(-0.25F), u"-0.25");
    EXPECT_EQ(SingleText(1.0F), u"1");
    EXPECT_EQ(SingleText(10.0F), u"10");
    EXPECT_EQ(SingleText(10.5F), u"10.5");
    EXPECT_EQ(SingleText(14.0F), u"14");
    EXPECT_EQ(SingleText(0.1F), u"0.1");
    EXPECT_EQ(SingleText(13.999988F), u"13.99999");
    EXPECT_EQ(SingleText(-1.0F / 3), u"-0.3333333");
    EXPECT_EQ(SingleText(0.0001F), u"0.0001");
    EXPECT_EQ(SingleText(1200.0F), u"1200");
    EXPECT_EQ(SingleText(9999999.0F), u"9999999");
}

TEST(Conversions, SinglePrecisionTextOfZeroHasNoSign) {
    EXPECT_EQ(SingleText(0.0F), u"0");
    EXPECT_EQ(SingleText(-0.0F), u"0");
}

TEST(Conversions, SinglePrecisionTextOfVerySmallAndLargeNumbersHasAnExponent) {
    EXPECT_EQ(SingleText(1.5E-05F), u"1.5E-05");
    EXPECT_EQ(SingleText(1E-05F), u"1E-05") << "its first seven digits are rounded up";
    EXPECT_EQ(SingleText(1E+07F), u"1E+07");
    EXPECT_EQ(SingleText(-123456789.0F), u"-1.234568E+08");
    EXPECT_EQ(SingleText(std::numeric_limits<float>::max()), u"3.402823E+38");
    EXPECT_EQ(SingleText(std::numeric_limits<float>::denorm_min()), u"1.401298E-45");
}

TEST(Conversions, SinglePrecisionTextOfWhatIsNoNumberSaysSo) {
    EXPECT_EQ(SingleText(std::numeric_limits<float>::quiet_NaN()), u"NaN");
    EXPECT_EQ(SingleText(-std::numeric_limits<float>::infinity()), u"-Infinity");
    EXPECT_EQ(SingleText(std::numeric_limits<float>::infinity()), u"Infinity");
}

TEST(Conversions, FloatingNumberOfATextIsNotRounded) {
    EXPECT_EQ(ToDouble(u" -1.25 "), -1.25);
    EXPECT_EQ(ToDouble(u"&HFF"), 255.0);
    EXPECT_EQ(RaisedNumber([] { ToDouble(u"1x"); }), kTypeMismatch);
    EXPECT_EQ(RaisedNumber([] { ToDouble(u""); }), kTypeMismatch);
    EXPECT_EQ(RaisedNumber([] { ToDouble(u"1E400"); }), kOverflow);
}

} // namespace

} // namespace kestrelmoor::tests
