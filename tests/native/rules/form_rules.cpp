#include "tests/native/rules/form_rules.h"

#include "runtime/errors.h"
#include "runtime/forms/user_control.h"
#include "shell/program_state.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kestrelmoor::tests {

namespace {

struct Rectangle {
    Twips left, top, right, bottom;
};

Rectangle PlaceOnForm(const Control& control) {
    Twips width = control.Width();
    Twips height = control.Height();
    Twips text_width = 0;
    Twips text_height = 0;
    // A label covers as much as its text does.
    if (control.Kind() == ControlKind::Label && control.Peer() != nullptr &&
        control.Peer()->MeasureCaption(text_width, text_height)) {
        width = std::min(width, text_width);
        height = std::min(height, text_height);
    }
    Twips left = control.Left();
    Twips top = control.Top();
    for (const Control* holder = control.Container(); holder != nullptr; holder = holder->Container()) {
        left += holder->Left();
        top += holder->Top();
    }
    return {left, top, left + width, top + height};
}

bool Cover(const Rectangle& a, const Rectangle& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool StandsIn(const Control& control, const Control& other) {
    for (const Control* holder = control.Container(); holder != nullptr; holder = holder->Container())
        if (holder == &other)
            return true;
    return false;
}

// Drawn behind all that have a window.
bool IsBackground(const Control& control) {
    return control.Kind() == ControlKind::Line || control.Kind() == ControlKind::Shape;
}

/// An entry that is laid over the row of its list.
bool AreListAndEntry(const Control& control, const Control& other) {
    constexpr std::pair<StringView, StringView> kPairs[] = {{u"lstOldPass", u"txtOldPass"},
                                                            {u"lstServers", u"ucAddComp"}};
    const auto name = [](const Control& one) {
        return StringView(one.Host() != nullptr ? one.Host()->Name() : one.Name());
    };
    return std::ranges::any_of(kPairs, [&](const auto& pair) {
        return (pair.first == name(control) && pair.second == name(other)) ||
               (pair.second == name(control) && pair.first == name(other));
    });
}

bool MayCover(const Control& control, const Control& other) {
    return StandsIn(control, other) || StandsIn(other, control) || AreListAndEntry(control, other);
}

std::vector<const Control*> SeenControls(const Form& form) {
    std::vector<const Control*> seen;
    for (const Control* const control : form.AllControls())
        if (control->Kind() != ControlKind::Timer && !IsBackground(*control) && IsSeen(*control))
            seen.push_back(control);
    return seen;
}

void CheckPlaces(const Form& form, Findings& found) {
    const std::vector<const Control*> seen = SeenControls(form);
    for (auto one = seen.begin(); one != seen.end(); ++one) {
        const Rectangle place = PlaceOnForm(**one);
        found.Expect(place.left >= 0 && place.top >= 0 && place.right <= form.ClientWidth() &&
                         place.bottom <= form.ClientHeight(),
                     "stands inside its window", (*one)->Name());
        for (auto other = one + 1; other != seen.end(); ++other)
            if (!MayCover(**one, **other))
                found.Expect(!Cover(place, PlaceOnForm(**other)), "no control covers another",
                             (*one)->Name() + u" and " + (*other)->Name());
    }
}

void CheckFocus(const Form& form, Findings& found) {
    if (const Control* const holder = form.FocusHolder())
        found.Expect(holder->CanTakeFocus(), "the focus is on a control that can be seen and used",
                     holder->Name());
}

void CheckButtons(const Form& form, Findings& found) {
    int defaults = 0;
    int cancels = 0;
    for (const Control* const control : form.AllControls())
        if (const auto* const button = dynamic_cast<const CommandButton*>(control)) {
            defaults += button->Default() ? 1 : 0;
            cancels += button->Cancel() ? 1 : 0;
        }
    found.Expect(defaults == 1 && cancels == 1, "one default button and one cancel button");
}

/// Labels that keep their text in the tag: with a mark in it, all captions bear theirs or none does.
void CheckCues(const Form& form, Findings& found) {
    bool shown = false;
    bool hidden = false;
    for (const Control* const control : form.AllControls())
        if (control->Kind() == ControlKind::Label && control->Tag().find(u'&') != String::npos)
            (control->Caption() == control->Tag() ? shown : hidden) = true;
    found.Expect(!shown || !hidden, "labels show their accelerators all or none");
}

/// The library's own, asked for once in each language.
const String& LibraryText(std::int16_t number) {
    static std::map<std::pair<std::int16_t, std::int16_t>, String> known;
    if (known.size() > 1000)
        known.clear();
    const std::int16_t language = gLocalizer ? gLocalizer->LanguageID() : std::int16_t{0};
    const auto [text, is_new] = known.try_emplace({language, number});
    if (is_new && gLocalizer) {
        try {
            text->second = gLocalizer->GetText(number);
        } catch (const RuntimeError&) {
            text->second = u"unknown";
        }
    }
    return text->second;
}

} // namespace

String TextOf(std::int16_t number, const StringList& arguments) {
    String text = LibraryText(number);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const String place = u"%" + FromUtf8(std::to_string(i + 1));
        if (const std::size_t at = text.find(place); at != String::npos)
            text.replace(at, place.size(), arguments[i]);
    }
    return text;
}

bool ShowsText(const Control& control, const String& text) {
    String bare = text;
    if (const std::size_t mark = bare.find(u'&'); mark != String::npos)
        bare.erase(mark, 1);
    return control.Caption() == text || control.Caption() == bare;
}

bool IsSeen(const Control& control) {
    for (const Control* one = &control; one != nullptr; one = one->Container())
        if (!one->Visible())
            return false;
    return true;
}

void CheckForm(const Form& form, Findings& found) {
    CheckFocus(form, found);
    CheckButtons(form, found);
    CheckPlaces(form, found);
    if (form.Name() != u"frmAbout")
        CheckCues(form, found);
}

} // namespace kestrelmoor::tests
