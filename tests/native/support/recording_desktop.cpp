#include "tests/native/support/recording_desktop.h"

#include <tuple>
#include <utility>

namespace kestrelmoor::tests {

namespace {

std::string NameOf(Property what) {
    constexpr const char* kNames[] = {"Place",        "Visible",      "Enabled",     "Caption", "Text",
                                      "Selection",    "PasswordChar", "BorderStyle", "Font",    "Colours",
                                      "Value",        "ListIndex",    "TabStops",    "Default", "Interval",
                                      "MousePointer", "ToolTip"};
    return kNames[static_cast<std::size_t>(what)];
}

class RecordingControlPeer : public ControlPeer {
  public:
    RecordingControlPeer(RecordingDesktop& desktop, const Control& control)
        : mDesktop(desktop), mName(control.Name()) {
        Note("made");
    }
    ~RecordingControlPeer() override { Note("ended"); }

    void Show(Property what) override { Note(NameOf(what)); }
    void RowInserted(int row) override { Note("row inserted " + std::to_string(row)); }
    void RowRemoved(int row) override { Note("row removed " + std::to_string(row)); }
    void RowReplaced(int row) override { Note("row replaced " + std::to_string(row)); }
    void RowsCleared() override { Note("rows cleared"); }
    void RowMarked(int row) override { Note("row marked " + std::to_string(row)); }
    bool ReadSelection(int& start, int& length) override {
        const auto found = mDesktop.selections.find(mName);
        if (found == mDesktop.selections.end())
            return false;
        std::tie(start, length) = found->second;
        return true;
    }
    void ReplaceSelection(StringView text) override { Note("selection replaced by '" + ToUtf8(text) + "'"); }
    void TakeFocus() override {
        Note("takes focus");
        if (const auto report = std::exchange(mDesktop.when_focus_is_taken, {}))
            report();
    }
    WindowHandle Window() const override { return 7; }

  private:
    void Note(const std::string& entry) const { mDesktop.Note(ToUtf8(mName) + " " + entry); }

    RecordingDesktop& mDesktop;
    String mName;
};

class RecordingFormPeer : public FormPeer {
  public:
    RecordingFormPeer(RecordingDesktop& desktop, const Form& form) : mDesktop(desktop), mForm(form) {
        Note("made");
    }
    ~RecordingFormPeer() override { Note("ended"); }

    std::unique_ptr<ControlPeer> MakeControlPeer(Control& control) override {
        return std::make_unique<RecordingControlPeer>(mDesktop, control);
    }
    void Show(Property what) override {
        if (what == Property::Visible)
            Note(mForm.Visible() ? "shown" : "hidden");
        else if (what == Property::Enabled)
            Note(mForm.InputEnabled() ? "enabled" : "disabled");
        else
            Note(NameOf(what));
    }
    void TakeFocus() override { Note("takes focus"); }
    Twips FrameWidth() const override { return mDesktop.frame_width; }
    Twips FrameHeight() const override { return mDesktop.frame_height; }
    WindowHandle Window() const override { return 42; }

  private:
    void Note(const std::string& entry) const { mDesktop.Note(ToUtf8(mForm.Name()) + " " + entry); }

    RecordingDesktop& mDesktop;
    const Form& mForm;
};

} // namespace

RecordingDesktop::RecordingDesktop() {
    Application::Current().SetDesktop(this);
}

RecordingDesktop::~RecordingDesktop() {
    Application::Current().UnloadAll();
    Application::Current().SetDesktop(nullptr);
}

RecordingDesktop::Record RecordingDesktop::Take() {
    return std::exchange(mRecord, {});
}

std::unique_ptr<FormPeer> RecordingDesktop::MakeFormPeer(Form& form) {
    return std::make_unique<RecordingFormPeer>(*this, form);
}

void RecordingDesktop::PumpEvents() {
    while (WaitForEvent()) {
    }
}

bool RecordingDesktop::WaitForEvent() {
    if (mEvents.empty())
        return false;
    const std::function<void()> event = std::move(mEvents.front());
    mEvents.pop_front();
    event();
    return true;
}

int RecordingDesktop::CompareRows(StringView a, StringView b) const {
    ++comparisons;
    return order ? order(a, b) : a.compare(b);
}

} // namespace kestrelmoor::tests
