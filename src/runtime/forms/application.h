#pragma once

#include "runtime/forms/form.h"

#include <memory>
#include <vector>

namespace kestrelmoor {

/// The forms of the process and the desktop that they are shown on.
class Application {
  public:
    static Application& Current();

    /// The desktop outlives all forms; null for none.
    void SetDesktop(Desktop* desktop) { mDesktop = desktop; }
    Desktop* CurrentDesktop() const { return mDesktop; }

    /// Makes a form and runs its Form_Initialize.
    template <class Kind, class... Given>
    std::shared_ptr<Kind> Make(Given&&... given) {
        auto form = std::shared_ptr<Kind>(new Kind(std::forward<Given>(given)...), &Application::End<Kind>);
        Initialize(*form);
        return form;
    }

    /// The loaded forms in the order of their loading.
    const std::vector<std::shared_ptr<Form>>& Forms() const { return mForms; }

    /// The form in front that takes keys; null: none.
    Form* ActiveForm() const { return mActiveForm; }
    void SetActiveForm(Form* form) { mActiveForm = form; }

    /// Handles what is pending. Handlers of any loaded form may run meanwhile.
    void DoEvents();

    /// Order of two rows in a sorted list, as the desktop has it; without one the order of the UTF-16 units,
    /// A to Z taken as small.
    int CompareRows(StringView a, StringView b) const;

    /// Handles events until no form is loaded. The question is asked between events, so that a window may
    /// close before its successor opens.
    void Run();

    /// Unloads all forms, the last one first: at the end of the program.
    void UnloadAll();

  private:
    friend class Form;

    template <class Kind>
    static void End(Kind* form) {
        static_cast<Form*>(form)->Form_Terminate();
        delete form;
    }
    static void Initialize(Form& form) { form.Form_Initialize(); }
    void RunModal(const Form& form);
    void ActivateSuccessor(const Form& gone);

    Desktop* mDesktop = nullptr;
    std::vector<std::shared_ptr<Form>> mForms;
    Form* mActiveForm = nullptr;
};

} // namespace kestrelmoor
