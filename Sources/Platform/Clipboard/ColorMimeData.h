// A colour in the forms in which the toolkit hands it to other programs, by copy and by drag alike.
#pragma once

#include "Pasteboard.h"

#include <memory>

class QDropEvent;
class QMimeData;
class QWidget;

namespace platform {

/// Whether this session's back-end sends colours as other programs expect them. The toolkit's own
/// Wayland one sends a text under the type of a colour, which receivers refuse or take for numbers.
[[nodiscard]] bool sessionCarriesColors();

/// The colour (`application/x-color`) beside its text, or the text alone.
[[nodiscard]] std::unique_ptr<QMimeData> colorMimeData(
    const ColorContent& content, bool withColor = sessionCarriesColors());

/// What another program offers by copy or drag.
[[nodiscard]] PastedContent pastedContent(const QMimeData& data);

/// Whether what is offered can be a colour, as far as its kinds tell. Reads nothing of it.
[[nodiscard]] bool canHoldColor(const QMimeData& data);

/// What was dropped on `receiver`; an error when the program that it comes from does not answer.
[[nodiscard]] Result<PastedContent> droppedContent(
    const QDropEvent& event, const QWidget& receiver);

} // namespace platform
