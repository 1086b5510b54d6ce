#include "forms/password/frmPass.h"

#include "platform/collation.h"
#include "platform/process.h"
#include "runtime/forms/application.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "shell/settings.h"

#include <cmath>
#include <functional>

namespace kestrelmoor {

namespace {

constexpr std::int32_t kMaskLengthOfNone = 8; ///< a mask never tells that a password is absent
constexpr double kPatience = 1.0;             ///< seconds that an open edit may hold up the list

std::size_t KeyOf(const String& sName) {
    return std::hash<String>{}(platform::FoldCase(sName));
}

} // namespace

void frmPass::LoadTargets() {
    lstOldPass.Clear();
    mTargetKeys.clear();
    for (std::int32_t i = 1; i <= gServerCount && !IsUnloaded(); ++i)
        if (GetBit(i - 1))
            AddTarget(gServers[i], false);
    // The leading blank sorts the local computer first and is its mark from here on.
    if (gSyncLocal && !IsUnloaded())
        AddTarget(u" " + LoadMessage(321, {}), false);
}

void frmPass::AddTarget(const String& sName, bool bAtTop) {
    if (FindTarget(sName) != -1)
        return;
    const bool focus_moved = EndEditInTime();
    if (IsUnloaded())
        return;
    lstOldPass.AddItem(sName, bAtTop ? 0 : -1);
    mTargetKeys.insert(KeyOf(TargetName(lstOldPass.NewIndex())));
    const String password = mOldPasswords.Of(sName);
    if (!password.empty())
        SetTargetMask(lstOldPass.NewIndex(), static_cast<std::int32_t>(password.size()));
    if (focus_moved && lstOldPass.CanTakeFocus())
        lstOldPass.SetFocus();
    chkSame.SetEnabled(lstOldPass.ListCount() >= 2);
}

void frmPass::RemoveTarget(const String& sName) {
    const int row = FindTarget(sName);
    if (row != -1) {
        const bool focus_moved = EndEditInTime();
        if (IsUnloaded())
            return;
        mTargetKeys.extract(KeyOf(TargetName(row)));
        lstOldPass.RemoveItem(row);
        if (focus_moved && lstOldPass.CanTakeFocus())
            lstOldPass.SetFocus();
    }
    chkSame.SetEnabled(lstOldPass.ListCount() >= 2);
    if (lstOldPass.ListCount() < 2)
        chkSame.SetValue(1);
}

/// The list must not change under an open in-place box: waits for the end of the edit, and ends it when that
/// takes too long. True: the focus was taken to the cancel button for that.
bool frmPass::EndEditInTime() {
    const double start = platform::Timer();
    bool focus_moved = false;
    while (!IsUnloaded() && chkSame.Value() == 0 && txtOldPass.Visible()) {
        Application::Current().DoEvents();
        if (IsUnloaded() || !cmdCancel.CanTakeFocus())
            break;
        if (std::fabs(platform::Timer() - start) > kPatience) {
            cmdCancel.SetFocus();
            focus_moved = true;
        }
    }
    return focus_moved;
}

int frmPass::FindTarget(const String& sName) const {
    if (!mTargetKeys.contains(KeyOf(sName)))
        return -1;
    for (int row = 0; row < lstOldPass.ListCount(); ++row)
        if (platform::CompareText(TargetName(row), sName) == 0)
            return row;
    return -1;
}

String frmPass::TargetName(int row) const {
    const String& text = lstOldPass.List(row);
    return text.substr(0, text.find(u'\t'));
}

void frmPass::SetTargetMask(int row, std::int32_t nLength) {
    if (nLength == 0)
        nLength = kMaskLengthOfNone;
    String text = TargetName(row) + u'\t';
    for (std::int32_t i = 0; i < nLength; ++i)
        text += gPasswordChar;
    lstOldPass.SetList(row, text);
    lstOldPass.SetItemData(row, nLength);
}

void frmPass::RefreshMasks() {
    for (TextBox* const box : {&txtOldPass, &txtNewPass, &txtConfirm})
        box->SetPasswordChar(gPasswordChar);
    for (int row = 0; row < lstOldPass.ListCount(); ++row)
        SetTargetMask(row, lstOldPass.ItemData(row));
}

std::int32_t frmPass::StoredPassLength() const {
    return mOldPasswords.TotalLength();
}

} // namespace kestrelmoor
