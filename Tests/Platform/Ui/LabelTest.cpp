#include "Label.h"

#include "FadingName.h"
#include "RollingText.h"
#include "Separator.h"
#include "Stack.h"
#include "ThemeSource.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>

namespace platform {
namespace {

constexpr Spring testSpring { .response = 0.32, .dampingFraction = 0.85, .blendDuration = 0 };
const TextStyle body { .size = 11 };
const TextStyle code { .size = 13, .design = FontDesign::monospaced };

/// How many pixels of a picture differ from its first one.
int inkIn(const QImage& image)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ink += image.pixel(x, y) != image.pixel(0, 0);
    }
    return ink;
}

TEST(Fonts, EachSizeHasItsLineHeight)
{
    for (const auto& [size, height] : { std::pair(24, 29), std::pair(15, 18), std::pair(14, 17),
             std::pair(13, 16), std::pair(12, 15), std::pair(11, 14), std::pair(10, 13),
             std::pair(9, 11), std::pair(22, 27) })
        EXPECT_EQ(lineHeightOf(size), height) << size;
}

TEST(Label, CutsWhatDoesNotFitAndKeepsTheWholeTextForReaders)
{
    Label label(body, &Theme::text, QStringLiteral("A rather long name of a colour"));
    const auto full = label.sizeHint();
    EXPECT_EQ(full.height(), 14);
    EXPECT_LE(label.minimumSizeHint().width(), 0);
    label.resize(full);
    const auto whole = inkIn(label.grab().toImage());
    label.resize(full.width() / 2, 14);
    const auto cut = inkIn(label.grab().toImage());
    EXPECT_GT(cut, whole / 4);
    EXPECT_LT(cut, whole * 3 / 4);
    auto* accessible = QAccessible::queryAccessibleInterface(&label);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
    EXPECT_EQ(accessible->text(QAccessible::Name), label.text());
}

TEST(Label, CutsATextThatRunsToTheLeftOnItsLeft)
{
    Label label({ .size = 24 }, &Theme::text, QString(40, QChar(0x05DD)));
    label.resize(120, 29);
    const auto image = label.grab().toImage();
    const auto upperInk = [&](int left) { return inkIn(image.copy(left, 0, 8, 20)); };
    EXPECT_EQ(upperInk(0), 0) << "The dots of the ellipsis stand on the baseline";
    EXPECT_GT(upperInk(100), 0);
}

TEST(Label, WrapsAtItsWidthInLinesOfItsHeight)
{
    Label label({ .size = 11, .lineHeight = 15 }, &Theme::secondary);
    label.setWrapWidth(100);
    label.setText(QStringLiteral("one two three four five six seven eight nine ten"));
    const auto lines = label.sizeHint().height() / 15;
    EXPECT_GE(lines, 2);
    EXPECT_EQ(label.sizeHint(), QSize(100, lines * 15));
    label.setText(QStringLiteral("one"));
    EXPECT_EQ(label.sizeHint(), QSize(100, 15));
}

TEST(Label, FollowsTheTheme)
{
    Label label({ .size = 24 }, &Theme::text, QStringLiteral("■"));
    label.resize(label.sizeHint());
    for (const auto appearance : { Appearance::dark, Appearance::light }) {
        ThemeSource::instance().setDesktopPreferences({ appearance, false });
        const auto middle = label.rect().center();
        EXPECT_EQ(label.grab().toImage().pixelColor(middle), themeOf(appearance).text);
    }
}

class RollingTextTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        clock_.holdTime();
        text_.setText(QStringLiteral("#6E56CF"));
        text_.resize(text_.sizeHint());
        text_.show();
    }
    void TearDown() override { clock_.releaseTime(); }

    MotionClock& clock_ = MotionClock::instance();
    RollingText text_ { code };
};

TEST_F(RollingTextTest, MovesOnlyChangedCellsEachALittleLaterThanTheOneToItsLeft)
{
    text_.rollTo(QStringLiteral("#F2C14E"), testSpring);
    clock_.advance(0.1);
    EXPECT_EQ(text_.cellProgress(0), 1);
    for (int i = 1; i < 7; ++i) {
        EXPECT_NEAR(text_.cellProgress(i), springProgress(0.1 - 0.018 * i, testSpring), 1e-12);
    }
    EXPECT_LT(text_.cellProgress(6), text_.cellProgress(1));
    clock_.advance(0.45);
    EXPECT_TRUE(text_.isMoving());
    clock_.advance(0.02);
    EXPECT_FALSE(text_.isMoving());
    EXPECT_EQ(text_.text(), QStringLiteral("#F2C14E"));
}

TEST_F(RollingTextTest, LooksLikePlainTextBeforeAndAfter)
{
    const auto before = text_.grab().toImage();
    text_.rollTo(QStringLiteral("#6E56C0"), testSpring);
    const auto atStart = text_.grab().toImage();
    EXPECT_EQ(atStart.copy(0, 0, 20, 16), before.copy(0, 0, 20, 16));
    clock_.advance(0.2);
    EXPECT_NE(text_.grab().toImage(), before);
    clock_.advance(1);
    RollingText plain(code, &Theme::text, QStringLiteral("#6E56C0"));
    plain.resize(text_.size());
    EXPECT_EQ(text_.grab().toImage(), plain.grab().toImage());
}

TEST(FadingName, ShowsTheOldTextFirstAndTheNewOneAtTheEnd)
{
    auto& clock = MotionClock::instance();
    clock.holdTime();
    FadingName name({ .size = 24, .weight = QFont::DemiBold, .letterSpacing = -0.3 });
    name.setText(QStringLiteral("Violet"));
    name.resize(200, 29);
    name.show();
    const auto old = name.grab().toImage();
    name.fadeTo(QStringLiteral("Pale Gold"), testSpring);
    EXPECT_EQ(name.grab().toImage(), old);
    clock.advance(0.2);
    EXPECT_NE(name.grab().toImage(), old);
    clock.advance(0.3);
    Label plain(name.textStyle(), &Theme::text, QStringLiteral("Pale Gold"));
    plain.resize(200, 29);
    EXPECT_EQ(name.grab().toImage(), plain.grab().toImage());
    EXPECT_EQ(name.readText(), QStringLiteral("Pale Gold"));
    clock.releaseTime();
}

TEST(Stack, PlacesItemsWithSpacingPaddingAndRoom)
{
    auto* name = new Label({ .size = 14 }, &Theme::text, QStringLiteral("Name"));
    auto* date = new Label({ .size = 10 }, &Theme::text, QStringLiteral("Date"));
    auto* line = new Separator(18, 0);
    auto* end = new QWidget;
    end->setFixedSize(26, 24);
    QWidget page;
    auto* row = hstack(8, { vstack(2, { name, date }), spacer(), end });
    page.setLayout(vstack(0, { padded(row, 18, 10), line }, Qt::AlignLeading));
    page.resize(300, page.sizeHint().height());
    page.show();
    QApplication::processEvents();
    EXPECT_EQ(name->geometry().topLeft(), QPoint(18, 10));
    EXPECT_EQ(date->y(), 10 + 17 + 2);
    EXPECT_EQ(date->width(), date->sizeHint().width());
    EXPECT_EQ(end->geometry(), QRect(300 - 18 - 26, 14, 26, 24));
    EXPECT_EQ(line->geometry().left(), 0);
    EXPECT_EQ(line->width(), 300);
    EXPECT_EQ(line->height(), 1);
}

} // namespace
} // namespace platform
