#include "tests/form_model_shared/hand.h"

#include "platform/practice/user.h"
#include "runtime/forms/application.h"

#include <deque>

namespace kestrelmoor::tests {

namespace {

// A desktop that shows nothing: what is to be done later are its only events.
class BareDesktop : public Desktop {
  public:
    void Add(std::function<void()> action) { mActions.push_back(std::move(action)); }

    std::unique_ptr<FormPeer> MakeFormPeer(Form& /*form*/) override { return nullptr; }

    void PumpEvents() override {
        while (WaitForEvent()) {
        }
    }

    bool WaitForEvent() override {
        if (mActions.empty())
            return false;
        const std::function<void()> action = std::move(mActions.front());
        mActions.pop_front();
        action();
        return true;
    }

    int CompareRows(StringView a, StringView b) const override {
        return LowerAscii(a).compare(LowerAscii(b));
    }
    Twips TwipsPerPixelX() const override { return 15; }
    Twips TwipsPerPixelY() const override { return 15; }

  private:
    std::deque<std::function<void()>> mActions;
};

class NativeHand : public Hand {
  public:
    NativeHand() { Application::Current().SetDesktop(&mDesktop); }
    ~NativeHand() override {
        Application::Current().UnloadAll();
        Application::Current().SetDesktop(mBefore);
    }

    void Press(int key, int shift) override { mUser.Press(key, shift); }
    void Type(StringView text) override { mUser.Type(text); }
    void ClickOn(Control& control) override { mUser.ClickOn(control); }
    void ChooseRow(ListBox& list, int row) override { mUser.ChooseRow(list, row); }
    void ToggleRow(ListBox& list, int row) override { mUser.ToggleRow(list, row); }
    void CloseWindow(Form& form) override { mUser.CloseWindow(form); }
    void Settle() override { Application::Current().DoEvents(); }
    void Later(std::function<void()> action) override { mDesktop.Add(std::move(action)); }

  private:
    Desktop* mBefore = Application::Current().CurrentDesktop();
    BareDesktop mDesktop;
    practice::User mUser;
};

} // namespace

std::unique_ptr<Hand> MakeHand() {
    return std::make_unique<NativeHand>();
}

} // namespace kestrelmoor::tests
