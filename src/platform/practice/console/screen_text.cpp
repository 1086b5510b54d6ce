#include "platform/practice/console/screen_text.h"

#include "platform/practice/surfaces.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor::practice {

namespace {

constexpr std::size_t kNameWidth = 16;

template <bool (Control::*state)() const>
bool AllTheWay(const Control& control) {
    for (const Control* holder = &control; holder; holder = holder->Container())
        if (!(holder->*state)())
            return false;
    return true;
}

bool CanBeSeen(const Control& control) {
    const ControlKind kind = control.Kind();
    return AllTheWay<&Control::Visible>(control) && kind != ControlKind::Timer && kind != ControlKind::Line &&
           kind != ControlKind::Shape;
}

/// What a user control is made of stands behind it.
std::pair<int, int> TabPlace(const Control& control) {
    return control.Host() ? std::pair(control.Host()->TabIndex(), control.TabIndex())
                          : std::pair(control.TabIndex(), -1);
}

std::string WithoutMark(const String& caption) {
    String text;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size())
            ++i;
        text.push_back(caption[i]);
    }
    return ToUtf8(text);
}

/// Further lines stand under the first.
std::string Indented(const String& text) {
    std::string lines;
    for (const char16_t c : text) {
        if (c == u'\n')
            lines += "\n" + std::string(kNameWidth + 4, ' ');
        else if (c == u'\t')
            lines += " | ";
        else if (c != u'\r')
            lines += ToUtf8(StringView(&c, 1));
    }
    return lines;
}

std::string Shown(const TextBox& box) {
    if (box.PasswordChar().empty())
        return "\"" + Indented(box.Text()) + "\"";
    String mask;
    for (std::size_t i = 0; i < box.Text().size(); ++i)
        mask += box.PasswordChar();
    return "\"" + ToUtf8(mask) + "\"";
}

std::string Shown(const RowControl& list) {
    const char* const kind = list.Kind() == ControlKind::ComboBox ? "drop-down list of " : "list of ";
    std::string lines = kind + std::to_string(list.ListCount());
    const auto* const checked = dynamic_cast<const ListBox*>(&list);
    for (int row = 0; row < list.ListCount(); ++row) {
        lines += "\n" + std::string(kNameWidth + 2, ' ') + (row == list.ListIndex() ? "* " : "  ");
        if (checked && checked->Style() == ListStyle::CheckBoxes)
            lines += checked->Selected(row) ? "[x] " : "[ ] ";
        lines += std::to_string(row) + ": " + Indented(list.List(row));
    }
    return lines;
}

std::string Shown(const PictureBox& box) {
    std::string icons;
    for (const DrawnIcon& icon : Surfaces::Current().On(box))
        icons +=
            "(icon " + std::to_string(icon.image.width) + " x " + std::to_string(icon.image.height) + ")";
    return icons;
}

std::string Content(const Control& control) {
    if (const auto* const box = dynamic_cast<const TextBox*>(&control))
        return Shown(*box);
    if (const auto* const list = dynamic_cast<const RowControl*>(&control))
        return Shown(*list);
    if (const auto* const check = dynamic_cast<const CheckBox*>(&control))
        return (check->Value() != 0 ? "[x] " : "[ ] ") + WithoutMark(check->Caption());
    if (control.Kind() == ControlKind::CommandButton)
        return "[" + WithoutMark(control.Caption()) + "]";
    if (const auto* const box = dynamic_cast<const PictureBox*>(&control))
        return Shown(*box);
    return control.HasCaption() ? WithoutMark(control.Caption()) : "";
}

std::string Marks(const Control& control) {
    std::string marks;
    const auto add = [&](bool applies, const char* word) {
        marks += applies ? std::string(" (") + word + ")" : "";
    };
    add(!AllTheWay<&Control::Enabled>(control), "disabled");
    add(control.Font().Underline(), "underlined");
    if (const auto* const button = dynamic_cast<const CommandButton*>(&control)) {
        add(button->Default(), "default");
        add(button->Cancel(), "cancel");
    }
    if (const auto* const box = dynamic_cast<const TextBox*>(&control))
        add(box->Locked(), "locked");
    return marks;
}

} // namespace

std::string TextOfScreen(const Form& form) {
    std::vector<const Control*> seen;
    for (const Control* const control : form.AllControls())
        if (CanBeSeen(*control))
            seen.push_back(control);
    std::stable_sort(seen.begin(), seen.end(),
                     [](const Control* a, const Control* b) { return TabPlace(*a) < TabPlace(*b); });

    std::string text = "=== " + ToUtf8(form.Caption()) + " (" + ToUtf8(form.Name()) + ")" +
                       (form.MousePointer() == mouse_pointer::kHourglass ? " (busy)" : "") + "\n";
    for (const Control* const control : seen) {
        std::string name = (control->Host() ? "  " : "") + ToUtf8(control->Name());
        name.resize(std::max(kNameWidth, name.size() + 1), ' ');
        text +=
            (control == form.FocusHolder() ? "> " : "  ") + name + Content(*control) + Marks(*control) + "\n";
    }
    return text;
}

std::string TextOfBrowse(const BrowseDialog& dialog) {
    std::string text = "--- " + ToUtf8(dialog.Prompt()) + "\n";
    int row = 0;
    for (const ItemPath& path : dialog.Rows())
        text += std::to_string(row++) + ": " + std::string(2 * path.size(), ' ') +
                ToUtf8(dialog.Tree().Find(path)->name) + "\n";
    return text + "--- pick one of them or cancel\n";
}

std::string TextOfBox(const Box& box) {
    const char* const button = box.answer == 6   ? "Yes"
                               : box.answer == 7 ? "No"
                               : box.answer == 2 ? "Cancel"
                                                 : "OK";
    return "--- " + ToUtf8(box.title) + "\n" + ToUtf8(box.text) + "\n--- answered with " + button + "\n";
}

} // namespace kestrelmoor::practice
