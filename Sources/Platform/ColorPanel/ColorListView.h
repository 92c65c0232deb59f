// The colours of one list as rows: swatch, name and hex text.
#pragma once

#include "ColorList.h"
#include "WheelGlide.h"

#include <QListView>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <functional>

namespace platform {

/// A click, Return and Space choose a row, which is then filled with its colour; the arrow keys and
/// typed letters only go to one. A row can be dragged into another program.
class ColorListView : public QListView {
public:
    using InkOn = std::function<QColor(const QColor& fill)>;

    /// `inkOn` finds the ink that can be read on a fill; `chosen` hears of every row that is
    /// chosen.
    ColorListView(InkOn inkOn, std::function<void(const QColor&)> chosen, QWidget* parent);

    /// Nothing shows no rows. The chosen row stays chosen by its name.
    void show(const ColorList* list);
    void forgetChosen() { chosenName_.clear(); }
    /// Leaves the rows whose name or hex text contains `text`.
    void search(const QString& text);
    [[nodiscard]] bool isEmpty() const { return matches_.rowCount() == 0; }

protected:
    void selectionChanged(
        const QItemSelection& selected, const QItemSelection& deselected) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { glide_.turn(*event); }
    void startDrag(Qt::DropActions actions) override;

private:
    void choose(const QModelIndex& index);
    /// After the rows have changed.
    void selectChosen();

    std::function<void(const QColor&)> chosen_;
    QString chosenName_;
    QStandardItemModel rows_;
    QSortFilterProxyModel matches_;
    WheelGlide glide_;
};

} // namespace platform
