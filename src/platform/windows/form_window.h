#pragma once

#include "platform/windows/gui_handles.h"
#include "platform/windows/tool_tips.h"
#include "runtime/forms/peer.h"

#include <windows.h>

namespace kestrelmoor::platform {

/// The window of one form: a fixed dialog whose class is the form's name.
class FormWindow : public FormPeer {
  public:
    explicit FormWindow(Form& form);
    ~FormWindow() override;
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// The form whose window or whose descendant this is; null: none of ours.
    static FormWindow* Holding(HWND window);

    Form& Model() const { return mForm; }
    HWND Handle() const { return mWindow.Get(); }

    std::unique_ptr<ControlPeer> MakeControlPeer(Control& control) override;
    void Show(Property what) override;
    void TakeFocus() override;
    Twips FrameWidth() const override;
    Twips FrameHeight() const override;
    WindowHandle Window() const override { return reinterpret_cast<WindowHandle>(Handle()); }

    /// Before a message reaches its window: keys, characters and presses of the mouse go to the model. True:
    /// used up. This object may be gone afterwards.
    bool Intercept(MSG& message);

    /// A control has gained or lost the keyboard. What that means is asked when the message is done, since
    /// the system stands in the midst of the change now.
    void NoteFocusChange();

    /// Acts on such a change. This object may be gone afterwards.
    void Settle();

    /// After a control has come, gone or moved: labels end where boxes begin.
    void PlaceLabels() const;

    ToolTips& Tips() { return mTips; }

    /// The keyboard goes to that window of the form, now or when the form next comes to front. No report.
    void GiveFocus(HWND window);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter);
    void Command(HWND window, int code);
    bool Colours(WPARAM context, LPARAM window, UINT question, LRESULT& brush) const;
    bool FillBackground(HDC context) const;
    static bool DrawItem(const DRAWITEMSTRUCT& item);
    bool ShowPointer() const;
    void PointerChanged() const;
    void Activated();
    bool KeyDown(HWND window, WPARAM key_code);
    bool Character(WPARAM& message_character);
    bool MayPress(HWND window);

    HWND FocusWindow() const;
    void ShowSize() const;
    void ShowVisible();
    void Hide();
    void PlaceOnScreen() const;
    RECT Frame() const;

    Form& mForm;
    OwnedWindow mWindow;
    ToolTips mTips;
    bool mPlaced = false;
    bool mGivingFocus = false;
    bool mFocusChanged = false;
};

} // namespace kestrelmoor::platform
