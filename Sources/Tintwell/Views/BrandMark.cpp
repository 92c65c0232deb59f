#include "BrandMark.h"

#include "Accessibility.h"
#include "Shapes.h"
#include "Symbols.h"
#include "ThemeSource.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPainter>

#include <utility>

namespace tintwell {

namespace {

constexpr int side = 32;
constexpr double radius = 8;
constexpr double symbolPadding = 7;
constexpr double outlineWidth = 0.5;

QImage readPicture(const char* name)
{
    const auto folder = QCoreApplication::applicationDirPath();
    for (const auto* place : { "/../share/tintwell/", "/Resources/" }) {
        QFile file(folder + QLatin1String(place) + QLatin1String(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        // To find out the format, the toolkit would load all of its image plugins and ask them.
        QImageReader reader(&file, "png");
        reader.setAutoDetectImageFormat(false);
        if (auto picture = reader.read(); !picture.isNull())
            return picture;
        if (QImage picture(file.fileName()); !picture.isNull())
            return picture;
    }
    return {};
}

} // namespace

const QImage& BrandMark::mascot()
{
    static const QImage picture = readPicture("BrandMascot.png");
    return picture;
}

QImage BrandMark::windowIcon()
{
    return readPicture("WindowIcon.png");
}

BrandMark::BrandMark(QImage picture)
    : picture_(std::move(picture))
{
    platform::setAccessibleRole(*this, QAccessible::NoRole);
    setFixedSize(side, side);
}

void BrandMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const auto& theme = platform::currentTheme();
    const QRectF tile = rect();
    const auto shape = platform::smoothRoundedRect(tile, radius);
    painter.fillPath(shape, theme.quaternaryFill);
    if (picture_.isNull()) {
        platform::paintSymbol(painter, platform::Symbol::paletteFill,
            tile.adjusted(symbolPadding, symbolPadding, -symbolPadding, -symbolPadding),
            theme.secondary);
    } else {
        // A brush, not a clip: its edge is smooth.
        const auto pixels = (tile.size() * devicePixelRatioF()).toSize();
        auto scaled
            = picture_.scaled(pixels, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(devicePixelRatioF());
        QBrush brush;
        brush.setTextureImage(scaled);
        const auto excess = tile.size() - scaled.deviceIndependentSize();
        brush.setTransform(QTransform::fromTranslate(excess.width() / 2, excess.height() / 2));
        painter.fillPath(shape, brush);
    }
    platform::paintPlate(painter, tile, radius, Qt::transparent, theme.separator, outlineWidth);
}

} // namespace tintwell
