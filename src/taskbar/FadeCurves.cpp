#include "taskbar/FadeCurves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "taskbar/TaskbarLocation.h"

namespace tolv {

using namespace animation_style;

namespace {

constexpr double kSlideDistance = 12;
constexpr double kScaleLoss = 0.035;
constexpr double kSnapPoint = 0.72;

double unit(double value) {
  return std::clamp(value, 0.0, 1.0);
}

// The direction toward the screen edge, in design coordinates.
Point towardEdge(std::string_view location) {
  if (location == taskbar_location::RightSide) return {1, 0};
  if (location == taskbar_location::LeftSide) return {-1, 0};
  if (isTopEdge(location)) return {0, 1};
  return {0, -1};
}

// A cubic Bézier from (0, 0) to (1, 1) with control points (x1, y1) and (x2, y2).
double bezier(double x1, double y1, double x2, double y2, double x) {
  auto at = [](double a, double b, double t) {
    double u = 1 - t;
    return 3 * u * u * t * a + 3 * u * t * t * b + t * t * t;
  };
  double low = 0, high = 1, t = x;
  for (int i = 0; i < 60; ++i) {
    t = (low + high) / 2;
    if (at(x1, x2, t) < x) {
      low = t;
    } else {
      high = t;
    }
  }
  return at(y1, y2, t);
}

}  // namespace

double fadeOpacity(double progress, std::string_view style) {
  double p = unit(progress);
  double faded;
  if (style == LinearFade || style == SlideFade) {
    faded = p;
  } else if (style == EaseOutFade) {
    faded = 1 - std::pow(1 - p, 3);
  } else if (style == EaseInOut) {
    faded = 0.5 - 0.5 * std::cos(std::numbers::pi * p);
  } else if (style == SlideOnly) {
    return p < 1 ? 1 : 0;
  } else if (style == ShortFadeSnap) {
    if (p >= kSnapPoint) return 0;
    faded = std::pow(p / kSnapPoint, 2);
  } else {
    faded = p * p;
  }
  return std::max(1 - faded, 0.0);
}

HideTransform hideTransform(double progress, std::string_view style, std::string_view location) {
  double p = unit(progress);
  HideTransform transform;
  if (style == ScaleFade) {
    transform.scale = 1 - kScaleLoss * p;
  } else if (style == SlideFade || style == SlideOnly) {
    Point direction = towardEdge(location);
    transform.dx = direction.x * kSlideDistance * p;
    transform.dy = direction.y * kSlideDistance * p;
  }
  return transform;
}

HideTransform showStartTransform(std::string_view style, std::string_view location) {
  HideTransform transform;
  if (style == ScaleFade) {
    transform.scale = 1 - kScaleLoss;
  } else if (style == SlideFade) {
    // Side panels slide along x, with the sign their hiding slide has.
    Point direction = towardEdge(location);
    double sign = direction.x + direction.y;
    if (isSideEdge(location)) {
      transform.dx = sign * kSlideDistance;
    } else {
      transform.dy = sign * kSlideDistance;
    }
  }
  return transform;
}

TimingCurve hideTimingFunction(std::string_view style) {
  if (style == LinearFade) return TimingCurve::Linear;
  if (style == EaseInOut || style == ScaleFade || style == SlideFade) {
    return TimingCurve::EaseInEaseOut;
  }
  return TimingCurve::EaseOut;
}

double timingValue(TimingCurve curve, double t) {
  double x = unit(t);
  switch (curve) {
    case TimingCurve::Linear:
      return x;
    case TimingCurve::EaseOut:
      return bezier(0, 0, 0.58, 1, x);
    case TimingCurve::EaseInEaseOut:
      return bezier(0.42, 0, 0.58, 1, x);
  }
  return x;
}

}  // namespace tolv
