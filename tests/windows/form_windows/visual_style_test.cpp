#include "platform/visual_style.h"

#include "runtime/errors.h"
#include "tests/form_model_shared/entry_form.h"
#include "tests/windows/form_windows/pixels_shown.h"

namespace kestrelmoor::tests {

namespace {

using namespace platform;

class FormStyle : public ShownForm {};

TEST_F(FormStyle, CanBeAskedFor) {
    EXPECT_NO_THROW(IsAppThemed());
    const std::uint32_t before = GetThemeAppProperties();
    SetThemeAppProperties(2);
    EXPECT_EQ(GetThemeAppProperties(), 2U);
    SetThemeAppProperties(before);
    EXPECT_EQ(static_cast<bool>(OpenThemeData(form->Window(), u"WINDOW")), IsThemeActive());
    EXPECT_FALSE(OpenThemeData(form->Window(), u"KestrelmoorHasNoSuchClass"));
}

TEST_F(FormStyle, ColoursAreTheSystemsWhereThereIsNoTheme) {
    EXPECT_EQ(GetThemeSysColor(OwnedTheme(), COLOR_WINDOW), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(platform::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_BTNFACE));
}

/// With the style's library out of reach; run by name.
TEST(VisualStyle, DISABLED_RaisesInEachCallWithoutItsLibrary) {
    const auto number_of = [](const auto& call) {
        try {
            call();
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(number_of([] { IsAppThemed(); }), 53);
    EXPECT_EQ(number_of([] { IsThemeActive(); }), 53);
    EXPECT_EQ(number_of([] { GetThemeAppProperties(); }), 53);
    EXPECT_EQ(number_of([] { SetThemeAppProperties(0); }), 53);
    EXPECT_EQ(number_of([] { OpenThemeData(0, u"WINDOW"); }), 53);
    EXPECT_EQ(number_of([] { GetThemeSysColor(OwnedTheme(), 5); }), 53);
}

HICON AnIcon() {
    const BYTE bits[32]{};
    return ::CreateIcon(nullptr, 16, 16, 1, 1, bits, bits);
}

bool IsIcon(HICON icon) {
    ICONINFO information{};
    if (!::GetIconInfo(icon, &information))
        return false;
    ::DeleteObject(information.hbmMask);
    ::DeleteObject(information.hbmColor);
    return true;
}

class FormIcons : public ShownForm {
  protected:
    void Give(std::uint32_t size, HICON icon) {
        SetWindowIcon(form->Window(), size, OwnedIcon(reinterpret_cast<IconTraits::Value>(icon)));
    }
};

TEST_F(FormIcons, AreTheWindowsOwnUntilOthersCome) {
    const HICON first = AnIcon();
    const HICON second = AnIcon();
    Give(ICON_BIG, first);
    EXPECT_EQ(::SendMessageW(WindowOf(*form), WM_GETICON, ICON_BIG, 0), reinterpret_cast<LRESULT>(first));
    EXPECT_TRUE(IsIcon(first));
    Give(ICON_BIG, second);
    EXPECT_FALSE(IsIcon(first));
    EXPECT_TRUE(IsIcon(second));
}

TEST_F(FormIcons, GoWithTheForm) {
    const HICON small = AnIcon();
    const HICON big = AnIcon();
    Give(ICON_SMALL, small);
    Give(ICON_BIG, big);
    form->Unload();
    EXPECT_FALSE(IsIcon(small));
    EXPECT_FALSE(IsIcon(big));
}

TEST_F(FormIcons, ForAWindowThatIsNotThereGoAtOnce) {
    const HICON icon = AnIcon();
    SetWindowIcon(0, ICON_BIG, OwnedIcon(reinterpret_cast<IconTraits::Value>(icon)));
    EXPECT_FALSE(IsIcon(icon));
}

TEST_F(FormIcons, OfTheProgramComeInTheSizeAskedFor) {
    for (const int size : {16, 32, 48}) {
        const OwnedIcon icon = LoadIconImage(1, size, size);
        ASSERT_TRUE(icon) << size;
        ICONINFO information{};
        ASSERT_TRUE(::GetIconInfo(reinterpret_cast<HICON>(icon.Get()), &information));
        BITMAP shape{};
        ::GetObjectW(information.hbmMask, sizeof shape, &shape);
        EXPECT_EQ(shape.bmWidth, size);
        ::DeleteObject(information.hbmMask);
        ::DeleteObject(information.hbmColor);
    }
    EXPECT_FALSE(LoadIconImage(99, 16, 16));
}

class FormColours : public ShownForm {
  protected:
    COLORREF Shown(const Control& control) {
        hand->Settle();
        return PixelsShown(WindowOf(control)).InCorner();
    }
};

constexpr Colour kTint = 0xBFFFFF;

TEST_F(FormColours, AreShownByEveryKindButButtons) {
    Control* const controls[] = {&form->Find(u"lblFirst"), &form->txtFirst, &form->chkMark, &form->lstRows};
    for (Control* const control : controls) {
        control->SetBackColor(kTint);
        EXPECT_EQ(Shown(*control), kTint) << ToUtf8(control->Name());
    }
}

// With a style a frame lets its form shine through: the two are given the same colour.
TEST_F(FormColours, AreShownByTheFormAndItsFrames) {
    form->SetBackColor(kTint);
    form->fraGroup.SetBackColor(kTint);
    hand->Settle();
    const RECT frame = PlaceOnForm(form->fraGroup);
    const RECT inside = PlaceOnForm(form->txtInside);
    EXPECT_EQ(PixelsShown(WindowOf(form->fraGroup)).At(4, static_cast<int>(inside.bottom - frame.top) + 3),
              kTint);
    EXPECT_EQ(PixelsShown(WindowOf(*form)).InCorner(), kTint);
}

using DropDownColours = Shown<EntryForm>;

// The opened list is a window of its own, beside the form.
TEST_F(DropDownColours, AreThoseOfTheOpenedListToo) {
    form->cbTongue.AddItem(u"Welsh");
    form->cbTongue.SetBackColor(kTint);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(::GetComboBoxInfo(WindowOf(form->cbTongue), &parts));
    ::SendMessageW(WindowOf(form->cbTongue), CB_SHOWDROPDOWN, TRUE, 0);
    hand->Settle();
    const COLORREF opened = PixelsShown(parts.hwndList).InCorner();
    ::SendMessageW(WindowOf(form->cbTongue), CB_SHOWDROPDOWN, FALSE, 0);
    EXPECT_EQ(opened, kTint);
}

TEST_F(FormColours, ReferencesFollowTheSystem) {
    const INT index = COLOR_WINDOW;
    const COLORREF before = ::GetSysColor(index);
    const COLORREF green = 0xC0FFC0;
    form->lstRows.SetBackColor(system_colour::kWindow);
    form->txtFirst.SetBackColor(system_colour::kWindow);
    EXPECT_EQ(Shown(form->lstRows), before);
    ::SetSysColors(1, &index, &green);
    const COLORREF list = Shown(form->lstRows);
    const COLORREF box = Shown(form->txtFirst);
    ::SetSysColors(1, &index, &before);
    EXPECT_EQ(list, green);
    EXPECT_EQ(box, green);
    EXPECT_EQ(Shown(form->lstRows), before);
}

} // namespace

} // namespace kestrelmoor::tests
