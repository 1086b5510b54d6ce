#include "shell/log.h"

#include "platform/files.h"
#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr int kOff = 1;
constexpr int kFile = 2;
constexpr int kError = 1;
constexpr int kInformation = 4;

class DiagnosticLog : public ProgramTest {
  protected:
    std::string Content() const {
        const practice::File* const file = world.files.Find(kLogFile);
        return file ? file->content : "no file";
    }
};

TEST_F(DiagnosticLog, StartingMakesTheFile) {
    StartLogging(kLogFile, kFile);
    EXPECT_EQ(Content(), "");
}

TEST_F(DiagnosticLog, EachEventIsALineWithItsTypeAndItsText) {
    StartLogging(kLogFile, kFile);
    LogEvent(u"-> NetWkstaGetInfo", kInformation);
    LogEvent(u"failed", kError);
    EXPECT_EQ(Content(), "Information: -> NetWkstaGetInfo\r\nError: failed\r\n");
}

TEST_F(DiagnosticLog, LinesGoBehindWhatTheFileHeldBefore) {
    world.files.CreateFile(kLogFile, "before\r\n");
    StartLogging(kLogFile, kFile);
    LogEvent(u"now", kInformation);
    EXPECT_EQ(Content(), "before\r\nInformation: now\r\n");
}

TEST_F(DiagnosticLog, TheFileIsInUtf8) {
    StartLogging(kLogFile, kFile);
    LogEvent(u"\u00E4\u20AC\U0001F511", kInformation);
    EXPECT_EQ(Content(), "Information: \xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\x91\r\n");
}

TEST_F(DiagnosticLog, LineBreaksInATextBecomeBlanks) {
    StartLogging(kLogFile, kFile);
    LogEvent(u"a\r\nb\nc\rd", kInformation);
    EXPECT_EQ(Log(), Lines{"Information: a b c d"});
}

TEST_F(DiagnosticLog, EachEventIsOneWritingInOrder) {
    StartLogging(kLogFile, kFile);
    LogEvent(u"1", kInformation);
    LogEvent(u"2", kInformation);
    EXPECT_EQ(Names(), (Lines{"OpenForAppending", "Append", "Append"}));
}

TEST_F(DiagnosticLog, TwoWritersLoseNoLine) {
    StartLogging(kLogFile, kFile);
    const platform::OwnedAppendFile other = platform::OpenForAppending(kLogFile);
    LogEvent(u"ours 1", kInformation);
    platform::Append(other, "theirs 1\r\n");
    LogEvent(u"ours 2", kError);
    platform::Append(other, "theirs 2\r\n");
    EXPECT_EQ(Log(), (Lines{"Information: ours 1", "theirs 1", "Error: ours 2", "theirs 2"}));
}

TEST_F(DiagnosticLog, OnceOffItIsClosedAndEventsEndInNothing) {
    StartLogging(kLogFile, kFile);
    LogEvent(u"on", kInformation);
    StartLogging(u"", kOff);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::AppendFile), 0U);
    EXPECT_EQ(RaisedNumber([] { LogEvent(u"off", kInformation); }), 0);
    EXPECT_EQ(Log(), Lines{"Information: on"});
}

TEST_F(DiagnosticLog, NeverStartedEventsEndInNothing) {
    EXPECT_EQ(RaisedNumber([] { LogEvent(u"off", kError); }), 0);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(DiagnosticLog, AFileThatCannotBeOpenedRaisesAnError) {
    EXPECT_EQ(RaisedNumber([] { StartLogging(u"C:\\Missing\\a.log", kFile); }), 76);
    world.files.CreateFile(kLogFile).refuses_writing = true;
    EXPECT_EQ(RaisedNumber([] { StartLogging(kLogFile, kFile); }), 70);
}

TEST_F(DiagnosticLog, AfterAFailedStartNothingIsLogged) {
    StartLogging(kLogFile, kFile);
    EXPECT_NE(RaisedNumber([] { StartLogging(u"C:\\Missing\\a.log", kFile); }), 0);
    LogEvent(u"lost", kInformation);
    EXPECT_EQ(Content(), "");
}

TEST_F(DiagnosticLog, ALineThatCannotBeWrittenRaisesAnError) {
    StartLogging(kLogFile, kFile);
    world.Fail("Append", 5);
    EXPECT_EQ(RaisedNumber([] { LogEvent(u"lost", kInformation); }), 70);
}

TEST_F(DiagnosticLog, DiagnosingLinesAreWrittenOnlyWhileDiagnosing) {
    StartLogging(kLogFile, kFile);
    LogInformation(u"no");
    LogError(u"no");
    gLogging = true;
    LogInformation(u"yes");
    LogError(u"yes");
    EXPECT_EQ(Log(), (Lines{"Information: yes", "Error: yes"}));
}

} // namespace

} // namespace kestrelmoor::tests
