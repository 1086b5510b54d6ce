#include "runtime/forms/make_by_design.h"

#include "runtime/errors.h"
#include "runtime/forms/form.h"

namespace kestrelmoor {

std::unique_ptr<Control> MakeByDesign(Form& form, const ControlDesign& design) {
    if (design.make != nullptr)
        return design.make(form, design);
    switch (design.kind) {
    case ControlKind::Label:
        return std::make_unique<Label>(form, design);
    case ControlKind::TextBox:
        return std::make_unique<TextBox>(form, design);
    case ControlKind::CommandButton:
        return std::make_unique<CommandButton>(form, design);
    case ControlKind::CheckBox:
        return std::make_unique<CheckBox>(form, design);
    case ControlKind::ListBox:
        return std::make_unique<ListBox>(form, design);
    case ControlKind::ComboBox:
        return std::make_unique<ComboBox>(form, design);
    case ControlKind::Frame:
        return std::make_unique<Frame>(form, design);
    case ControlKind::Timer:
        return std::make_unique<Timer>(form, design);
    case ControlKind::PictureBox:
        return std::make_unique<PictureBox>(form, design);
    case ControlKind::Line:
        return std::make_unique<Line>(form, design);
    case ControlKind::Shape:
        return std::make_unique<Shape>(form, design);
    case ControlKind::UserControl:
        break;
    }
    RaiseError(error_number::kInvalidArgument);
}

} // namespace kestrelmoor
