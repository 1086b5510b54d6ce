#include "tests/native/account/account_test.h"

#include "runtime/conversions.h"
#include "shell/program_state.h"
#include "tests/native/support/test_language.h"

namespace kestrelmoor::tests {

namespace {

constexpr std::int32_t kTwoWeeks = 1209600;

TestTexts TextsOfReports() {
    TestTexts texts = StandardTexts();
    texts.merge(TestTexts{{3, u"message 3: %1"},
                          {4, u"message 4: %1, %2, %3, %4, %5"},
                          {7, u"phrase 7"},
                          {8, u"phrase 8: %1"},
                          {9, u"phrase 9: %1"},
                          {13, u"message 13"},
                          {14, u"message 14"},
                          {19, u"message 19: %1"},
                          {20, u"message 20"},
                          {21, u"message 21: %1"}});
    return texts;
}

} // namespace

AccountTest::AccountTest() {
    SpeakTestLanguage(TextsOfReports());
    gUserName = u"user";
    gReminderTime = kTwoWeeks;
}

practice::Account& AccountTest::AccountAt(StringView server) {
    return *world.network.StoreAt(server)->Find(u"user");
}

practice::PasswordPolicy& AccountTest::PolicyAt(StringView server) {
    return world.network.StoreAt(server)->policy;
}

void AccountTest::InstallDirectory() {
    world.network.directory.present = true;
}

void AccountTest::Say(StringView name, StringView member, Variant value) {
    std::erase_if(world.network.directory.answers, [&](const practice::DirectoryAnswer& answer) {
        return answer.name == name && answer.member == ToUtf8(member);
    });
    practice::DirectoryAnswer answer{String(name), ToUtf8(member)};
    answer.value = std::move(value);
    world.network.directory.answers.push_back(std::move(answer));
}

void AccountTest::Refuse(StringView name, StringView member, std::uint32_t result, StringView description) {
    Say(name, member, {});
    world.network.directory.answers.back().number = result;
    world.network.directory.answers.back().description = description;
}

void AccountTest::NameSystemCodes(std::initializer_list<std::uint32_t> codes) {
    for (const std::uint32_t code : codes)
        world.machine.system_messages[code] = u"system " + DecimalText(code);
}

} // namespace kestrelmoor::tests
