#include "platform/windows/control_factory.h"

#include "platform/windows/caption_windows.h"
#include "platform/windows/check_list_window.h"
#include "platform/windows/container_windows.h"
#include "platform/windows/edit_window.h"
#include "platform/windows/graphics.h"
#include "platform/windows/picture_window.h"
#include "platform/windows/row_windows.h"
#include "platform/windows/timer_peer.h"

namespace kestrelmoor::platform {

namespace {

std::unique_ptr<ControlPeer> MakeListPeer(FormWindow& form, ListBox& list) {
    if (list.Style() == ListStyle::CheckBoxes)
        return std::make_unique<CheckListWindow>(form, list);
    return std::make_unique<ListWindow>(form, list);
}

} // namespace

std::unique_ptr<ControlPeer> MakeControlPeer(FormWindow& form, Control& control) {
    switch (control.Kind()) {
    case ControlKind::Label:
        return std::make_unique<LabelWindow>(form, static_cast<Label&>(control));
    case ControlKind::TextBox:
        return std::make_unique<EditWindow>(form, static_cast<TextBox&>(control));
    case ControlKind::CommandButton:
        return std::make_unique<ButtonWindow>(form, static_cast<CommandButton&>(control));
    case ControlKind::CheckBox:
        return std::make_unique<CheckWindow>(form, static_cast<CheckBox&>(control));
    case ControlKind::ListBox:
        return MakeListPeer(form, static_cast<ListBox&>(control));
    case ControlKind::ComboBox:
        return std::make_unique<ComboWindow>(form, static_cast<ComboBox&>(control));
    case ControlKind::Frame:
        return std::make_unique<FrameWindow>(form, control);
    case ControlKind::UserControl:
        return std::make_unique<UserControlWindow>(form, static_cast<UserControl&>(control));
    case ControlKind::PictureBox:
        return std::make_unique<PictureWindow>(form, static_cast<PictureBox&>(control));
    case ControlKind::Line:
    case ControlKind::Shape:
        return std::make_unique<GraphicPeer>(form);
    case ControlKind::Timer:
        return std::make_unique<TimerPeer>(form, static_cast<kestrelmoor::Timer&>(control));
    }
    return nullptr;
}

} // namespace kestrelmoor::platform
