// A column of equal rows of which only those in sight exist.
#pragma once

#include <QWidget>

#include <cstddef>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace platform {

/// The content of a scroll area: `count` rows of `rowHeight` points. Rows that leave the sight are
/// filled again for those that enter it, so any number of rows costs what a screenful does.
///
/// The row that has the keyboard focus is kept while it is out of sight. Up and Down take the focus
/// to the same control of the row above or below.
class RecyclingList : public QWidget {
    Q_OBJECT
public:
    using MakeRow = std::function<QWidget*(QWidget* parent)>;
    using FillRow = std::function<void(QWidget& row, std::size_t index)>;

    RecyclingList(int rowHeight, MakeRow makeRow, FillRow fillRow, QWidget* parent = nullptr);

    /// Shows `count` rows and fills those in sight afresh.
    void reload(std::size_t count);

    /// How many row widgets exist.
    [[nodiscard]] std::size_t builtRows() const { return rows_.size() + spare_.size(); }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The rows in sight and one on either side, as first index and the index behind the last.
    [[nodiscard]] std::pair<std::size_t, std::size_t> wantedRows() const;
    bool moveFocus(int rows);
    void layOut();
    void dropRows(std::size_t first, std::size_t end);
    [[nodiscard]] QWidget* takeRow();

    int rowHeight_;
    MakeRow makeRow_;
    FillRow fillRow_;
    std::size_t count_ = 0;
    std::map<std::size_t, QWidget*> rows_;
    std::vector<QWidget*> spare_;
};

} // namespace platform
