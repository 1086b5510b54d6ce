#include "tests/native/support/raised.h"

#include "runtime/forms/application.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

constexpr ControlDesign kControls[] = {
    {.name = u"lblSized",
     .kind = ControlKind::Label,
     .tab_index = 0,
     .place = {120, 240, 0, 0},
     .auto_size = true},
    {.name = u"lblFixed", .kind = ControlKind::Label, .tab_index = 1, .place = {120, 480, 900, 255}},
    {.name = u"lblLink",
     .kind = ControlKind::Label,
     .tab_index = 2,
     .place = {120, 720, 900, 255},
     .tool_tip = u"tip",
     .pointer = mouse_pointer::kCustom,
     .mouse_icon = 2,
     .font_size = 18,
     .bold = true,
     .italic = true},
    {.name = u"picBox", .kind = ControlKind::PictureBox, .tab_index = 3, .place = {120, 960, 720, 720}},
    {.name = u"linRule", .kind = ControlKind::Line, .place = {0, 1800, 3000, 0}},
    {.name = u"shpBand", .kind = ControlKind::Shape, .place = {0, 0, 3000, 1800}},
    {.name = u"tmrTick", .kind = ControlKind::Timer},
};

class Labels : public Form {
  public:
    Labels() : Form({u"frmLabels", u"", 3000, 3000, false, true, false, kControls}) {}
};

/// Measures ten twips for each character and twenty for a line.
class MeasuringPeer : public ControlPeer {
  public:
    explicit MeasuringPeer(const Control& control) : mControl(control) {}
    void Show(Property what) override { shown.push_back(what); }
    WindowHandle Window() const override { return 1; }
    bool MeasureCaption(Twips& width, Twips& height) const override {
        width = static_cast<Twips>(mControl.Caption().size()) * 10;
        height = mControl.Font().Bold() ? 40 : 20;
        return true;
    }

    void Clear() override { ++cleared; }

    std::vector<Property> shown;
    int cleared = 0;

  private:
    const Control& mControl;
};

class PicturesAndLabels : public testing::Test {
  protected:
    ~PicturesAndLabels() override { Application::Current().UnloadAll(); }

    MeasuringPeer& PeerOf(StringView name) {
        auto peer = std::make_unique<MeasuringPeer>(form->Find(name));
        MeasuringPeer& given = *peer;
        form->Find(name).SetPeer(std::move(peer));
        return given;
    }

    std::shared_ptr<Labels> form = Application::Current().Make<Labels>();
    Label& sized = form->Get<Label>(u"lblSized");
};

} // namespace

TEST_F(PicturesAndLabels, ALabelIsSizedByItsCaptionAndByItsFontWhereAWindowShowsIt) {
    sized.SetCaption(u"nobody sees it");
    EXPECT_EQ(sized.Width(), 0);
    PeerOf(u"lblSized");
    sized.SetCaption(u"seven..");
    EXPECT_EQ(sized.Left(), 120);
    EXPECT_EQ(sized.Top(), 240);
    EXPECT_EQ(sized.Width(), 70);
    EXPECT_EQ(sized.Height(), 20);
    sized.Font().SetBold(true);
    EXPECT_EQ(sized.Height(), 40);
}

TEST_F(PicturesAndLabels, AnyOtherLabelKeepsItsSize) {
    PeerOf(u"lblFixed");
    form->Get<Label>(u"lblFixed").SetCaption(u"seven..");
    EXPECT_EQ(form->Find(u"lblFixed").Width(), 900);
}

TEST_F(PicturesAndLabels, TheDesignGivesToolTipPointerAndFont) {
    const Control& link = form->Find(u"lblLink");
    EXPECT_EQ(link.ToolTipText(), u"tip");
    EXPECT_EQ(link.MousePointer(), 99);
    EXPECT_EQ(link.DesignMouseIcon(), 2);
    EXPECT_EQ(link.MouseIcon(), nullptr);
    EXPECT_EQ(link.Font().Size(), 18);
    EXPECT_TRUE(link.Font().Bold());
    EXPECT_TRUE(link.Font().Italic());
    EXPECT_EQ(sized.MousePointer(), 0);
    EXPECT_EQ(sized.Font().Size(), 8.25F);
}

TEST_F(PicturesAndLabels, APointerIsShownAtOnce) {
    class Hand : public Picture {
      public:
        std::uintptr_t Handle() const override { return 7; }
    };
    MeasuringPeer& peer = PeerOf(u"lblLink");
    form->Find(u"lblLink").SetMouseIcon(std::make_shared<Hand>());
    EXPECT_EQ(peer.shown, std::vector<Property>{Property::MousePointer});
    EXPECT_EQ(form->Find(u"lblLink").MouseIcon()->Handle(), 7U);
}

TEST_F(PicturesAndLabels, TimersAndLinesHaveNoBounds) {
    EXPECT_EQ(RaisedNumber([this] { form->Find(u"tmrTick").Bounds(); }), 438);
    EXPECT_EQ(RaisedNumber([this] { form->Find(u"linRule").Bounds(); }), 438);
    EXPECT_EQ(form->Find(u"shpBand").Bounds().height, 1800);
    EXPECT_EQ(form->Find(u"picBox").Bounds().left, 120);
}

TEST_F(PicturesAndLabels, APictureBoxWithoutAWindowHasNothingToDrawInto) {
    auto& box = form->Get<PictureBox>(u"picBox");
    std::vector<std::uintptr_t> contexts;
    box.Paint = [&] {
        box.Clear();
        contexts.push_back(box.DeviceContext());
    };
    box.PaintRequested();
    EXPECT_EQ(contexts, std::vector<std::uintptr_t>{0});
}

TEST_F(PicturesAndLabels, APictureBoxIsClearedInItsWindow) {
    const MeasuringPeer& peer = PeerOf(u"picBox");
    form->Get<PictureBox>(u"picBox").Clear();
    EXPECT_EQ(peer.cleared, 1);
}

TEST_F(PicturesAndLabels, LengthsArePixelsOf15TwipsWithoutADesktop) {
    EXPECT_EQ(form->PixelsX(150), 10);
    EXPECT_EQ(form->PixelsY(22.5F), 1.5F);
}

} // namespace kestrelmoor::tests
