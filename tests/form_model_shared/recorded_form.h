#pragma once

#include "runtime/forms/application.h"

#include <functional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

using Events = std::vector<std::string>;

/// A form that writes down every event in the order in which it comes, those of its controls and of what user
/// controls are made of; a test adds what its handler is to do by `On`.
class ListeningForm : public Form {
  public:
    explicit ListeningForm(const FormDesign& design);

    /// The events so far, which are forgotten with that.
    Events Take();
    void Note(const std::string& event) { mEvents.push_back(event); }

    /// Runs `action` within the handler of the event that is written down as `event`, behind the note.
    void On(const std::string& event, std::function<void()> action);

    bool swallows_f1 = true;

  protected:
    void Form_Load() override { Happened("Load"); }
    void Form_Unload() override { Happened("Unload"); }
    void Form_KeyDown(int& KeyCode, int Shift) override;

  private:
    struct Action {
        std::string event;
        std::function<void()> action;
    };

    void Listen(Control& control);
    void ListenToKind(Control& control, const std::string& name);
    void Happened(const std::string& event);

    Events mEvents;
    std::vector<Action> mActions;
};

/// The form that most shared tests act on.
class RecordedForm : public ListeningForm {
  public:
    /// In tab order: a label and a box each for "&First" and "&Second", the check box "&Mark", the frame
    /// "Group" with a box within, a sorted list, and the buttons "&OK" (default), "Cancel" (cancel) and
    /// "R&&D &More".
    RecordedForm();

    TextBox& txtFirst = Get<TextBox>(u"txtFirst");
    TextBox& txtSecond = Get<TextBox>(u"txtSecond");
    CheckBox& chkMark = Get<CheckBox>(u"chkMark");
    Frame& fraGroup = Get<Frame>(u"fraGroup");
    TextBox& txtInside = Get<TextBox>(u"txtInside");
    ListBox& lstRows = Get<ListBox>(u"lstRows");
    CommandButton& cmdOK = Get<CommandButton>(u"cmdOK");
    CommandButton& cmdCancel = Get<CommandButton>(u"cmdCancel");
    CommandButton& cmdMore = Get<CommandButton>(u"cmdMore");
};

} // namespace kestrelmoor::tests
