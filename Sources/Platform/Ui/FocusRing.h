// The ring around the control that has the keyboard focus.
#pragma once

#include <QColor>
#include <QObject>
#include <QPointer>

class QWidget;

namespace platform {

/// Draws a ring outside its control, above everything in the window, as soon as the control has the
/// focus by keyboard; a click does not show it. It follows the control when that moves, and inside
/// a scroll area it ends at the area's edges. Nothing exists for it while it is not shown.
class FocusRing : public QObject {
    Q_OBJECT
public:
    /// Watches `control` and belongs to it. `radius` is that of the control's corners.
    FocusRing(QWidget& control, double radius);
    ~FocusRing() override;

    void setColor(const QColor& color);
    [[nodiscard]] QColor color() const { return color_; }
    /// Draws the ring around another widget instead, such as the group that the control is in.
    void setFramed(QWidget& framed, double radius);

    [[nodiscard]] bool isShown() const { return !overlay_.isNull(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Overlay;
    void focusEntered(Qt::FocusReason reason);
    void show();
    void hide();
    void place();

    QWidget& control_;
    QPointer<QWidget> framed_;
    double radius_;
    QColor color_;
    QPointer<Overlay> overlay_;
};

} // namespace platform
