#pragma once

/// Where the parts of the album chooser stand, in twips.
namespace chooserPlaces {

inline constexpr int rightColumn = 4215, rightWidth = 5070;
inline constexpr int previewTop = 1500;
inline constexpr int previewWidth = 5000, previewHeight = 3750;

}  // namespace chooserPlaces
