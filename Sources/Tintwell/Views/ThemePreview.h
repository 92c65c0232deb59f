// The mock interface of the Themes workspace, painted in a theme's own roles.
#pragma once

#include "TintwellViewState.h"

#include <QWidget>

namespace tintwell {

/// A card that imitates an interface: title, subtitle, an active mark and an action pill.
class ThemePreview : public QWidget {
public:
    ThemePreview();

    void show(const PreviewState& state);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PreviewState shown_;
};

} // namespace tintwell
