// Cells in equal columns, kept by their ids.
#pragma once

#include <functional>
#include <QWidget>
#include <string>
#include <vector>

namespace platform {

/// Lays out its cells row by row in columns that share the width equally. A cell whose id survives
/// is only filled again, in its new place; others are made and deleted. All cells of a grid are as
/// high as the first one wants to be.
class Grid : public QWidget {
    Q_OBJECT
public:
    using MakeCell = std::function<QWidget*(QWidget* parent)>;
    using FillCell = std::function<void(QWidget& cell, std::size_t index)>;

    Grid(
        int columnGap, int rowGap, MakeCell makeCell, FillCell fillCell, QWidget* parent = nullptr);

    /// Shows one cell per id, in this order, in `columns` columns; 0 columns show nothing.
    void setCells(const std::vector<std::string>& ids, std::size_t columns);

    [[nodiscard]] QWidget* cell(std::size_t index) const { return cells_[index].widget; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Cell {
        std::string id;
        QWidget* widget = nullptr;
    };

    void layOut();
    [[nodiscard]] int cellHeight() const;

    int columnGap_;
    int rowGap_;
    MakeCell makeCell_;
    FillCell fillCell_;
    std::size_t columns_ = 0;
    std::vector<Cell> cells_;
};

} // namespace platform
