#include "platform/sim/SimScreenCapture.h"

#include <functional>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimImages.h"
#include "platform/sim/SimScreens.h"

namespace tolv::sim {

namespace {

// A picture of the given size in a colour taken from its name.
Image namedPicture(const std::string& name, int width, int height) {
  const size_t hash = std::hash<std::string>{}(name);
  RgbaBitmap bitmap{width, height, width * 4, {}};
  bitmap.bytes.reserve(size_t(std::max(width, 0)) * std::max(height, 0) * 4);
  for (int i = 0; i < width * height; ++i) {
    bitmap.bytes.push_back(uint8_t(64 + hash % 160));
    bitmap.bytes.push_back(uint8_t(64 + (hash >> 8) % 160));
    bitmap.bytes.push_back(uint8_t(64 + (hash >> 16) % 160));
    bitmap.bytes.push_back(255);
  }
  return Image(std::make_shared<SimImage>(name, std::move(bitmap)));
}

}  // namespace

bool SimScreenCapture::preflightAccess() {
  desktop_.calls().count("screenCapture.preflightAccess");
  return granted_;
}

bool SimScreenCapture::requestAccess() {
  desktop_.calls().count("screenCapture.requestAccess");
  desktop_.logAction("captureAccessPrompt", nlohmann::json::object());
  if (grantOnRequest_) granted_ = true;
  return granted_;
}

void SimScreenCapture::fetchShareableContent(ContentHandler done) {
  desktop_.calls().count("screenCapture.fetchShareableContent");
  ShareableContent content;
  if (granted_) {
    for (const SimApp* app : desktop_.apps()) {
      for (uint64_t id : app->windows) {
        const SimWindow* window = desktop_.window(id);
        if (!window || window->number == 0) continue;
        const auto& setup = window->setup;
        content.windows.push_back(
            {window->number, window->pid, setup.title,
             Rect{setup.position.x, setup.position.y, setup.size.width, setup.size.height}});
      }
    }
    for (const auto& screen : desktop_.screens().screens()) {
      content.displays.push_back({screen.identifier, screen.frame.width, screen.frame.height});
    }
  }
  std::optional<ShareableContent> answer;
  if (granted_) answer = std::move(content);
  desktop_.runLoop().post([done = std::move(done), answer = std::move(answer)] { done(answer); });
}

void SimScreenCapture::setFailing(const std::string& windowTitle, bool failing) {
  failing_[windowTitle] = failing;
}

void SimScreenCapture::setAnswerSize(const std::string& windowTitle, int width, int height) {
  answerSizes_[windowTitle] = {width, height};
}

void SimScreenCapture::answerLater(const std::string& title, std::function<void()> answer) {
  auto delay = defaultDelay_;
  if (auto found = delays_.find(title); found != delays_.end()) delay = found->second;
  if (!delay) return;
  desktop_.runLoop().postAfter(*delay, std::move(answer));
}

void SimScreenCapture::captureWindow(const ShareableWindow& window, int width, int height,
                                     ImageHandler done) {
  desktop_.calls().count("screenCapture.captureWindow");
  desktop_.logAction("capture", {{"windowNumber", window.windowID},
                                 {"title", window.title},
                                 {"width", width},
                                 {"height", height}});
  std::optional<Image> image;
  if (granted_ && !failing_[window.title]) {
    auto [w, h] = std::pair{width, height};
    if (auto size = answerSizes_.find(window.title); size != answerSizes_.end()) {
      std::tie(w, h) = size->second;
    }
    image = namedPicture("capture:" + window.title, w, h);
  }
  answerLater(window.title, [done = std::move(done), image] { done(image); });
}

void SimScreenCapture::captureDesktop(const ShareableDisplay& display, int width, int height,
                                      ImageHandler done) {
  desktop_.calls().count("screenCapture.captureDesktop");
  desktop_.logAction("capture",
                     {{"display", display.identifier}, {"width", width}, {"height", height}});
  std::optional<Image> image;
  if (granted_) image = namedPicture("capture:desktop", width, height);
  answerLater("", [done = std::move(done), image] { done(image); });
}

}  // namespace tolv::sim
