#include "Shadow.h"

#include "Shapes.h"

#include <algorithm>
#include <cmath>
#include <QPainter>
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

/// Blurs the rows of `from` and writes them as the columns of the result.
std::vector<float> blurredRowsTurned(
    const std::vector<float>& from, int width, int height, const std::vector<float>& kernel)
{
    const auto reach = static_cast<int>(kernel.size()) / 2;
    std::vector<float> to(from.size());
    for (int y = 0; y < height; ++y) {
        const auto* row = from.data() + static_cast<std::ptrdiff_t>(y) * width;
        for (int x = 0; x < width; ++x) {
            auto sum = 0.0F;
            for (int k = std::max(-reach, -x); k <= std::min(reach, width - 1 - x); ++k)
                sum += row[x + k] * kernel[static_cast<std::size_t>(k + reach)];
            to[static_cast<std::size_t>(x) * static_cast<std::size_t>(height)
                + static_cast<std::size_t>(y)]
                = sum;
        }
    }
    return to;
}

} // namespace

int Shadow::reach() const
{
    return static_cast<int>(std::ceil(3 * sigma_));
}

void Shadow::paint(QPainter& painter, const QRectF& shape, const QColor& color)
{
    const QSize size(qCeil(shape.width()), qCeil(shape.height()));
    const auto room = 2 * reach();
    if (mask_.size() != size + QSize(room, room)) {
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
        QRectF(shape.topLeft() - QPointF(reach(), reach()), QSizeF(mask_.size())), image_);
    painter.restore();
}

void Shadow::blur(const QSize& size)
{
    const auto room = reach();
    const auto width = size.width() + 2 * room;
    const auto height = size.height() + 2 * room;
    mask_ = QImage(width, height, QImage::Format_Alpha8);
    mask_.fill(0);
    QPainter painter(&mask_);
    paintPlate(painter, QRectF(QPointF(room, room), size), radius_, Qt::black);
    painter.end();

    std::vector<float> samples;
    samples.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const auto* line = mask_.constScanLine(y);
        samples.insert(samples.end(), line, line + width);
    }
    const auto kernel = gaussianKernel(sigma_, room);
    samples = blurredRowsTurned(samples, width, height, kernel);
    samples = blurredRowsTurned(samples, height, width, kernel);
    auto sample = samples.cbegin();
    for (int y = 0; y < height; ++y) {
        auto* line = mask_.scanLine(y);
        for (int x = 0; x < width; ++x)
            line[x] = static_cast<uchar>(std::lround(*sample++));
    }
}

} // namespace platform
