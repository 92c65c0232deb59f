// What the kit's own widgets tell assistive technologies.
#pragma once

namespace platform {

/// Makes known the roles of the kit's widgets; every such widget calls it, the first call counts.
void installAccessibility();

} // namespace platform
