#include "ColorPanel.h"

#include "DragWatch.h"
#include "Label.h"
#include "PopupMenu.h"

#include <gtest/gtest.h>
#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <fstream>
#include <functional>
#include <iterator>

namespace platform {
namespace {

class RecordingPasteboard final : public Pasteboard {
public:
    void write(const ColorContent& content) override { written.push_back(content); }
    [[nodiscard]] Result<PastedContent> read() const override { return PastedContent {}; }

    std::vector<ColorContent> written;
};

bool eventually(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < 10'000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}

std::string contentsOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return { std::istreambuf_iterator<char>(file), {} };
}

class ColorPanelTest : public testing::Test {
protected:
    ColorPanelTest()
        : registry_(std::filesystem::path(home_.path().toStdString()) / "Library/Colors")
    {
        save("Earlier by name", { { "Hidden", {} } });
        save("Kept", { { "Violet", { 0.5, 0, 1 } }, { "Sea Green", { 0, 0.5, 0.4 } } });
        open("Kept");
    }

    void open(const std::string& firstList)
    {
        panel_ = std::make_unique<ColorPanel>(ColorPanelServices {
            pasteboard_, registry_, [](const QColor&) { return Qt::white; }, firstList });
        panel_->orderFront(
            QColor(0x12, 0x34, 0x56), [this](const QColor& color) { used_ = color; });
        for (auto* widget : QApplication::topLevelWidgets())
            if (widget->windowTitle() == QStringLiteral("Colors"))
                window_ = widget;
        list_ = named<QListView>(u"Colors");
    }

    void save(const std::string& name, const std::vector<std::pair<std::string, Color>>& colors)
    {
        ColorList list(name);
        for (const auto& [key, color] : colors)
            list.setColor(color, key);
        ASSERT_TRUE(registry_.write(list).hasValue());
    }

    template <typename Widget> [[nodiscard]] Widget* named(const char16_t* name) const
    {
        const auto all = window_->findChildren<QWidget*>();
        for (auto* widget : all)
            if (auto* found = dynamic_cast<Widget*>(widget);
                found != nullptr && widget->accessibleName() == QString::fromUtf16(name))
                return found;
        return nullptr;
    }

    void enter(const char16_t* field, const QString& text) const
    {
        auto* edit = named<QLineEdit>(field);
        edit->setText(text);
        Q_EMIT edit->textEdited(text);
        Q_EMIT edit->editingFinished();
    }

    [[nodiscard]] QString valueOf(const char16_t* field) const
    {
        return named<QLineEdit>(field)->text();
    }

    [[nodiscard]] QModelIndex row(int index) const { return list_->model()->index(index, 0); }
    /// What readers hear of the rows, from top to bottom.
    [[nodiscard]] QStringList rows() const
    {
        QStringList names;
        for (int index = 0; index < list_->model()->rowCount(); ++index)
            names += row(index).data(Qt::AccessibleTextRole).toString();
        return names;
    }

    static void send(QWidget* widget, QEvent::Type type, QPointF at)
    {
        QMouseEvent event(
            type, at, widget->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
    static void click(QWidget* widget, QPointF at = { 9, 9 })
    {
        for (const auto type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease })
            send(widget, type, at);
    }
    static void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const auto text = key < 128 ? QString(QChar(key)) : QString();
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(widget, &event);
    }

    QColor used_;
    const QTemporaryDir home_;
    ColorListRegistry registry_;
    RecordingPasteboard pasteboard_;
    std::unique_ptr<ColorPanel> panel_;
    QWidget* window_ = nullptr;
    QListView* list_ = nullptr;
};

TEST_F(ColorPanelTest, HexTextAndNumbersFollowEachOther)
{
    struct Case {
        const char16_t* field;
        const char* entered;
        const char* hex;
        const char* channels;
    };
    // Each row goes on from the one before.
    const Case cases[] = {
        { u"Hex", "#102030", "#102030", "16 32 48 255" },
        { u"Hex", " a0B0c0 ", "#A0B0C0", "160 176 192 255" },
        { u"Hex", "A0B0C080", "#A0B0C0", "160 176 192 128" },
        { u"Hex", "#12345", "#A0B0C0", "160 176 192 128" },
        { u"Hex", "no color", "#A0B0C0", "160 176 192 128" },
        { u"Green", "0", "#A000C0", "160 0 192 128" },
        { u"Green", "300", "#A0FFC0", "160 255 192 128" },
        { u"Green", "", "#A0FFC0", "160 255 192 128" },
        { u"Green", "-1", "#A0FFC0", "160 255 192 128" },
        { u"Alpha", "255", "#A0FFC0", "160 255 192 255" },
    };
    for (const auto& row : cases) {
        enter(row.field, QString::fromLatin1(row.entered));
        EXPECT_EQ(valueOf(u"Hex").toStdString(), row.hex) << row.entered;
        const QStringList channels { valueOf(u"Red"), valueOf(u"Green"), valueOf(u"Blue"),
            valueOf(u"Alpha") };
        EXPECT_EQ(channels.join(u' ').toStdString(), row.channels) << row.entered;
    }
}

TEST_F(ColorPanelTest, AnotherListIsChosenFromTheMenuByItsFirstLetter)
{
    auto* box = named<QAbstractButton>(u"Color list");
    box->click();
    auto* menu = window_->findChild<PopupMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->selected(), 1);
    const auto* readers = QAccessible::queryAccessibleInterface(menu);
    EXPECT_TRUE(readers->child(1)->state().checked && !readers->child(0)->state().checked);
    press(menu, Qt::Key_E);
    press(menu, Qt::Key_Return);
    EXPECT_EQ(box->text(), QStringLiteral("Earlier by name"));
}

TEST_F(ColorPanelTest, OpensWithTheSourceAndGivesAColorBack)
{
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#123456"));
    enter(u"Hex", QStringLiteral("#102030"));
    for (auto* button : window_->findChildren<QAbstractButton*>())
        if (button->text() == QStringLiteral("Use as Source"))
            click(button);
    EXPECT_EQ(used_, QColor(0x10, 0x20, 0x30));
    list_->setCurrentIndex(row(1));
    press(list_, Qt::Key_Return);
    const auto labels = window_->findChildren<Label*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front()->text(), QStringLiteral("Copied #008066"));
}

TEST_F(ColorPanelTest, KeysMoveWheelAndSliders)
{
    enter(u"Hex", QStringLiteral("#808080"));
    // The number and the slider of a channel share a name.
    for (auto* widget : window_->findChildren<QWidget*>())
        if (widget->accessibleName() == QStringLiteral("Red")
            && dynamic_cast<QLineEdit*>(widget) == nullptr)
            press(widget, Qt::Key_Right);
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#818080"));
    auto* brightness = named<QWidget>(u"Brightness");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(brightness)->valueInterface()->currentValue(),
        QVariant(0x81));
    press(brightness, Qt::Key_Home);
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#000000"));
    press(named<QWidget>(u"Hue and saturation"), Qt::Key_Right);
    press(named<QWidget>(u"Brightness"), Qt::Key_End);
    EXPECT_EQ(valueOf(u"Red"), QStringLiteral("255")) << "the hue outlives black";
    EXPECT_LT(valueOf(u"Green").toInt(), 255);
}

TEST_F(ColorPanelTest, ListsAreInTheOrderOfTheirNumbers)
{
    panel_.reset();
    std::filesystem::remove_all(registry_.folder());
    for (const auto* name : { "List 10", "List 2" })
        save(name, { { name, {} } });
    open("");
    EXPECT_EQ(rows(), QStringList { QStringLiteral("List 2, #000000") });
}

TEST_F(ColorPanelTest, NumbersStepByKeysAndWheel)
{
    enter(u"Hex", QStringLiteral("#808080"));
    auto* field = named<QLineEdit>(u"Green");
    press(field, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#808A80"));
    QWheelEvent down(
        QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(field, &down);
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#808980"));
}

TEST_F(ColorPanelTest, TheMixedColorIsTakenByClickAndByReaders)
{
    enter(u"Hex", QStringLiteral("#102030"));
    auto* well = named<QWidget>(u"Mixed color, #102030");
    ASSERT_NE(well, nullptr);
    click(well);
    auto* reader = QAccessible::queryAccessibleInterface(well);
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(pasteboard_.written.size(), 2U);
    EXPECT_EQ(pasteboard_.written[1].text, "#102030");
    auto* brightness = QAccessible::queryAccessibleInterface(named<QWidget>(u"Brightness"));
    EXPECT_EQ(brightness->role(), QAccessible::Slider);
    brightness->valueInterface()->setCurrentValue(0.0);
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#000000"));
}

TEST_F(ColorPanelTest, TheListIsOneControlToTheKeyboard)
{
    std::vector<std::pair<std::string, Color>> many;
    for (int i = 0; i < 40; ++i)
        many.emplace_back("Color " + std::to_string(i), Color { 0, 0, i / 40.0 });
    many.emplace_back("Sea", Color {});
    save("Kept", many);
    ASSERT_TRUE(eventually([this] { return rows().size() > 5; }));
    list_->setFocus(Qt::TabFocusReason);
    for (const auto& [key, current] : std::vector<std::pair<int, int>> { { Qt::Key_Down, 1 },
             { Qt::Key_End, 40 }, { Qt::Key_Down, 40 }, { Qt::Key_Up, 39 }, { Qt::Key_Home, 0 },
             { Qt::Key_Up, 0 }, { Qt::Key_S, 40 } }) {
        pasteboard_.written.clear();
        press(list_, key);
        EXPECT_TRUE(pasteboard_.written.empty()) << "moving chooses nothing";
        press(list_, Qt::Key_Return);
        ASSERT_EQ(pasteboard_.written.size(), 1U) << current;
        EXPECT_TRUE(list_->viewport()->rect().contains(list_->visualRect(row(current))));
        const auto state = QAccessible::queryAccessibleInterface(list_)->child(current)->state();
        EXPECT_TRUE(state.selected && state.focused) << current;
    }
}

TEST_F(ColorPanelTest, ChosenRowIsCopiedAndShown)
{
    ASSERT_EQ(rows(),
        QStringList({ QStringLiteral("Violet, #8000FF"), QStringLiteral("Sea Green, #008066") }));
    const auto chooseByClick
        = [this] { click(list_->viewport(), list_->visualRect(row(1)).center()); };
    auto* const reader = QAccessible::queryAccessibleInterface(list_);
    ASSERT_EQ(reader->role(), QAccessible::List);
    const auto chooseAsReader = [reader](int index) {
        reader->child(index)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    };
    chooseByClick();
    chooseByClick();
    chooseAsReader(0);
    chooseAsReader(1);
    ASSERT_EQ(pasteboard_.written.size(), 4U);
    for (const auto& [index, text] : { std::pair(0, "#008066"), std::pair(1, "#008066"),
             std::pair(2, "#8000FF"), std::pair(3, "#008066") })
        EXPECT_EQ(pasteboard_.written.at(index).text, text);
    EXPECT_NEAR(pasteboard_.written[0].color.green, 0.5, 0.01);
    EXPECT_EQ(valueOf(u"Hex"), QStringLiteral("#008066"));

    // It stays chosen, without being copied again.
    auto* search = named<QLineEdit>(u"Search colors");
    for (const auto* text : { u"violet", u"green" })
        search->setText(QString::fromUtf16(text));
    EXPECT_TRUE(list_->selectionModel()->isSelected(row(0)));
    save("Kept", { { "First", {} }, { "Sea Green", { 0, 0.5, 0.4 } } });
    search->clear();
    EXPECT_TRUE(eventually([this] { return rows().front().startsWith(u"First"); }));
    EXPECT_TRUE(list_->selectionModel()->isSelected(row(1)));
    EXPECT_EQ(pasteboard_.written.size(), 4U);
}

TEST_F(ColorPanelTest, ARowIsDraggedAndNotChosen)
{
    const DragWatch drags;
    auto* const rowsArea = list_->viewport();
    send(rowsArea, QEvent::MouseButtonPress, { 9, 9 });
    for (const double x : { 15, 30, 60 })
        send(rowsArea, QEvent::MouseMove, { x, 9 });
    send(rowsArea, QEvent::MouseButtonRelease, { 60, 9 });
    EXPECT_EQ(drags.count, 1);
    EXPECT_TRUE(pasteboard_.written.empty());
}

TEST_F(ColorPanelTest, SearchLooksAtNamesAndHexTexts)
{
    auto* search = named<QLineEdit>(u"Search colors");
    EXPECT_EQ(search->placeholderText(), QStringLiteral("Search colors"));
    for (const auto& [text, count] :
        { std::pair("green", 1), std::pair("#80", 1), std::pair(" E", 2), std::pair("pink", 0) }) {
        search->setText(QString::fromLatin1(text));
        EXPECT_EQ(rows().size(), count) << text;
    }
}

TEST_F(ColorPanelTest, FollowsTheFolderWhileItIsOpen)
{
    save("Kept", { { "Coral", { 1, 0.5, 0.3 } } });
    EXPECT_TRUE(eventually([this] { return rows().size() == 1; }));
    std::filesystem::remove_all(registry_.folder());
    EXPECT_TRUE(eventually([this] { return rows().isEmpty(); }));
    save("Another", { { "Mint", { 0.2, 0.9, 0.7 } } });
    EXPECT_TRUE(eventually([this] { return rows().size() == 1; }))
        << "a folder that comes back is found";

    window_->close();
    save("Another", { { "One", {} }, { "Two", {} } });
    panel_->orderFront(Qt::red, {});
    EXPECT_EQ(rows().size(), 2) << "read again when it opens";
}

TEST_F(ColorPanelTest, FollowsAListThatIsWrittenInPlaceBehindALink)
{
    const auto elsewhere = std::filesystem::path(home_.path().toStdString()) / "elsewhere";
    save("Template", { { "One", {} }, { "Two", {} }, { "Three", {} } });
    const auto contents = contentsOf(registry_.folder() / "Template.clr");
    std::filesystem::rename(registry_.folder() / "Kept.clr", elsewhere);
    EXPECT_TRUE(eventually([this] { return rows().front().startsWith(u"Hidden"); }));
    std::filesystem::create_symlink(elsewhere, registry_.folder() / "Kept.clr");
    EXPECT_TRUE(eventually([this] { return rows().size() == 2; }));

    std::ofstream file(elsewhere, std::ios::trunc);
    file << contents.substr(0, contents.size() / 2) << std::flush;
    EXPECT_TRUE(eventually([this] { return rows().front().startsWith(u"Hidden"); }))
        << "half a list is none";
    file << contents.substr(contents.size() / 2) << std::flush;
    EXPECT_TRUE(eventually([this] { return rows().size() == 3; })) << "the list asked for is back";
}

} // namespace
} // namespace platform
