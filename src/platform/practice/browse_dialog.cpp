#include "platform/practice/shell_memory.h"
#include "platform/practice/system_windows.h"
#include "platform/practice/world/world.h"
#include "platform/shell_namespace.h"

#include <optional>

namespace kestrelmoor::platform {

namespace {

using practice::BrowseDialog;
using practice::SystemWindow;
using practice::SystemWindows;
using practice::TheWorld;

constexpr std::uint8_t kDesktop[2] = {}; ///< its list: no item

/// The windows of the dialog: itself, and in it a picture's frame without a text, a group that holds the
/// prompt, the tree and the buttons.
class DialogWindows {
  public:
    DialogWindows(BrowseDialog& dialog, const char16_t* title) : mDialog(dialog) {
        SystemWindows& windows = SystemWindows::Current();
        mWindow = windows.Add({0, u"#32770", u"Browse for Computer",
                               [this](auto message, auto parameter) { Receive(message, parameter); }});
        windows.Add({mWindow, u"Static", {}, {}});
        if (TheWorld().browser.shows_prompt)
            mPrompt = windows.Add({mWindow, u"Static", title ? title : String(), {}});
        windows.Add({mWindow, u"SysTreeView32", {}, {}});
        windows.Add({mWindow, u"Button", u"OK", {}});
        windows.Add({mWindow, u"Button", u"Cancel", {}});
    }
    ~DialogWindows() { SystemWindows::Current().Remove(mWindow); }
    DialogWindows(const DialogWindows&) = delete;
    DialogWindows& operator=(const DialogWindows&) = delete;

    WindowHandle Window() const { return mWindow; }

    /// What the prompt's control shows.
    void ShowPrompt() const {
        if (const SystemWindow* const prompt = SystemWindows::Current().Find(mPrompt))
            mDialog.SetPrompt(prompt->text);
    }

  private:
    void Receive(std::uint32_t message, std::intptr_t parameter) {
        if (message == browse_message::kEnableOk)
            mDialog.EnableOk(parameter != 0);
        else if (message == browse_message::kSetSelectionW)
            mDialog.SetStartPath(reinterpret_cast<const char16_t*>(parameter));
    }

    BrowseDialog& mDialog;
    WindowHandle mWindow = 0;
    WindowHandle mPrompt = 0;
};

/// Has the dialog in front and tells the callback what happens in it.
void RunDialog(BrowseDialog& dialog, const BrowseInfo& info) {
    const DialogWindows windows(dialog, info.lpszTitle);
    const auto tell = [&](std::uint32_t message, std::intptr_t parameter) {
        if (info.lpfn)
            info.lpfn(windows.Window(), message, parameter, info.lParam);
        windows.ShowPrompt();
    };
    dialog.SelectionChanged = [&] {
        const practice::ItemBytes list = dialog.Tree().ListOf(dialog.Selection());
        tell(browse_message::kSelectionChanged, reinterpret_cast<std::intptr_t>(list.data()));
    };
    tell(browse_message::kInitialized, 0);
    if (dialog.Root())
        dialog.Select(*dialog.Root());
    else
        tell(browse_message::kSelectionChanged, reinterpret_cast<std::intptr_t>(kDesktop));
    TheWorld().browser.Run(dialog, [] { return TheWorld().actions.RunNext(); });
}

} // namespace

std::uint8_t* SHBrowseForFolderW(BrowseInfo& info) {
    practice::World& world = TheWorld();
    const String title = info.lpszTitle ? info.lpszTitle : u"";
    const std::size_t room = info.pszDisplayName ? info.pszDisplayName->size() : 0;
    if (world.calls.Enter("SHBrowseForFolderW", {info.hwndOwner, title, info.ulFlags, info.iImage, room}))
        return nullptr;
    BrowseDialog dialog(world.shell, world.shell.PathOf(info.pidlRoot));
    RunDialog(dialog, info);
    if (!dialog.IsAccepted())
        return nullptr;
    const String name = world.shell.Find(dialog.Selection())->name + u'\0';
    if (info.pszDisplayName)
        info.pszDisplayName->replace(0, name.size(), name);
    return practice::NewShellMemory(world.shell.ListOf(dialog.Selection()));
}

} // namespace kestrelmoor::platform
