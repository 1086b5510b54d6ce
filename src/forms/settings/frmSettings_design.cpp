#include "forms/settings/frmSettings_design.h"

#include "forms/settings/ctlAddComputer.h"

namespace kestrelmoor {

namespace {

constexpr ControlDesign Button(const char16_t* name, int tab_index, const char16_t* tag, Place place) {
    return {
        .name = name, .kind = ControlKind::CommandButton, .tab_index = tab_index, .tag = tag, .place = place};
}

constexpr ControlDesign DisabledDefaultButton(const char16_t* name, int tab_index, const char16_t* tag,
                                              Place place) {
    ControlDesign design = Button(name, tab_index, tag, place);
    design.enabled = false;
    design.is_default = true;
    return design;
}

constexpr ControlDesign CancelButton(const char16_t* name, int tab_index, const char16_t* tag, Place place) {
    ControlDesign design = Button(name, tab_index, tag, place);
    design.is_cancel = true;
    return design;
}

constexpr ControlDesign CheckMark(const char16_t* name, int tab_index, const char16_t* tag, Place place,
                                  int value) {
    return {.name = name,
            .kind = ControlKind::CheckBox,
            .tab_index = tab_index,
            .tag = tag,
            .place = place,
            .value = value};
}

constexpr ControlDesign TextLabel(const char16_t* name, int tab_index, const char16_t* tag, Place place) {
    return {.name = name, .kind = ControlKind::Label, .tab_index = tab_index, .tag = tag, .place = place};
}

// Places in twips: left, top, width, height, inside the frame where there is one. The number of a text stands
// in the tag; a label's tag takes the text itself when the window loads.
constexpr ControlDesign kControls[] = {
    Button(u"cmdHelp", 13, u"1003", {120, 3360, 1395, 375}),
    {.name = u"cbLang",
     .kind = ControlKind::ComboBox,
     .tab_index = 10,
     .place = {1440, 2355, 3615, 315},
     .sorted = true,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    DisabledDefaultButton(u"cmdOK", 14, u"1001", {2160, 3360, 1395, 375}),
    CancelButton(u"cmdCancel", 15, u"1002", {3660, 3360, 1395, 375}),
    Button(u"cmdAbout", 12, u"413", {3660, 2820, 1395, 375}),
    CheckMark(u"chkLocalPass", 0, u"406", {120, 120, 4935, 255}, 1),
    Button(u"cmdAddServer", 4, u"408", {3660, 690, 1395, 375}),
    Button(u"cmdRemServer", 5, u"409", {3660, 1170, 1395, 375}),
    CheckMark(u"chkRemind", 6, u"410", {120, 1920, 1275, 255}, 1),
    {.name = u"txtRemind",
     .kind = ControlKind::TextBox,
     .tab_index = 7,
     .place = {1440, 1905, 375, 285},
     .text = u"14",
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    CheckMark(u"chkPermanent", 11, u"402", {120, 2880, 3435, 255}, 0),
    {.name = u"fraNetPwd",
     .kind = ControlKind::Frame,
     .tab_index = 1,
     .tag = u"407",
     .place = {120, 450, 3435, 1350}},
    {.name = u"lstServers",
     .kind = ControlKind::ListBox,
     .tab_index = 2,
     .place = {240, 240, 3015, 960},
     .container = u"fraNetPwd",
     .sorted = true,
     .list_style = ListStyle::CheckBoxes,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    {.name = u"ucAddComp",
     .kind = ControlKind::UserControl,
     .tab_index = 3,
     .place = {480, 240, 2655, 240},
     .container = u"fraNetPwd",
     .visible = false,
     .make = &MakeControl<ctlAddComputer>,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    TextLabel(u"lblRemind", 8, u"411", {1920, 1950, 3135, 255}),
    TextLabel(u"lblLang", 9, u"401", {120, 2415, 1275, 255}),
};

} // namespace

const FormDesign kfrmSettingsDesign = {
    .name = u"frmSettings",
    .tag = u"421",
    .client_width = 5175,
    .client_height = 3855,
    .key_preview = false,
    .shown_in_task_bar = false,
    .centred_on_owner = true,
    .controls = kControls,
};

} // namespace kestrelmoor
