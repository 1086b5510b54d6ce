#include "tests/form_model_shared/recorded_form.h"

#include "runtime/forms/user_control.h"

#include <utility>

namespace kestrelmoor::tests {

namespace {

constexpr ControlDesign kControls[] = {
    {.name = u"lblFirst",
     .kind = ControlKind::Label,
     .tab_index = 0,
     .place = {120, 120, 1200, 255},
     .text = u"&First"},
    {.name = u"txtFirst", .kind = ControlKind::TextBox, .tab_index = 1, .place = {1440, 120, 2400, 285}},
    {.name = u"lblSecond",
     .kind = ControlKind::Label,
     .tab_index = 2,
     .place = {120, 480, 1200, 255},
     .text = u"&Second"},
    {.name = u"txtSecond", .kind = ControlKind::TextBox, .tab_index = 3, .place = {1440, 480, 2400, 285}},
    {.name = u"chkMark",
     .kind = ControlKind::CheckBox,
     .tab_index = 4,
     .place = {120, 840, 2400, 255},
     .text = u"&Mark"},
    {.name = u"fraGroup",
     .kind = ControlKind::Frame,
     .tab_index = 5,
     .place = {120, 1200, 3720, 720},
     .text = u"Group"},
    {.name = u"txtInside",
     .kind = ControlKind::TextBox,
     .tab_index = 6,
     .place = {120, 300, 3480, 285},
     .container = u"fraGroup"},
    {.name = u"lstRows",
     .kind = ControlKind::ListBox,
     .tab_index = 7,
     .place = {120, 2040, 3720, 1260},
     .sorted = true},
    {.name = u"cmdOK",
     .kind = ControlKind::CommandButton,
     .tab_index = 8,
     .place = {120, 3420, 1155, 375},
     .text = u"&OK",
     .is_default = true},
    {.name = u"cmdCancel",
     .kind = ControlKind::CommandButton,
     .tab_index = 9,
     .place = {1395, 3420, 1155, 375},
     .text = u"Cancel",
     .is_cancel = true},
    {.name = u"cmdMore",
     .kind = ControlKind::CommandButton,
     .tab_index = 10,
     .place = {2670, 3420, 1170, 375},
     .text = u"R&&D &More"},
};

constexpr FormDesign kDesign = {.name = u"frmRecorded",
                                .tag = u"",
                                .client_width = 3960,
                                .client_height = 3900,
                                .key_preview = true,
                                .shown_in_task_bar = true,
                                .centred_on_owner = false,
                                .controls = kControls};

} // namespace

RecordedForm::RecordedForm() : ListeningForm(kDesign) {}

ListeningForm::ListeningForm(const FormDesign& design) : Form(design) {
    for (Control* const control : AllControls())
        Listen(*control);
}

Events ListeningForm::Take() {
    return std::exchange(mEvents, {});
}

void ListeningForm::On(const std::string& event, std::function<void()> action) {
    mActions.push_back({event, std::move(action)});
}

void ListeningForm::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode != key::kF1)
        return;
    Happened("KeyDown F1, shift " + std::to_string(Shift));
    if (swallows_f1)
        KeyCode = 0;
}

void ListeningForm::Listen(Control& control) {
    const std::string name = ToUtf8(control.Name());
    control.Click = [this, name] { Happened(name + " Click"); };
    control.GotFocus = [this, name] { Happened(name + " GotFocus"); };
    control.LostFocus = [this, name] {
        const Control* const holder = ActiveControl();
        Happened(name + " LostFocus to " + (holder != nullptr ? ToUtf8(holder->Name()) : "none"));
    };
    ListenToKind(control, name);
}

void ListeningForm::ListenToKind(Control& control, const std::string& name) {
    if (auto* const box = dynamic_cast<TextBox*>(&control))
        box->Change = [this, name, box] { Happened(name + " Change '" + ToUtf8(box->Text()) + "'"); };
    if (auto* const rows = dynamic_cast<RowControl*>(&control))
        rows->Click = [this, name, rows] { Happened(name + " Click " + std::to_string(rows->ListIndex())); };
    if (auto* const list = dynamic_cast<ListBox*>(&control))
        list->ItemCheck = [this, name, list](int row) {
            Happened(name + " ItemCheck " + std::to_string(row) + (list->Selected(row) ? " on" : " off"));
        };
    if (auto* const user_control = dynamic_cast<UserControl*>(&control)) {
        user_control->Resize = [this, name] { Happened(name + " Resize"); };
        user_control->Hide = [this, name] { Happened(name + " Hide"); };
    }
}

void ListeningForm::Happened(const std::string& event) {
    Note(event);
    for (const Action& action : std::vector<Action>(mActions))
        if (action.event == event)
            action.action();
}

} // namespace kestrelmoor::tests
