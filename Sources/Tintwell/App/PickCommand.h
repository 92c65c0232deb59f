// "tintwell --pick": a pick for a key of the desktop or a script.
#pragma once

namespace tintwell {

/// Has the running process, or one that it starts, let the user pick a colour, and prints its hex
/// text. Returns the exit code. Needs Qt's core alone: nothing of the toolkit comes before the
/// loupe.
[[nodiscard]] int runPickCommand();

} // namespace tintwell
