#include "platform/practice/user.h"

#include "platform/practice/hooks.h"
#include "platform/practice/list_views.h"
#include "platform/practice/window_manners.h"
#include "platform/practice/window_places.h"
#include "platform/practice/world/world.h"
#include "runtime/forms/application.h"
#include "runtime/forms/user_control.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

// The key code that stands for a character without a key of its own.
constexpr int kPacket = 231;
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kShiftKey = 16;
constexpr int kCtrlKey = 17;
constexpr int kAltKey = 18;

bool IsLetterOrDigitKey(int key) {
    return (key >= u'A' && key <= u'Z') || (key >= u'0' && key <= u'9');
}

int KeyOf(char16_t character) {
    if (character >= u'a' && character <= u'z')
        return character - u'a' + u'A';
    return IsLetterOrDigitKey(character) || character == key::kSpace ? character : kPacket;
}

char16_t CharacterOf(int key, int shift) {
    const bool is_letter = key >= u'A' && key <= u'Z';
    if (is_letter && (shift & key::kShiftMask) == 0)
        return static_cast<char16_t>(key - u'A' + u'a');
    const bool has_one = IsLetterOrDigitKey(key) || key == key::kSpace || key == key::kBack ||
                         key == key::kReturn || key == key::kTab || key == key::kEscape;
    return has_one ? static_cast<char16_t>(key) : u'\0';
}

Form* FrontForm() {
    Form* const form = Application::Current().ActiveForm();
    return form != nullptr && form->Visible() && form->InputEnabled() ? form : nullptr;
}

// What of a key that the form has let pass reaches the window with the focus.
void Deliver(Form& form, int key, char16_t character) {
    if (Control* const control = form.FocusHolder())
        TakeKey(*control, key);
    if (character == 0 || form.KeyPress(character))
        return;
    if (Control* const control = form.FocusHolder())
        TakeCharacter(*control, character);
}

bool TakeKeyDown(int key, int shift, char16_t character) {
    Form* const front = FrontForm();
    if (front == nullptr)
        return false;
    const std::shared_ptr<Form> form = front->shared_from_this();
    if (form->KeyDown(key, shift))
        return true;
    if ((shift & key::kAltMask) != 0)
        return !IsLetterOrDigitKey(key) || form->Accelerator(static_cast<char16_t>(key));
    if ((shift & key::kCtrlMask) == 0)
        Deliver(*form, key, character);
    return true;
}

/// What happens while a key is down. The hook sees it go down and up.
template <class Action>
bool WhileDown(int key, const Action& action) {
    bool taken = false;
    {
        const Held held(key);
        RunKeyboardHook(key, false);
        taken = action();
    }
    RunKeyboardHook(key, true);
    return taken;
}

/// The keys of the shift state go down ahead of the key and come up behind it.
bool PressWithCharacter(int key, int shift, char16_t character, int remaining) {
    for (const auto& [mask, held] : {std::pair(key::kShiftMask, kShiftKey),
                                     std::pair(key::kCtrlMask, kCtrlKey), std::pair(key::kAltMask, kAltKey)})
        if ((remaining & mask) != 0)
            return WhileDown(held, [&, rest = remaining & ~mask] {
                return PressWithCharacter(key, shift, character, rest);
            });
    return WhileDown(key, [&] { return TakeKeyDown(key, shift, character); });
}

bool PressWithCharacter(int key, int shift, char16_t character) {
    return FrontForm() != nullptr && PressWithCharacter(key, shift, character, shift);
}

bool CanBeClicked(const Control& control) {
    const Form& form = control.Parent();
    return form.Visible() && form.InputEnabled() && control.IsUsable();
}

/// What a click in the middle of a control hits: of a user control the constituent that lies there.
Control& InTheMiddle(Control& control) {
    const auto* const user_control = dynamic_cast<const UserControl*>(&control);
    if (user_control == nullptr)
        return control;
    const Twips x = control.Width() / 2;
    const Twips y = control.Height() / 2;
    for (const auto& part : user_control->Constituents())
        if (part->Visible() && x >= part->Left() && x < part->Left() + part->Width() && y >= part->Top() &&
            y < part->Top() + part->Height())
            return *part;
    return control;
}

// The hook sees the pointer move before the control there does.
void MovePointer(Form& form, const platform::ScreenPoint& point) {
    TheWorld().mouse = {point.x, point.y};
    RunMouseHook(mouse_message::kMove, point);
    Control* const under = form.Visible() && form.InputEnabled() ? ControlAt(form, point) : nullptr;
    if (!under)
        return;
    const platform::ScreenPoint corner = Corner(*under);
    under->MouseMoved(0, 0, static_cast<Twips>(point.x - corner.x) * kTwipsPerPixel,
                      static_cast<Twips>(point.y - corner.y) * kTwipsPerPixel);
}

// The window takes the press, and moves the focus itself. False: the press was swallowed.
template <class TakesPress>
bool TakeMouseDown(Control& control, int button, const TakesPress& takes_press) {
    Form& form = control.Parent();
    Application::Current().SetActiveForm(&form);
    if (!form.MayMoveFocus(&control))
        return false;
    control.MousePressed(button, 0, control.Width() / 2, control.Height() / 2);
    takes_press();
    if (button == kLeftButton && control.CanTakeFocus())
        form.FocusMoved(&control);
    return form.IsLoaded();
}

/// What the hook hears of a button.
struct ButtonMessages {
    std::uintptr_t down;
    std::uintptr_t up;
};

ButtonMessages MessagesOf(int button) {
    if (button == kLeftButton)
        return {mouse_message::kLeftDown, mouse_message::kLeftUp};
    return button == kRightButton ? ButtonMessages{mouse_message::kRightDown, mouse_message::kRightUp}
                                  : ButtonMessages{mouse_message::kMiddleDown, mouse_message::kMiddleUp};
}

// The press and the release of the button, as far as the hook is concerned.
template <class TakesPress>
bool PressMouse(Control& control, int button, const TakesPress& takes_press) {
    const platform::ScreenPoint point = Middle(control);
    const ButtonMessages messages = MessagesOf(button);
    const std::shared_ptr<Form> form = control.Parent().shared_from_this();
    MovePointer(*form, point);
    if (!form->IsLoaded())
        return false;
    bool taken = false;
    {
        const Held held(button);
        RunMouseHook(messages.down, point);
        taken = TakeMouseDown(control, button, takes_press);
    }
    RunMouseHook(messages.up, point);
    return taken;
}

bool CanBeChosen(const RowControl& list, int row) {
    return CanBeClicked(list) && row >= 0 && row < list.ListCount();
}

/// Scrolls to a row of which nothing is to be seen, and once more where a handler has scrolled back.
void BringIntoView(RowControl& list, int row) {
    auto* const rows = dynamic_cast<ListBox*>(&list);
    for (int attempt = 0; rows && !ListViews::Current().ShowsPartOf(*rows, row) && attempt < 2; ++attempt) {
        ListViews::Current().Reveal(*rows, row);
        ListViews::Current().Tell(*rows);
    }
}

/// The row of that text nearest to `row`: others may have come and gone. -1: none.
int NearestRow(const RowControl& list, int row, const String& text) {
    const auto stands_at = [&](int place) {
        return place >= 0 && place < list.ListCount() && list.List(place) == text;
    };
    for (int away = 0; away <= std::max(row, list.ListCount()); ++away)
        for (const int place : {row - away, row + away})
            if (stands_at(place))
                return place;
    return -1;
}

/// Presses the mouse on a row and lets it go there. Returns where the row then stands, -1 where nothing was
/// chosen: the press moves the focus, and rows may come and go by that.
int PressRow(RowControl& list, int row) {
    BringIntoView(list, row);
    if (!CanBeChosen(list, row))
        return -1;
    const String text = list.List(row);
    if (!PressMouse(list, kLeftButton, [&list, row] { list.RowPressed(row); }))
        return -1;
    const int place = NearestRow(list, row, text);
    if (place >= 0)
        list.RowChosen(place);
    return place;
}

} // namespace

bool User::Press(int key, int shift) {
    return PressWithCharacter(key, shift, CharacterOf(key, shift));
}

bool User::Type(StringView text) {
    for (const char16_t character : text) {
        const bool taken = character == u'\n'   ? Press(key::kReturn)
                           : character == u'\t' ? Press(key::kTab)
                                                : PressWithCharacter(KeyOf(character), 0, character);
        if (!taken)
            return false;
    }
    return true;
}

bool User::ClickOn(Control& control) {
    Control& hit = InTheMiddle(control);
    if (!CanBeClicked(hit))
        return false;
    const std::shared_ptr<Form> form = hit.Parent().shared_from_this();
    if (PressMouse(hit, kLeftButton, [&hit] { TakePress(hit); }))
        TakeClick(hit);
    return true;
}

bool User::ChooseRow(RowControl& list, int row) {
    if (!CanBeChosen(list, row))
        return false;
    const std::shared_ptr<Form> form = list.Parent().shared_from_this();
    PressRow(list, row);
    return true;
}

bool User::ScrollTo(ListBox& list, int top_row) {
    if (!CanBeClicked(list))
        return false;
    const std::shared_ptr<Form> form = list.Parent().shared_from_this();
    ListViews::Current().ScrollTo(list, top_row);
    ListViews::Current().Tell(list);
    return true;
}

bool User::MoveMouse(int x, int y) {
    Form* const front = FrontForm();
    if (front == nullptr)
        return false;
    const std::shared_ptr<Form> form = front->shared_from_this();
    MovePointer(*form, {x, y});
    return true;
}

bool User::MoveOnto(const Control& control) {
    const platform::ScreenPoint point = Middle(control);
    return FrontForm() == &control.Parent() && MoveMouse(point.x, point.y);
}

bool User::PressOn(Control& control, int button) {
    if (!CanBeClicked(control))
        return false;
    const std::shared_ptr<Form> form = control.Parent().shared_from_this();
    PressMouse(control, button, [] {});
    return true;
}

bool User::ToggleRow(ListBox& list, int row) {
    if (!CanBeChosen(list, row))
        return false;
    const std::shared_ptr<Form> form = list.Parent().shared_from_this();
    if (const int place = PressRow(list, row); place >= 0)
        list.RowToggled(place);
    return true;
}

bool User::CloseWindow(Form& form) {
    if (!form.Visible() || !form.InputEnabled())
        return false;
    form.CloseRequested();
    return true;
}

} // namespace kestrelmoor::practice
