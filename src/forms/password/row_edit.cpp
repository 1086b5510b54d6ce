#include "forms/password/frmPass.h"

#include "platform/window_messages.h"
#include "window_services/item_rect.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

// In the list mode txtOldPass is laid over the mask of the current row: it follows the row, and what was
// typed goes to the collection when it loses the focus. The passwords never stand in the list.

void frmPass::lstOldPass_GotFocus() {
    BeginRowEdit();
}

void frmPass::lstOldPass_Click() {
    BeginRowEdit();
}

void frmPass::lstOldPass_Scroll() {
    if (ActiveControl() == &lstOldPass)
        BeginRowEdit();
    else if (lstOldPass.CanTakeFocus())
        lstOldPass.SetFocus(); // commits the edit whose row moves away, and begins anew
}

void frmPass::BeginRowEdit() {
    if (!txtOldPass.Enabled() || chkSame.Value() != 0 || lstOldPass.ListCount() == 0)
        return;
    if (lstOldPass.ListIndex() < 0)
        lstOldPass.SetListIndex(0);
    // On its way to the box the focus has no edit to commit yet: the list leaves the tab order with the edit.
    if (ActiveControl() == &txtOldPass && !lstOldPass.TabStop() && lstOldPass.ListIndex() != mEditIndex) {
        lstOldPass.SetFocus(); // commits to the row that the edit belongs to, and begins anew
        return;
    }
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    if (!GetItemRect(lstOldPass, *this, lstOldPass.ListIndex(), left, top, width, height, 0))
        return;
    txtOldPass.Move(txtOldPass.Left(), top, left + width - txtOldPass.Left(), height);
    txtOldPass.SetVisible(true);
    txtOldPass.SetFocus();
}

void frmPass::txtOldPass_GotFocus() {
    if (chkSame.Value() == 0) {
        lstOldPass.SetTabStop(false); // so that Shift+Tab doesn't fall into the list and back
        mEditIndex = static_cast<std::int16_t>(lstOldPass.ListIndex());
        const String password = mEditIndex >= 0 ? mOldPasswords.Of(TargetName(mEditIndex)) : String();
        const auto length = static_cast<std::int32_t>(password.size());
        // Ahead of the text, whose change asks for it: behind a switch of modes there is one to be emptied.
        mOtherPassLength = StoredPassLength() - length;
        txtOldPass.SetText(u"");
        txtOldPass.SetText(password);
        txtOldPass.SetSelLength(length);
    }
    ApplyTextBoxColors(txtOldPass, *this);
}

void frmPass::txtOldPass_LostFocus() {
    if (chkSame.Value() == 0) {
        txtOldPass.SetVisible(false);
        lstOldPass.SetTabStop(true);
        // The list may have been emptied under the box.
        if (mEditIndex >= 0 && mEditIndex < lstOldPass.ListCount()) {
            mOldPasswords.Set(TargetName(mEditIndex), txtOldPass.Text());
            SetTargetMask(mEditIndex, static_cast<std::int32_t>(txtOldPass.Text().size()));
        }
        txtOldPass.SetText(u"");
    }
    ApplyTextBoxColors(txtOldPass, *this);
}

/// Keys that move the selection do so as if the list had the focus; the box follows.
void frmPass::txtOldPass_KeyDown(int& KeyCode) {
    if (chkSame.Value() != 0)
        return;
    switch (KeyCode) {
    case key::kUp:
    case key::kDown:
    case key::kPageUp:
    case key::kPageDown:
        platform::SendMessageW(lstOldPass.Peer() != nullptr ? lstOldPass.Peer()->Window() : 0,
                               platform::window_message::kKeyDown, static_cast<std::uintptr_t>(KeyCode), 1);
        lstOldPass.SetFocus();
        KeyCode = 0;
        break;
    default:
        break;
    }
}

} // namespace kestrelmoor
