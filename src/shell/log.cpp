#include "shell/log.h"

#include "platform/files.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

platform::OwnedAppendFile gLogFile;

StringView TypeName(int nType) {
    return nType == log_event::kError ? u"Error" : u"Information";
}

String OnOneLine(const String& sText) {
    String line;
    line.reserve(sText.size());
    for (const char16_t unit : sText) {
        const bool is_break = unit == u'\r' || unit == u'\n';
        if (!is_break)
            line.push_back(unit);
        else if (unit == u'\n' || line.empty())
            line.push_back(u' ');
    }
    return line;
}

} // namespace

void StartLogging(const String& sTarget, int nMode) {
    gLogFile.Reset();
    if (nMode == log_mode::kFile)
        gLogFile = platform::OpenForAppending(sTarget);
}

void LogEvent(const String& sText, int nType) {
    if (!gLogFile)
        return;
    String line(TypeName(nType));
    line += u": ";
    line += OnOneLine(sText);
    line += u"\r\n";
    platform::Append(gLogFile, ToUtf8(line));
}

void LogInformation(const String& sText) {
    if (gLogging)
        LogEvent(sText, log_event::kInformation);
}

void LogError(const String& sText) {
    if (gLogging)
        LogEvent(sText, log_event::kError);
}

} // namespace kestrelmoor
