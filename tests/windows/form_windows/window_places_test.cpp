#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

namespace {

class FormPlaces : public ShownForm {
  protected:
    RECT Client() const {
        RECT client{};
        ::GetClientRect(WindowOf(*form), &client);
        return client;
    }

    RECT Outer() const {
        RECT outer{};
        ::GetWindowRect(WindowOf(*form), &outer);
        return outer;
    }
};

// 3960 by 3900 twips.
TEST_F(FormPlaces, TheClientAreaIsExact) {
    EXPECT_EQ(Client().right, AtResolution(264, 330, 396, 528));
    EXPECT_EQ(Client().bottom, AtResolution(260, 325, 390, 520));
}

TEST_F(FormPlaces, TheFrameIsWhatTheOuterHeightAdds) {
    const float twips = Application::Current().CurrentDesktop()->TwipsPerPixelY();
    EXPECT_FLOAT_EQ(form->Height(), static_cast<float>(Outer().bottom - Outer().top) * twips);
}

// 600 twips more.
TEST_F(FormPlaces, AnotherHeightLeavesTheTopLeftCorner) {
    const RECT before = Outer();
    form->SetHeight(form->Height() + 600);
    EXPECT_EQ(Outer().left, before.left);
    EXPECT_EQ(Outer().top, before.top);
    EXPECT_EQ(Outer().bottom, before.bottom + AtResolution(40, 50, 60, 80));
}

TEST_F(FormPlaces, TheFormStandsInTheMiddleOfTheScreen) {
    RECT screen{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_NEAR(Outer().left - screen.left, screen.right - Outer().right, 1);
    EXPECT_NEAR(Outer().top - screen.top, screen.bottom - Outer().bottom, 1);
}

// 120 twips between the buttons, which begin at 120, 1395 and 2670.
TEST_F(FormPlaces, EqualGapsAreEqualInPixels) {
    const RECT first = PlaceOnForm(form->cmdOK);
    const RECT second = PlaceOnForm(form->cmdCancel);
    const RECT third = PlaceOnForm(form->cmdMore);
    EXPECT_EQ(first.left, AtResolution(8, 10, 12, 16));
    EXPECT_EQ(second.left - first.right, AtResolution(8, 10, 12, 16));
    EXPECT_EQ(third.left - second.right, AtResolution(8, 10, 12, 16));
    EXPECT_EQ(Client().right - third.right, AtResolution(8, 10, 12, 16));
}

TEST_F(FormPlaces, TheFontHasItsPointsAtEveryResolution) {
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(Send(form->txtFirst, WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(-font.lfHeight, AtResolution(11, 14, 17, 22));
    form->txtFirst.Font().SetSize(12);
    ::GetObjectW(reinterpret_cast<HFONT>(Send(form->txtFirst, WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(-font.lfHeight, AtResolution(16, 20, 24, 32));
}

TEST_F(FormPlaces, ALabelThatRunsOnBehindABoxEndsAtItsEdge) {
    Control& label = form->Find(u"lblFirst");
    label.SetWidth(3600);
    EXPECT_EQ(PlaceOnForm(label).right, PlaceOnForm(form->txtFirst).left);
    form->txtFirst.SetVisible(false);
    EXPECT_EQ(PlaceOnForm(label).right, AtResolution(248, 310, 372, 496));
    form->txtFirst.SetVisible(true);
    EXPECT_EQ(PlaceOnForm(label).right, PlaceOnForm(form->txtFirst).left);
    EXPECT_FLOAT_EQ(label.Width(), 3600);
}

} // namespace

} // namespace kestrelmoor::tests
