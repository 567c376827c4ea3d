#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/ScreenCapture.h"

namespace tolv::sim {

class SimDesktop;

// Still images of the simulated desktop's windows. Each answer comes after a
// virtual delay (per window title, else the default), or never; a capture can
// be made to fail and the permission can be withheld. Every request is an
// `actions` entry of kind "capture"; the images are small pictures named
// after the window's title, in a colour of their own.
class SimScreenCapture : public ScreenCapture {
 public:
  explicit SimScreenCapture(SimDesktop& desktop) : desktop_(desktop) {}

  bool preflightAccess() override;
  bool requestAccess() override;
  void fetchShareableContent(ContentHandler done) override;
  void captureWindow(const ShareableWindow& window, int width, int height,
                     ImageHandler done) override;
  void captureDesktop(const ShareableDisplay& display, int width, int height,
                      ImageHandler done) override;

  void setAccessGranted(bool granted) { granted_ = granted; }
  // The user's answer to the prompt, when one is shown.
  void setGrantOnRequest(bool grant) { grantOnRequest_ = grant; }
  // Seconds until an answer; nothing means the answer never comes.
  void setDefaultDelay(std::optional<double> seconds) { defaultDelay_ = seconds; }
  void setDelay(const std::string& windowTitle, std::optional<double> seconds) {
    delays_[windowTitle] = seconds;
  }
  // Captures of this window answer with no image.
  void setFailing(const std::string& windowTitle, bool failing);
  // Captures of this window answer with an image of this size (0 by 0 for an empty one).
  void setAnswerSize(const std::string& windowTitle, int width, int height);

 private:
  void answerLater(const std::string& title, std::function<void()> answer);

  SimDesktop& desktop_;
  bool granted_ = true;
  bool grantOnRequest_ = false;
  std::optional<double> defaultDelay_ = 0.1;
  std::map<std::string, std::optional<double>> delays_;
  std::map<std::string, bool> failing_;
  std::map<std::string, std::pair<int, int>> answerSizes_;
};

}  // namespace tolv::sim
