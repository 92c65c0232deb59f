// What a panel shows: a model and the root view that stands on it.
#pragma once

#include "DesktopServices.h"
#include "FileWatch.h"
#include "TintwellModel.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace tintwell {

/// The view has no parent yet; the frame that shows it owns it, and has to go before the model.
struct ModelAndView {
    std::unique_ptr<TintwellModel> model;
    std::unique_ptr<platform::FileWatch> libraryWatch;
    QPointer<QWidget> view;
};

/// A new model of the seed colour over the user's library, independent of every other, and its
/// view.
[[nodiscard]] ModelAndView makeModelAndView(DesktopServices& services);

} // namespace tintwell
