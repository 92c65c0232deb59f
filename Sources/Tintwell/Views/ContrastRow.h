// The contrasts below a theme's swatches.
#pragma once

#include <QWidget>

#include <string>
#include <vector>

namespace tintwell {

/// One label for each contrast that a theme reports: a seal and the ratio.
class ContrastRow : public QWidget {
public:
    ContrastRow();

    void show(const std::vector<std::string>& contrasts);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<std::string> shown_;
};

} // namespace tintwell
