// The sizes of the kit's controls, in points; one point is one logical pixel.
#pragma once

namespace platform::Metrics {

// Page and panel.
inline constexpr int margin = 18;
inline constexpr double separatorThickness = 1;

// Buttons.
inline constexpr int buttonSymbolGap = 6;
inline constexpr int buttonSymbolPadding = 10;
inline constexpr int borderlessGap = 2;

/// How far the plate of a borderless icon reaches over the margin, so that the drawing itself ends
/// there.
inline constexpr int opticalOverhang = 7;

// Segmented picker.
inline constexpr int pickerHeight = 30;
inline constexpr double pickerRadius = 9;
inline constexpr int pickerInset = 2;
inline constexpr double segmentRadius = 7;
inline constexpr double segmentSeparatorHeight = 18;

// Pop-up menu.
inline constexpr double menuRadius = 12;
inline constexpr int menuPadding = 5;
inline constexpr int menuRowHeight = 30;
inline constexpr double menuRowRadius = 7;
inline constexpr int menuSymbol = 16;
inline constexpr int menuSymbolGap = 9;
inline constexpr int menuRowLeading = 9;
inline constexpr int menuRowTrailing = 12;
inline constexpr int menuGap = 6;

// Keyboard focus.
inline constexpr double focusRingThickness = 2;
inline constexpr double focusRingGap = 2;

// Seconds.
inline constexpr double hoverIn = 0.090;
inline constexpr double hoverOut = 0.140;
inline constexpr double menuFade = 0.090;

} // namespace platform::Metrics
