#include "forms/about/frmAbout.h"

#include "forms/about/frmAbout_design.h"
#include "forms/about/open_help.h"
#include "localization/text_application.h"
#include "platform/pictures.h"
#include "runtime/conversions.h"
#include "shell/messages.h"
#include "shell/program_state.h"
#include "window_services/keyboard_cues.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

namespace {

constexpr int kProgramIcon = 1;
constexpr int kLargeIconSize = 48; ///< pixels

constexpr Colour kGrayText = 0x80000011;
constexpr Colour kHighlight = 0x8000000D;
constexpr Colour kHotLight = 0x8000001A;
constexpr Colour k3DHighlight = 0x80000014;
constexpr Colour k3DShadow = 0x80000010;

String VersionText(const platform::VersionRecord& record) {
    return LoadMessage(
        201, {PaddedText(record.major, 1), PaddedText(record.minor, 2), PaddedText(record.revision, 4)});
}

} // namespace

frmAbout::frmAbout()
    : Form(kfrmAboutDesign), tmrLocWeb(Get<Timer>(u"tmrLocWeb")), picIcon(Get<PictureBox>(u"picIcon")),
      cmdHelp(Get<CommandButton>(u"cmdHelp")), tmrWeb(Get<Timer>(u"tmrWeb")),
      cmdOK(Get<CommandButton>(u"cmdOK")), lblLoc(Get<Label>(u"lblLoc")),
      lblLocDisclaimer(Get<Label>(u"lblLocDisclaimer")), lblLocWeb(Get<Label>(u"lblLocWeb")),
      lblTitle(Get<Label>(u"lblTitle")), lblVersion(Get<Label>(u"lblVersion")), lblWeb(Get<Label>(u"lblWeb")),
      lblDisclaimer(Get<Label>(u"lblDisclaimer")), Line1_0(Get<Line>(u"Line1(0)")),
      Line1_1(Get<Line>(u"Line1(1)")) {
    ConnectHandlers();
}

void frmAbout::ConnectHandlers() {
    picIcon.Paint = [this] { picIcon_Paint(); };
    cmdHelp.Click = [this] { cmdHelp_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    ConnectLink(lblWeb, tmrWeb);
    ConnectLink(lblLocWeb, tmrLocWeb);
}

void frmAbout::Form_Load() {
    UpdateUI();
    mCueShown = !gKeyboardCues;
    ApplyTexts();
    TurnCues(*this, mCueShown);
    ShowWebLink();
    ShowTranslatorLink();
    cmdHelp.SetEnabled(!gHelpFile.empty());
}

void frmAbout::Form_Unload() {
    mLargeIcon.Reset();
}

void frmAbout::Form_KeyDown(int& KeyCode, int /*Shift*/) {
    if (KeyCode != key::kF1)
        return;
    if (!gHelpFile.empty())
        OpenHelp(Window());
    KeyCode = 0;
}

void frmAbout::ICue_Cue() {
    ShowCues(*this, mCueShown, CueLabels::kKeepCaptions);
}

void frmAbout::ICue_UnCue() {
    HideCues(*this, mCueShown, CueLabels::kKeepCaptions);
}

void frmAbout::ApplyTexts() {
    const LibraryFont font = FontOfLibrary();
    const platform::VersionRecord record = platform::ReadVersionRecord();
    SetCaption(TaggedText(Tag(), {record.title}));
    font.ApplyTo(Font());
    for (const auto& control : Controls()) {
        if (!control->HasFont())
            continue;
        ApplyTextTo(*control, record);
        if (IsNumeric(control->ToolTipText()))
            control->SetToolTipText(TaggedText(control->ToolTipText()));
        if (control.get() == &lblTitle)
            lblTitle.Font().SetName(u"MS Shell Dlg");
        else
            font.ApplyTo(control->Font());
    }
}

void frmAbout::ApplyTextTo(Control& control, const platform::VersionRecord& record) {
    if (&control == &lblTitle)
        lblTitle.SetCaption(record.title);
    else if (&control == &lblDisclaimer)
        lblDisclaimer.SetCaption(record.legal_notice);
    else if (&control == &lblLoc)
        lblLoc.SetCaption(LoadMessage(206, {}));
    else if (&control == &lblLocDisclaimer)
        lblLocDisclaimer.SetCaption(LoadMessage(204, {}));
    else if (&control == &lblLocWeb)
        lblLocWeb.SetCaption(LoadMessage(205, {}));
    else if (&control == &lblVersion)
        lblVersion.SetCaption(VersionText(record));
    else if (IsNumeric(control.Tag()))
        control.SetCaption(TaggedText(control.Tag()));
}

void frmAbout::UpdateUI() {
    ApplyColors();
    mLargeIcon.Reset();
    mLargeIcon = platform::LoadIconImage(kProgramIcon, kLargeIconSize, kLargeIconSize);
}

void frmAbout::ApplyColors() {
    platform::OwnedTheme hTheme;
    const auto colour = [&](Colour reference) {
        return GetThemedColor(reference, Window(), hTheme, false, u"WINDOW", false, false);
    };
    mNormalLinkColor = colour(kGrayText);
    for (Label* const label : {&lblDisclaimer, &lblWeb, &lblLocDisclaimer, &lblLocWeb, &lblLoc})
        label->SetForeColor(mNormalLinkColor);
    mHotLinkColor = colour(gWinVersion < kWindows2000 ? kHighlight : kHotLight);
    const Colour face = colour(system_colour::kButtonFace);
    SetBackColor(face);
    cmdHelp.SetBackColor(face);
    cmdOK.SetBackColor(face);
    Line1_0.SetForeColor(colour(k3DHighlight));
    Line1_1.SetForeColor(colour(k3DShadow));
    // No call asks for closing: an active theme's handle stays open for the rest of the process.
    hTheme.Detach();
}

void frmAbout::picIcon_Paint() {
    if (!mLargeIcon)
        return;
    picIcon.Clear();
    platform::DrawIconEx(picIcon.DeviceContext(), 0, 0, mLargeIcon, 0, 0, platform::kDrawNormal);
}

void frmAbout::cmdHelp_Click() {
    OpenHelp(Window());
}

void frmAbout::cmdOK_Click() {
    Unload();
}

} // namespace kestrelmoor
