#include "forms/settings/ctlAddComputer_design.h"

namespace kestrelmoor {

namespace {

constexpr ControlDesign kControls[] = {
    {.name = u"txtComputer",
     .kind = ControlKind::TextBox,
     .tab_index = 0,
     .place = {0, 0, 4335, 1095},
     .border = false,
     .fore_colour = system_colour::kWindowText,
     .back_colour = system_colour::kWindow},
    {.name = u"cmdBrowse",
     .kind = ControlKind::CommandButton,
     .tab_index = 1,
     .place = {4320, 0, 375, 1095},
     .text = u"..."},
};

} // namespace

const std::span<const ControlDesign> kctlAddComputerDesign = kControls;

} // namespace kestrelmoor
