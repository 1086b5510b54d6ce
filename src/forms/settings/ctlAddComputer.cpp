#include "forms/settings/ctlAddComputer.h"

#include "forms/settings/ctlAddComputer_design.h"
#include "forms/settings/modBrowse.h"
#include "runtime/forms/form.h"
#include "shell/messages.h"
#include "window_services/theme_colours.h"

#include <algorithm>

namespace kestrelmoor {

ctlAddComputer::ctlAddComputer(Form& form, const ControlDesign& design)
    : UserControl(form, design, kctlAddComputerDesign), txtComputer(Get<TextBox>(u"txtComputer")),
      cmdBrowse(Get<CommandButton>(u"cmdBrowse")), oFont(Font()) {
    ConnectHandlers();
}

void ctlAddComputer::ConnectHandlers() {
    oFont.FontChanged = [this] { oFont_FontChanged(); };
    Resize = [this] { UserControl_Resize(); };
    Hide = [this] { UserControl_Hide(); };
    txtComputer.Change = [this] { txtComputer_Change(); };
    cmdBrowse.Click = [this] { cmdBrowse_Click(); };
}

void ctlAddComputer::SetComputer(const String& sComputer) {
    txtComputer.SetText(sComputer);
}

void ctlAddComputer::SetFont(const class Font& NewFont) {
    oFont.Assign(NewFont);
    oFont_FontChanged();
}

void ctlAddComputer::oFont_FontChanged() {
    txtComputer.Font().Assign(oFont);
    cmdBrowse.Font().Assign(oFont);
}

void ctlAddComputer::UserControl_Resize() {
    const Twips left = std::max(Width() - cmdBrowse.Width(), Twips{0});
    cmdBrowse.Move(left, cmdBrowse.Top(), cmdBrowse.Width(), Height());
    txtComputer.Move(txtComputer.Left(), txtComputer.Top(), left, Height());
}

void ctlAddComputer::UserControl_Hide() {
    mChanged = false;
}

void ctlAddComputer::txtComputer_Change() {
    if (!Visible() || mChanged)
        return;
    mChanged = true;
    Raise(Changed);
}

void ctlAddComputer::cmdBrowse_Click() {
    const String computer = BrowseForComputer(Peer() != nullptr ? Peer()->Window() : 0, LoadMessage(420, {}));
    if (!computer.empty() && !Parent().IsUnloaded())
        txtComputer.SetText(computer);
}

void ctlAddComputer::SetThemedColors(Colour ClrBtnFace, Colour /*ClrBtnText*/, Colour ClrWndBack,
                                     Colour ClrWndText) {
    SetBackColor(ClrWndBack);
    SetForeColor(ClrWndText);
    txtComputer.SetForeColor(ClrWndText);
    txtComputer.SetBackColor(MixColors(ClrWndBack, kFocusTint));
    cmdBrowse.SetBackColor(ClrBtnFace);
}

} // namespace kestrelmoor
