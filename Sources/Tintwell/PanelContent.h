// What a panel shows: a model and the root view that stands on it.
#pragma once

#include "DesktopServices.h"

#include <memory>

class QWidget;

namespace tintwell {

/// The view has no parent yet; who shows it owns it, and lets it go before the model.
struct PanelContent {
    QWidget* view = nullptr;
};

/// A new model of the seed colour over the user's library, independent of every other, and its
/// view.
[[nodiscard]] PanelContent makePanelContent(DesktopServices& services);

} // namespace tintwell
