#pragma once

#include "platform/practice/world/shell_tree.h"

#include <deque>
#include <functional>
#include <optional>
#include <utility>

namespace kestrelmoor::practice {

/// The system's dialog to choose a folder, as the person at the screen sees and uses it.
class BrowseDialog {
  public:
    /// Shows `root` and what stands below it; without one the desktop, with the network folder on it.
    BrowseDialog(const ShellTree& tree, std::optional<ItemPath> root) : mTree(tree), mRoot(std::move(root)) {}

    // What can be seen.
    const String& Prompt() const { return mPrompt; }
    bool OkEnabled() const { return mOkEnabled; }
    const ItemPath& Selection() const { return mSelection; }
    const String& StartPath() const { return mStartPath; } ///< that the program asked for, empty: none
    bool IsOpen() const { return mOpen; }
    bool IsAccepted() const { return mAccepted; }
    const ShellTree& Tree() const { return mTree; }
    const std::optional<ItemPath>& Root() const { return mRoot; } ///< none: the desktop
    std::vector<ItemPath> Rows() const; ///< of the network, each ahead of what stands in it

    // What the person does. False: there is no such item, or OK is disabled.
    bool Select(const ItemPath& path);
    bool Select(const StringList& names); ///< the names on the way down from the root
    bool PressOk();
    void Cancel() { mOpen = false; }

    // What the program does.
    void SetPrompt(String text) { mPrompt = std::move(text); }
    void EnableOk(bool enabled) { mOkEnabled = enabled; }
    void SetStartPath(String path) { mStartPath = std::move(path); }

    /// Told of each selection.
    std::function<void()> SelectionChanged;

  private:
    ItemPath Top() const { return mRoot.value_or(ItemPath()); }

    const ShellTree& mTree;
    std::optional<ItemPath> mRoot;
    String mPrompt;
    String mStartPath;
    ItemPath mSelection;
    bool mOkEnabled = false;
    bool mOpen = true;
    bool mAccepted = false;
};

/// Where these dialogs come up.
class BrowseDesk {
  public:
    bool shows_prompt = true; ///< false: the dialog has no control for the prompt

    /// What the person does in a coming dialog. It is cancelled when it is still open behind that.
    void Next(std::function<void(BrowseDialog&)> person) { mPersons.push_back(std::move(person)); }

    /// The dialog that is in front; null: none.
    BrowseDialog* Current() const { return mCurrent; }

    /// Has `dialog` in front until it has been closed: by the next person, else by what `act` leads to. It is
    /// cancelled when `act` is false: nothing will come any more.
    void Run(BrowseDialog& dialog, const std::function<bool()>& act);

    /// Told of each dialog when it comes up.
    std::function<void(const BrowseDialog&)> Shown;

  private:
    class InFront;

    std::deque<std::function<void(BrowseDialog&)>> mPersons;
    BrowseDialog* mCurrent = nullptr;
};

} // namespace kestrelmoor::practice
