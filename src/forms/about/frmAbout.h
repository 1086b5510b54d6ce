#pragma once

#include "platform/version_record.h"
#include "platform/visual_style.h"
#include "runtime/forms/form.h"
#include "window_services/ICue.h"
#include "window_services/IThemed.h"

#include <cstdint>

namespace kestrelmoor {

/// The window that says what the program is: name, version, description, legal notice, the address of its web
/// site where an installer has recorded one, and who translated it. The two addresses act as links: hot while
/// the mouse is over them, opened by a press.
///
/// Where to look: the controls and their places in frmAbout_design.cpp, the life of the window, its texts and
/// colours in frmAbout.cpp, the two links in links.cpp, whether the mouse is over a control in
/// mouse_over.cpp.
class frmAbout : public Form, public ICue, public IThemed {
  public:
    frmAbout();

    void ICue_Cue() override;
    void ICue_UnCue() override;

    /// Takes over the present colours and loads the large icon anew.
    void UpdateUI() override;

  protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;

  private:
    // frmAbout.cpp
    void ConnectHandlers();
    void ApplyTexts();
    void ApplyTextTo(Control& control, const platform::VersionRecord& record);
    void ApplyColors();
    void picIcon_Paint();
    void cmdHelp_Click();
    void cmdOK_Click();

    // links.cpp
    void ConnectLink(Label& label, Timer& timer);
    void ShowWebLink();
    void ShowTranslatorLink();
    void Link_MouseMove(Label& label, Timer& timer) const;
    void Link_Timer(Label& label, Timer& timer) const;
    void Link_MouseDown(const Label& label, int Button) const;

    Timer& tmrLocWeb;
    PictureBox& picIcon;
    CommandButton& cmdHelp;
    Timer& tmrWeb;
    CommandButton& cmdOK;
    Label& lblLoc;
    Label& lblLocDisclaimer;
    Label& lblLocWeb;
    Label& lblTitle;
    Label& lblVersion;
    Label& lblWeb;
    Label& lblDisclaimer;
    Line& Line1_0;
    Line& Line1_1;

    Colour mHotLinkColor = 0;    ///< a link under the mouse
    Colour mNormalLinkColor = 0; ///< all small print, and a link at rest
    bool mCueShown = false;      ///< keyboard cues are shown on this window
    platform::OwnedIcon mLargeIcon;
};

} // namespace kestrelmoor
