#include "platform/window_messages.h"
#include "tests/windows/form_windows/pixels_shown.h"

#include <cmath>

namespace kestrelmoor::tests {

namespace {

constexpr Colour kWhite = 0xFFFFFF;
constexpr Colour kYellow = 0xBFFFFF;

/// A list with a second column at 89 dialog units, and a box without a border over that column of its row 1.
/// The places are those of the password window.
class FormPlacesInPlace : public ShownForm {
  protected:
    void SetUp() override {
        ShownForm::SetUp();
        form->SetHeight(form->Height() + 1500);
        list.Move(120, 2040, 4935, 1260);
        form->SetBackColor(kWhite);
        list.SetBackColor(kWhite);
        list.SetTabStops({89});
        for (const char16_t* const row : {u"a\tHH", u"b\tHH", u"c\tHH"})
            list.AddItem(row);
        box.SetBorderStyle(0);
        box.SetBackColor(kYellow);
        box.SetText(u"HH");
        PlaceBox();
    }

    void PlaceBox() {
        const platform::PixelRectangle row = RowOnForm(1);
        const Twips twips = Application::Current().CurrentDesktop()->TwipsPerPixelY();
        box.Move(2160, static_cast<Twips>(row.top) * twips, 1200,
                 static_cast<Twips>(row.bottom - row.top) * twips);
        hand->Settle();
    }

    platform::PixelRectangle RowOnForm(int row) const {
        return platform::MapWindowPoints(list.Peer()->Window(), form->Window(),
                                         platform::GetListItemRectangle(list.Peer()->Window(), row).value());
    }

    /// Where the second column's text begins in row 0, and where the box's text does, on the form.
    int ColumnInList() const {
        const auto row = platform::GetListItemRectangle(list.Peer()->Window(), 0).value();
        const int behind_name = static_cast<int>(row.right) / 8;
        const int edge = static_cast<int>(RowOnForm(0).left - row.left);
        return edge + PixelsShown(WindowOf(list)).FirstInk(behind_name, row.top, row.bottom);
    }
    int ColumnInBox() const {
        RECT client{};
        ::GetClientRect(WindowOf(box), &client);
        return static_cast<int>(PlaceOnForm(box).left) +
               PixelsShown(WindowOf(box)).FirstInk(0, 1, static_cast<int>(client.bottom) - 1);
    }

    ListBox& list = form->lstRows;
    TextBox& box = form->txtSecond;
};

// Two pixels at 96 dots per inch.
TEST_F(FormPlacesInPlace, TheTextOfTheBoxStandsUnderTheSecondColumn) {
    const auto most =
        static_cast<int>(std::lround(30 / Application::Current().CurrentDesktop()->TwipsPerPixelX()));
    EXPECT_NEAR(ColumnInList(), ColumnInBox(), most);
    for (const float size : {7.0F, 10.0F}) {
        list.Font().SetSize(size);
        box.Font().SetSize(size);
        PlaceBox();
        EXPECT_NEAR(ColumnInList(), ColumnInBox(), most) << size;
    }
}

TEST_F(FormPlacesInPlace, TheBoxLiesOnTopOfTheList) {
    EXPECT_EQ(PixelsShown(WindowOf(box)).InCorner(), kYellow);
    ::InvalidateRect(WindowOf(list), nullptr, TRUE);
    ::UpdateWindow(WindowOf(list));
    EXPECT_EQ(PixelsShown(WindowOf(box)).InCorner(), kYellow);
    box.SetVisible(false);
    hand->Settle();
    const RECT place = PlaceOnForm(box);
    EXPECT_EQ(PixelsShown(WindowOf(*form))
                  .At(static_cast<int>(place.right) - 3, static_cast<int>(place.bottom) - 3),
              kWhite);
}

} // namespace

} // namespace kestrelmoor::tests
