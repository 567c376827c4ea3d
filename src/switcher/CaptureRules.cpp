#include "switcher/CaptureRules.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "model/Text.h"

namespace tolv {

namespace {

constexpr int kLargestCapturePixels = 8192;

// The window number of a "cg:" id: after "cg:" + pid + ":", else after "cg:".
std::optional<uint32_t> windowNumberOf(const RunningAppItem& item) {
  std::string_view id = item.id;
  const std::string withProcess = "cg:" + std::to_string(item.processIdentifier) + ":";
  std::string_view rest;
  if (id.starts_with(withProcess)) {
    rest = id.substr(withProcess.size());
  } else if (id.starts_with("cg:")) {
    rest = id.substr(3);
  } else {
    return std::nullopt;
  }
  if (rest.empty() || rest.size() > 10) return std::nullopt;
  uint64_t number = 0;
  for (char c : rest) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + static_cast<uint64_t>(c - '0');
  }
  if (number > UINT32_MAX) return std::nullopt;
  return static_cast<uint32_t>(number);
}

std::string normalisedTitle(const std::string& title) {
  std::string trimmed = trimmedWhitespaceAndNewlines(title);
  constexpr std::string_view kChrome = " - Google Chrome";
  if (std::string_view(trimmed).ends_with(kChrome)) trimmed.resize(trimmed.size() - kChrome.size());
  return trimmed;
}

}  // namespace

std::pair<int, int> captureSize(const Rect& frame, double thumbnailSize, bool isTile) {
  const double width = std::max(1.0, frame.width);
  const double height = std::max(1.0, frame.height);
  const double s = thumbnailSize;
  double w = 0;
  double h = 0;
  if (isTile) {
    w = std::max(1.0, s);
    h = s * height / width;
  } else {
    w = std::clamp(s * width / height, s, 2.5 * s);
    h = s;
  }
  auto pixels = [](double value) {
    return static_cast<int>(std::clamp(value, 1.0, double(kLargestCapturePixels)));
  };
  return {pixels(w), pixels(h)};
}

std::optional<ShareableWindow> resolveShareableWindow(const RunningAppItem& item,
                                                      const ShareableContent& content) {
  std::vector<const ShareableWindow*> candidates;
  for (const auto& window : content.windows) {
    if (window.owningProcess == item.processIdentifier) candidates.push_back(&window);
  }
  if (candidates.empty()) return std::nullopt;
  if (auto number = windowNumberOf(item)) {
    for (const auto* window : candidates) {
      if (window->windowID == *number) return *window;
    }
  }
  for (const auto* window : candidates) {
    if (window->title == item.name) return *window;
  }
  const std::string wanted = normalisedTitle(item.name);
  for (const auto* window : candidates) {
    if (normalisedTitle(window->title) == wanted) return *window;
  }
  if (item.windowIndex >= 0 && static_cast<size_t>(item.windowIndex) < candidates.size()) {
    return *candidates[static_cast<size_t>(item.windowIndex)];
  }
  return *candidates.front();
}

bool usableCapture(const std::optional<Image>& image) {
  if (!image || !*image) return false;
  const int width = image->rep()->pixelWidth();
  const int height = image->rep()->pixelHeight();
  return width >= 1 && height >= 1 && width <= kLargestCapturePixels &&
         height <= kLargestCapturePixels;
}

}  // namespace tolv
