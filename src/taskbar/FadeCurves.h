#pragma once

#include <string_view>

#include "taskbar/PanelWindow.h"

namespace tolv {

// The values of the animationStyle setting that the bar treats specially.
namespace animation_style {
inline constexpr std::string_view InstantHide = "Instant Hide";
inline constexpr std::string_view LinearFade = "Linear Fade";
inline constexpr std::string_view EaseOutFade = "Ease-Out Fade";
inline constexpr std::string_view EaseInOut = "Ease-In-Out";
inline constexpr std::string_view ScaleFade = "Scale + Fade";
inline constexpr std::string_view SlideFade = "Slide + Fade";
inline constexpr std::string_view SlideOnly = "Slide Only";
inline constexpr std::string_view ShortFadeSnap = "Short Fade + Snap";
}  // namespace animation_style

// The bar's opacity `progress` (0 to 1) into hiding.
double fadeOpacity(double progress, std::string_view style);

// How the content moves or shrinks while hiding: the sliding styles move it up
// to 12 points toward the screen edge, "Scale + Fade" shrinks it by up to 3.5%.
HideTransform hideTransform(double progress, std::string_view style, std::string_view location);

// Where the content starts when the bar comes back: the hiding styles' end,
// animated back to rest.
HideTransform showStartTransform(std::string_view style, std::string_view location);

// The timing curves of Core Animation.
enum class TimingCurve { Linear, EaseOut, EaseInEaseOut };
TimingCurve hideTimingFunction(std::string_view style);
// The curve's value at time `t` (0 to 1).
double timingValue(TimingCurve curve, double t);

}  // namespace tolv
