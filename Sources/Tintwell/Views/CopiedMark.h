// The checkmark that a copied colour wears for a moment.
#pragma once

#include "Motion.h"

#include <QColor>
#include <QWidget>

namespace tintwell {

/// Grows and fades in when the colour was copied, shrinks and fades out after; never in the way of
/// the pointer. The mark is centred in the widget.
class CopiedMark : public QWidget {
    Q_OBJECT
public:
    /// `size` is the side of the mark's box in points.
    explicit CopiedMark(double size, QWidget* parent = nullptr);

    void show(bool isCopied, const QColor& color);

    /// Whether the mark is there, be it still on its way.
    [[nodiscard]] bool isCopied() const { return isCopied_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double size_;
    bool isCopied_ = false;
    QColor color_;
    double presence_ = 0;
    platform::Motion motion_;
};

} // namespace tintwell
