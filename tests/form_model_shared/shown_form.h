#pragma once

#include "tests/form_model_shared/hand.h"
#include "tests/form_model_shared/recorded_form.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

/// A form that stands on the desktop with the focus in its first box and no event written down yet.
template <class Kind>
class Shown : public testing::Test {
  protected:
    void SetUp() override {
        form->Show();
        hand->Settle();
        form->Take();
    }
    void TearDown() override { Application::Current().UnloadAll(); }

    /// The events since the last call.
    Events Seen() {
        hand->Settle();
        return form->Take();
    }

    /// Puts the focus there and forgets the events of that.
    void StartFrom(Control& control) {
        control.SetFocus();
        Seen();
    }

    std::unique_ptr<Hand> hand = MakeHand();
    std::shared_ptr<Kind> form = Application::Current().Make<Kind>();
};

using ShownForm = Shown<RecordedForm>;

} // namespace kestrelmoor::tests
