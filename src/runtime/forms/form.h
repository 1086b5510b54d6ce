#pragma once

#include "runtime/forms/controls.h"

#include <memory>
#include <vector>

namespace kestrelmoor {

/// Key codes that the model routes by itself.
namespace key {
inline constexpr int kBack = 8;
inline constexpr int kTab = 9;
inline constexpr int kReturn = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kF1 = 112;
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;
} // namespace key

/// A window of the program. Its life: made (Form_Initialize), loaded (Form_Load), shown, unloaded
/// (Form_Unload), and gone when nobody holds it any more (Form_Terminate). Forms are made by
/// Application::Make. A form that is unloaded while a handler of its own runs stays in memory until that
/// handler has returned; the handler asks `IsUnloaded` after every pump of events. An unloaded form is not
/// loaded again: its successor is another instance.
class Form : public std::enable_shared_from_this<Form> {
  public:
    explicit Form(const FormDesign& design);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const String& Name() const { return mName; }
    const String& Tag() const { return mTag; }
    const String& Caption() const { return mCaption; }
    void SetCaption(const String& caption);
    class Font& Font() {
        return mFont;
    }
    const class Font& Font() const { return mFont; }
    int MousePointer() const { return mMousePointer; }
    void SetMousePointer(int pointer);
    Colour ForeColor() const { return mForeColor; }
    Colour BackColor() const { return mBackColor; }
    void SetForeColor(Colour colour);
    void SetBackColor(Colour colour);
    bool ShownInTaskBar() const { return mShownInTaskBar; }
    bool CentredOnOwner() const { return mCentredOnOwner; }

    /// The client area is the truth; the outer size adds what the frame takes today.
    Twips ClientWidth() const { return mClientWidth; }
    Twips ClientHeight() const { return mClientHeight; }
    Twips Width() const;
    Twips Height() const;
    void SetHeight(Twips outer_height);

    /// A length on the form in pixels, unrounded.
    float PixelsX(Twips length) const;
    float PixelsY(Twips length) const;

    /// All controls in the order of the design. A user control is one, whatever it is made of.
    const std::vector<std::unique_ptr<Control>>& Controls() const { return mControls; }

    /// The same and the constituents of user controls, each behind what holds it.
    const std::vector<Control*>& AllControls() const { return mAllControls; }

    /// The control of that name, which must be there (else 5) and of that kind.
    template <class Kind>
    Kind& Get(StringView name) {
        return dynamic_cast<Kind&>(Find(name));
    }
    Control& Find(StringView name) const;

    /// The buttons that Enter and Escape click; null: none.
    CommandButton* DefaultButton() const;
    CommandButton* CancelButton() const;

    /// The control with the focus, a user control as a whole; null: none, keys go to the form.
    Control* ActiveControl() const;

    /// The control that keys go to: the active one, or the constituent of it that has the focus.
    Control* FocusHolder() const { return mFocusHolder; }

    /// Runs Form_Load once, with the window made and hidden. A form whose Form_Load raises is taken away.
    void Load();
    /// Loads if need be and shows. Modal: returns when the form has been unloaded; the owner, which is the
    /// form in front where none is named, can't be used meanwhile. The first control in tab order takes the
    /// focus unless one has it.
    void Show(bool modal = false, Form* owner = nullptr);
    /// Runs Form_Unload and takes the window away: the form has no peers afterwards.
    void Unload();
    bool IsLoaded() const { return mState == State::Loaded; }
    bool IsUnloaded() const { return mState == State::Unloaded; }
    bool Visible() const { return mVisible; }
    Form* Owner() const { return mOwner.lock().get(); }

    /// Off while a modal form of ours stands in front.
    bool InputEnabled() const { return mModalInFront == 0; }

    WindowHandle Window() const { return mPeer ? mPeer->Window() : 0; }
    FormPeer* Peer() const { return mPeer.get(); }

    // What the desktop reports. Each returns true when the input is used up and must not reach the window, as
    // all input is while a modal form stands in front.

    /// A key goes down: preview, then tab order, default and cancel button, then the control's own handler.
    bool KeyDown(int nKeyCode, int nShift);
    /// A character arrives for the focused control; it may come back changed.
    bool KeyPress(char16_t& character);
    /// Alt with a letter: the control whose caption marks it, from the one behind the focus on.
    bool Accelerator(char16_t letter);
    /// Before a press of the mouse moves the focus to `target` (null: to nothing that takes it): asks
    /// Validate of the control that would lose it. False: the press is to be swallowed.
    bool MayMoveFocus(const Control* target);
    /// The window has moved the focus to `target` by itself, as a press of the mouse does; null: to none.
    /// Where the model can't follow it gives the focus back.
    void FocusMoved(Control* target);
    /// The close box, Alt+F4 or the system's own close.
    void CloseRequested();

  protected:
    virtual void Form_Initialize() {}
    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    virtual void Form_Terminate() {}
    /// A key before its control sees it (key preview); set `KeyCode` to 0 to swallow it.
    virtual void Form_KeyDown(int& KeyCode, int Shift);

  private:
    friend class Application;
    friend class Control;
    friend class CommandButton;

    enum class State { Made, Loaded, Unloaded };

    void MakeControls(const FormDesign& design);
    void MakePeers();
    void TellSizes();
    void TellHidden(const Control* gone);
    CommandButton* FindButton(bool (CommandButton::*role)() const) const;
    void ShowProperty(Property what);
    void Appear();
    void Disappear();
    void EndPeers();
    void HoldOffOthers();
    void LetOthersOn();
    void SetModalInFront(int count);

    void ChangeFocus(Control* target, bool tell_window);
    void TellLeft();
    void TellEntered(Control& target);
    void TakeWindowFocus();
    void ShowDefaultLook(Control* before);
    void LeaveIfUnable();
    Control* NextStop(const Control* from, bool backward) const;
    bool MoveFocusByUser(Control& target);

    bool Route(int nKeyCode, int nShift);
    bool MoveByTab(bool backward);
    bool MoveByArrow(bool backward);
    bool PressReturn();
    bool PressEscape();
    void FollowAccelerator(Control& target);

    String mName;
    String mTag;
    String mCaption;
    class Font mFont;
    int mMousePointer = mouse_pointer::kDefault;
    Colour mForeColor = system_colour::kButtonText;
    Colour mBackColor = system_colour::kButtonFace;
    Twips mClientWidth;
    Twips mClientHeight;
    bool mKeyPreview;
    bool mShownInTaskBar;
    bool mCentredOnOwner;
    State mState = State::Made;
    bool mVisible = false;
    bool mUnloading = false;
    bool mModal = false;
    int mModalInFront = 0;
    std::vector<std::weak_ptr<Form>> mHeldOff;
    std::weak_ptr<Form> mOwner;
    std::vector<std::unique_ptr<Control>> mControls;
    std::vector<Control*> mAllControls;
    std::vector<Control*> mTabOrder; ///< what can take the focus by itself: no user control as a whole
    Control* mFocusHolder = nullptr;
    Control* mToldFocus = nullptr;
    Control* mToldHost = nullptr; ///< the user control that was told
    std::unique_ptr<FormPeer> mPeer;
};

/// Runs a handler as an event of the control's form.
template <class... Arguments, class... Given>
void Control::Raise(const Handler<Arguments...>& handler, Given&&... given) {
    if (!handler || mForm.IsUnloaded())
        return;
    const std::shared_ptr<Form> alive = mForm.weak_from_this().lock();
    const Handler<Arguments...> running = handler;
    running(std::forward<Given>(given)...);
}

} // namespace kestrelmoor
