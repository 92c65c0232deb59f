// The picture of the status item.
#pragma once

#include <QPixmap>

class QColor;

namespace tintwell {

/// The half-filled eyedropper in one colour, in a square of `size` pixels.
[[nodiscard]] QPixmap paintTrayIcon(int size, const QColor& ink);

} // namespace tintwell
