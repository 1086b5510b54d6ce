#include "forms/password/frmPass_design.h"

namespace kestrelmoor {

namespace {

constexpr ControlDesign PasswordBox(const char16_t* name, int tab_index, Place place) {
    return {.name = name,
            .kind = ControlKind::TextBox,
            .tab_index = tab_index,
            .place = place,
            .password_char = u"*",
            .ime_off = true,
            .fore_colour = system_colour::kWindowText,
            .back_colour = system_colour::kWindow};
}

constexpr ControlDesign TextLabel(const char16_t* name, int tab_index, int text_number, Place place) {
    return {.name = name,
            .kind = ControlKind::Label,
            .tab_index = tab_index,
            .link_timeout = text_number,
            .place = place};
}

// Places in twips: left, top, width, height. The number of a label's text stands in its link_timeout, since
// its tag holds the text itself.
constexpr ControlDesign kControls[] = {
    TextLabel(u"lblUser", 0, 304, {120, 165, 2055, 255}),
    {.name = u"txtUser",
     .kind = ControlKind::TextBox,
     .tab_index = 1,
     .place = {2160, 120, 2895, 285},
     .enabled = false,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    {.name = u"txtStatus",
     .kind = ControlKind::TextBox,
     .tab_index = 2,
     .place = {120, 600, 4935, 2055},
     .visible = false,
     .locked = true,
     .multi_line = true,
     .scroll_bars = ScrollBars::Vertical,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    {.name = u"chkSame",
     .kind = ControlKind::CheckBox,
     .tab_index = 3,
     .tag = u"313",
     .place = {120, 2760, 4935, 255},
     .value = 1},
    TextLabel(u"lblOldPass", 4, 301, {120, 3165, 4935, 255}),
    PasswordBox(u"txtOldPass", 5, {2160, 3120, 2895, 285}),
    {.name = u"lstOldPass",
     .kind = ControlKind::ListBox,
     .tab_index = 6,
     .place = {120, 3480, 4935, 840},
     .sorted = true,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    TextLabel(u"lblNewPass", 7, 314, {120, 4485, 2055, 255}),
    PasswordBox(u"txtNewPass", 8, {2160, 4440, 2895, 285}),
    TextLabel(u"lblConfirm", 9, 315, {120, 4845, 2055, 255}),
    PasswordBox(u"txtConfirm", 10, {2160, 4800, 2895, 285}),
    {.name = u"lblWait",
     .kind = ControlKind::Label,
     .tab_index = 11,
     .place = {120, 5400, 3495, 255},
     .visible = false},
    {.name = u"cmdSettings",
     .kind = ControlKind::CommandButton,
     .tab_index = 12,
     .tag = u"305",
     .place = {120, 5280, 1395, 375}},
    {.name = u"cmdOK",
     .kind = ControlKind::CommandButton,
     .tab_index = 13,
     .tag = u"1001",
     .place = {2160, 5280, 1395, 375},
     .enabled = false,
     .is_default = true},
    {.name = u"cmdCancel",
     .kind = ControlKind::CommandButton,
     .tab_index = 14,
     .tag = u"1002",
     .place = {3660, 5280, 1395, 375},
     .is_cancel = true},
};

} // namespace

const FormDesign kfrmPassDesign = {
    .name = u"frmPass",
    .tag = u"303",
    .client_width = 5175,
    .client_height = 5775,
    .key_preview = true,
    .shown_in_task_bar = true,
    .centred_on_owner = false,
    .controls = kControls,
};

} // namespace kestrelmoor
