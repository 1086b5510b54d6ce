#include "platform/practice/window_manners.h"

#include "platform/practice/list_views.h"
#include "runtime/forms/application.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

constexpr int kDelete = 46;
constexpr char16_t kFirstPrintable = 32;
constexpr Twips kRowHeight = 195;

bool IsHigh(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLow(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// How many units the character ahead of or behind a place takes; 0 at the end of the text.
int UnitsBefore(StringView text, int place) {
    const auto at = static_cast<std::size_t>(place);
    if (at == 0)
        return 0;
    return at >= 2 && IsLow(text[at - 1]) && IsHigh(text[at - 2]) ? 2 : 1;
}

int UnitsBehind(StringView text, int place) {
    const auto at = static_cast<std::size_t>(place);
    if (at == text.size())
        return 0;
    return at + 1 < text.size() && IsHigh(text[at]) && IsLow(text[at + 1]) ? 2 : 1;
}

void Replace(TextBox& box, int start, int length, StringView text) {
    if (box.Locked())
        return;
    String edited = box.Text();
    edited.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), text);
    box.Edited(edited, start + static_cast<int>(text.size()));
}

void DeleteFrom(TextBox& box, bool backward) {
    const int start = box.SelStart();
    if (const int length = box.SelLength(); length > 0)
        return Replace(box, start, length, {});
    const int units = backward ? UnitsBefore(box.Text(), start) : UnitsBehind(box.Text(), start);
    Replace(box, backward ? start - units : start, units, {});
}

void TakeEditKey(TextBox& box, int nKeyCode) {
    const int start = box.SelStart();
    const int end = start + box.SelLength();
    switch (nKeyCode) {
    case kDelete:
        return DeleteFrom(box, false);
    case key::kHome:
        return box.SetSelStart(0);
    case key::kEnd:
        return box.SetSelStart(static_cast<int>(box.Text().size()));
    case key::kLeft:
        return box.SetSelStart(end > start ? start : start - UnitsBefore(box.Text(), start));
    case key::kRight:
        return box.SetSelStart(end > start ? end : end + UnitsBehind(box.Text(), end));
    default:
        return;
    }
}

void TakeEditCharacter(TextBox& box, char16_t character) {
    if (character == key::kBack)
        return DeleteFrom(box, true);
    if (character == key::kReturn)
        return Replace(box, box.SelStart(), box.SelLength(), u"\r\n");
    if (character >= kFirstPrintable)
        Replace(box, box.SelStart(), box.SelLength(), StringView(&character, 1));
}

void GoToRow(RowControl& list, int row) {
    const int target = std::clamp(row, 0, list.ListCount() - 1);
    if (target == list.ListIndex())
        return;
    auto* const rows = dynamic_cast<ListBox*>(&list);
    if (rows)
        ListViews::Current().Reveal(*rows, target);
    list.RowChosen(target);
    if (rows)
        ListViews::Current().Tell(*rows);
}

void TakeListKey(RowControl& list, int nKeyCode) {
    if (list.ListCount() == 0)
        return;
    const int page = std::max(1, static_cast<int>(list.Height() / kRowHeight) - 1);
    const int current = list.ListIndex();
    switch (nKeyCode) {
    case key::kUp:
    case key::kLeft:
        return GoToRow(list, current - 1);
    case key::kDown:
    case key::kRight:
        return GoToRow(list, current + 1);
    case key::kPageUp:
        return GoToRow(list, current - page);
    case key::kPageDown:
        return GoToRow(list, current + page);
    case key::kHome:
        return GoToRow(list, 0);
    case key::kEnd:
        return GoToRow(list, list.ListCount() - 1);
    default:
        return;
    }
}

bool Begins(const String& row, char16_t character) {
    return !row.empty() &&
           Application::Current().CompareRows(row.substr(0, 1), StringView(&character, 1)) == 0;
}

void TakeListCharacter(RowControl& list, char16_t character) {
    if (auto* const marks = dynamic_cast<ListBox*>(&list);
        marks != nullptr && marks->Style() == ListStyle::CheckBoxes && character == key::kSpace)
        return marks->RowToggled(list.ListIndex());
    const int count = list.ListCount();
    for (int step = 1; step <= count; ++step) {
        const int row = (list.ListIndex() + step) % count;
        if (Begins(list.List(row), character))
            return GoToRow(list, row);
    }
}

} // namespace

void TakeKey(Control& control, int nKeyCode) {
    if (auto* const box = dynamic_cast<TextBox*>(&control))
        TakeEditKey(*box, nKeyCode);
    else if (auto* const list = dynamic_cast<RowControl*>(&control))
        TakeListKey(*list, nKeyCode);
    else if (nKeyCode == key::kSpace)
        TakeClick(control);
}

void TakeCharacter(Control& control, char16_t character) {
    if (auto* const box = dynamic_cast<TextBox*>(&control))
        TakeEditCharacter(*box, character);
    else if (auto* const list = dynamic_cast<RowControl*>(&control))
        TakeListCharacter(*list, character);
}

void TakePress(Control& control) {
    if (auto* const box = dynamic_cast<TextBox*>(&control))
        box->SetSelStart(static_cast<int>(box->Text().size()));
}

void TakeClick(Control& control) {
    if (auto* const button = dynamic_cast<CommandButton*>(&control))
        button->Pressed();
    else if (auto* const box = dynamic_cast<CheckBox*>(&control))
        box->Pressed();
}

} // namespace kestrelmoor::practice
