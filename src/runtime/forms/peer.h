#pragma once

#include "runtime/forms/geometry.h"
#include "runtime/text.h"

#include <cstdint>
#include <memory>

namespace kestrelmoor {

class Form;
class Control;

/// What of a form or control has changed and is to be shown anew. The peer reads the value from the model.
enum class Property {
    Place,
    Visible,
    Enabled,
    Caption,
    Text,
    Selection,
    PasswordChar,
    BorderStyle,
    Font,
    Colours,
    Value,
    ListIndex,
    TabStops,
    Default,
    Interval,
    MousePointer,
    ToolTip,
};

/// A window's own identifier on the platform, 0 for none.
using WindowHandle = std::uintptr_t;

/// Shows one control. The model owns the truth; a peer only shows it and reports what the user does through
/// the model's input operations. A peer never raises an event in answer to a call made here. Unloading the
/// form ends its peers at once, the last control's first and the form's at the end, also from within a
/// report: a peer touches nothing of its own after one unless it knows that it is still there.
class ControlPeer {
  public:
    virtual ~ControlPeer() = default;

    virtual void Show(Property what) = 0;

    /// Rows of lists, after the model's own change. `RowReplaced` keeps the selection in silence.
    virtual void RowInserted(int /*row*/) {}
    virtual void RowRemoved(int /*row*/) {}
    virtual void RowReplaced(int /*row*/) {}
    virtual void RowsCleared() {}

    /// Lists with check boxes: a row's mark has been turned.
    virtual void RowMarked(int /*row*/) {}

    /// Text boxes: the selection is the window's own. False where the window has none to tell.
    virtual bool ReadSelection(int& /*start*/, int& /*length*/) { return false; }

    /// Text boxes: puts `text` in place of the selection, which stands as last shown or read, and scrolls
    /// the end of it into view. Called after the model's own change.
    virtual void ReplaceSelection(StringView /*text*/) {}

    /// Takes the keyboard. The echo of this is not reported back.
    virtual void TakeFocus() {}

    /// None where nothing of the platform's stands for the control.
    virtual WindowHandle Window() const { return 0; }

    /// Labels: the size that the whole caption takes in the control's font. False where nothing shows it.
    virtual bool MeasureCaption(Twips& /*width*/, Twips& /*height*/) const { return false; }

    /// Picture boxes, while they are asked to paint: fills it with the background; what is drawn into.
    virtual void Clear() {}
    virtual std::uintptr_t DeviceContext() const { return 0; }
};

/// Shows one form and makes the peers of its controls.
class FormPeer {
  public:
    virtual ~FormPeer() = default;

    /// Controls get their peers in the order of the design, a frame ahead of what stands in it.
    virtual std::unique_ptr<ControlPeer> MakeControlPeer(Control& control) = 0;

    virtual void Show(Property what) = 0;

    /// Takes the keyboard to the form itself, with no control in focus.
    virtual void TakeFocus() = 0;

    /// What the frame and the title bar add to the client size today.
    virtual Twips FrameWidth() const = 0;
    virtual Twips FrameHeight() const = 0;

    virtual WindowHandle Window() const = 0;
};

/// What the model asks of the desktop that it is shown on. One per process, given to the application at the
/// start; without one the model is complete by itself.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// A peer for a form that is being loaded, hidden until the form shows. May be null.
    virtual std::unique_ptr<FormPeer> MakeFormPeer(Form& form) = 0;

    /// Handles the events that are pending and returns.
    virtual void PumpEvents() = 0;

    /// Waits for an event and handles it. False: no event will ever come again.
    virtual bool WaitForEvent() = 0;

    /// Order of two rows in a sorted list: below 0, 0, above 0.
    virtual int CompareRows(StringView a, StringView b) const = 0;

    virtual Twips TwipsPerPixelX() const = 0;
    virtual Twips TwipsPerPixelY() const = 0;
};

} // namespace kestrelmoor
