// The panel on a desktop of its own, for the tests of its views.
#pragma once

#include "Fakes.h"
#include "PaletteModelsJson.h"
#include "TemporaryFolder.h"
#include "TintwellView.h"
#include "Window.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QTest>

#include <map>

namespace tintwell {

/// The panel on a desktop of its own, in front and with time held.
class TintwellViewTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        platform::MotionClock::instance().holdTime();
        open();
    }

    void TearDown() override
    {
        close();
        platform::MotionClock::instance().releaseTime();
    }

    [[nodiscard]] std::filesystem::path library() const { return folder_ / "library.json"; }

    void close()
    {
        view_.reset();
        window_.reset();
        model_.reset();
        desktop_.reset();
        opened_ = quits_ = 0;
    }

    /// A fresh panel; the library file stays what it is.
    void open()
    {
        close();
        desktop_ = std::make_unique<FakeDesktop>();
        model_ = desktop_->modelOn(library());
        view_ = std::make_unique<TintwellView>(*model_,
            ViewActions { [this] { ++opened_; }, [this] { ++quits_; },
                [](platform::Timestamp) { return std::string("Nov 22, 2026, 10:00 AM"); } });
        window_ = std::make_unique<platform::Window>();
        view_->setParent(window_.get());
        window_->resize(view_->size());
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        view_->setFocus();
        settle();
    }

    void openOn(const std::vector<SavedPalette>& palettes)
    {
        std::string json;
        ASSERT_TRUE(appendJson(json, palettes, platform::JsonStyle::pretty));
        platform::writeContent(library(), json);
        open();
    }

    static void settle()
    {
        QCoreApplication::processEvents();
        platform::MotionClock::instance().advance(2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    void choose(WorkspaceTab tab)
    {
        model_->setSelectedTab(tab);
        settle();
    }

    void apply(const char* hex)
    {
        model_->apply(*RGBAColor::fromHex(hex));
        settle();
    }

    [[nodiscard]] static SavedPalette palette(std::uint8_t id, const std::string& name)
    {
        const auto source = *RGBAColor::fromHex("#E5484D");
        return { platform::Uuid { { id, 1 } }, name, platform::Timestamp(), source,
            { { "a", "A", source, {} }, { "b", "B", source, {} } } };
    }

    [[nodiscard]] static QString nameOf(QWidget* widget)
    {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    }

    /// The `index`-th visible button of a name, from the top of the panel.
    [[nodiscard]] QWidget* button(const char* name, std::size_t index = 0) const
    {
        std::vector<QWidget*> found;
        for (auto* each : view_->window()->findChildren<QAbstractButton*>())
            if (each->isVisible() && nameOf(each) == QString::fromUtf8(name))
                found.push_back(each);
        std::sort(found.begin(), found.end(), [this](QWidget* a, QWidget* b) {
            return a->mapTo(view_.get(), QPoint()).y() < b->mapTo(view_.get(), QPoint()).y();
        });
        return index < found.size() ? found[index] : nullptr;
    }

    [[nodiscard]] std::map<std::string, SwatchCell*> cells() const
    {
        std::map<std::string, SwatchCell*> cells;
        for (auto* cell : view_->findChildren<SwatchCell*>())
            if (cell->isVisible())
                cells[cell->shown().namedColor.id] = cell;
        return cells;
    }

    [[nodiscard]] QWidget* tile(const std::string& id) const
    {
        const auto all = cells();
        return all.contains(id) ? all.at(id)->tile() : nullptr;
    }

    template <typename Widget> [[nodiscard]] Widget* part() const
    {
        return view_->template findChild<Widget*>();
    }

    [[nodiscard]] QWidget* sourceSwatch() const
    {
        for (auto* each : part<CaptureHeader>()->findChildren<QWidget*>())
            if (dynamic_cast<DraggableColorView*>(each))
                return each;
        return nullptr;
    }

    /// The name that Tab would speak, with the owner of a swatch or a row told apart.
    [[nodiscard]] std::string focusName() const
    {
        auto* focus = QApplication::focusWidget();
        if (focus == nullptr)
            return "nothing";
        if (auto* cell = qobject_cast<SwatchCell*>(focus->parentWidget()))
            return cell->shown().namedColor.id;
        if (auto* row = qobject_cast<SavedPaletteRow*>(focus->parentWidget()))
            return nameOf(focus).toStdString() + " " + row->shown().name;
        return nameOf(focus).toStdString();
    }

    /// Which marks are in sight: ids of cells, or "source".
    [[nodiscard]] std::vector<std::string> marks() const
    {
        std::vector<std::string> ids;
        for (auto* mark : view_->findChildren<CopiedMark*>()) {
            EXPECT_EQ(mark->isCopied(), !mark->isHidden());
            const auto* cell = qobject_cast<SwatchCell*>(mark->parentWidget());
            if (mark->isVisible())
                ids.push_back(cell ? cell->shown().namedColor.id : "source");
        }
        return ids;
    }

    [[nodiscard]] platform::Label* label(const std::string& text) const
    {
        for (auto* each : view_->findChildren<platform::Label*>())
            if (each->isVisible() && each->text().toStdString() == text)
                return each;
        return nullptr;
    }

    platform::TemporaryFolder folder_;
    std::unique_ptr<FakeDesktop> desktop_;
    std::unique_ptr<TintwellModel> model_;
    std::unique_ptr<platform::Window> window_;
    std::unique_ptr<TintwellView> view_;
    int opened_ = 0;
    int quits_ = 0;
};

inline void pressWithKey(QWidget* control, Qt::Key key)
{
    control->setFocus(Qt::TabFocusReason);
    QTest::keyClick(control, key);
}

} // namespace tintwell
