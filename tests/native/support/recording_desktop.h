#pragma once

#include "runtime/forms/application.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

/// A desktop whose peers write down what they are asked for, in one record with whatever a test notes. While
/// one lives it is the application's; its end unloads all forms.
class RecordingDesktop : public Desktop {
  public:
    RecordingDesktop();
    ~RecordingDesktop() override;
    RecordingDesktop(const RecordingDesktop&) = delete;
    RecordingDesktop& operator=(const RecordingDesktop&) = delete;

    using Record = std::vector<std::string>;

    /// What was asked for since the last call.
    Record Take();
    void Note(const std::string& entry) { mRecord.push_back(entry); }

    /// An event for the loop to handle.
    void Add(std::function<void()> event) { mEvents.push_back(std::move(event)); }

    std::unique_ptr<FormPeer> MakeFormPeer(Form& form) override;
    void PumpEvents() override;
    bool WaitForEvent() override;
    int CompareRows(StringView a, StringView b) const override;
    Twips TwipsPerPixelX() const override { return 15; }
    Twips TwipsPerPixelY() const override { return 15; }

    Twips frame_width = 90;
    Twips frame_height = 435;

    /// What the window of a text box would tell of its selection: start and length. Not there: nothing.
    std::map<String, std::pair<int, int>> selections;

    /// What the window that loses the keyboard to the next control reports in the midst of that, once.
    std::function<void()> when_focus_is_taken;

    /// How often two rows were compared, and in which order they stand.
    mutable int comparisons = 0;
    std::function<int(StringView, StringView)> order;

  private:
    Record mRecord;
    std::deque<std::function<void()>> mEvents;
};

} // namespace kestrelmoor::tests
