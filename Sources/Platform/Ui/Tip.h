// The short text that explains what the pointer rests on.
#pragma once

#include "FloatingPlate.h"
#include "Motion.h"

#include <QStringList>
#include <QWidget>

namespace platform {

/// A tip inside its window, as the menus are: it looks the same with and without a compositor.
/// There is one at a time; whatever the user does next takes it away.
class Tip : public QWidget {
    Q_OBJECT
public:
    /// From now on the tooltips of the widgets in a `Window` are shown as tips; the first call
    /// counts.
    static void install();
    /// Shows `text` as it stands beside the pointer at `place`, in screen coordinates.
    static void show(QWidget& owner, const QPoint& place, const QString& text);

    [[nodiscard]] QRect plate() const { return plate_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Tip(QWidget& window, const QPoint& pointer, const QString& text);

    QStringList lines_;
    QRect plate_;
    FloatingPlate ground_;
    Fade opacity_;
};

} // namespace platform
