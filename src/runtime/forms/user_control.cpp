#include "runtime/forms/user_control.h"

#include "runtime/errors.h"
#include "runtime/forms/form.h"
#include "runtime/forms/make_by_design.h"

#include <algorithm>

namespace kestrelmoor {

UserControl::UserControl(Form& form, const ControlDesign& design, std::span<const ControlDesign> constituents)
    : Control(form, design) {
    for (const ControlDesign& constituent : constituents) {
        mConstituents.push_back(MakeByDesign(form, constituent));
        mConstituents.back()->mContainer = this;
    }
}

Control& UserControl::Find(StringView name) const {
    for (const auto& constituent : mConstituents)
        if (constituent->Name() == name)
            return *constituent;
    RaiseError(error_number::kInvalidArgument);
}

Control* UserControl::ActiveConstituent() const {
    Control* const holder = Parent().FocusHolder();
    return holder != nullptr && holder->Host() == this ? holder : nullptr;
}

bool UserControl::CanTakeFocus() const {
    return std::any_of(mConstituents.begin(), mConstituents.end(),
                       [](const auto& constituent) { return constituent->CanTakeFocus(); });
}

Control* UserControl::FocusTarget() {
    Control* target = ActiveConstituent();
    if (target != nullptr)
        return target;
    for (const auto& constituent : mConstituents)
        if (constituent->CanTakeFocus() &&
            (target == nullptr || constituent->TabIndex() < target->TabIndex()))
            target = constituent.get();
    return target;
}

void UserControl::Moved(const Place& before) {
    if (before.width != Width() || before.height != Height())
        Raise(Resize);
}

void UserControl::HiddenWith(const Control* gone) {
    bool stands_there = gone == nullptr;
    for (const Control* part = this; part != nullptr; part = part->Container()) {
        if (part == gone)
            stands_there = true;
        else if (!part->Visible())
            return;
    }
    if (stands_there)
        Raise(Hide);
}

} // namespace kestrelmoor
