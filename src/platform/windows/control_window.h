#pragma once

#include "platform/windows/form_window.h"
#include "runtime/forms/control.h"

namespace kestrelmoor::platform {

/// What of a window is settled when it is made. All else is shown from the model.
struct WindowKind {
    const wchar_t* window_class = nullptr;
    DWORD style = 0;
    DWORD extended_style = 0;
};

/// The window of one control: a real one of a class of the system, whose procedure is led through here. It
/// belongs to the form's window and goes with it; the model may let go of this object earlier.
class ControlWindow : public ControlPeer {
  public:
    ~ControlWindow() override;
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    /// The object behind a child window of one of our forms; null: none any more.
    static ControlWindow* Of(HWND window);

    Control& Model() const { return mControl; }
    HWND Handle() const { return mWindow; }

    void Show(Property what) override;
    void TakeFocus() override;
    WindowHandle Window() const override { return reinterpret_cast<WindowHandle>(mWindow); }

    /// Whether a code of WM_COMMAND tells what the user did; only such a one reaches `Notified`.
    virtual bool Reports(int code) const;
    virtual void Notified(int code);

    /// Whether a key belongs to the window just now and must pass the model by.
    virtual bool KeepsKey(WPARAM key) const;

    /// Answers the question for colours: sets those of the text, gives the background. Null: the system's.
    virtual HBRUSH Colours(HDC context, UINT question) const;

    /// A row of a list that is drawn here.
    virtual void Draw(const DRAWITEMSTRUCT& /*item*/) const {}

    virtual void ShowPlace();

  protected:
    ControlWindow(FormWindow& form, Control& control, const WindowKind& kind);

    /// One message; it must end in `Original`. This object may be gone when that returns.
    virtual LRESULT Process(UINT message, WPARAM wide, LPARAM parameter);
    LRESULT Original(UINT message, WPARAM wide, LPARAM parameter);

    LRESULT Send(UINT message, WPARAM wide = 0, LPARAM parameter = 0) const;
    LRESULT SendText(UINT message, WPARAM wide, const String& text) const;
    void Repaint() const;
    void PutAt(const RECT& place) const;

    /// Stands while the model has something shown: what the window reports meanwhile is an echo.
    class Quiet {
      public:
        explicit Quiet(ControlWindow& window) : mWindow(window) { ++mWindow.mQuiet; }
        ~Quiet() { --mWindow.mQuiet; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

      private:
        ControlWindow& mWindow;
    };
    bool IsQuiet() const { return mQuiet > 0; }

    virtual void ShowFont();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    bool ShowPointer() const;
    void ReportMouse(UINT message, WPARAM keys, LPARAM place);
    void PutInTabOrder() const;
    void Detach();

    FormWindow& mForm;
    Control& mControl;
    bool mIsStatic; ///< of the system's class for labels
    HWND mWindow = nullptr;
    WNDPROC mOriginal = nullptr;
    int mQuiet = 0;
};

} // namespace kestrelmoor::platform
