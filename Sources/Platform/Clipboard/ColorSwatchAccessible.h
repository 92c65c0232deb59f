// How assistive technology sees a swatch.
#pragma once

namespace platform {

/// Makes every swatch a button with the name of its colour, a press action and its hex text as
/// value. May be called any number of times.
void installSwatchAccessibility();

} // namespace platform
