#include "RecyclingList.h"

#include "Button.h"
#include "ScrollArea.h"
#include "ThemeSource.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <map>
#include <string>
#include <tuple>

namespace platform {

namespace {

constexpr int rowHeight = 96;
constexpr std::size_t manyRows = 10'000;

/// A window of ten thousand rows of two buttons each; a row knows the index that it was filled
/// with.
class RecyclingListTest : public testing::Test {
protected:
    RecyclingListTest()
        : list_(new RecyclingList(rowHeight, makeRow,
            [this](QWidget& row, std::size_t index) {
                row.setProperty("index", QVariant::fromValue<qulonglong>(index));
                ++fills_;
                const auto key = index + (index >= shiftedFrom_ ? shift_ : 0);
                row.setProperty("key", QVariant::fromValue<qulonglong>(key));
                return std::to_string(key);
            }))
        , area_(list_)
    {
        area_.resize(448, 415);
        list_->reload(manyRows);
        area_.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&area_));
    }

    static QWidget* makeRow(QWidget* parent)
    {
        auto* row = new QWidget(parent);
        auto* layout = new QHBoxLayout(row);
        for (const auto* name : { "use", "delete" }) {
            auto* button = borderlessButton(QLatin1String(name));
            button->setObjectName(QLatin1String(name));
            layout->addWidget(button);
        }
        return row;
    }

    [[nodiscard]] static std::size_t indexOf(const QWidget* row)
    {
        return row->property("index").toULongLong();
    }

    /// Index and top of every row that is shown.
    [[nodiscard]] std::map<std::size_t, int> shownRows() const
    {
        std::map<std::size_t, int> rows;
        for (auto* child : list_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (child->isVisible())
                rows[indexOf(child)] = child->y();
        return rows;
    }

    /// Where in the window the rows in sight are, by key.
    [[nodiscard]] std::map<std::size_t, QRect> placesInSight() const
    {
        std::map<std::size_t, QRect> places;
        for (auto* child : list_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (child->isVisible() && !child->visibleRegion().isEmpty())
                places[child->property("key").toULongLong()]
                    = QRect(child->mapTo(&area_, QPoint()), child->size());
        return places;
    }

    [[nodiscard]] QWidget* button(std::size_t index, const char* name) const
    {
        for (auto* child : list_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (child->isVisible() && indexOf(child) == index)
                return child->findChild<QWidget*>(QLatin1String(name));
        return nullptr;
    }

    void scrollTo(int value) { area_.verticalScrollBar()->setValue(value); }

    int fills_ = 0;
    /// From this index on rows show what was this much further down.
    std::size_t shiftedFrom_ = 0;
    std::size_t shift_ = 0;
    RecyclingList* list_;
    ScrollArea area_;
};

} // namespace

TEST_F(RecyclingListTest, BuildsOnlyWhatIsInSight)
{
    for (const int top : { 0, 50, 48'000, 959'585, 12 }) {
        scrollTo(top);
        const auto rows = shownRows();
        ASSERT_FALSE(rows.empty()) << top;
        for (const auto& [index, y] : rows)
            EXPECT_EQ(y, static_cast<int>(index) * rowHeight) << top;
        EXPECT_LE(rows.begin()->second, top);
        EXPECT_GE(rows.rbegin()->second + rowHeight, top + 415);
    }
    EXPECT_LE(list_->builtRows(), 9U);
    EXPECT_LT(fills_, 60);
}

TEST_F(RecyclingListTest, FillsASightThatGrowsLater)
{
    area_.resize(448, 700);
    EXPECT_GE(shownRows().size(), 8U);
}

TEST_F(RecyclingListTest, ShrinkingLeavesNoRowBehind)
{
    scrollTo(48'000);
    list_->reload(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(shownRows(), (std::map<std::size_t, int> { { 0, 0 }, { 1, rowHeight } }));
    list_->reload(0);
    EXPECT_TRUE(shownRows().empty());
}

TEST_F(RecyclingListTest, KeepsTheFocusedRowOutOfSightAndMovesOnFromIt)
{
    auto* focused = button(1, "delete");
    ASSERT_NE(focused, nullptr);
    focused->setFocus();
    scrollTo(200'000);
    EXPECT_TRUE(shownRows().contains(1));
    EXPECT_EQ(indexOf(focused->parentWidget()), 1U);
    for (const auto& [key, index] : { std::pair(Qt::Key_Down, 2U), { Qt::Key_Up, 1U },
             { Qt::Key_Up, 0U }, { Qt::Key_Up, 0U } }) {
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(QApplication::focusWidget(), button(index, "delete"));
        EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
    }
}

TEST_F(RecyclingListTest, RowsMoveFromTheirOldPlacesAlongASpring)
{
    constexpr auto inserted = static_cast<std::size_t>(-1);
    const Spring spring { .response = 0.32, .dampingFraction = 0.85 };
    auto& clock = MotionClock::instance();
    clock.holdTime();
    for (const auto& [top, from, shift] : { std::tuple(0, 0U, inserted), { 48'000, 0U, inserted },
             { 0, 1U, 1U }, { 1'000'000, 9'998U, 1U } }) {
        shift_ = 0;
        list_->reload(manyRows);
        scrollTo(top);
        const auto before = placesInSight();
        shiftedFrom_ = from;
        shift_ = shift;
        list_->reload(manyRows - shift, spring);
        const auto atFirst = placesInSight();
        for (const auto& [key, place] : atFirst)
            EXPECT_TRUE(!before.contains(key) || place == before.at(key)) << key << " at " << top;
        clock.advance(0.1);
        const auto onTheWay = placesInSight();
        list_->reload(manyRows - shift);
        EXPECT_EQ(placesInSight(), onTheWay) << "nothing changed since " << top;
        clock.advance(1);
        const auto atLast = placesInSight();
        EXPECT_NE(onTheWay, atFirst);
        EXPECT_NE(onTheWay, atLast);
        EXPECT_NE(atLast, before);
        for (const auto& [index, y] : shownRows())
            EXPECT_EQ(y, static_cast<int>(index) * rowHeight) << top;
        EXPECT_EQ(list_->height(), list_->sizeHint().height());
    }
    clock.releaseTime();
}

TEST_F(RecyclingListTest, ScrollsByPixelsAtOnceAndByNotchesWithAGlide)
{
    auto* bar = area_.verticalScrollBar();
    const auto wheel = [&](QPoint pixels, QPoint angle) {
        QWheelEvent event({ 10, 10 }, area_.mapToGlobal(QPointF(10, 10)), pixels, angle,
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(area_.viewport(), &event);
    };
    MotionClock::instance().holdTime();
    wheel({ 0, -37 }, { 0, -120 });
    EXPECT_EQ(bar->value(), 37);
    wheel({}, { 0, -120 });
    EXPECT_EQ(bar->value(), 37);
    wheel({}, { 0, -120 });
    MotionClock::instance().advance(1);
    EXPECT_EQ(bar->value(), 37 + 128);

    ThemeSource::instance().setDesktopPreferences({ Appearance::light, true });
    wheel({}, { 0, 120 });
    EXPECT_EQ(bar->value(), 37 + 64);
    ThemeSource::instance().setDesktopPreferences({ Appearance::light, false });
    MotionClock::instance().releaseTime();
}

} // namespace platform
