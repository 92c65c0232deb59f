#include "Button.h"
#include "FocusRing.h"
#include "PopupMenu.h"
#include "ScrollArea.h"
#include "SegmentedPicker.h"
#include "ThemeSource.h"
#include "Tip.h"
#include "Window.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <array>

namespace platform {
namespace {

const Tint violetTint { QColor(0x6E, 0x56, 0xCF), Qt::white, QColor(0x6E, 0x56, 0xCF), Qt::blue,
    Qt::black, false };

/// A window in front in which one may press things.
class ControlsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        MotionClock::instance().holdTime();
        window_.resize(448, 680);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
        // The pointer rests where no control is.
        QTest::mouseMove(&window_, QPoint(440, 300));
    }
    void TearDown() override { MotionClock::instance().releaseTime(); }

    void advance(double seconds) { MotionClock::instance().advance(seconds); }

    template <typename Widget> Widget* add(Widget* widget, QPoint place)
    {
        widget->setParent(&window_);
        widget->setTint(violetTint);
        widget->resize(widget->sizeHint());
        widget->move(place);
        widget->show();
        return widget;
    }

    /// The colour in the middle of the left edge of a control, where only its plate is.
    static QColor plateOf(QWidget* control)
    {
        const auto picture = control->grab().toImage();
        return picture.pixelColor(4, picture.height() / 2);
    }

    QColor onWindow(const QColor& color) const
    {
        return composited(color, themeOf(Appearance::light).windowBackground);
    }

    static void expectColor(const QColor& actual, const QColor& expected, const char* what)
    {
        EXPECT_NEAR(actual.red(), expected.red(), 1) << what;
        EXPECT_NEAR(actual.green(), expected.green(), 1) << what;
        EXPECT_NEAR(actual.blue(), expected.blue(), 1) << what;
    }

    QWidget window_;
};

using ButtonTest = ControlsTest;

TEST_F(ButtonTest, FadesItsPlateInUnderThePointerAndIsDarkerAtOnceWhilePressed)
{
    const auto& theme = themeOf(Appearance::light);
    const auto overlaid
        = [](double opacity) { return composited(faded(Qt::black, opacity), violetTint.fill); };
    struct Case {
        Button* button;
        QColor normal;
        QColor hover;
        QColor pressed;
    };
    const auto cases = std::to_array<Case>({
        { add(prominentButton(QStringLiteral("Sample"), Symbol::eyedropper), { 20, 20 }),
            violetTint.fill, overlaid(0.1), overlaid(0.2) },
        { add(borderedIcon(Symbol::copy, QStringLiteral("Copy")), { 20, 60 }),
            onWindow(theme.controlFill), onWindow(theme.controlHover),
            onWindow(theme.controlPressed) },
        { add(borderlessButton(QStringLiteral("Use")), { 20, 100 }), theme.windowBackground,
            onWindow(theme.controlHover), onWindow(theme.controlPressed) },
        { add(destructiveIcon(Symbol::trash, QStringLiteral("Delete")), { 20, 140 }),
            theme.windowBackground, onWindow(theme.controlHover), onWindow(theme.controlPressed) },
    });
    for (const auto& [button, normal, hover, pressed] : cases) {
        const QSignalSpy clicked(button, &QAbstractButton::clicked);
        expectColor(plateOf(button), normal, "normal");
        QTest::mouseMove(button);
        advance(0.045);
        expectColor(plateOf(button), blended(normal, hover, 0.5), "half way");
        advance(0.05);
        expectColor(plateOf(button), hover, "hover");
        QTest::mousePress(button, Qt::LeftButton);
        expectColor(plateOf(button), pressed, "pressed");
        QTest::mouseRelease(button, Qt::LeftButton);
        expectColor(plateOf(button), hover, "released");
        QTest::mouseMove(&window_, QPoint(440, 300));
        advance(0.07);
        expectColor(plateOf(button), blended(hover, normal, 0.5), "half way back");
        advance(0.08);
        expectColor(plateOf(button), normal, "left");
        EXPECT_EQ(clicked.count(), 1);
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(200, 200));
        EXPECT_EQ(clicked.count(), 1);
    }
}

TEST_F(ButtonTest, IconsHaveAFixedSize)
{
    for (const auto& [button, size] : { std::pair(borderedIcon(Symbol::copy, {}), QSize(34, 28)),
             std::pair(destructiveIcon(Symbol::trash, {}), QSize(26, 24)),
             std::pair(menuButton({}), QSize(26, 28)) })
        EXPECT_EQ(add(button, {})->sizeHint(), size);
}

TEST_F(ButtonTest, IsPressedBySpaceAndReturnButNotWhileDisabled)
{
    auto* button = add(prominentButton(QStringLiteral("Sample"), Symbol::eyedropper), { 20, 20 });
    const QSignalSpy clicked(button, &QAbstractButton::clicked);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Return);
    QTest::keyClick(button, Qt::Key_Enter);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, /*autorep=*/true);
    QCoreApplication::sendEvent(button, &held);
    EXPECT_EQ(clicked.count(), 3);
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 3);
    expectColor(plateOf(button), onWindow(faded(violetTint.fill, 0.35)), "disabled");
}

TEST_F(ButtonTest, DrawsALineInsideATintThatHardlyShows)
{
    auto* button = add(prominentButton(QStringLiteral("Sample"), Symbol::eyedropper), { 20, 20 });
    auto tint = violetTint;
    tint.fill = QColor(0xF6, 0xF5, 0xF2);
    tint.ink = Qt::black;
    tint.stroked = true;
    button->setTint(tint);
    const auto edge = button->grab().toImage().pixelColor(0, 14);
    expectColor(edge, composited(faded(Qt::black, 0.18), tint.fill), "edge");
    expectColor(plateOf(button), tint.fill, "plate");
}

TEST_F(ButtonTest, TellsReadersItsNameAndCanBePressedByThem)
{
    auto* button = add(borderedIcon(Symbol::copy, QStringLiteral("Copy #6E56CF")), { 20, 20 });
    auto* accessible = QAccessible::queryAccessibleInterface(button);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Copy #6E56CF"));
    const QSignalSpy clicked(button, &QAbstractButton::clicked);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&clicked] { return clicked.count() == 1; }));
}

using FocusRingTest = ControlsTest;

TEST_F(FocusRingTest, IsShownForTheKeyboardOnlyAndLiesOutsideTheControl)
{
    auto* first = add(borderedIcon(Symbol::copy, QStringLiteral("Copy")), { 20, 20 });
    auto* second = add(menuButton(QStringLiteral("More")), { 100, 20 });
    const auto ringBeside = [this](QWidget* control) {
        const auto at = control->geometry().topLeft() + QPoint(-3, control->height() / 2);
        return window_.grab().toImage().pixelColor(at) == QColor(Qt::blue);
    };
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_FALSE(ringBeside(first));
    QTest::keyClick(first, Qt::Key_3, Qt::ControlModifier);
    EXPECT_FALSE(ringBeside(first));
    QTest::keyClick(first, Qt::Key_Home);
    EXPECT_TRUE(ringBeside(first));
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(ringBeside(second));
    EXPECT_FALSE(ringBeside(first));
    second->move(100, 300);
    EXPECT_TRUE(ringBeside(second));
    QTest::keyClick(second, Qt::Key_Backtab);
    EXPECT_TRUE(ringBeside(first));
    EXPECT_FALSE(ringBeside(second));
    first->hide();
    EXPECT_FALSE(first->findChild<FocusRing*>()->isShown());
}

TEST_F(FocusRingTest, EndsAtTheEdgesOfItsScrollArea)
{
    auto* content = new QWidget;
    content->setFixedSize(200, 1000);
    auto* button = new Button(ButtonStyle::bordered, {}, Symbol::copy, content);
    button->setAccessibleName(QStringLiteral("Copy"));
    button->setTint(violetTint);
    button->setGeometry(20, 60, 34, 28);
    auto* area = new ScrollArea(content, &window_);
    area->setGeometry(0, 100, 200, 200);
    area->show();
    button->setFocus(Qt::TabFocusReason);
    const auto isRing = [this](int x, int y) {
        return window_.grab().toImage().pixelColor(x, y) == QColor(Qt::blue);
    };
    EXPECT_TRUE(isRing(37, 157));
    content->move(0, -58);
    EXPECT_FALSE(isRing(37, 99));
    EXPECT_TRUE(isRing(37, 132));
    content->move(0, -200);
    EXPECT_FALSE(isRing(17, 100));
}

class SegmentedPickerTest : public ControlsTest {
protected:
    void SetUp() override
    {
        ControlsTest::SetUp();
        picker_ = add(
            new SegmentedPicker(QStringLiteral("Workspace"),
                { QStringLiteral("Studio"), QStringLiteral("Themes"), QStringLiteral("Saved") }),
            { 18, 10 });
    }

    void clickSegment(int index)
    {
        const auto at = picker_->mapTo(&window_, picker_->segmentRect(index).center().toPoint());
        QTest::mouseClick(window_.childAt(at), Qt::LeftButton);
    }

    SegmentedPicker* picker_ = nullptr;
};

TEST_F(SegmentedPickerTest, ChoosesByClickAtOnceAndSignalsOnlyChanges)
{
    const QSignalSpy picked(picker_, &SegmentedPicker::picked);
    clickSegment(2);
    EXPECT_EQ(picker_->current(), 2);
    EXPECT_EQ(picker_->plateRect(), QRectF(274, 2, 136, 26));
    clickSegment(2);
    ASSERT_EQ(picked.count(), 1);
    EXPECT_EQ(picked[0][0].toInt(), 2);
    picker_->setCurrent(1);
    EXPECT_EQ(picked.count(), 1);
    picker_->setCurrent(7);
    EXPECT_EQ(picker_->current(), 1);
}

TEST_F(SegmentedPickerTest, IsOneStopOfTheTabKeyWithArrowsInside)
{
    auto* before = add(menuButton(QStringLiteral("Before")), { 20, 100 });
    auto* after = add(menuButton(QStringLiteral("After")), { 60, 100 });
    QWidget::setTabOrder(before, picker_);
    QWidget::setTabOrder(picker_, after);
    before->setFocus();
    QTest::keyClick(before, Qt::Key_Tab);
    ASSERT_TRUE(picker_->isAncestorOf(QApplication::focusWidget()));
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    const QSignalSpy picked(picker_, &SegmentedPicker::picked);
    for (const auto& [key, expected] : std::initializer_list<std::pair<Qt::Key, int>> {
             { Qt::Key_Right, 1 }, { Qt::Key_Right, 2 }, { Qt::Key_Right, 2 }, { Qt::Key_Left, 1 },
             { Qt::Key_Home, 0 }, { Qt::Key_End, 2 }, { Qt::Key_Up, 1 }, { Qt::Key_Down, 2 } }) {
        press(key);
        EXPECT_EQ(picker_->current(), expected);
        EXPECT_TRUE(picker_->isAncestorOf(QApplication::focusWidget()));
    }
    EXPECT_EQ(picked.count(), 7);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
}

TEST_F(SegmentedPickerTest, SlidesItsPlateOnlyInATransaction)
{
    const Spring spring { .response = 0.32, .dampingFraction = 0.85, .blendDuration = 0 };
    picker_->setCurrent(2, spring);
    EXPECT_EQ(picker_->plateRect(), picker_->segmentRect(0));
    advance(0.1);
    EXPECT_NEAR(picker_->plateRect().left(), 2 + 272 * springProgress(0.1, spring), 1e-9);
    advance(1);
    EXPECT_EQ(picker_->plateRect(), picker_->segmentRect(2));
}

TEST_F(SegmentedPickerTest, IsAGroupOfRadioButtonsToReaders)
{
    auto* group = QAccessible::queryAccessibleInterface(picker_);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), QStringLiteral("Workspace"));
    ASSERT_EQ(group->childCount(), 3);
    picker_->setFocus();
    EXPECT_FALSE(group->state().focused);
    EXPECT_TRUE(group->child(0)->state().focused);
    auto* saved = group->child(2);
    EXPECT_EQ(saved->role(), QAccessible::RadioButton);
    EXPECT_EQ(saved->text(QAccessible::Name), QStringLiteral("Saved"));
    EXPECT_FALSE(saved->state().checked);
    ASSERT_NE(saved->actionInterface(), nullptr);
    const QSignalSpy picked(picker_, &SegmentedPicker::picked);
    saved->actionInterface()->doAction(saved->actionInterface()->actionNames().constFirst());
    EXPECT_EQ(picker_->current(), 2);
    EXPECT_EQ(picked.count(), 1);
    EXPECT_TRUE(saved->state().checked);
    EXPECT_FALSE(group->child(0)->state().checked);
}

class PopupMenuTest : public ControlsTest {
protected:
    void SetUp() override
    {
        ControlsTest::SetUp();
        more_ = add(menuButton(QStringLiteral("More")), { 411, 641 });
        more_->setFocus();
    }

    PopupMenu* open(bool byKeyboard = false)
    {
        return PopupMenu::open(*more_,
            { { QStringLiteral("Colors"), Symbol::palette,
                  [this] { chosen_ += QLatin1Char('c'); } },
                {},
                { QStringLiteral("Quit"), Symbol::power,
                    [this] { chosen_ += QLatin1Char('q'); } } },
            violetTint, byKeyboard);
    }

    static void turnEventLoop()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    Button* more_ = nullptr;
    QString chosen_;
};

TEST_F(PopupMenuTest, OpensWhereThereIsRoomInLineWithItsButton)
{
    const auto* menu = open();
    EXPECT_EQ(menu->plate(), QRect(241, 554, 196, 81));
    more_->move(411, 20);
    const auto* below = open();
    EXPECT_EQ(below->plate().topLeft(), QPoint(241, 20 + 28 + 6));
}

TEST_F(PopupMenuTest, IsWalkedAndChosenByKeys)
{
    QPointer<PopupMenu> menu = open(/*byKeyboard=*/true);
    const auto press = [&menu](Qt::Key key) {
        QTest::keyClick(menu.data(), key);
        const auto quit = QAccessible::queryAccessibleInterface(menu.data())->child(1)->state();
        EXPECT_EQ(quit.focused && quit.selected, menu->selected() == 2);
    };
    EXPECT_EQ(menu->selected(), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(menu->selected(), 2);
    press(Qt::Key_Down);
    EXPECT_EQ(menu->selected(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(menu->selected(), 2);
    press(Qt::Key_Up);
    EXPECT_EQ(menu->selected(), 0);
    press(Qt::Key_End);
    QTest::keyClick(menu.data(), Qt::Key_Return);
    EXPECT_EQ(chosen_, QStringLiteral("q"));
    EXPECT_TRUE(more_->hasFocus());
    turnEventLoop();
    EXPECT_TRUE(menu.isNull());
}

TEST_F(PopupMenuTest, APointerThatRestsSelectsNothing)
{
    auto* menu = open(/*byKeyboard=*/true);
    ASSERT_EQ(menu->selected(), 0);
    auto* last = menu->findChildren<QAbstractButton*>().constLast();
    const auto enter = [last](QPointF pointer) {
        QEnterEvent event(QPointF(5, 5), QPointF(5, 5), pointer);
        QCoreApplication::sendEvent(last, &event);
    };
    enter(QCursor::pos());
    EXPECT_EQ(menu->selected(), 0);
    enter(QCursor::pos() + QPoint(1, 0));
    EXPECT_GT(menu->selected(), 0);
}

TEST_F(PopupMenuTest, ClosesWithoutAnAction)
{
    const auto ways = std::to_array<std::function<void(PopupMenu*)>>({
        [](PopupMenu* menu) { QTest::keyClick(menu, Qt::Key_Escape); },
        [](PopupMenu* menu) { QTest::keyClick(menu, Qt::Key_Tab); },
        [](PopupMenu* menu) { QTest::mouseClick(menu, Qt::LeftButton, {}, QPoint(50, 50)); },
        [this](PopupMenu* /*menu*/) {
            QEvent deactivate(QEvent::WindowDeactivate);
            QApplication::sendEvent(&window_, &deactivate);
        },
    });
    for (const auto& way : ways) {
        QPointer<PopupMenu> menu = open();
        way(menu);
        EXPECT_FALSE(menu && menu->isVisible());
        turnEventLoop();
        EXPECT_TRUE(menu.isNull());
        EXPECT_TRUE(more_->hasFocus());
    }
    EXPECT_TRUE(chosen_.isEmpty());
}

TEST_F(PopupMenuTest, IsChosenByThePointerAndShowsTheRowBelowIt)
{
    auto* menu = open();
    advance(1);
    auto* quit = menu->findChildren<QAbstractButton*>()[1];
    QTest::mouseMove(quit);
    EXPECT_EQ(menu->selected(), 2);
    EXPECT_EQ(quit->grab().toImage().pixelColor(4, 15), violetTint.fill);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->plate().center());
    EXPECT_TRUE(menu->isVisible());
    QTest::mouseClick(quit, Qt::LeftButton);
    EXPECT_EQ(chosen_, QStringLiteral("q"));
}

TEST_F(PopupMenuTest, ALongOneScrollsToWhatIsSelected)
{
    std::vector<MenuItem> items;
    for (int number = 0; number < 40; ++number)
        items.push_back({ QString::number(number), {}, [] {} });
    auto* menu = PopupMenu::open(*more_, std::move(items), violetTint, /*byKeyboard=*/true);
    const auto rows = menu->findChildren<QAbstractButton*>();
    const auto isWhole = [&](int row) {
        return rows[row]->visibleRegion().boundingRect().size() == rows[row]->size();
    };
    EXPECT_TRUE(window_.rect().contains(menu->plate()));
    EXPECT_TRUE(isWhole(0) && !isWhole(39));
    QTest::keyClick(menu, Qt::Key_Up);
    EXPECT_TRUE(isWhole(39) && !isWhole(0));
    QTest::keyClick(menu, Qt::Key_Home);
    EXPECT_TRUE(isWhole(0) && !isWhole(39));
    QWheelEvent turn(menu->plate().center(), menu->mapToGlobal(menu->plate().center()), {},
        { 0, -12000 }, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(menu, &turn);
    EXPECT_TRUE(isWhole(39) && menu->selected() > 20);
}

TEST_F(PopupMenuTest, IsAMenuOfItemsToReaders)
{
    auto* menu = QAccessible::queryAccessibleInterface(open());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
    ASSERT_EQ(menu->childCount(), 2);
    auto* colors = menu->child(0);
    EXPECT_EQ(colors->role(), QAccessible::MenuItem);
    EXPECT_EQ(colors->text(QAccessible::Name), QStringLiteral("Colors"));
    colors->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(chosen_, QStringLiteral("c"));
}

TEST(TipTest, StaysInsideItsWindowUntilSomethingIsDone)
{
    Window window;
    window.setFixedSize(400, 200);
    window.setToolTip(
        QStringLiteral("A text that is much longer than a line of a tip may be, and goes on"));
    window.show();
    for (const auto place : { QPoint(1, 1), QPoint(399, 199) }) {
        QHelpEvent asked(QEvent::ToolTip, place, window.mapToGlobal(place));
        QApplication::sendEvent(&window, &asked);
        const QPointer<Tip> tip = window.findChild<Tip*>();
        ASSERT_TRUE(tip && tip->isVisible());
        EXPECT_TRUE(window.rect().contains(tip->plate().translated(tip->pos())));
        QTest::keyClick(&window, Qt::Key_Shift);
        EXPECT_FALSE(tip && tip->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace
} // namespace platform
