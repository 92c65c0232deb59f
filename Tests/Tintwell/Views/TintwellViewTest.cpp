#include "AtomicFile.h"
#include "PopupMenu.h"
#include "QtColor.h"
#include "ScrollArea.h"
#include "Spring.h"
#include "ThemeSource.h"
#include "TintwellViewFixture.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QScrollBar>

#include <cstring>
#include <numeric>

namespace tintwell {

using namespace std::chrono_literals;

TEST_F(TintwellViewTest, EveryControlDoesItsAction)
{
    using enum WorkspaceTab;
    struct Action {
        WorkspaceTab tab;
        std::function<QWidget*()> control;
        const char* status;
        std::size_t copied;
        std::size_t installed;
        std::size_t left; ///< Palettes in the library, which had one.
    };
    const std::vector<Action> actions {
        { studio, [&] { return button("Sample"); }, "Choose any visible color", 0, 0, 1 },
        { themes, [&] { return button("Copy #6E56CF"); }, "Copied Violet · #6E56CF", 1, 0, 1 },
        { saved, [&] { return sourceSwatch(); }, "Copied Violet · #6E56CF", 1, 0, 1 },
        { studio, [&] { return tile("complementary.1"); }, "Copied Complement · #767300", 1, 0, 1 },
        { studio, [&] { return tile("tone.950"); }, "Copied 950 · #0C0228", 1, 0, 1 },
        { themes, [&] { return tile("dark.background"); }, "Copied Background · #050509", 1, 0, 1 },
        { themes, [&] { return button("Save + Install"); }, "Saved and installed Tintwell.clr", 0,
            1, 2 },
        { saved, [&] { return button("Use"); }, "Loaded Red", 0, 0, 1 },
        { saved, [&] { return button("Install"); }, "Installed Tintwell.clr", 0, 1, 1 },
        { saved, [&] { return button("Delete palette"); }, "Deleted Red", 0, 0, 0 },
    };
    for (const auto& action : actions) {
        openOn({ palette(1, "Red") });
        desktop_->installer.reached.copies = { { "Inkscape", {} } };
        choose(action.tab);
        auto* control = action.control();
        ASSERT_NE(control, nullptr);
        SCOPED_TRACE(nameOf(control).toStdString());
        QTest::mouseClick(control, Qt::LeftButton);
        settle();
        EXPECT_EQ(model_->status(), action.status);
        ASSERT_NE(label(model_->status()), nullptr);
        EXPECT_EQ(label(model_->status())->toolTip(),
            QLatin1String(action.installed > 0 ? "Inkscape" : ""));
        EXPECT_EQ(desktop_->pasteboard.contents.size(), action.copied);
        EXPECT_EQ(desktop_->installer.calls.size(), action.installed);
        EXPECT_EQ(model_->savedPalettes().size(), action.left);
    }
}

TEST_F(TintwellViewTest, ADoubleClickDeletesOrSavesOnce)
{
    struct Case {
        const char* control;
        std::size_t left;
    };
    for (const auto& [control, left] :
        { Case { "Delete palette", 2 }, Case { "Save + Install", 4 } }) {
        openOn({ palette(1, "Red"), palette(2, "Rose"), palette(3, "Ruby") });
        choose(WorkspaceTab::saved);
        QTest::mouseClick(button(control), Qt::LeftButton);
        // The next palette has moved under the pointer.
        settle();
        const auto at = button(control)->rect().center();
        QMouseEvent second(QEvent::MouseButtonDblClick, at, button(control)->mapToGlobal(at),
            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(button(control), &second);
        QTest::mouseRelease(button(control), Qt::LeftButton);
        EXPECT_EQ(model_->savedPalettes().size(), left) << control;
    }
}

TEST_F(TintwellViewTest, OnlyTheWorkspaceGetsShorterWithTheScreen)
{
    openOn({});
    const auto place = [this](QWidget* control) {
        return QRect(control->mapTo(view_.get(), QPoint()), control->size());
    };
    const auto picker = place(part<platform::SegmentedPicker>());
    const auto save = place(button("Save + Install"));
    const int full = view_->height();
    for (const int height : { 536, 448, view_->minimumHeight() }) {
        view_->resize(view_->width(), height);
        settle();
        EXPECT_EQ(view_->height(), height);
        EXPECT_EQ(place(part<platform::SegmentedPicker>()), picker);
        EXPECT_EQ(place(button("Save + Install")), save.translated(0, height - full));
    }
}

TEST_F(TintwellViewTest, TheMenuOpensTheColorsAndQuits)
{
    QTest::mouseClick(button("More"), Qt::LeftButton);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(model_->selectedTab(), WorkspaceTab::studio) << "shortcuts rest";
    QTest::mouseClick(button("Open macOS Colors"), Qt::LeftButton);
    settle();
    EXPECT_EQ(opened_, 1);
    EXPECT_EQ(model_->status(), "Opened macOS Colors");
    EXPECT_EQ(quits_, 0);
    QTest::mouseMove(button("More"));
    pressWithKey(button("More"), Qt::Key_Space);
    EXPECT_EQ(window_->findChild<platform::PopupMenu*>()->selected(), 0)
        << "under a resting pointer";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(quits_, 1);
    EXPECT_EQ(opened_, 1);
    EXPECT_EQ(window_->findChild<platform::PopupMenu*>(), nullptr);
}

TEST_F(TintwellViewTest, KeysCopyWhatHasTheFocusSaveAndQuit)
{
    constexpr auto ctrl = Qt::ControlModifier;
    QTest::keyClick(view_.get(), Qt::Key_C, ctrl);
    EXPECT_EQ(model_->status(), "Copied Violet · #6E56CF");
    tile("complementary.1")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, ctrl);
    EXPECT_EQ(model_->status(), "Copied Complement · #767300");
    QTest::keyClick(view_.get(), Qt::Key_S, ctrl);
    EXPECT_EQ(model_->savedPalettes().size(), 1U);
    EXPECT_EQ(quits_, 0);
    QTest::keyClick(view_.get(), Qt::Key_Q, ctrl);
    EXPECT_EQ(quits_, 1);
}

TEST_F(TintwellViewTest, EveryColorIsCopiedInTheWordsOfTheMenu)
{
    struct Case {
        WorkspaceTab tab;
        std::function<QWidget*()> part;
        int row; ///< Below the heading.
        const char* status; ///< The text that is copied stands behind the dot.
    };
    using enum WorkspaceTab;
    const std::vector<Case> cases {
        { studio, [&] { return tile("complementary.1"); }, 0, "Copied Complement · #767300" },
        { studio, [&] { return tile("tone.950"); }, 4,
            "Copied 950 · --tintwell-tone-950: #0C0228;" },
        { themes, [&] { return sourceSwatch(); }, 1, "Copied Violet · rgb(110 86 207)" },
        { saved, [&] { return button("Use"); }, 2, "Copied Red · hsl(358.1 75.1% 59%)" },
        { saved, [&] { return part<SavedPaletteRow>(); }, 4,
            "Copied Red · --tintwell-source: #E5484D;" },
        { studio, [&] { return button("More"); }, 3, "Copied Violet · oklch(54.17% 0.179 288.03)" },
    };
    openOn({ palette(1, "Red") });
    for (const auto& [tab, part, row, status] : cases) {
        choose(tab);
        part()->setFocus();
        const bool byKeyboard = part()->hasFocus();
        const auto at = part()->rect().center();
        QContextMenuEvent asked(byKeyboard ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse,
            at, part()->mapToGlobal(at));
        QApplication::sendEvent(part(), &asked);
        auto* menu = window_->findChild<platform::PopupMenu*>();
        ASSERT_NE(menu, nullptr) << status;
        EXPECT_EQ(menu->selected(), byKeyboard ? 1 : -1) << status;
        QTest::mouseClick(menu->findChildren<QAbstractButton*>().at(row), Qt::LeftButton);
        settle();
        EXPECT_EQ(model_->status(), status);
        const auto text = std::string(status).substr(model_->status().find("· ") + 3);
        EXPECT_EQ(desktop_->pasteboard.contents.back().text, text);
    }
    QTest::keyClick(view_.get(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_NE(window_->findChild<platform::PopupMenu*>(), nullptr);
}

TEST_F(TintwellViewTest, TheSourceAndSavedPalettesAreExported)
{
    openOn({ palette(1, "Red") });
    for (const auto& [tab, file, expected] : {
             std::tuple { WorkspaceTab::studio, "a.css", "/* Violet, #6E56CF */" },
             std::tuple { WorkspaceTab::saved, "b.scss", "/* Coral, #E5484D */" },
             std::tuple { WorkspaceTab::studio, "c.txt", "" },
         }) {
        choose(tab);
        auto* part = tab == WorkspaceTab::saved ? this->part<SavedPaletteRow>() : sourceSwatch();
        const auto at = part->rect().center();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, at, part->mapToGlobal(at));
        QApplication::sendEvent(part, &asked);
        auto* menu = window_->findChild<platform::PopupMenu*>();
        ASSERT_NE(menu, nullptr);
        QTest::mouseClick(menu->findChildren<QAbstractButton*>().back(), Qt::LeftButton);
        settle();
        auto* dialog = window_->findChild<QFileDialog*>();
        ASSERT_NE(dialog, nullptr);
        const auto target = folder_ / file;
        Q_EMIT dialog->fileSelected(QString::fromStdString(target.string()));
        delete dialog;
        const auto* warning = window_->findChild<QMessageBox*>();
        EXPECT_EQ(warning == nullptr, *expected != '\0');
        const auto content = platform::readWholeFile(target, 100000);
        EXPECT_EQ((content ? content.value() : "").substr(0, std::strlen(expected)), expected);
    }
}

TEST_F(TintwellViewTest, SamplingTakesTheButtonAndTheShortcutUntilItEnds)
{
    const auto pressShortcut = [&] {
        QTest::keyClick(view_.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        settle();
    };
    for (const bool picked : { false, true }) {
        pressShortcut();
        auto* sampling = button("Sampling…");
        ASSERT_NE(sampling, nullptr);
        EXPECT_FALSE(sampling->isEnabled());
        EXPECT_GE(sampling->width(), sampling->sizeHint().width());
        EXPECT_LT(sampling->geometry().right(), button("Copy #6E56CF")->x());
        pressShortcut();
        QTest::mouseClick(sampling, Qt::LeftButton);
        EXPECT_EQ(desktop_->sampler->picks.size(), 1U);
        desktop_->sampler->answer(picked ? RGBAColor::fromHex("#F2C14E") : std::nullopt);
        view_->showNow();
        EXPECT_EQ(sampling->width(), sampling->sizeHint().width()) << "in the first frame";
        settle();
        EXPECT_EQ(sampling, button("Sample"));
        EXPECT_TRUE(sampling->isEnabled());
    }
    EXPECT_NE(label("#F2C14E"), nullptr);
    EXPECT_NE(button("Copy #F2C14E"), nullptr);
    EXPECT_EQ(button("Copy #F2C14E")->toolTip(), QLatin1String("Copy #F2C14E"));
}

TEST_F(TintwellViewTest, PastesByTheShortcutOnly)
{
    desktop_->pasteboard.pasted.text = "F2C14E";
    QTest::keyClick(view_.get(), Qt::Key_V);
    EXPECT_EQ(model_->generated().source.hex(), "#6E56CF");
    QTest::keyClick(view_.get(), Qt::Key_V, Qt::ControlModifier);
    settle();
    EXPECT_NE(button("Copy #F2C14E"), nullptr);
}

TEST_F(TintwellViewTest, TakesAColorThatIsDroppedOnTheHeader)
{
    struct Case {
        const char* kind;
        const char* content;
        bool isOffered; ///< As far as the kind tells.
        const char* status;
    };
    auto* header = part<CaptureHeader>();
    const auto edge = [&] { return header->grab().toImage().pixelColor(8, 80); };
    const auto dark = edge();
    for (const auto& [kind, content, isOffered, status] :
        { Case { "image/png", "#F2C14E", false, "" },
            Case { "text/plain", "no color", true,
                "Nothing dropped: it holds no color such as #6E56CF" },
            Case { "text/plain", "#F2C14E", true, "Dropped Pale Gold · #F2C14E" } }) {
        QMimeData data;
        data.setData(QString::fromLatin1(kind), content);
        QDragEnterEvent enter({ 60, 60 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(header, &enter);
        EXPECT_EQ(enter.isAccepted(), isOffered) << content;
        EXPECT_EQ(edge() != dark, isOffered) << "it lights up";
        if (!isOffered)
            continue;
        QDropEvent drop({ 60, 60 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(header, &drop);
        EXPECT_EQ(model_->status(), status);
        EXPECT_EQ(edge(), dark);
    }
}

TEST_F(TintwellViewTest, OnlyWhatWasCopiedLastWearsTheMark)
{
    using Ids = std::vector<std::string>;
    const auto click = [](QWidget* control) {
        QTest::mouseClick(control, Qt::LeftButton);
        settle();
    };
    click(tile("triadic.1"));
    EXPECT_EQ(marks(), Ids { "triadic.1" });
    click(sourceSwatch());
    EXPECT_EQ(marks(), Ids { "source" });
    click(tile("tone.50"));
    EXPECT_EQ(marks(), Ids { "tone.50" });
    choose(WorkspaceTab::themes);
    click(tile("light.background"));
    EXPECT_EQ(model_->lastCopiedID(), "light.background");
    // The workspace out of sight catches up when it comes back.
    choose(WorkspaceTab::studio);
    choose(WorkspaceTab::themes);
    EXPECT_EQ(marks(), Ids { "light.background" });
    desktop_->scheduler.advance(950ms);
    settle();
    EXPECT_EQ(marks(), Ids {});
}

TEST_F(TintwellViewTest, CellsLiveOnThroughAChangeOfTheSourceAndBlend)
{
    for (const auto tab : { WorkspaceTab::studio, WorkspaceTab::themes }) {
        choose(tab);
        const auto before = cells();
        ASSERT_GE(before.size(), 20U);
        model_->apply(*RGBAColor::fromHex("#F2C14E"));
        model_->setSelectedTab(tab);
        QCoreApplication::processEvents();
        EXPECT_EQ(cells(), before);
        settle();
        for (const auto& [id, cell] : before) {
            EXPECT_EQ(cell->tile()->color(), toQColor(cell->shown().namedColor.color)) << id;
            EXPECT_EQ(cell->tile()->label(), cell->shown().namedColor.name) << id;
        }
        apply("#6E56CF");
    }
    EXPECT_EQ(model_->selectedTab(), WorkspaceTab::studio);
    auto* const base = cells().at("complementary.0");
    const auto from = base->tile()->color().green();
    const auto painted = [&] { return base->tile()->paintedColor().green(); };
    model_->apply(*RGBAColor::fromHex("#F2C14E"));
    QCoreApplication::processEvents();
    EXPECT_EQ(painted(), from);
    platform::MotionClock::instance().advance(0.1);
    EXPECT_GT(painted(), from + 12);
    EXPECT_LT(painted(), 0xC1 - 12);
    EXPECT_EQ(base->tile()->color().green(), 0xC1) << "what a drag or a reader takes meanwhile";
}

TEST_F(TintwellViewTest, LabelsOnTheAccentCanBeReadAllTheWay)
{
    for (const auto* source : { "#F2C14E", "#101418", "#FFFFFF", "#00A080", "#6E56CF" }) {
        model_->apply(*RGBAColor::fromHex(source));
        QCoreApplication::processEvents();
        for (int frame = 0; frame < 60; ++frame) {
            const auto& tint = view_->tint();
            ASSERT_GE(contrastRatio(fromQColor(tint.ink), fromQColor(tint.fill)), 3)
                << "frame " << frame << " to " << source;
            platform::MotionClock::instance().advance(1.0 / 60);
        }
    }
}

TEST_F(TintwellViewTest, GridsShareTheWidthInTheirColumns)
{
    const auto expectPlace = [&](const std::string& id, QRect place) {
        auto* const cell = cells().at(id);
        EXPECT_EQ(QRect(cell->pos(), cell->tile()->size()), place) << id;
    };
    // 412 points: two, three, four and five columns with gaps of nine.
    expectPlace("complementary.1", { 211, 0, 201, 50 });
    expectPlace("triadic.2", { 281, 0, 131, 50 });
    expectPlace("tetradic.3", { 316, 0, 96, 50 });
    expectPlace("monochromatic.4", { 0, 96, 96, 50 });
    expectPlace("tone.950", { 0, 2 * 83, 75, 38 });
    choose(WorkspaceTab::themes);
    expectPlace("dark.error", { 337, 83, 75, 38 });
}

TEST_F(TintwellViewTest, UseSlidesTheStudioInAndThePickersPlateAlong)
{
    openOn({ palette(1, "Red") });
    choose(WorkspaceTab::saved);
    auto* picker = part<platform::SegmentedPicker>();
    const auto* stack = part<platform::PageStack>();
    QTest::mouseClick(button("Use"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(stack->isMoving());
    EXPECT_NE(picker->plateRect(), picker->segmentRect(0)) << "it slides";
    EXPECT_TRUE(part<platform::RollingText>()->isMoving());
    EXPECT_TRUE(part<platform::FadingName>()->isMoving());

    constexpr double moment = 0.1;
    platform::MotionClock::instance().advance(moment);
    const double progress = platform::springProgress(moment, sourceChangeSpring);
    // What will be the middle of a tile is on its way from the left, and still fades.
    auto* const cell = cells().at("complementary.1");
    const auto at = cell->tile()->mapTo(view_.get(), cell->tile()->rect().center())
        - QPoint(qRound(448 * (1 - progress)), 0);
    ASSERT_GT(at.x(), 0);
    const auto seen = view_->grab().toImage().pixelColor(at);
    const auto& color = cell->shown().namedColor.color;
    const auto expected = platform::blended(platform::currentTheme().windowBackground,
        QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
            static_cast<float>(color.blue)),
        progress);
    EXPECT_NEAR(seen.red(), expected.red(), 2);
    EXPECT_NEAR(seen.green(), expected.green(), 2);
    EXPECT_NEAR(seen.blue(), expected.blue(), 2);

    settle();
    EXPECT_FALSE(stack->isMoving());
    EXPECT_EQ(picker->plateRect(), picker->segmentRect(0));
}

TEST_F(TintwellViewTest, ANewPaletteShowsFromItsTopAndCanBeTakenBack)
{
    auto* bar = part<StudioWorkspace>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    ASSERT_GT(bar->value(), 0);
    QTest::mouseClick(tile("tone.950"), Qt::LeftButton);
    settle();
    EXPECT_EQ(bar->value(), bar->maximum());
    apply("#F2C14E");
    EXPECT_EQ(bar->value(), 0);
    QTest::keyClick(view_.get(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_NE(label("Back to Violet · #6E56CF"), nullptr);
    QTest::keyClick(view_.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    EXPECT_NE(button("Copy #F2C14E"), nullptr);
}

TEST_F(TintwellViewTest, ALibraryOfAnySizeBuildsOnlyTheRowsInSight)
{
    constexpr std::size_t count = 10'000;
    std::vector<SavedPalette> palettes;
    for (std::size_t i = 0; i < count; ++i) {
        palettes.push_back(palette(1, "Palette " + std::to_string(i)));
        palettes.back().id.bytes[14] = static_cast<std::uint8_t>(i / 256);
        palettes.back().id.bytes[15] = static_cast<std::uint8_t>(i % 256);
    }
    openOn(palettes);
    choose(WorkspaceTab::saved);
    auto* list = part<platform::RecyclingList>();
    auto* bar = part<SavedWorkspace>()->findChild<platform::ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    settle();
    EXPECT_NE(label("Palette 9999"), nullptr);
    EXPECT_EQ(list->height(), static_cast<int>(count) * SavedPaletteRow::rowHeight());
    EXPECT_LE(list->builtRows(), 9U);
    // Rows that were filled again act on the palette that they show now.
    QTest::mouseClick(
        label("Palette 9999")->parentWidget()->findChildren<platform::Button*>().at(1),
        Qt::LeftButton);
    settle();
    EXPECT_EQ(model_->status(), "Installed Tintwell.clr");
    QTest::mouseClick(
        label("Palette 9999")->parentWidget()->findChildren<platform::Button*>().at(2),
        Qt::LeftButton);
    settle();
    EXPECT_EQ(model_->status(), "Deleted Palette 9999");
    EXPECT_NE(label("Palette 9998"), nullptr);
    EXPECT_LE(list->builtRows(), 9U);
}

TEST_F(TintwellViewTest, TheListAndItsHintReplaceEachOther)
{
    choose(WorkspaceTab::saved);
    for (int round = 0; round < 2; ++round) {
        EXPECT_NE(label("No saved palettes"), nullptr);
        EXPECT_NE(
            label("Save + Install keeps the current system here and adds it to macOS Colors."),
            nullptr);
        // Two of one name are two rows.
        for (int i = 0; i < 2; ++i)
            QTest::mouseClick(button("Save + Install"), Qt::LeftButton);
        settle();
        EXPECT_EQ(label("No saved palettes"), nullptr);
        ASSERT_NE(button("Delete palette", 1), nullptr);
        EXPECT_EQ(button("Delete palette", 2), nullptr);
        button("Delete palette", 1)->setFocus(Qt::TabFocusReason);
        for (const std::size_t left : { 1U, 0U }) {
            QTest::mouseClick(button("Delete palette"), Qt::LeftButton);
            QCoreApplication::processEvents();
            EXPECT_TRUE(left == 0 || button("Delete palette")->parentWidget()->y() > 0);
            settle();
            EXPECT_EQ(model_->savedPalettes().size(), left);
            EXPECT_EQ(button("Delete palette") != nullptr, left > 0);
        }
    }
}

TEST_F(TintwellViewTest, LongAndRightToLeftNamesStayInTheirPlaces)
{
    std::string hebrew;
    for (int i = 0; i < 250; ++i)
        hebrew += "ש";
    const std::vector<std::string> names { std::string(500, 'W'), hebrew, "سماوي فاتح", "",
        "a\nb\tc" };
    for (const auto& name : names) {
        openOn({ palette(1, name) });
        choose(WorkspaceTab::saved);
        auto* row = part<SavedPaletteRow>();
        const auto texts = row->findChildren<platform::Label*>();
        ASSERT_EQ(texts.size(), 2);
        EXPECT_EQ(texts.at(0)->text().toStdString(), name);
        EXPECT_EQ(texts.at(0)->height(), 17);
        EXPECT_LT(texts.at(0)->geometry().right(), button("Use")->x());
        EXPECT_EQ(row->size(), QSize(448, SavedPaletteRow::rowHeight()));
        QTest::mouseClick(button("Install"), Qt::LeftButton);
        QTest::mouseClick(button("Use"), Qt::LeftButton);
        settle();
        auto* status = label("Loaded " + name);
        ASSERT_NE(status, nullptr);
        EXPECT_EQ(view_->size(), QSize(448, 680));
        EXPECT_LT(status->geometry().right(), button("Save + Install")->x());
        EXPECT_EQ(status->width(),
            status->parentWidget()->width() - 18
                - (status->parentWidget()->width() - button("Save + Install")->x()) - 10);
    }
}

TEST_F(TintwellViewTest, StripsShowUpToTwelveColorsInEqualBands)
{
    struct Case {
        int colors;
        int bands;
    };
    for (const auto& [colors, bands] :
        { Case { 0, 0 }, Case { 1, 1 }, Case { 3, 3 }, Case { 40, 12 } }) {
        auto saved = palette(1, "Strip");
        saved.colors.clear();
        for (int i = 0; i < colors; ++i)
            saved.colors.push_back({ std::to_string(i), "C", { i / 255.0, 0.5, 0.25, 1 }, {} });
        openOn({ saved });
        choose(WorkspaceTab::saved);
        const auto row = part<SavedPaletteRow>()->grab().toImage();
        const int y = row.height() - 1 - 18 - 8;
        std::vector<int> seen;
        for (int band = 0; band < std::max(bands, 1); ++band) {
            const auto color
                = row.pixelColor(18 + (2 * band + 1) * 412 / (2 * std::max(bands, 1)), y);
            if (color.green() == 128)
                seen.push_back(color.red());
        }
        std::vector<int> expected(static_cast<std::size_t>(bands));
        std::iota(expected.begin(), expected.end(), 0);
        EXPECT_EQ(seen, expected) << colors;
        QTest::mouseClick(button("Install"), Qt::LeftButton);
        EXPECT_EQ(desktop_->installer.calls.back().colors, saved.colors);
    }
}

TEST_F(TintwellViewTest, RepaintsAllOfItselfWhenTheDesktopTurnsDark)
{
    const auto pixel = [&](QPoint at) { return view_->grab().toImage().pixelColor(at); };
    using platform::Appearance;
    for (const auto tab : allWorkspaceTabs) {
        choose(tab);
        for (const auto appearance : { Appearance::dark, Appearance::light }) {
            platform::ThemeSource::instance().setDesktopPreferences({ appearance, false });
            settle();
            const auto background = platform::themeOf(appearance).windowBackground;
            // Header, between workspace and edge, footer.
            for (const auto at : { QPoint(4, 4), QPoint(4, 400), QPoint(4, 675) })
                EXPECT_EQ(pixel(at), background) << at.y();
        }
    }
}

} // namespace tintwell
