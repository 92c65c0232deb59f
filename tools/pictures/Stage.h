// A panel that stands on nothing of the user's: its own library, lists, clock and pasteboard.
#pragma once

#include "QtScheduler.h"
#include "Theme.h"
#include "TintwellView.h"

#include <QImage>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <string>

namespace tintwell {

/// How many device pixels make one point in every picture.
inline constexpr double pictureScale = 2;

class Stage {
public:
    explicit Stage(const std::string& source, const std::vector<SavedPalette>& library = {});

    [[nodiscard]] TintwellModel& model() { return *model_; }
    [[nodiscard]] TintwellView& view() { return *view_; }
    [[nodiscard]] platform::ColorListRegistry lists() const;

    /// Brings the view up to date and every movement to its end.
    void settle();
    /// Moves the keyboard focus to the swatch of the header, whose ring then shows.
    void focusSwatch();
    void scrollTo(int value);
    [[nodiscard]] QImage panel();

private:
    [[nodiscard]] PalettePersistence written(const std::vector<SavedPalette>& library) const;

    QTemporaryDir home_;
    std::unique_ptr<platform::Pasteboard> pasteboard_;
    std::unique_ptr<MacColorListInstaller> installer_;
    platform::QtScheduler scheduler_;
    platform::Timestamp time_;
    std::unique_ptr<TintwellModel> model_;
    std::unique_ptr<TintwellView> view_;
};

/// A picture and the file, without its ending, that it goes to. It is drawn in the appearance that
/// is current then.
struct Picture {
    std::string name;
    std::function<QImage()> draw;
};

[[nodiscard]] std::vector<Picture> panelPictures();
[[nodiscard]] std::vector<Picture> sheetPictures();
[[nodiscard]] std::vector<Picture> desktopPictures();

/// Lets everything that is due happen, and ends every movement.
void settleWindows();

/// An empty picture of `size` points on the window background of the current appearance.
[[nodiscard]] QImage emptySheet(QSize size);

/// Saves four palettes, the last being that of the seed colour.
void saveLibrary(TintwellModel& model);

} // namespace tintwell
