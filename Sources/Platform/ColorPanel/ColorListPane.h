// The colour lists of the user, to choose from and to search.
#pragma once

#include "ColorList.h"
#include "ColorListView.h"
#include "TextField.h"

#include <QAbstractButton>
#include <QFileSystemWatcher>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

/// Shows one list at a time. While it is visible it follows the lists and the folder that they are
/// in.
class ColorListPane : public QWidget {
public:
    /// Opens with `firstList`, if it is there. `inkOn` and `chosen` are the colours' own.
    ColorListPane(ColorListRegistry registry, std::string firstList, ColorListView::InkOn inkOn,
        std::function<void(const QColor&)> chosen, QWidget* parent);

protected:
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

    ColorListRegistry registry_;
    std::vector<ColorList> lists_;
    /// The list that was asked for. While it is not there, the first one is shown.
    std::string wanted_;
    std::string shown_;
    std::unique_ptr<QFileSystemWatcher> watcher_;
    QTimer settling_;

    ListButton* button_;
    TextField* search_;
    ColorListView* colors_;
};

} // namespace platform
