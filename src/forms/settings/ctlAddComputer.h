#pragma once

#include "runtime/forms/controls.h"
#include "runtime/forms/user_control.h"
#include "window_services/IThemedControl.h"

namespace kestrelmoor {

/// An entry for the name of a computer or domain: a text box with a button that lets the user choose one in
/// the network. It knows nothing of the list that it is laid over.
class ctlAddComputer : public UserControl, public IThemedControl {
  public:
    ctlAddComputer(Form& form, const ControlDesign& design);

    /// Two backslashes and the name of a computer, or the plain name of a domain.
    const String& Computer() const { return txtComputer.Text(); }
    void SetComputer(const String& sComputer);

    /// Takes over another font's values, for the box and the button. A change of the font that `Font` gives
    /// reaches them as well.
    void SetFont(const class Font& NewFont);

    /// The box is tinted all the time; the button's text keeps its colour.
    void SetThemedColors(Colour ClrBtnFace, Colour ClrBtnText, Colour ClrWndBack, Colour ClrWndText) override;

    /// The text has changed while the control was visible; once between two hidings at most.
    Handler<> Changed;

  private:
    void ConnectHandlers();
    void oFont_FontChanged();
    void UserControl_Resize();
    void UserControl_Hide();
    void txtComputer_Change();
    void cmdBrowse_Click();

    TextBox& txtComputer;
    CommandButton& cmdBrowse;
    class Font& oFont;

    bool mChanged = false; ///< Changed was raised since the control was last hidden
};

} // namespace kestrelmoor
