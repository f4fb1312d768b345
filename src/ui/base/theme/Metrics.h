#pragma once

/// Distances and sizes of every screen, in device-independent pixels, on a grid of 8.
namespace morvak::metrics {

inline constexpr int windowMargin = 16;
inline constexpr int sheetMargin = 24;
inline constexpr int cardPadding = 16;
inline constexpr int inGroup = 8;         ///< between the parts of a group
inline constexpr int betweenGroups = 16;  ///< between groups
inline constexpr int controlHeight = 32;
inline constexpr int radius = 8;
inline constexpr int smallIcon = 16;
inline constexpr int largeIcon = 48;
inline constexpr int readableWidth = 720;  ///< of running text and of forms, also in a wide window

}  // namespace morvak::metrics
