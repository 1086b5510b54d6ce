#include "shell/log.h"

#include "platform/files.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

platform::OwnedAppendFile gLogFile;

StringView TypeName(int nType) {
    return nType == log_event::kError ? u"Error" : u"Information";
}

String OnOneLine(StringView sText) {
    String line;
    line.reserve(sText.size());
    char16_t before = 0;
    for (const char16_t unit : sText) {
        const bool is_break = unit == u'\r' || unit == u'\n';
        if (before != u'\r' || unit != u'\n') // the two together are one break
            line.push_back(is_break ? u' ' : unit);
        before = unit;
    }
    return line;
}

} // namespace

void StartLogging(const String& sTarget, int nMode) {
    gLogFile.Reset();
    if (nMode == log_mode::kFile)
        gLogFile = platform::OpenForAppending(sTarget);
}

void LogEvent(StringView sText, int nType) {
    if (!gLogFile)
        return;
    String line(TypeName(nType));
    line += u": ";
    line += OnOneLine(sText);
    line += u"\r\n";
    platform::Append(gLogFile, ToUtf8(line));
}

void LogInformation(StringView sText, StringView sValue) {
    if (gLogging)
        LogEvent(String(sText).append(sValue), log_event::kInformation);
}

void LogCall(StringView sName, StringView sArgument) {
    if (gLogging)
        LogInformation(String(u"-> ").append(sName) += u' ', Quoted(sArgument));
}

void LogError(StringView sText) {
    if (gLogging)
        LogEvent(sText, log_event::kError);
}

} // namespace kestrelmoor
