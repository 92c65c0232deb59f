// The brand picture in the header.
#pragma once

#include <QImage>
#include <QWidget>

namespace tintwell {

/// The picture "BrandMascot.png" in a smooth tile of 32 points, or a palette symbol when the file
/// is missing or no picture.
class BrandMark : public QWidget {
public:
    explicit BrandMark(QImage picture = mascot());

    /// The picture beside the program or in its data folder, read once a process; null without one.
    [[nodiscard]] static const QImage& mascot();
    /// The same without its light ground, for title bars and task bars of any colour.
    [[nodiscard]] static QImage windowIcon();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture_;
};

} // namespace tintwell
