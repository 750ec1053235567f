#pragma once

namespace peer {

struct IconPoint {
  double x;
  double y;
};

/// A magnifying glass with a tick in it, stroked with round caps and joins; y runs down.
inline constexpr double iconStroke = 2;
inline constexpr IconPoint iconCentre{10, 10};
inline constexpr double iconRadius = 6.5;
inline constexpr IconPoint iconHandle[] = {{15, 15}, {21, 21}};
inline constexpr IconPoint iconTick[] = {{7, 10}, {9.5, 12.5}, {13.5, 7.5}};

}  // namespace peer
