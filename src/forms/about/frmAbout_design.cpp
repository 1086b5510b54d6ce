#include "forms/about/frmAbout_design.h"

namespace kestrelmoor {

namespace {

constexpr Colour kBandColour = 0xDEC4B0;
constexpr Colour kTitleColour = 0x804000;
constexpr Colour kBlack = 0;
constexpr Colour kHighlight = 0x80000014;
constexpr Colour kShadow = 0x80000010;
constexpr int kLinkInterval = 100;
constexpr int kHandPointer = 2; ///< the program's own

constexpr ControlDesign Button(const char16_t* name, int tab_index, const char16_t* tag, Place place) {
    return {
        .name = name, .kind = ControlKind::CommandButton, .tab_index = tab_index, .tag = tag, .place = place};
}

constexpr ControlDesign DefaultAndCancelButton(const char16_t* name, int tab_index, const char16_t* tag,
                                               Place place) {
    ControlDesign design = Button(name, tab_index, tag, place);
    design.is_default = design.is_cancel = true;
    return design;
}

constexpr ControlDesign StoppedTimer(const char16_t* name) {
    return {.name = name, .kind = ControlKind::Timer, .enabled = false, .interval = kLinkInterval};
}

constexpr ControlDesign ClearLabel(const char16_t* name, int tab_index, const char16_t* tag, Place place) {
    return {.name = name,
            .kind = ControlKind::Label,
            .tab_index = tab_index,
            .tag = tag,
            .place = place,
            .transparent = true,
            .fore_colour = kBlack};
}

constexpr ControlDesign SmallPrint(const char16_t* name, int tab_index, Twips left, Twips top) {
    ControlDesign design = ClearLabel(name, tab_index, u"", {left, top, 0, 0});
    design.auto_size = true;
    return design;
}

constexpr ControlDesign Link(const char16_t* name, int tab_index, Twips left, Twips top) {
    ControlDesign design = SmallPrint(name, tab_index, left, top);
    design.tool_tip = u"Click to open the Author's Home Page in Internet";
    design.pointer = mouse_pointer::kCustom;
    design.mouse_icon = kHandPointer;
    return design;
}

constexpr ControlDesign Rule(const char16_t* name, Twips top, Colour colour) {
    return {.name = name, .kind = ControlKind::Line, .place = {0, top, 5865, 0}, .fore_colour = colour};
}

constexpr ControlDesign kControls[] = {
    StoppedTimer(u"tmrLocWeb"),
    {.name = u"picIcon",
     .kind = ControlKind::PictureBox,
     .tab_index = 10,
     .place = {240, 240, 720, 720},
     .border = false,
     .back_colour = kBandColour},
    Button(u"cmdHelp", 6, u"1003", {4320, 2880, 1395, 375}),
    StoppedTimer(u"tmrWeb"),
    DefaultAndCancelButton(u"cmdOK", 5, u"1001", {4320, 2400, 1395, 375}),
    SmallPrint(u"lblLoc", 2, 120, 2640),
    SmallPrint(u"lblLocDisclaimer", 3, 405, 2880),
    Link(u"lblLocWeb", 4, 405, 3120),
    ClearLabel(u"lblDescription", 9, u"203", {1560, 1080, 4095, 690}),
    {.name = u"lblTitle",
     .kind = ControlKind::Label,
     .tab_index = 8,
     .place = {1560, 120, 4095, 480},
     .transparent = true,
     .font_size = 18,
     .bold = true,
     .italic = true,
     .fore_colour = kTitleColour},
    ClearLabel(u"lblVersion", 7, u"", {1560, 720, 4095, 225}),
    Rule(u"Line1(0)", 2055, kHighlight),
    Link(u"lblWeb", 1, 405, 2400),
    Rule(u"Line1(1)", 2040, kShadow),
    SmallPrint(u"lblDisclaimer", 0, 405, 2160),
    {.name = u"shAbout", .kind = ControlKind::Shape, .place = {0, 0, 5895, 2040}, .back_colour = kBandColour},
};

} // namespace

const FormDesign kfrmAboutDesign = {
    .name = u"frmAbout",
    .tag = u"202",
    .client_width = 5865,
    .client_height = 3360,
    .key_preview = true,
    .shown_in_task_bar = false,
    .centred_on_owner = true,
    .controls = kControls,
};

} // namespace kestrelmoor
