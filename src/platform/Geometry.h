#pragma once

#include <algorithm>

namespace tolv {

// Lengths are points. In the core, the origin is the bottom left of the main
// screen and y grows upwards; backends convert at their edge.
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
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double minX() const { return x; }
  double minY() const { return y; }
  double maxX() const { return x + width; }
  double maxY() const { return y + height; }
  double midX() const { return x + width / 2; }
  double midY() const { return y + height / 2; }
  bool isEmpty() const { return width <= 0 || height <= 0; }
  bool contains(Point p) const {
    return p.x >= minX() && p.x < maxX() && p.y >= minY() && p.y < maxY();
  }
  // Overlap with a positive area, as CGRectIntersectsRect counts it.
  bool intersects(const Rect& other) const {
    return std::min(maxX(), other.maxX()) > std::max(minX(), other.minX()) &&
           std::min(maxY(), other.maxY()) > std::max(minY(), other.minY());
  }
  bool operator==(const Rect&) const = default;
};

}  // namespace tolv
