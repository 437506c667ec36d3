// Positions and sizes on a screen, in points, with the origin at the top left.
#pragma once

namespace wifi_profile::toolkit {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  Point origin;
  Size size;
  bool operator==(const Rect&) const = default;
};

// Distances from the edges.
struct Insets {
  double top = 0;
  double left = 0;
  double bottom = 0;
  double right = 0;
  bool operator==(const Insets&) const = default;
};

}  // namespace wifi_profile::toolkit
