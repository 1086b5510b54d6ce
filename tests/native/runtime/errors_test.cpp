#include "runtime/errors.h"

#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

constexpr std::int32_t Result(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);
}

TEST(RunTimeErrors, AnOwnErrorBringsItsDescriptionAndTheProgramsName) {
    const auto error = Raised([] { RaiseError(9); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 9);
    EXPECT_EQ(error->source(), u"Kestrelmoor");
    EXPECT_EQ(error->description(), u"Subscript out of range");
    EXPECT_STREQ(error->what(), "Run-time error 9: Subscript out of range");
}

TEST(RunTimeErrors, AnErrorKeepsWhatItWasGiven) {
    const RuntimeError error(Result(0x80040406), u"source", u"\u00E4");
    EXPECT_EQ(error.number(), -2147220474);
    EXPECT_EQ(error.source(), u"source");
    EXPECT_STREQ(error.what(), "Run-time error -2147220474: \xC3\xA4");
}

TEST(RunTimeErrors, ANumberThatIsNotOneOfThemHasAGeneralDescription) {
    EXPECT_EQ(ErrorDescription(12345), ErrorDescription(Result(0x80004005)));
    EXPECT_NE(ErrorDescription(12345), ErrorDescription(5));
    EXPECT_FALSE(ErrorDescription(12345).empty());
}

TEST(RunTimeErrors, AComResultWithANumberOfItsOwnGetsIt) {
    EXPECT_EQ(ErrorNumberOfComResult(Result(0x80070005)), 70);
    EXPECT_EQ(ErrorNumberOfComResult(Result(0x8007000E)), 7);
    EXPECT_EQ(ErrorNumberOfComResult(Result(0x80070057)), 5);
}

TEST(RunTimeErrors, AnyOtherComResultStaysTheNumberThatItIs) {
    EXPECT_EQ(ErrorNumberOfComResult(Result(0x80004005)), Result(0x80004005));
    EXPECT_EQ(ErrorNumberOfComResult(Result(0x8007054B)), Result(0x8007054B));
}

TEST(RunTimeErrors, OnlyAFailedResultIsRaised) {
    EXPECT_FALSE(Raised([] { RaiseIfFailed(0); }));
    EXPECT_FALSE(Raised([] { RaiseIfFailed(1); }));
    EXPECT_EQ(RaisedNumber([] { RaiseIfFailed(Result(0x80070005)); }), 70);
    EXPECT_EQ(RaisedNumber([] { RaiseIfFailed(Result(0x80040154)); }), Result(0x80040154));
}

TEST(RunTimeErrors, ASystemCodeIsRaisedWithTheSystemsBase) {
    EXPECT_EQ(ErrorNumberOfSystemCode(126), Result(0x8007007E));
    EXPECT_EQ(ErrorNumberOfSystemCode(0), Result(0x80070000));
}

} // namespace

} // namespace kestrelmoor::tests
