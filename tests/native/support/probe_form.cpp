#include "tests/native/support/probe_form.h"

namespace kestrelmoor::tests {

namespace {

constexpr ControlDesign kControls[] = {
    {.name = u"lblText",
     .kind = ControlKind::Label,
     .tab_index = 0,
     .tag = u"304",
     .link_timeout = 17,
     .text = u"&Text"},
    {.name = u"txtText", .kind = ControlKind::TextBox, .tab_index = 1, .text = u"abc", .password_char = u"*"},
    {.name = u"fraGroup", .kind = ControlKind::Frame, .tab_index = 2, .text = u"Group"},
    {.name = u"chkMark", .kind = ControlKind::CheckBox, .tab_index = 3, .container = u"fraGroup", .value = 1},
    {.name = u"lstRows", .kind = ControlKind::ListBox, .tab_index = 4, .sorted = true},
    {.name = u"lstMarks", .kind = ControlKind::ListBox, .tab_index = 5, .list_style = ListStyle::CheckBoxes},
    {.name = u"cboRows", .kind = ControlKind::ComboBox, .tab_index = 6},
    {.name = u"cmdOK", .kind = ControlKind::CommandButton, .tab_index = 7, .text = u"OK", .is_default = true},
    {.name = u"tmrTick", .kind = ControlKind::Timer, .enabled = false, .interval = 100},
    {.name = u"picIcon", .kind = ControlKind::PictureBox, .tab_index = 8},
    {.name = u"linRule", .kind = ControlKind::Line},
    {.name = u"shpBand", .kind = ControlKind::Shape},
};

FormDesign DesignNamed(const char16_t* name) {
    return {.name = name,
            .tag = u"303",
            .client_width = 5175,
            .client_height = 5775,
            .key_preview = false,
            .shown_in_task_bar = true,
            .centred_on_owner = false,
            .controls = kControls};
}

} // namespace

ProbeForm::ProbeForm(const char16_t* name) : Form(DesignNamed(name)) {}

} // namespace kestrelmoor::tests
