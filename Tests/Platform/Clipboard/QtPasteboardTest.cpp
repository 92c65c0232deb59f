#include "QtPasteboard.h"

#include "ColorMimeData.h"
#include "ToolkitColor.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace platform {
namespace {

TEST(ColorMimeData, CarriesTheColorBesideItsText)
{
    const ColorContent content { { 1, 0.5, 0.25, 0.5 }, "#FF8040" };
    const auto both = colorMimeData(content, /*withColor=*/true);
    EXPECT_EQ(both->formats(),
        (QStringList { QStringLiteral("application/x-color"), QStringLiteral("text/plain") }));
    // By single bytes: the receiver may read either byte of a channel.
    EXPECT_EQ(qvariant_cast<QColor>(both->colorData()), QColor(255, 128, 64, 128));
    EXPECT_EQ(both->text(), QStringLiteral("#FF8040"));
    const auto text = colorMimeData(content, /*withColor=*/false);
    EXPECT_EQ(text->formats(), QStringList { QStringLiteral("text/plain") });
    EXPECT_EQ(text->text(), QStringLiteral("#FF8040"));
}

TEST(QtPasteboard, ReadsWhatProgramsCopy)
{
    QtPasteboard pasteboard;
    auto* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    EXPECT_EQ(pasteboard.read().value().color, std::nullopt);
    EXPECT_EQ(pasteboard.read().value().text, "");
    clipboard->setText(QStringLiteral("#F2C14E"));
    EXPECT_EQ(pasteboard.read().value().color, std::nullopt);
    EXPECT_EQ(pasteboard.read().value().text, "#F2C14E");
    const QColor color(0xFF, 0x33, 0x66, 0x99);
    pasteboard.write(contentOf(color));
    ASSERT_TRUE(pasteboard.read().value().color.has_value());
    EXPECT_EQ(toQColor(*pasteboard.read().value().color), color);
    EXPECT_EQ(pasteboard.read().value().text, "#FF3366");
}

} // namespace
} // namespace platform
