// A column of equal rows of which only those in sight exist.
#pragma once

#include "Motion.h"

#include <QWidget>

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace platform {

/// The content of a scroll area: `count` rows of `rowHeight` points. Rows that leave the sight are
/// filled again for those that enter it, so any number of rows costs what a screenful does.
///
/// The row that has the keyboard focus is kept while it is out of sight. Up and Down take the focus
/// to the same control of the row above or below.
///
/// A row widget stays at its index, and so does the focus. What it shows has a key, by which the
/// rows are seen to move from their old places to their new ones.
class RecyclingList : public QWidget {
    Q_OBJECT
public:
    using MakeRow = std::function<QWidget*(QWidget* parent)>;
    /// Returns the key of what the row shows now.
    using FillRow = std::function<std::string(QWidget& row, std::size_t index)>;

    RecyclingList(int rowHeight, MakeRow makeRow, FillRow fillRow, QWidget* parent = nullptr);

    /// Shows `count` rows and fills those in sight afresh. Rows that were in sight before move to
    /// their new places along the spring; new ones come out between their neighbours.
    void reload(std::size_t count, const std::optional<Spring>& spring = std::nullopt);

    /// How many row widgets exist.
    [[nodiscard]] std::size_t builtRows() const { return rows_.size() + spare_.size(); }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row {
        QWidget* widget;
        std::string key;
        /// How far below its place the row begins a movement.
        int offset = 0;
    };

    /// The rows in sight and one on either side, as first index and the index behind the last.
    [[nodiscard]] std::pair<std::size_t, std::size_t> wantedRows() const;
    bool moveFocus(int rows);
    void layOut();
    void startAtOldPlaces(const std::map<std::string, int>& places);
    void buildRows();
    void dropRows(std::size_t first, std::size_t end);
    [[nodiscard]] QWidget* takeRow();

    int rowHeight_;
    MakeRow makeRow_;
    FillRow fillRow_;
    std::size_t count_ = 0;
    std::map<std::size_t, Row> rows_;
    std::vector<QWidget*> spare_;
    /// How far the movement of the rows has come.
    double progress_ = 1;
    Motion motion_;
};

} // namespace platform
