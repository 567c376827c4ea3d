#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Image.h"
#include "platform/Pid.h"

namespace tolv {

// One window that can be captured, as the capture service lists it.
struct ShareableWindow {
  uint32_t windowID = 0;
  Pid owningProcess = 0;
  std::string title;
  Rect frame;
};

// One display that can be captured.
struct ShareableDisplay {
  std::string identifier;
  double width = 0;
  double height = 0;
};

// Everything the service can capture now, windows on other workspaces and
// minimised ones included.
struct ShareableContent {
  std::vector<ShareableWindow> windows;
  std::vector<ShareableDisplay> displays;
};

// Still images of windows and of the desktop picture, asynchronously. Every
// completion runs later on the main thread, at most once; an answer may never
// come. Stands for SCShareableContent, SCContentFilter, SCScreenshotManager,
// CGPreflightScreenCaptureAccess and CGRequestScreenCaptureAccess.
class ScreenCapture {
 public:
  using ContentHandler = std::function<void(std::optional<ShareableContent>)>;
  using ImageHandler = std::function<void(std::optional<Image>)>;

  virtual ~ScreenCapture() = default;

  // Whether capturing is allowed, without asking.
  virtual bool preflightAccess() = 0;
  // Asks the user (the system's prompt); whether it is allowed now.
  virtual bool requestAccess() = 0;

  virtual void fetchShareableContent(ContentHandler done) = 0;
  // One still of the window alone, whatever covers it, scaled to fit the size.
  virtual void captureWindow(const ShareableWindow& window, int width, int height,
                             ImageHandler done) = 0;
  // The desktop picture of the display, with no application's windows.
  virtual void captureDesktop(const ShareableDisplay& display, int width, int height,
                              ImageHandler done) = 0;
};

}  // namespace tolv
