#include "forms/about/open_help.h"

#include "platform/shell_execution.h"
#include "shell/program_state.h"

namespace kestrelmoor {

void (*OpenHelp)(WindowHandle hWnd) = [](WindowHandle hWnd) {
    if (!gHelpFile.empty())
        platform::ShellExecuteW(hWnd, u"open", gHelpFile, platform::kShowNormal);
};

} // namespace kestrelmoor
