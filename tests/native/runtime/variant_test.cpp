#include "runtime/variant.h"

#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

#include <limits>

namespace kestrelmoor::tests {

namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;
constexpr std::int32_t kInvalidUseOfNull = 94;

std::int32_t RefusalAsInteger(const Variant& value) {
    return RaisedNumber([&] { ToInteger32(value); });
}

std::int32_t RefusalAsTruth(const Variant& value) {
    return RaisedNumber([&] { ToBoolean(value); });
}

std::int32_t RefusalAsDouble(const Variant& value) {
    return RaisedNumber([&] { ToDouble(value); });
}

} // namespace

TEST(VariantAsInteger, WhatWasNeverSetIs0) {
    EXPECT_EQ(ToInteger32(Variant()), 0);
}

TEST(VariantAsInteger, ATruthIsMinusOneOr0) {
    EXPECT_EQ(ToInteger32(Variant(true)), -1);
    EXPECT_EQ(ToInteger32(Variant(false)), 0);
}

TEST(VariantAsInteger, AWholeNumberStays) {
    for (const std::int32_t number : {0, 1, -1, 2147483647, std::numeric_limits<std::int32_t>::min()})
        EXPECT_EQ(ToInteger32(Variant(number)), number);
}

TEST(VariantAsInteger, AFractionIsRoundedToTheEvenNeighbour) {
    EXPECT_EQ(ToInteger32(Variant(2.5)), 2);
    EXPECT_EQ(ToInteger32(Variant(3.5)), 4);
    EXPECT_EQ(ToInteger32(Variant(-2.5)), -2);
    EXPECT_EQ(ToInteger32(Variant(513.4)), 513);
    EXPECT_EQ(ToInteger32(Variant(2147483647.4)), 2147483647);
}

TEST(VariantAsInteger, ADateIsItsDays) {
    EXPECT_EQ(ToInteger32(Variant(DateValue{46083.375})), 46083);
    EXPECT_EQ(ToInteger32(Variant(DateValue{46083.75})), 46084);
    EXPECT_EQ(ToInteger32(Variant(DateValue{-3.0})), -3);
}

TEST(VariantAsInteger, ATextIsReadAsANumber) {
    EXPECT_EQ(ToInteger32(Variant(String(u"66048"))), 66048);
    EXPECT_EQ(ToInteger32(Variant(String(u" -7 "))), -7);
    EXPECT_EQ(ToInteger32(Variant(String(u"&H200"))), 512);
    EXPECT_EQ(ToInteger32(Variant(String(u"2.5"))), 2);
}

TEST(VariantAsInteger, WhatDoesNotFitIsAnOverflow) {
    EXPECT_EQ(RefusalAsInteger(Variant(2147483647.5)), kOverflow);
    EXPECT_EQ(RefusalAsInteger(Variant(-2147483649.0)), kOverflow);
    EXPECT_EQ(RefusalAsInteger(Variant(std::numeric_limits<double>::quiet_NaN())), kOverflow);
    EXPECT_EQ(RefusalAsInteger(Variant(std::numeric_limits<double>::infinity())), kOverflow);
    EXPECT_EQ(RefusalAsInteger(Variant(DateValue{3e9})), kOverflow);
    EXPECT_EQ(RefusalAsInteger(Variant(String(u"4294967295"))), kOverflow);
}

TEST(VariantAsInteger, NullAndWhatIsNoNumberAreRefused) {
    EXPECT_EQ(RefusalAsInteger(Variant(NullValue())), kInvalidUseOfNull);
    EXPECT_EQ(RefusalAsInteger(Variant(ForeignValue())), kTypeMismatch);
    EXPECT_EQ(RefusalAsInteger(Variant(String(u"many"))), kTypeMismatch);
    EXPECT_EQ(RefusalAsInteger(Variant(String())), kTypeMismatch);
}

TEST(VariantAsTruth, WhatWasNeverSetAndNullAreFalse) {
    EXPECT_FALSE(ToBoolean(Variant()));
    EXPECT_FALSE(ToBoolean(Variant(NullValue())));
}

TEST(VariantAsTruth, ANumberIsTrueUnless0) {
    EXPECT_TRUE(ToBoolean(Variant(1)));
    EXPECT_TRUE(ToBoolean(Variant(-1)));
    EXPECT_TRUE(ToBoolean(Variant(256)));
    EXPECT_FALSE(ToBoolean(Variant(0)));
    EXPECT_TRUE(ToBoolean(Variant(0.25)));
    EXPECT_FALSE(ToBoolean(Variant(0.0)));
    EXPECT_FALSE(ToBoolean(Variant(-0.0)));
    EXPECT_TRUE(ToBoolean(Variant(DateValue{1.0})));
    EXPECT_FALSE(ToBoolean(Variant(DateValue{0.0})));
}

TEST(VariantAsTruth, ATruthStays) {
    EXPECT_TRUE(ToBoolean(Variant(true)));
    EXPECT_FALSE(ToBoolean(Variant(false)));
}

TEST(VariantAsTruth, ATextIsAWordOrANumber) {
    EXPECT_TRUE(ToBoolean(Variant(String(u"True"))));
    EXPECT_FALSE(ToBoolean(Variant(String(u"False"))));
    EXPECT_TRUE(ToBoolean(Variant(String(u"1"))));
    EXPECT_FALSE(ToBoolean(Variant(String(u"0"))));
}

TEST(VariantAsTruth, AnythingElseIsRefused) {
    EXPECT_EQ(RefusalAsTruth(Variant(String(u"yes"))), kTypeMismatch);
    EXPECT_EQ(RefusalAsTruth(Variant(String())), kTypeMismatch);
    EXPECT_EQ(RefusalAsTruth(Variant(ForeignValue())), kTypeMismatch);
}

TEST(VariantAsDouble, NumbersAndDatesAreGivenAsTheyStand) {
    EXPECT_EQ(ToDouble(Variant()), 0.0);
    EXPECT_EQ(ToDouble(Variant(true)), -1.0);
    EXPECT_EQ(ToDouble(Variant(false)), 0.0);
    EXPECT_EQ(ToDouble(Variant(46084)), 46084.0);
    EXPECT_EQ(ToDouble(Variant(1.5)), 1.5);
    EXPECT_EQ(ToDouble(Variant(DateValue{46083.375})), 46083.375);
    EXPECT_EQ(ToDouble(Variant(String(u"46084.5"))), 46084.5);
}

TEST(VariantAsDouble, NullAndWhatIsNoNumberAreRefused) {
    EXPECT_EQ(RefusalAsDouble(Variant(NullValue())), kInvalidUseOfNull);
    EXPECT_EQ(RefusalAsDouble(Variant(ForeignValue())), kTypeMismatch);
    EXPECT_EQ(RefusalAsDouble(Variant(String(u"soon"))), kTypeMismatch);
    EXPECT_EQ(RefusalAsDouble(Variant(String())), kTypeMismatch);
}

} // namespace kestrelmoor::tests
