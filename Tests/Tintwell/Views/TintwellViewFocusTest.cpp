#include "ContentWindow.h"
#include "ScrollArea.h"
#include "TintwellViewFixture.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace tintwell {

namespace {

class TintwellViewFocusTest : public TintwellViewTest {
protected:
    /// What a key reaches from the source's swatch on, in `count` steps; all of it is in sight.
    [[nodiscard]] std::vector<std::string> visitedBy(Qt::Key key, std::size_t count) const
    {
        sourceSwatch()->setFocus(Qt::TabFocusReason);
        std::vector<std::string> visited;
        for (auto* focus = QApplication::focusWidget(); focus && visited.size() < count;
             focus = QApplication::focusWidget()) {
            visited.push_back(focusName());
            EXPECT_FALSE(focus->visibleRegion().isEmpty()) << visited.back();
            QTest::keyClick(focus, key);
        }
        return visited;
    }

    /// The stops of a workspace as one reads them: of each grid the first tile.
    [[nodiscard]] std::vector<std::string> inside(WorkspaceTab tab) const
    {
        std::vector<SectionState> sections;
        if (tab == WorkspaceTab::studio)
            sections = studioState(*model_);
        if (tab == WorkspaceTab::themes)
            for (auto& theme : themesState(*model_))
                sections.push_back(theme.section);
        std::vector<std::string> names;
        for (const auto& section : sections)
            names.push_back(section.cells.front().namedColor.id);
        if (tab == WorkspaceTab::saved)
            for (const auto& saved : model_->savedPalettes())
                for (const auto* control : { "Use ", "Install ", "Delete palette " })
                    names.push_back(control + saved.name);
        return names;
    }
};

} // namespace

TEST_F(TintwellViewFocusTest, ThePickerSwitchesAtOnceByMouseShortcutAndKeys)
{
    const auto* stack = part<platform::PageStack>();
    const auto expectTab = [&](WorkspaceTab tab, const char* how) {
        QCoreApplication::processEvents();
        EXPECT_EQ(model_->selectedTab(), tab) << how;
        EXPECT_FALSE(stack->isMoving()) << how;
        EXPECT_EQ(part<platform::SegmentedPicker>()->current(), static_cast<int>(tab)) << how;
        EXPECT_EQ(dynamic_cast<StudioWorkspace*>(stack->currentPage()) != nullptr,
            tab == WorkspaceTab::studio);
        EXPECT_EQ(dynamic_cast<SavedWorkspace*>(stack->currentPage()) != nullptr,
            tab == WorkspaceTab::saved);
    };
    using enum WorkspaceTab;
    constexpr auto ctrl = Qt::ControlModifier;
    QTest::mouseClick(button("Saved"), Qt::LeftButton);
    expectTab(saved, "click");
    for (const auto& [key, tab] : std::map<Qt::Key, WorkspaceTab> {
             { Qt::Key_1, studio }, { Qt::Key_2, themes }, { Qt::Key_3, saved } }) {
        QTest::keyClick(view_.get(), key, ctrl);
        expectTab(tab, "shortcut");
    }
    button("Saved")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    expectTab(themes, "arrow key");
}

TEST_F(TintwellViewFocusTest, TabGoesInReadingOrderThroughEveryControlAndShowsIt)
{
    openOn({ palette(1, "One"), palette(2, "Two"), palette(3, "Three"), palette(4, "Four"),
        palette(5, "Five"), palette(6, "Six"), palette(7, "Seven") });
    choose(WorkspaceTab::saved);
    model_->saveAndInstallCurrent();
    QCoreApplication::processEvents();
    auto* bar = part<SavedWorkspace>()->findChild<platform::ScrollArea*>()->verticalScrollBar();
    for (const int place : { bar->maximum(), 0 })
        bar->setValue(place);
    for (const auto tab : { WorkspaceTab::saved, WorkspaceTab::themes, WorkspaceTab::studio }) {
        choose(tab);
        auto expected = inside(tab);
        expected.insert(
            expected.begin(), { "Violet", "Sample", "Copy #6E56CF", std::string(rawValue(tab)) });
        expected.insert(expected.end(), { "Save + Install", "More" });
        EXPECT_EQ(visitedBy(Qt::Key_Tab, expected.size()), expected);
        EXPECT_EQ(focusName(), "Violet");
        std::reverse(expected.begin() + 1, expected.end());
        EXPECT_EQ(visitedBy(Qt::Key_Backtab, expected.size()), expected);
        EXPECT_EQ(focusName(), "Violet");
    }
}

TEST_F(TintwellViewFocusTest, FocusGoesBackToWhatIsBeforeAControlThatGoes)
{
    openOn({ palette(1, "One"), palette(2, "Two") });
    choose(WorkspaceTab::saved);
    button("Delete palette", 0)->setFocus(Qt::TabFocusReason);
    for (const auto* name : { "Delete palette Two", "Saved" }) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        settle();
        EXPECT_EQ(focusName(), name);
    }
    openOn({ palette(1, "One") });
    choose(WorkspaceTab::saved);
    pressWithKey(button("Use"), Qt::Key_Space);
    settle();
    EXPECT_EQ(focusName(), "Studio");
}

TEST_F(TintwellViewFocusTest, TheFocusReturnsToSampleAfterAPick)
{
    struct Case {
        bool byKeyboard;
        bool hides; ///< As the window does while the loupe is open.
        const char* elsewhere; ///< Where the user goes meanwhile.
        const char* expected;
    };
    for (const auto& [byKeyboard, hides, elsewhere, expected] :
        { Case { true, false, "", "Sample" }, { true, true, "", "Sample" },
            { false, false, "", "Sample" }, { true, false, "Themes", "Themes" } }) {
        openOn({});
        auto* sample = button("Sample");
        if (byKeyboard)
            pressWithKey(sample, Qt::Key_Space);
        else
            QTest::mouseClick(sample, Qt::LeftButton);
        window_->setVisible(!hides);
        settle();
        EXPECT_EQ(view_->focusWidget(), nullptr);
        if (*elsewhere != '\0')
            QTest::mouseClick(button(elsewhere), Qt::LeftButton);
        window_->show();
        window_->activateWindow();
        desktop_->sampler->answer({});
        settle();
        EXPECT_EQ(nameOf(view_->focusWidget()).toStdString(), expected);
        EXPECT_EQ(
            sample->findChild<platform::FocusRing*>()->isShown(), byKeyboard && sample->hasFocus());
    }
}

TEST_F(TintwellViewFocusTest, EveryRingHasTheColorOfTheSource)
{
    for (const auto tab : { WorkspaceTab::studio, WorkspaceTab::themes, WorkspaceTab::saved })
        for (const auto* source : { "#6E56CF", "#F2C14E" }) {
            apply(source);
            choose(tab);
            for (const auto* ring : view_->findChildren<platform::FocusRing*>())
                EXPECT_EQ(ring->color(), view_->tint().focusRing)
                    << static_cast<QWidget*>(ring->parent())->metaObject()->className();
        }
}

TEST_F(TintwellViewFocusTest, TabStartsInTheOrderOfReadingAndShowsEvenInASmallWindow)
{
    for (const auto& [key, first] :
        { std::pair(Qt::Key_Tab, "Violet"), std::pair(Qt::Key_Backtab, "More") }) {
        openOn({});
        platform::ContentWindow window({ QStringLiteral("Small") }, [] {});
        window.setContent(view_.get());
        window.setMinimumSize(0, 0);
        window.resize(300, 250);
        window.findChild<QWidget*>()->resize(window.size());
        window.present();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, key);
        EXPECT_EQ(focusName(), first);
        EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
        EXPECT_EQ(window.takeContent(), view_.get());
    }
}

TEST_F(TintwellViewFocusTest, TheWheelScrollsOverASwatchToo)
{
    auto* swatch = tile("complementary.1");
    QWheelEvent down({ 5, 5 }, swatch->mapToGlobal(QPointF(5, 5)), {}, { 0, -120 }, Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, /*inverted=*/false);
    // Only an event of the window system goes on to what is around.
    QSpontaneKeyEvent::setSpontaneous(&down);
    qApp->notify(swatch, &down);
    settle();
    EXPECT_GT(part<platform::ScrollArea>()->verticalScrollBar()->value(), 0);
}

TEST_F(TintwellViewFocusTest, TheWorkspaceScrollsByKeysWhereverTheFocusIs)
{
    const auto* bar = part<platform::ScrollArea>()->verticalScrollBar();
    for (auto* focus : { static_cast<QWidget*>(view_.get()), button("More") }) {
        focus->setFocus(Qt::OtherFocusReason);
        for (const auto& [key, place] : { std::pair(Qt::Key_End, bar->maximum()),
                 { Qt::Key_Home, 0 }, { Qt::Key_Down, 48 }, { Qt::Key_Up, 0 } }) {
            QTest::keyClick(QApplication::focusWidget(), key);
            settle();
            EXPECT_EQ(bar->value(), place) << nameOf(focus).toStdString();
        }
    }
}

TEST_F(TintwellViewFocusTest, TabComesBackToTheTileThatItLeft)
{
    tile("complementary.1")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusName(), "analogous.0");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(focusName(), "complementary.1");
}

TEST_F(TintwellViewFocusTest, ArrowKeysGoFromSwatchToSwatchAcrossGrids)
{
    struct Move {
        WorkspaceTab tab;
        const char* from;
        Qt::Key key;
        const char* to;
    };
    using enum WorkspaceTab;
    const std::vector<Move> moves {
        { studio, "complementary.0", Qt::Key_Right, "complementary.1" },
        { studio, "complementary.1", Qt::Key_Right, "complementary.1" },
        { studio, "complementary.1", Qt::Key_Left, "complementary.0" },
        { studio, "complementary.0", Qt::Key_Up, "complementary.0" },
        { studio, "complementary.1", Qt::Key_Down, "analogous.2" },
        { studio, "monochromatic.1", Qt::Key_Down, "monochromatic.4" },
        { studio, "monochromatic.4", Qt::Key_Down, "tone.50" },
        { studio, "tone.900", Qt::Key_Down, "tone.950" },
        { studio, "tone.950", Qt::Key_Down, "tone.950" },
        { studio, "tone.300", Qt::Key_End, "tone.950" },
        { studio, "tone.300", Qt::Key_Home, "tone.50" },
        { studio, "tone.50", Qt::Key_Up, "monochromatic.4" },
        { themes, "light.error", Qt::Key_Down, "dark.on-primary" },
        { themes, "dark.background", Qt::Key_Left, "dark.background" },
    };
    for (const auto& [tab, from, key, to] : moves) {
        choose(tab);
        ASSERT_NE(tile(from), nullptr) << from;
        tile(from)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(focusName(), to) << "from " << from;
        EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << to;
    }
}

} // namespace tintwell
