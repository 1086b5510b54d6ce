#pragma once

#include "runtime/forms/application.h"

#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// A form with one control of each kind.
class ProbeForm : public Form {
  public:
    explicit ProbeForm(const char16_t* name = u"frmProbe");

    Label& lblText = Get<Label>(u"lblText");
    TextBox& txtText = Get<TextBox>(u"txtText");
    Frame& fraGroup = Get<Frame>(u"fraGroup");
    CheckBox& chkMark = Get<CheckBox>(u"chkMark");
    ListBox& lstRows = Get<ListBox>(u"lstRows");
    ListBox& lstMarks = Get<ListBox>(u"lstMarks");
    ComboBox& cboRows = Get<ComboBox>(u"cboRows");
    CommandButton& cmdOK = Get<CommandButton>(u"cmdOK");
    Timer& tmrTick = Get<Timer>(u"tmrTick");
    PictureBox& picIcon = Get<PictureBox>(u"picIcon");
    Line& linRule = Get<Line>(u"linRule");
    Shape& shpBand = Get<Shape>(u"shpBand");

    /// What the events of forms do beside nothing.
    std::function<void()> load;
    std::function<void()> unload;
    std::function<void()> terminate;

  protected:
    void Form_Load() override { Run(load); }
    void Form_Unload() override { Run(unload); }
    void Form_Terminate() override { Run(terminate); }

  private:
    static void Run(const std::function<void()>& handler) {
        if (handler)
            handler();
    }
};

inline std::shared_ptr<ProbeForm> MakeProbe(const char16_t* name = u"frmProbe") {
    return Application::Current().Make<ProbeForm>(name);
}

} // namespace kestrelmoor::tests
