#include "tests/form_model_shared/entry_form.h"

namespace kestrelmoor::tests {

namespace {

constexpr ControlDesign kConstituents[] = {
    {.name = u"cmdPick",
     .kind = ControlKind::CommandButton,
     .tab_index = 1,
     .place = {2400, 0, 600, 300},
     .text = u"P&ick"},
    {.name = u"txtEntry",
     .kind = ControlKind::TextBox,
     .tab_index = 0,
     .place = {0, 0, 2400, 300},
     .border = false},
};

constexpr ControlDesign kControls[] = {
    {.name = u"txtDays", .kind = ControlKind::TextBox, .tab_index = 0, .place = {120, 120, 1200, 285}},
    {.name = u"fraNames",
     .kind = ControlKind::Frame,
     .tab_index = 1,
     .place = {120, 480, 3720, 1920},
     .text = u"&Names"},
    {.name = u"lstNames",
     .kind = ControlKind::ListBox,
     .tab_index = 2,
     .place = {240, 240, 3015, 960},
     .container = u"fraNames",
     .sorted = true,
     .list_style = ListStyle::CheckBoxes},
    {.name = u"ucEntry",
     .kind = ControlKind::UserControl,
     .tab_index = 3,
     .place = {240, 1380, 3000, 300},
     .container = u"fraNames",
     .make = &MakeControl<Entry>},
    {.name = u"cbTongue",
     .kind = ControlKind::ComboBox,
     .tab_index = 4,
     .place = {120, 2520, 2400, 315},
     .sorted = true},
    {.name = u"cmdAdd",
     .kind = ControlKind::CommandButton,
     .tab_index = 5,
     .place = {120, 3000, 1155, 375},
     .text = u"&Add"},
    {.name = u"cmdOK",
     .kind = ControlKind::CommandButton,
     .tab_index = 6,
     .place = {1395, 3000, 1155, 375},
     .text = u"OK",
     .is_default = true},
    {.name = u"cmdCancel",
     .kind = ControlKind::CommandButton,
     .tab_index = 7,
     .place = {2670, 3000, 1155, 375},
     .text = u"Cancel",
     .is_cancel = true},
};

constexpr FormDesign kDesign = {.name = u"frmEntry",
                                .tag = u"",
                                .client_width = 3960,
                                .client_height = 3500,
                                .key_preview = false,
                                .shown_in_task_bar = false,
                                .centred_on_owner = true,
                                .controls = kControls};

} // namespace

Entry::Entry(Form& form, const ControlDesign& design) : UserControl(form, design, kConstituents) {}

EntryForm::EntryForm() : ListeningForm(kDesign) {}

} // namespace kestrelmoor::tests
