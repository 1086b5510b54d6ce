#include "platform/pictures.h"

#include "platform/mouse_pointer.h"
#include "platform/version_record.h"
#include "tests/windows/form_windows/pixels_shown.h"

#include <commctrl.h>

namespace kestrelmoor::tests {

namespace {

constexpr Colour kBand = 0xDEC4B0;
constexpr Colour kRed = 0x0000FF;
constexpr Colour kGreen = 0x00FF00;

constexpr ControlDesign kControls[] = {
    {.name = u"lblBand",
     .kind = ControlKind::Label,
     .tab_index = 0,
     .place = {150, 150, 900, 300},
     .text = u"x",
     .transparent = true},
    {.name = u"lblSized",
     .kind = ControlKind::Label,
     .tab_index = 1,
     .place = {150, 1200, 0, 0},
     .auto_size = true,
     .transparent = true,
     .tool_tip = u"tip"},
    {.name = u"picBox",
     .kind = ControlKind::PictureBox,
     .tab_index = 2,
     .place = {1500, 150, 720, 720},
     .border = false,
     .back_colour = kGreen},
    {.name = u"linRule", .kind = ControlKind::Line, .place = {0, 1050, 3000, 0}, .fore_colour = kRed},
    {.name = u"shpBand", .kind = ControlKind::Shape, .place = {0, 0, 3000, 1050}, .back_colour = kBand},
};

class DrawnForm : public Form {
  public:
    DrawnForm() : Form({u"frmDrawn", u"", 3000, 3000, false, true, false, kControls}) {}
};

class Pictures : public testing::Test {
  protected:
    Pictures() {
        box.Paint = [this] {
            ++paints;
            if (icon)
                drawn = platform::DrawIconEx(box.DeviceContext(), 0, 0, icon, 0, 0, platform::kDrawNormal);
        };
        form->Show();
        hand->Settle();
    }
    ~Pictures() override { Application::Current().UnloadAll(); }

    std::unique_ptr<Hand> hand = MakeHand();
    std::shared_ptr<DrawnForm> form = Application::Current().Make<DrawnForm>();
    PictureBox& box = form->Get<PictureBox>(u"picBox");
    platform::OwnedIcon icon;
    int paints = 0;
    bool drawn = false;
};

} // namespace

TEST_F(Pictures, AFormShowsItsShapesAndLinesBehindItsControls) {
    const PixelsShown shown(WindowOf(*form));
    const int rule = AtResolution(70, 88, 105, 140);
    const int width = AtResolution(1, 1, 2, 2);
    EXPECT_EQ(shown.At(1, 1), kBand);
    EXPECT_EQ(shown.At(1, rule - 1), kBand);
    EXPECT_EQ(shown.At(1, rule), kRed);
    EXPECT_EQ(shown.At(AtResolution(199, 249, 299, 399), rule + width - 1), kRed);
    EXPECT_EQ(shown.At(1, rule + width), ::GetSysColor(COLOR_BTNFACE));
    const PixelsShown label(WindowOf(form->Find(u"lblBand")));
    EXPECT_EQ(label.InCorner(), kBand);
}

TEST_F(Pictures, AColourOrAPlaceOfALineIsShownAtOnce) {
    form->Find(u"linRule").SetForeColor(kGreen);
    form->Find(u"shpBand").SetVisible(false);
    const PixelsShown shown(WindowOf(*form));
    EXPECT_EQ(shown.At(1, AtResolution(70, 88, 105, 140)), kGreen);
    EXPECT_EQ(shown.At(1, 1), ::GetSysColor(COLOR_BTNFACE));
}

TEST_F(Pictures, APictureBoxIsPaintedAtEveryRequestUponItsColour) {
    EXPECT_GT(paints, 0);
    EXPECT_EQ(box.DeviceContext(), 0U);
    EXPECT_EQ(PixelsShown(WindowOf(box)).At(24, 24), kGreen);
    icon = platform::LoadIconImage(1, 48, 48);
    paints = 0;
    ::InvalidateRect(WindowOf(box), nullptr, TRUE);
    const PixelsShown shown(WindowOf(box));
    EXPECT_EQ(paints, 1);
    EXPECT_TRUE(drawn);
    EXPECT_NE(shown.At(24, 24), kGreen);
    EXPECT_EQ(shown.At(0, 0), kGreen);
}

TEST_F(Pictures, ALabelIsAsLargeAsItsCaption) {
    auto& sized = form->Get<Label>(u"lblSized");
    sized.SetCaption(u"w");
    const Twips one = sized.Width();
    sized.SetCaption(u"wwww");
    EXPECT_NEAR(sized.Width(), 4 * one, one);
    const RECT place = PlaceOnForm(sized);
    EXPECT_EQ(static_cast<float>(place.right - place.left), form->PixelsX(sized.Width()));
    const Twips height = sized.Height();
    sized.Font().SetSize(18);
    EXPECT_GT(sized.Height(), 1.5F * height);
}

TEST_F(Pictures, AToolTipIsKnownToTheSystem) {
    const HWND tips = ::FindWindowW(TOOLTIPS_CLASSW, nullptr);
    ASSERT_NE(tips, nullptr);
    EXPECT_EQ(::SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 1);
    form->Find(u"lblSized").SetToolTipText(u"");
    EXPECT_EQ(::SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 0);
}

TEST(ProgramPictures, APictureOfThePointerHasItsHandle) {
    SharedPicture picture;
    const std::uintptr_t hand = platform::LoadCursorW(platform::kHandPointer);
    ASSERT_NE(hand, 0U);
    ASSERT_GE(platform::OleCreatePictureIndirect({20, platform::kIconPicture, hand}, true, picture), 0);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Handle(), hand);
}

TEST(ProgramPictures, TheProgramHoldsAHandOfItsOwn) {
    EXPECT_NE(::LoadCursorW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(2)), nullptr);
}

TEST(ProgramPictures, TheVersionRecordIsReadFromTheExecutable) {
    const platform::VersionRecord record = platform::ReadVersionRecord();
    EXPECT_EQ(record.title, u"Kestrelmoor");
    EXPECT_EQ(record.legal_notice, u"Free software under the MIT licence, without any warranty");
    EXPECT_EQ(record.major, 1);
    EXPECT_EQ(record.minor, 2);
    EXPECT_EQ(record.revision, 84);
}

} // namespace kestrelmoor::tests
