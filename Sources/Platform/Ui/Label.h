// Text: one line with a fixed height, or a few wrapped ones.
#pragma once

#include "Accessibility.h"
#include "Fonts.h"
#include "ThemeSource.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>

namespace platform {

/// One line of text that is cut with an ellipsis when it does not fit; the whole text is its
/// accessible name and then its tooltip. Its colour is one of the theme.
class Label : public QWidget {
    Q_OBJECT
public:
    explicit Label(const TextStyle& style, QColor Theme::*color = &Theme::text,
        const QString& text = {}, QWidget* parent = nullptr);

    [[nodiscard]] const QString& text() const { return text_; }
    void setText(const QString& text);
    /// The text for a reader, which is then told when it changes.
    [[nodiscard]] const QString& readText();
    void setAlignment(Qt::Alignment horizontal);
    /// Wraps at this width instead of cutting; the label is then as high as its lines.
    void setWrapWidth(int points);

    [[nodiscard]] const TextStyle& textStyle() const { return style_; }
    /// Where the first baseline lies below the label's top.
    [[nodiscard]] double baseline() const { return baseline_; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

    [[nodiscard]] QColor color() const { return currentTheme().*color_; }
    [[nodiscard]] const QFont& textFont() const { return font_; }
    /// `text` as it fits into the present width.
    [[nodiscard]] QString fitted(const QString& text) const;
    void paintLine(QPainter& painter, const QString& line, double top, const QColor& color) const;

private:
    void wrap();

    TextStyle style_;
    QFont font_;
    double baseline_;
    QColor Theme::*color_;
    Qt::Alignment alignment_ = Qt::AlignLeading;
    QString text_;
    ReadMark readMark_;
    double textWidth_ = 0;
    int wrapWidth_ = 0;
    QStringList lines_;
};

/// A line whose every text is read out to the user of a screen reader, wherever the focus is.
class StatusLine : public Label {
public:
    StatusLine(const TextStyle& style, QColor Theme::*color);

    /// In a window that is about to become active, after that: readers fall silent for a window.
    void announce(const QString& text);

protected:
    bool event(QEvent* event) override;

private:
    QTimer announcement_;
};

} // namespace platform
