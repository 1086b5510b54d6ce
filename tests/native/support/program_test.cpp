#include "tests/native/support/program_test.h"

#include "shell/log.h"
#include "shell/program_state.h"
#include "tests/native/support/test_language.h"

#include <algorithm>
#include <ostream>

namespace kestrelmoor::tests {

void PrintTo(const ShownBox& box, std::ostream* stream) {
    *stream << "box " << box.style << " \"" << box.title << "\": " << box.text;
}

ShownBox Exclamation(std::string text) {
    return {std::move(text), 48, "Kestrelmoor"};
}

ShownBox Information(std::string text) {
    return {std::move(text), 64, "Kestrelmoor"};
}

ProgramTest::ProgramTest() {
    ResetProgramState();
    SpeakTestLanguage();
    world.machine.system_messages = {{2, u"system 2"},   {5, u"system 5"},       {53, u"system 53"},
                                     {86, u"system 86"}, {1300, u"system 1300"}, {1337, u"system 1337"}};
    world.machine.network_messages = {
        {2221, u"network 2221"}, {2245, u"network 2245"}, {2453, u"network 2453"}};
}

ProgramTest::~ProgramTest() {
    GiveBackAll();
    EXPECT_EQ(world.OutstandingHandles(), modules_left);
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
}

void ProgramTest::OpenLog() {
    StartLogging(kLogFile, log_mode::kFile);
    world.calls.Clear();
}

void ProgramTest::StartDiagnosing() {
    gLogging = true;
    OpenLog();
}

Lines ProgramTest::LinesOf(const String& sPath) const {
    const practice::File* const file = world.files.Find(sPath);
    std::string_view rest = file ? std::string_view(file->content) : std::string_view();
    Lines lines;
    while (!rest.empty()) {
        const std::size_t end = rest.find("\r\n");
        lines.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 2);
    }
    return lines;
}

Lines ProgramTest::CallsOf(std::initializer_list<std::string_view> names) const {
    Lines calls;
    for (const practice::Call& call : world.calls.All())
        if (std::find(names.begin(), names.end(), call.name) != names.end())
            calls.push_back(practice::TextOf(call));
    return calls;
}

std::vector<ShownBox> ProgramTest::Boxes() const {
    std::vector<ShownBox> boxes;
    for (const practice::Box& box : world.boxes.All())
        boxes.push_back({ToUtf8(box.text), box.style, ToUtf8(box.title)});
    return boxes;
}

} // namespace kestrelmoor::tests
