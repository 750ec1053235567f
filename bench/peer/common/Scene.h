#pragma once

#include <string>
#include <vector>

namespace peer {

// Pixels, and points of a screen of 96 dpi.
inline constexpr int windowWidth = 1920;
inline constexpr int windowHeight = 1080;
inline constexpr int fontSize = 14;
inline constexpr const char* fontFamily = "Inter";

/// A window full of equal cells, row by row.
struct CellGrid {
  int columns;
  int rows;
  int margin;  ///< bare strip around the cells, where the pointer rests

  [[nodiscard]] constexpr int count() const { return columns * rows; }
};

inline constexpr CellGrid controlGrid{25, 40, 6};
inline constexpr CellGrid labelGrid{40, 50, 0};

enum class ControlKind { checkBox, radioButton, progressBar, label };
enum class CheckState { off, mixed, on };

/// The controls of the window take turns.
[[nodiscard]] constexpr ControlKind kindOf(int index) { return static_cast<ControlKind>(index % 4); }
[[nodiscard]] constexpr CheckState checkStateOf(int index) { return static_cast<CheckState>(index / 4 % 3); }
/// One of the radio buttons is on, as in a group.
[[nodiscard]] constexpr bool isRadioOn(int index) { return index == 1; }
[[nodiscard]] constexpr int percentOf(int index) { return index % 101; }

// Short enough for their cells.
[[nodiscard]] inline std::string controlTitle(int index) { return "C" + std::to_string(index); }
[[nodiscard]] inline std::string labelTitle(int index) { return "L" + std::to_string(index); }

inline constexpr int createdCount = 10'000;
inline constexpr int measuredCount = 10'000;
inline constexpr int animationCount = 1'000;
inline constexpr int animationTicks = 200;

[[nodiscard]] inline std::vector<std::string> checkBoxTitles() {
  std::vector<std::string> titles;
  for (int i = 0; i < createdCount; ++i) titles.push_back("Check box " + std::to_string(i));
  return titles;
}

/// Icons of 24 pixels edge to edge.
inline constexpr CellGrid iconGrid{40, 25, 0};
inline constexpr int iconSize = 24;

/// White cards with a shadow each: 20 pixels of blur, a standard deviation of 10, 4 down, 40 % black.
inline constexpr CellGrid cardGrid{10, 10, 0};
inline constexpr int cardCellWidth = 240;
inline constexpr int cardCellHeight = 150;
inline constexpr int cardWidth = 200;
inline constexpr int cardHeight = 100;
inline constexpr int cardInset = 20;  ///< from the left and the top of its cell
inline constexpr int cardRadius = 8;
inline constexpr int shadowBlur = 20;
inline constexpr int shadowOffset = 4;
inline constexpr double shadowOpacity = 0.4;

}  // namespace peer
