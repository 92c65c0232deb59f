#include "Shadow.h"

#include "Shapes.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace platform {

namespace {

std::vector<float> gaussianKernel(double sigma, int reach)
{
    std::vector<float> kernel;
    auto sum = 0.0F;
    for (int i = -reach; i <= reach; ++i) {
        kernel.push_back(static_cast<float>(std::exp(-i * i / (2 * sigma * sigma))));
        sum += kernel.back();
    }
    for (auto& weight : kernel)
        weight /= sum;
    return kernel;
}

/// Opacities, row by row.
struct Plane {
    std::size_t width;
    std::size_t height;
    std::vector<float> samples;
};

/// Blurs the rows of `from` and turns the result, so that twice does rows and columns.
Plane blurredAndTurned(const Plane& from, const std::vector<float>& kernel)
{
    const auto reach = static_cast<std::ptrdiff_t>(kernel.size() / 2);
    const auto width = static_cast<std::ptrdiff_t>(from.width);
    Plane to { from.height, from.width, std::vector<float>(from.samples.size()) };
    for (std::size_t y = 0; y < from.height; ++y) {
        const auto* row = from.samples.data() + y * from.width;
        for (std::ptrdiff_t x = 0; x < width; ++x) {
            auto sum = 0.0F;
            const auto last = std::min(reach, width - 1 - x);
            for (auto k = std::max(-reach, -x); k <= last; ++k)
                sum += row[x + k] * kernel[static_cast<std::size_t>(k + reach)];
            to.samples[static_cast<std::size_t>(x) * to.width + y] = sum;
        }
    }
    return to;
}

} // namespace

/// Points between two samples.
int Shadow::step() const
{
    return std::max(1, static_cast<int>(sigma_ / 3));
}

int Shadow::reach() const
{
    return step() * static_cast<int>(std::ceil(3 * sigma_ / step()));
}

void Shadow::paint(QPainter& painter, const QRectF& shape, const QColor& color)
{
    const QSize size(qCeil(shape.width()), qCeil(shape.height()));
    if (size != size_) {
        size_ = size;
        blur(size);
        color_ = {};
    }
    if (color != color_) {
        color_ = color;
        image_ = QImage(mask_.size(), QImage::Format_ARGB32_Premultiplied);
        image_.fill(color);
        QPainter tint(&image_);
        tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        tint.drawImage(0, 0, mask_);
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        QRectF(shape.topLeft() - QPointF(reach(), reach()), QSizeF(mask_.size() * step())), image_);
    painter.restore();
}

void Shadow::blur(const QSize& size)
{
    const auto room = reach() / step();
    const auto samples
        = [this, room](int points) { return qCeil(points / double(step())) + 2 * room; };
    const auto width = samples(size.width());
    const auto height = samples(size.height());
    mask_ = QImage(width, height, QImage::Format_Alpha8);
    mask_.fill(0);
    QPainter painter(&mask_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / step(), 1.0 / step());
    painter.fillPath(
        smoothRoundedRect(QRectF(QPointF(reach(), reach()), size), radius_), Qt::black);
    painter.end();

    Plane plane { static_cast<std::size_t>(width), static_cast<std::size_t>(height), {} };
    plane.samples.reserve(plane.width * plane.height);
    for (int y = 0; y < height; ++y) {
        const auto* line = mask_.constScanLine(y);
        plane.samples.insert(plane.samples.end(), line, line + width);
    }
    const auto kernel = gaussianKernel(sigma_ / step(), room);
    plane = blurredAndTurned(blurredAndTurned(plane, kernel), kernel);
    auto sample = plane.samples.cbegin();
    for (int y = 0; y < height; ++y) {
        auto* line = mask_.scanLine(y);
        for (int x = 0; x < width; ++x)
            line[x] = static_cast<uchar>(std::lround(*sample++));
    }
}

} // namespace platform
