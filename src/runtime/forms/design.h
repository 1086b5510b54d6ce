#pragma once

#include "runtime/forms/geometry.h"

#include <memory>
#include <span>

namespace kestrelmoor {

class Control;
class Form;
struct ControlDesign;

enum class ControlKind {
    Label,
    TextBox,
    CommandButton,
    CheckBox,
    ListBox,
    ComboBox, ///< a drop-down list: one of its rows, no free text
    Frame,
    Timer,
    PictureBox,
    Line,
    Shape,
    UserControl, ///< made of controls of its own
};

/// Makes a control of a class of its own; see MakeControl in control.h.
using ControlMaker = std::unique_ptr<Control> (*)(Form& form, const ControlDesign& design);

namespace mouse_pointer {
inline constexpr int kDefault = 0;
inline constexpr int kHourglass = 11;
inline constexpr int kCustom = 99; ///< the control's own
} // namespace mouse_pointer

enum class ListStyle { Plain, CheckBoxes };

enum class ScrollBars { None, Vertical };

/// One control as designed. A form's design is a table of these, in the order in which its controls are
/// walked. What is left out has the value that most controls have; the first two can't be left out.
struct ControlDesign { // NOLINT(cppcoreguidelines-pro-type-member-init): a forgotten one stops the compiler
    const char16_t* name;
    ControlKind kind;
    int tab_index = -1;                  ///< -1: not in the tab order (timers, lines, shapes)
    const char16_t* tag = u"";           ///< as a rule the number of the caption's text
    int link_timeout = 0;                ///< labels: a number of their own, the text number on some forms
    Place place{};                       ///< in the container; a line runs from corner to corner
    const char16_t* container = nullptr; ///< name of the frame that holds it; null: the form
    bool visible = true;
    bool enabled = true;
    const char16_t* text = u"";          ///< text boxes: the text; others with a caption: the caption
    const char16_t* password_char = u""; ///< text boxes: the mask, empty for none
    bool ime_off = false;                ///< text boxes: the input method stays off
    bool locked = false;                 ///< text boxes: can be read and selected, not typed in
    bool multi_line = false;
    ScrollBars scroll_bars = ScrollBars::None;
    bool border = true;  ///< text boxes, picture boxes: has a border
    int value = 0;       ///< check boxes: 1 checked
    bool sorted = false; ///< lists and drop-down lists
    ListStyle list_style = ListStyle::Plain;
    bool is_default = false;     ///< buttons: Enter clicks it
    bool is_cancel = false;      ///< buttons: Escape clicks it
    int interval = 0;            ///< timers: milliseconds
    bool auto_size = false;      ///< labels: as large as the text
    bool transparent = false;    ///< labels: what lies behind shows through
    ControlMaker make = nullptr; ///< user controls: makes the one; null: the kind says which class
    const char16_t* tool_tip = u"";
    int pointer = mouse_pointer::kDefault; ///< the mouse's, over the control
    int mouse_icon = 0;      ///< number of the program's own mouse pointer that kCustom shows; 0: none
    float font_size = 8.25F; ///< points
    bool bold = false;
    bool italic = false;
    Colour fore_colour = system_colour::kButtonText; ///< lines: the line's
    Colour back_colour = system_colour::kButtonFace; ///< shapes: what fills them
};

/// A form as designed: a fixed dialog without minimise and maximise boxes.
struct FormDesign {
    const char16_t* name;
    const char16_t* tag; ///< number of the caption's text
    Twips client_width;
    Twips client_height;
    bool key_preview; ///< the form sees every key before its controls do
    bool shown_in_task_bar;
    bool centred_on_owner; ///< false: centred on the screen
    std::span<const ControlDesign> controls;
};

} // namespace kestrelmoor
