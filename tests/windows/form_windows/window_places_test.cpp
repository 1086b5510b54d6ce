#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

namespace {

class FormPlaces : public ShownForm {
  protected:
    int Resolution() const {
        return static_cast<int>(1440 / Application::Current().CurrentDesktop()->TwipsPerPixelX());
    }

    /// A length in pixels by resolution: at 96, 120, 144 and 192 dots per inch.
    int Expected(int at96, int at120, int at144, int at192) const {
        switch (Resolution()) {
        case 96:
            return at96;
        case 120:
            return at120;
        case 144:
            return at144;
        case 192:
            return at192;
        default:
            ADD_FAILURE() << "not told for " << Resolution() << " dots per inch";
            return 0;
        }
    }

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
    EXPECT_EQ(Client().right, Expected(264, 330, 396, 528));
    EXPECT_EQ(Client().bottom, Expected(260, 325, 390, 520));
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
    EXPECT_EQ(Outer().bottom, before.bottom + Expected(40, 50, 60, 80));
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
    EXPECT_EQ(first.left, Expected(8, 10, 12, 16));
    EXPECT_EQ(second.left - first.right, Expected(8, 10, 12, 16));
    EXPECT_EQ(third.left - second.right, Expected(8, 10, 12, 16));
    EXPECT_EQ(Client().right - third.right, Expected(8, 10, 12, 16));
}

TEST_F(FormPlaces, TheFontHasItsPointsAtEveryResolution) {
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(Send(form->txtFirst, WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(-font.lfHeight, Expected(11, 14, 17, 22));
    form->txtFirst.Font().SetSize(12);
    ::GetObjectW(reinterpret_cast<HFONT>(Send(form->txtFirst, WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(-font.lfHeight, Expected(16, 20, 24, 32));
}

TEST_F(FormPlaces, ALabelThatRunsOnBehindABoxEndsAtItsEdge) {
    Control& label = form->Find(u"lblFirst");
    label.SetWidth(3600);
    EXPECT_EQ(PlaceOnForm(label).right, PlaceOnForm(form->txtFirst).left);
    form->txtFirst.SetVisible(false);
    EXPECT_EQ(PlaceOnForm(label).right, Expected(248, 310, 372, 496));
    form->txtFirst.SetVisible(true);
    EXPECT_EQ(PlaceOnForm(label).right, PlaceOnForm(form->txtFirst).left);
    EXPECT_FLOAT_EQ(label.Width(), 3600);
}

} // namespace

} // namespace kestrelmoor::tests
