#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/RunLoop.h"
#include "platform/ScreenCapture.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11 {

class X11Clients;

// Still images of client windows through the Composite extension. Every
// top-level window is redirected (automatically: the server still draws the
// screen), so each keeps its own picture whatever covers it; a capture names
// the picture of the client's frame, reads it with GetImage and scales it on
// a worker thread, then answers on the main queue. A window that is not
// mapped (minimised, on another desktop) has no picture and answers nothing,
// so its tile keeps the application's icon. The desktop picture of a display
// can't be told apart from the windows on X11 and answers nothing too.
class X11ScreenCapture : public ScreenCapture {
 public:
  X11ScreenCapture(X11Connection& connection, X11Clients& clients, RunLoop& runLoop);
  ~X11ScreenCapture() override;

  // Whether the server has the Composite extension.
  bool preflightAccess() override { return available_; }
  bool requestAccess() override { return available_; }
  void fetchShareableContent(ContentHandler done) override;
  void captureWindow(const ShareableWindow& window, int width, int height,
                     ImageHandler done) override;
  void captureDesktop(const ShareableDisplay& display, int width, int height,
                      ImageHandler done) override;

 private:
  struct Job {
    uint64_t id = 0;
    unsigned int sequence = 0;  // of the GetImage request
    int sourceWidth = 0;
    int sourceHeight = 0;
    int width = 0;
    int height = 0;
  };
  void work();
  // The ancestor of a client window that is a child of the root: its frame.
  xcb_window_t frameOf(xcb_window_t window);
  void answer(uint64_t id, std::optional<Image> image);

  X11Connection& connection_;
  X11Clients& clients_;
  RunLoop& runLoop_;
  bool available_ = false;
  uint64_t nextJob_ = 1;
  // Handlers by job, on the main thread only.
  std::map<uint64_t, ImageHandler> waiting_;
  std::mutex lock_;
  std::condition_variable wake_;
  std::deque<Job> jobs_;
  bool stopping_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  std::thread worker_;
};

}  // namespace tolv::x11
