// Text: one line with a fixed height, or a few wrapped ones.
#pragma once

#include "Fonts.h"
#include "Theme.h"

#include <QStringList>
#include <QWidget>

#include <optional>

namespace platform {

/// One line of text that is cut with an ellipsis when it does not fit; the whole text is its
/// accessible name and then its tooltip. Its colour follows the theme unless a fixed one is set.
class Label : public QWidget {
    Q_OBJECT
public:
    explicit Label(const TextStyle& style, ColorRole role = ColorRole::text,
        const QString& text = {}, QWidget* parent = nullptr);

    [[nodiscard]] const QString& text() const { return text_; }
    void setText(const QString& text);
    void setRole(ColorRole role);
    /// A colour that does not follow the theme; nothing returns to the role.
    void setColor(const std::optional<QColor>& color);
    void setAlignment(Qt::Alignment horizontal);
    /// Wraps at this width instead of cutting; the label is then as high as its lines.
    void setWrapWidth(int points);

    [[nodiscard]] const TextStyle& textStyle() const { return style_; }
    /// Where the first baseline lies below the label's top.
    [[nodiscard]] double baseline() const { return baseline_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

    [[nodiscard]] QColor color() const;
    [[nodiscard]] const QFont& textFont() const { return font_; }
    /// `text` as it fits into the present width.
    [[nodiscard]] QString fitted(const QString& text) const;
    void paintLine(QPainter& painter, const QString& line, double top, const QColor& color) const;

private:
    void wrap();

    TextStyle style_;
    QFont font_;
    double baseline_;
    ColorRole role_;
    std::optional<QColor> fixedColor_;
    Qt::Alignment alignment_ = Qt::AlignLeading;
    QString text_;
    double textWidth_ = 0;
    int wrapWidth_ = 0;
    QStringList lines_;
};

/// A line whose every new text is read out to the user of a screen reader, wherever the focus is.
class StatusLine : public Label {
    Q_OBJECT
public:
    StatusLine(const TextStyle& style, ColorRole role, QWidget* parent = nullptr);

    void announce(const QString& text);
};

} // namespace platform
