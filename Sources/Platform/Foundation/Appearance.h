// Light or dark: of a desktop, and of what is made for one.
#pragma once

namespace platform {

enum class Appearance { light, dark };

} // namespace platform
