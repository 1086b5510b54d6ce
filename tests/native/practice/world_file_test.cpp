#include "platform/practice/world/world_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <unistd.h>

namespace kestrelmoor {
namespace {

using practice::World;

constexpr char kSmallWorld[] = R"({
  "format": 1,
  "clock": "2026-03-02T09:00:00",
  "network": {
    "local_computer": "A",
    "user": { "name": "user", "sid": "S-1-5-21-1-2-3-1000" },
    "computers": [ { "name": "A" } ]
  }
})";

std::string ErrorOf(const std::string& text) {
    World world;
    try {
        practice::ReadWorld(world, text, "my.json");
    } catch (const practice::WorldFileError& error) {
        return error.what();
    }
    return "no error";
}

/// The small world with one piece of its text in place of another.
std::string Changed(const std::string& from, const std::string& to) {
    std::string text = kSmallWorld;
    return text.replace(text.find(from), from.size(), to);
}

/// A file that is gone when the test has ended.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& content) {
        const int file = mkstemp(mPath);
        if (write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size()))
            throw std::runtime_error("no temporary file");
        close(file);
    }
    ~TemporaryFile() { std::remove(mPath); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    std::string Path() const { return mPath; }
    std::string Content() const {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(mPath, "rb"), &std::fclose);
        std::string content(100000, 0);
        content.resize(std::fread(content.data(), 1, content.size(), file.get()));
        return content;
    }

  private:
    char mPath[32] = "/tmp/practice-world-XXXXXX";
};

TEST(PracticeWorldFile, StockWorldHasItsComputersItsDomainItsUserAndDifferentPolicies) {
    World world;
    practice::LoadStockWorld(world);
    EXPECT_EQ(world.network.Local().name, u"WORKBENCH");
    EXPECT_EQ(world.network.user.name, u"user");
    const auto least = [&](const String& server) { return world.network.StoreAt(server)->policy.min_length; };
    EXPECT_EQ(least(u""), 4U);
    EXPECT_EQ(least(u"\\\\ARCHIVE"), 6U);
    EXPECT_EQ(least(u"\\\\DC1"), 8U);
}

TEST(PracticeWorldFile, WritingAndReadingGivesTheSameWorld) {
    World world;
    practice::LoadStockWorld(world);
    world.network.Local().store.accounts[0].locked = true;
    world.network.missing_entries = {"DsGetDcNameW"};
    world.machine.special_folders[26] = u"";
    world.machine.version = {2, 4, 0, 1381};
    world.files.CreateFile(u"C:\\a.txt", "line\r\n").attributes = 1;
    world.registry.Create(u"HKEY_CURRENT_USER\\X").refuses_writing = true;
    world.registry.Create(u"HKEY_CURRENT_USER\\X").Set(u"odd", 1, {65, 0, 66});
    world.registry.Create(u"HKEY_CURRENT_USER\\X").Set(u"number", 4, {1, 2, 3, 4});
    world.registry.Create(u"HKEY_CURRENT_USER\\X").Set(u"short number", 4, {1});
    world.registry.Create(u"HKEY_CURRENT_USER\\X").Set(u"empty list", 7, {0, 0});
    world.libraries.Put(
        {u"C:\\x.loc", practice::LibraryKind::Scripted, "", {"DllCanUnloadNow"}, {{1031}, 0, 1033}});
    world.Fail("NetGetDCName", 53, 2);
    world.clock.Advance(12345);

    World again;
    practice::ReadWorld(again, practice::WriteWorld(world), "again");
    EXPECT_EQ(again.network.computers, world.network.computers);
    EXPECT_EQ(again.network.domains, world.network.domains);
    EXPECT_EQ(again.network.user, world.network.user);
    EXPECT_EQ(again.network.missing_entries, world.network.missing_entries);
    EXPECT_EQ(again.machine.special_folders, world.machine.special_folders);
    EXPECT_EQ(again.machine.version, world.machine.version);
    EXPECT_EQ(again.files.Find(u"C:\\a.txt")->content, "line\r\n");
    EXPECT_EQ(again.files.Find(u"C:\\a.txt")->attributes, 1U);
    EXPECT_EQ(again.registry.Find(u"HKEY_CURRENT_USER\\X")->values,
              world.registry.Find(u"HKEY_CURRENT_USER\\X")->values);
    EXPECT_TRUE(again.registry.Find(u"HKEY_CURRENT_USER\\X")->refuses_writing);
    EXPECT_EQ(again.libraries.all, world.libraries.all);
    EXPECT_EQ(again.calls.Faults(), world.calls.Faults());
    EXPECT_EQ(again.clock.Now(), world.clock.Now());
}

TEST(PracticeWorldFile, DirectoryAndItsAnswersOfEveryKindComeThrough) {
    World world;
    practice::LoadStockWorld(world);
    world.network.directory = {true,
                               {{u"ARCHIVE", "GetObject", 0x8007052F, u"Restricted."},
                                {u"ARCHIVE", "GetObject", 0x80070035},
                                {u"DC1", "UserFlags", 0, u"", std::monostate{}},
                                {u"DC1", "UserFlags", 0, u"", NullValue{}},
                                {u"DC1", "UserFlags", 0, u"", true},
                                {u"DC1", "UserFlags", 0, u"", std::int32_t{-5}},
                                {u"DC1", "UserFlags", 0, u"", 0.125},
                                {u"DC1", "UserFlags", 0, u"", DateValue{-1.75}},
                                {u"DC1", "UserFlags", 0, u"", u"512"},
                                {u"DC1", "UserFlags", 0, u"", ForeignValue{}}}};
    World again;
    practice::ReadWorld(again, practice::WriteWorld(world), "again");
    EXPECT_EQ(again.network.directory, world.network.directory);
}

TEST(PracticeWorldFile, DirectoryIsNotThereUntilTheFileSaysSo) {
    World world;
    practice::ReadWorld(world, kSmallWorld, "my.json");
    EXPECT_FALSE(world.network.directory.present);
}

TEST(PracticeWorldFile, AnswerOfTheDirectoryIsReadAsItStandsInTheFile) {
    World world;
    practice::ReadWorld(
        world, Changed(R"("network": {)", R"("network": { "directory": { "present": true, "answers": [
        { "name": "A", "member": "ChangePassword", "number": 2147942486, "description": "No." },
        { "name": "A", "member": "PasswordExpirationDate", "kind": "date", "value": 46100.5 } ] },)"),
        "my.json");
    const practice::Directory expected{true,
                                       {{u"A", "ChangePassword", 0x80070056, u"No."},
                                        {u"A", "PasswordExpirationDate", 0, u"", DateValue{46100.5}}}};
    EXPECT_EQ(world.network.directory, expected);
}

TEST(PracticeWorldFile, AnswerOfTheDirectoryWithAWrongValueIsTold) {
    const auto error_of = [](const std::string& value) {
        return ErrorOf(Changed(R"("network": {)", R"("network": { "directory": { "answers": [
            { "name": "A", "member": "UserFlags", "kind": )" +
                                                      value + " } ] },"));
    };
    EXPECT_EQ(error_of(R"("double", "value": "much")"),
              "my.json:5: /network/directory/answers/0/value: a number is needed here, not string");
    EXPECT_EQ(error_of(R"("null", "value": 1)"),
              "my.json:5: /network/directory/answers/0/value: no such member is known");
    EXPECT_EQ(error_of(R"("integer")"),
              "my.json:5: /network/directory/answers/0: the member \"value\" is missing");
    EXPECT_EQ(error_of(R"("colour")"), "my.json:5: /network/directory/answers/0/kind: \"colour\" is none of "
                                       "the words that can stand here");
}

TEST(PracticeWorldFile, PasswordWithAnUnpairedSurrogateComesThrough) {
    World world;
    practice::LoadStockWorld(world);
    const String password = {u'a', 0xD800, u'b', 0x20AC};
    world.network.Local().store.accounts[0].password = password;
    World again;
    practice::ReadWorld(again, practice::WriteWorld(world), "again");
    EXPECT_EQ(again.network.Local().store.accounts[0].password, password);
}

TEST(PracticeWorldFile, SmallestWorldIsEnough) {
    EXPECT_EQ(ErrorOf(kSmallWorld), "no error");
}

TEST(PracticeWorldFile, CutOffTextIsToldWithItsLine) {
    EXPECT_EQ(ErrorOf("{\n  \"format\": 1,\n  \"clock\n"), "my.json:3: this is no well-formed JSON text");
    EXPECT_EQ(ErrorOf(""), "my.json:1: this is no well-formed JSON text");
}

TEST(PracticeWorldFile, NumberBeyondAllSizesIsToldWithItsLine) {
    EXPECT_EQ(ErrorOf("{\n  \"format\":\n  1e999 }"), "my.json:3: this number is too large");
}

TEST(PracticeWorldFile, UnknownMemberIsToldWithItsPathAndLine) {
    EXPECT_EQ(ErrorOf(Changed(R"({ "name": "A" })", "{ \"name\": \"A\",\n \"nmae\": 1 }")),
              "my.json:8: /network/computers/0/nmae: no such member is known");
}

TEST(PracticeWorldFile, AMembersNameStandsOnOneLineAsTheFileWritesIt) {
    EXPECT_EQ(ErrorOf(Changed(R"({ "name": "A" })", R"({ "name": "A", "n\n\"\u0001m": 1 })")),
              R"(my.json:7: /network/computers/0/n\n\"\u0001m: no such member is known)");
}

TEST(PracticeWorldFile, AWordThatCannotStandThereIsToldOnOneLineAsTheFileWritesIt) {
    EXPECT_EQ(ErrorOf(Changed(R"("clock")",
                              R"("shell": { "network": { "name": "N", "kind": "do\n\"main" } }, "clock")")),
              R"(my.json:3: /shell/network/kind: "do\n\"main" is none of the words that can stand here)");
}

TEST(PracticeWorldFile, MissingMemberIsToldAtTheObjectThatLacksIt) {
    EXPECT_EQ(ErrorOf(Changed(R"("name": "user", )", "")),
              "my.json:6: /network/user: the member \"name\" is missing");
}

TEST(PracticeWorldFile, ValueOfAnotherKindIsTold) {
    EXPECT_EQ(ErrorOf(Changed(R"("name": "user")", R"("name": 7)")),
              "my.json:6: /network/user/name: a text is needed here, not number");
    EXPECT_EQ(ErrorOf("[]"), "my.json:1: /: an object is needed here, not array");
}

TEST(PracticeWorldFile, NumberOutOfRangeIsTold) {
    EXPECT_EQ(ErrorOf(Changed(R"({ "name": "A" })", R"({ "name": "A", "policy": { "min_length": -1 } })")),
              "my.json:7: /network/computers/0/policy/min_length: a whole number from 0 to 4294967295 is "
              "needed here");
}

TEST(PracticeWorldFile, TimeThatIsNoneIsTold) {
    EXPECT_EQ(ErrorOf(Changed("2026-03-02", "2026-02-30")),
              "my.json:3: /clock: a time such as 2026-03-02T09:00:00 is needed here");
}

TEST(PracticeWorldFile, OtherFormatIsTold) {
    EXPECT_EQ(ErrorOf(Changed("\"format\": 1", "\"format\": 2")),
              "my.json:2: /format: this program reads format 1");
}

TEST(PracticeWorldFile, NamesThatLeadNowhereAreTold) {
    EXPECT_EQ(ErrorOf(Changed(R"("local_computer": "A")", R"("local_computer": "B")")),
              "my.json:5: /network/local_computer: none of the computers has this name");
    EXPECT_EQ(
        ErrorOf(Changed(R"([ { "name": "A" } ])", R"([ { "name": "A" }, { "name": "a" } ])")),
        "my.json:7: /network/computers/1/name: a name of its own is needed here, not empty and not that of "
        "another");
    EXPECT_EQ(
        ErrorOf(Changed("S-1-5-21-1-2-3-1000", "S-1-5-x")),
        "my.json:6: /network/user/sid: a security identifier such as S-1-5-21-10-20-30-1001 is needed here");
}

TEST(PracticeWorldFile, DamagedFileIsLeftAsItWas) {
    const TemporaryFile file("{ \"format\": ");
    World world;
    EXPECT_THROW(practice::LoadWorld(world, file.Path()), practice::WorldFileError);
    EXPECT_EQ(file.Content(), "{ \"format\": ");
}

TEST(PracticeWorldFile, SavingReplacesTheFileAndLoadingGivesItBack) {
    const TemporaryFile file("old");
    {
        practice::ScopedWorld world;
        world.network.Local().store.accounts[0].password = u"Saved-1";
        practice::SaveWorld(world, file.Path());
    }
    const practice::ScopedWorld world(file.Path());
    EXPECT_EQ(practice::TheWorld().network.Local().store.accounts[0].password, u"Saved-1");
    EXPECT_NE(access((file.Path() + ".new").c_str(), F_OK), 0);
}

TEST(PracticeWorldFile, FileThatCantBeReadOrWrittenIsNamed) {
    World world;
    practice::LoadStockWorld(world);
    try {
        practice::SaveWorld(world, "/nowhere/a.json");
        FAIL();
    } catch (const practice::WorldFileError& error) {
        EXPECT_STREQ(error.what(), "/nowhere/a.json: can't be written: No such file or directory");
    }
    EXPECT_THROW(practice::LoadWorld(world, "/nowhere/a.json"), practice::WorldFileError);
}

} // namespace
} // namespace kestrelmoor
