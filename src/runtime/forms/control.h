#pragma once

#include "runtime/forms/design.h"
#include "runtime/forms/font.h"
#include "runtime/forms/peer.h"
#include "runtime/forms/picture.h"

#include <functional>
#include <memory>

namespace kestrelmoor {

/// A handler of an event. Unset: nobody listens.
template <class... Arguments>
using Handler = std::function<void(Arguments...)>;

/// One control of a form. Setting a property that differs raises its event at once, from here and not from
/// the window's echo, and has the peer show it.
class Control {
  public:
    Control(Form& form, const ControlDesign& design);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const String& Name() const { return mName; }
    ControlKind Kind() const { return mKind; }
    Form& Parent() const { return mForm; }
    Control* Container() const { return mContainer; } ///< frame or user control around it; null: the form

    /// The user control that it is a constituent of; null: it is the form's own.
    Control* Host() const;
    int TabIndex() const { return mTabIndex; }

    Twips Left() const { return mPlace.left; }
    Twips Top() const { return mPlace.top; }
    Twips Width() const { return mPlace.width; }
    Twips Height() const { return mPlace.height; }
    void SetLeft(Twips left);
    void SetTop(Twips top);
    void SetWidth(Twips width);
    void SetHeight(Twips height);
    void Move(Twips left, Twips top, Twips width, Twips height);

    /// The control's own state; a visible control in a hidden frame is not to be seen.
    bool Visible() const { return mVisible; }
    void SetVisible(bool on);

    /// All four at once. Raises 438 for lines, which run from point to point, and for timers.
    Place Bounds() const;

    /// All but lines and shapes; setting it on one of these raises 438.
    bool HasEnabled() const;
    bool Enabled() const { return mEnabled; }
    void SetEnabled(bool on);

    /// Whether Tab stops here; a control with this off still takes the focus by mouse or by call.
    bool TabStop() const { return mTabStop; }
    void SetTabStop(bool on) { mTabStop = on; }

    const String& Tag() const { return mTag; }
    void SetTag(const String& tag) { mTag = tag; }

    /// Buttons, check boxes, frames and labels have a caption; setting one elsewhere raises 438.
    bool HasCaption() const;
    const String& Caption() const { return mCaption; }
    void SetCaption(const String& caption);

    const String& ToolTipText() const { return mToolTipText; }
    void SetToolTipText(const String& text);

    /// The pointer that the mouse has over the control; a number of mouse_pointer. kCustom: `MouseIcon`, or
    /// while there is none the program's own pointer of the number `DesignMouseIcon`.
    int MousePointer() const { return mMousePointer; }
    int DesignMouseIcon() const { return mDesignMouseIcon; }
    const SharedPicture& MouseIcon() const { return mMouseIcon; }
    void SetMouseIcon(SharedPicture icon);

    bool HasFont() const; ///< all but timers, lines and shapes
    class Font& Font() {
        return mFont;
    }
    const class Font& Font() const { return mFont; }

    Colour ForeColor() const { return mForeColor; }
    Colour BackColor() const { return mBackColor; }
    void SetForeColor(Colour colour);
    void SetBackColor(Colour colour);

    /// Moves the focus here, in a user control to the first of its constituents that can take it. Nothing
    /// happens when it is here already. Raises 5 when the control can't take it: hidden, disabled, of a kind
    /// without focus, or on a form that is not shown.
    void SetFocus();

    /// It and every frame that holds it is visible and enabled.
    bool IsUsable() const;

    /// Of a kind that takes the focus, usable, and on a form that is shown.
    virtual bool CanTakeFocus() const;

    /// Tab stops here: it and its user control have that on, and it can take the focus.
    bool IsStop() const;

    ControlPeer* Peer() const { return mPeer.get(); }
    void SetPeer(std::unique_ptr<ControlPeer> peer) { mPeer = std::move(peer); }

    // What the desktop reports of the mouse: button (1 left, 2 right, 4 middle; 0 none), shift state, place
    // in the control in twips. Nothing is raised where the control is not usable.
    void MouseMoved(int button, int shift, float x, float y);
    void MousePressed(int button, int shift, float x, float y);

    Handler<> Click;
    Handler<> GotFocus;
    Handler<> LostFocus;
    Handler<bool&> Validate;    ///< set the argument and the focus stays
    Handler<int&, int> KeyDown; ///< key code (0 on return: swallowed), shift state (1 shift, 2 ctrl, 4 alt)
    Handler<int&> KeyPress;     ///< character (0 on return: dropped)
    Handler<int, int, float, float> MouseMove; ///< button, shift, x, y in twips
    Handler<int, int, float, float> MouseDown;

  protected:
    /// Has the peer show `what`; nothing without a peer.
    void Show(Property what);

    /// Runs a handler as an event of the form: the form stays in memory until it has returned. Events of a
    /// form that is unloaded are not raised.
    template <class... Arguments, class... Given>
    void Raise(const Handler<Arguments...>& handler, Given&&... given);

    /// The control that takes the focus when this one is to have it; null: none can.
    virtual Control* FocusTarget();

    /// Its caption or font has changed.
    virtual void Reworded() {}

    /// It stands elsewhere now; it was of the size of `before`.
    virtual void Moved(const Place& /*before*/) {}

  private:
    friend class Form;
    friend class UserControl;

    Form& mForm;
    Control* mContainer = nullptr;
    String mName;
    ControlKind mKind;
    int mTabIndex;
    Place mPlace;
    bool mVisible;
    bool mEnabled;
    bool mTabStop = true;
    String mTag;
    String mCaption;
    class Font mFont;
    Colour mForeColor;
    Colour mBackColor;
    String mToolTipText;
    int mMousePointer;
    int mDesignMouseIcon;
    SharedPicture mMouseIcon;
    std::unique_ptr<ControlPeer> mPeer;
};

/// What a row of a design table names as the maker of its control.
template <class Kind>
std::unique_ptr<Control> MakeControl(Form& form, const ControlDesign& design) {
    return std::make_unique<Kind>(form, design);
}

} // namespace kestrelmoor
