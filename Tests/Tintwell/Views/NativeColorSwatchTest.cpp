#include "NativeColorSwatch.h"

#include "DragWatch.h"
#include "QtColor.h"
#include "ThemeSource.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <limits>
#include <sstream>

namespace tintwell {
namespace {

class Swatch : public testing::Test {
protected:
    Swatch()
    {
        window_.resize(200, 200);
        view_ = new DraggableColorView(
            QColor(255, 128, 64), "Violet", 10, [this] { ++clicks_; }, &window_);
        view_->setGeometry(50, 40, 100, 50);
        window_.show();
    }

    /// Sends an event at a place in the view; tells whether the view took it.
    bool send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons, QPointF at)
    {
        const QPointF inWindow = at + view_->pos();
        QMouseEvent event(type, at.toPoint(), inWindow, window_.mapToGlobal(inWindow).toPoint(),
            button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view_, &event);
        return event.isAccepted();
    }
    void press() { EXPECT_TRUE(play("p")); }
    void release() { EXPECT_TRUE(play("r")); }

    /// "p" press, "r" release, "mX,Y" a move to that distance from the press, "P" and "R" the same
    /// of the right button, "d" a double click's second press, "h" hide and show again.
    bool play(const std::string& step)
    {
        constexpr auto left = Qt::LeftButton;
        constexpr auto right = Qt::RightButton;
        const auto comma = step.find(',');
        switch (step.front()) {
        case 'p':
            return send(QEvent::MouseButtonPress, left, left, start);
        case 'r':
            return send(QEvent::MouseButtonRelease, left, Qt::NoButton, start);
        case 'd':
            return send(QEvent::MouseButtonDblClick, left, left, start);
        case 'P':
            return !send(QEvent::MouseButtonPress, right, right, start + QPointF(9, 9));
        case 'R':
            return !send(QEvent::MouseButtonRelease, right, Qt::NoButton, start);
        case 'h':
            view_->hide();
            view_->show();
            return true;
        default:
            return send(QEvent::MouseMove, Qt::NoButton, left,
                start
                    + QPointF(QString::fromStdString(step.substr(1, comma - 1)).toDouble(),
                        QString::fromStdString(step.substr(comma + 1)).toDouble()));
        }
    }

    static constexpr QPointF start { 20.3, 10.6 };
    int clicks_ = 0;
    platform::DragWatch drags_;
    QWidget window_;
    QPointer<DraggableColorView> view_;
};

TEST_F(Swatch, TellsClicksFromDrags)
{
    struct Case {
        const char* gesture;
        int clicks;
        int drags;
    };
    for (const Case& c : {
             Case { "p r", 1, 0 },
             Case { "p m3,0 r", 1, 0 },
             Case { "p m3.01,0 r", 0, 1 },
             Case { "p m2.1,2.1 r", 1, 0 },
             Case { "p m-2.2,2.2 r", 0, 1 },
             Case { "p m2,0 m0,2 m3,0 r", 1, 0 },
             Case { "p m4,0 m40,0 m80,0 r", 0, 1 },
             Case { "p m4,0", 0, 1 },
             Case { "p m4,0 p r", 1, 1 },
             Case { "p r d r", 2, 0 },
             Case { "r", 0, 0 },
             Case { "p r m50,0 r", 1, 0 },
             Case { "P m9,9 R", 0, 0 },
             Case { "p m2,0 P m3,0 R r", 1, 0 },
             Case { "p h r", 0, 0 },
         }) {
        SCOPED_TRACE(c.gesture);
        clicks_ = drags_.count = 0;
        std::istringstream steps(c.gesture);
        for (std::string step; steps >> step;)
            EXPECT_TRUE(play(step)) << step;
        EXPECT_EQ(clicks_, c.clicks);
        EXPECT_EQ(drags_.count, c.drags);
        release();
    }
}

TEST_F(Swatch, OutlivesNothingThatTakesItAway)
{
    drags_.onDrag = [&] { delete view_; };
    press();
    play("m9,0");
    EXPECT_TRUE(view_.isNull());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(platform::isColorDragRunning());
    EXPECT_EQ(clicks_, 0);
}

TEST_F(Swatch, ItsCallbackMayReplaceItselfOrTakeTheViewAway)
{
    view_->setOnClick([this] { view_->setOnClick([this] { delete view_; }); });
    press();
    release();
    ASSERT_FALSE(view_.isNull());
    EXPECT_TRUE(view_->accessibilityPerformPress());
    EXPECT_TRUE(view_.isNull());
}

TEST_F(Swatch, ReturnAndSpacePressIt)
{
    const std::vector<std::tuple<Qt::Key, bool, int>> cases {
        { Qt::Key_Return, false, 1 },
        { Qt::Key_Enter, false, 1 },
        { Qt::Key_Space, false, 1 },
        { Qt::Key_Space, true, 0 },
        { Qt::Key_A, false, 0 },
    };
    for (const auto& [key, repeats, clicks] : cases) {
        clicks_ = 0;
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeats);
        QCoreApplication::sendEvent(view_, &event);
        EXPECT_EQ(clicks_, clicks) << key;
        EXPECT_EQ(event.isAccepted(), key != Qt::Key_A);
    }
    EXPECT_EQ(view_->focusPolicy(), Qt::TabFocus);
}

TEST_F(Swatch, IsAButtonToAssistiveTechnology)
{
    auto* const button = QAccessible::queryAccessibleInterface(view_);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_EQ(button->text(QAccessible::Name), QStringLiteral("Violet"));
    EXPECT_EQ(button->text(QAccessible::Value), QStringLiteral("#FF8040"));
    const auto help
        = QStringLiteral("Click to copy this color, or drag it into a compatible color control.");
    EXPECT_EQ(button->text(QAccessible::Help), help);
    EXPECT_EQ(button->text(QAccessible::Description), QStringLiteral("#FF8040. ") + help);
    view_->setPlace(QStringLiteral("Tones"));
    EXPECT_EQ(button->text(QAccessible::Description), QStringLiteral("#FF8040, Tones. ") + help);
    ASSERT_NE(button->textInterface(), nullptr);
    EXPECT_EQ(button->textInterface()->text(1, 3), QStringLiteral("FF"));
    auto* const actions = button->actionInterface();
    ASSERT_NE(actions, nullptr);
    EXPECT_EQ(actions->actionNames().front(), QAccessibleActionInterface::pressAction());
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks_, 1);
}

TEST_F(Swatch, TakesNewValuesFromItsRecord)
{
    int clicks = 0;
    const NativeColorSwatch swatch { { 0, 0, 1, 0.5 }, "Deep Azure", 8, [&] { ++clicks; } };
    const auto made = swatch.makeNSView();
    swatch.updateNSView(*view_);
    for (auto* const view : { made.get(), view_.data() }) {
        EXPECT_EQ(view->color(), QColor(0, 0, 255, 128));
        EXPECT_EQ(view->label(), "Deep Azure");
        EXPECT_EQ(view->cornerRadius(), 8);
        EXPECT_EQ(view->toolTip(), QString::fromUtf8("Deep Azure — click to copy, drag to use"));
        EXPECT_EQ(view->readText(QAccessible::Name), QStringLiteral("Deep Azure"));
        EXPECT_EQ(view->cursor().shape(), Qt::OpenHandCursor);
        view->accessibilityPerformPress();
    }
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(clicks_, 0);
}

QImage pictureOf(QWidget& view, int pixelRatio = 1)
{
    QImage image(view.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    view.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

TEST_F(Swatch, PaintsItsColorInASmoothEdgedShape)
{
    const auto image = pictureOf(*view_);
    EXPECT_EQ(image.pixelColor(50, 25), QColor(255, 128, 64));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(50, 0).alpha(), 255);
    EXPECT_LT(image.pixelColor(50, 0).red(), 255);
    EXPECT_EQ(image.pixelColor(50, 1), QColor(255, 128, 64));
}

TEST_F(Swatch, ShowsACheckerThroughWhatIsNotOpaque)
{
    const auto& theme = platform::currentTheme();
    const QColor half(0, 0, 255, 128);
    view_->setColor(half);
    const auto dark = platform::composited(theme.separator, theme.fieldBackground);
    constexpr int cell = 5;
    for (const int ratio : { 1, 2 }) {
        const auto image = pictureOf(*view_, ratio);
        for (const int column : { 2, 3, 16, 17 }) {
            const auto shown = image.pixelColor((column * cell + 2) * ratio, 22 * ratio);
            const auto expected
                = platform::composited(half, column % 2 == 0 ? theme.fieldBackground : dark);
            EXPECT_NEAR(shown.red(), expected.red(), 1) << ratio << ' ' << column;
            EXPECT_NEAR(shown.blue(), expected.blue(), 1) << ratio << ' ' << column;
        }
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    }
}

TEST_F(Swatch, PaintsColorsFromAnywhere)
{
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::pair<RGBAColor, QColor>> cases {
        { { -4, 1e300, 0.5, 1 }, QColor(0, 255, 128) },
        { { notANumber, 0, std::numeric_limits<double>::infinity(), 7 }, QColor(0, 0, 255) },
    };
    for (const auto& [color, shown] : cases) {
        view_->setColor(toQColor(color));
        EXPECT_EQ(pictureOf(*view_).pixelColor(50, 25), shown);
    }
}

} // namespace
} // namespace tintwell
