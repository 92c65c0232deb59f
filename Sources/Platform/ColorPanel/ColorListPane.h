// The colour lists of the user, to choose from and to search.
#pragma once

#include "ColorList.h"
#include "ColorRow.h"
#include "PlateField.h"

#include <QAbstractButton>
#include <QFileSystemWatcher>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

class RecyclingList;
class ScrollArea;

/// Shows one list at a time. While it is visible it follows the lists and the folder that they are
/// in. To the keyboard the colours are one control: arrows, Home, End and the page keys go from row
/// to row, Return and Space choose.
class ColorListPane : public QWidget {
public:
    struct Handlers {
        /// A row was clicked.
        std::function<void(const QColor&)> chosen;
        /// The ink that can be read on a fill.
        std::function<QColor(const QColor&)> inkOn;
        /// The list that is shown first, if it is there.
        std::string firstList;
    };

    ColorListPane(ColorListRegistry registry, Handlers handlers, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class ListButton;

    void reload();
    void watchFolder();
    void watchFiles();
    void showList(const std::string& name);
    void openListMenu();
    /// Finds the rows that match what is searched for.
    void filter();
    [[nodiscard]] ColorRowState rowState(std::size_t row) const;
    void choose(std::size_t row);
    /// False for a key that is not the list's.
    bool handleKey(int key);
    void makeCurrent(std::size_t row);

    ColorListRegistry registry_;
    Handlers handlers_;
    std::vector<ColorList> lists_;
    /// The list that was asked for. While it is not there, the first one is shown.
    std::string wanted_;
    std::string shown_;
    /// Indices into the shown list's colours.
    std::vector<std::size_t> matches_;
    std::string selectedKey_;
    /// The row that the keyboard is on.
    std::size_t current_ = 0;
    std::unique_ptr<QFileSystemWatcher> watcher_;
    QTimer settling_;

    ListButton* button_;
    PlateField* search_;
    RecyclingList* rows_;
    ScrollArea* scroller_;
};

} // namespace platform
