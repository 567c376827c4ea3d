#include "platform/x11/X11ScreenCapture.h"

#include <xcb/composite.h>

#include <QImage>

#include <cstdlib>

#include "platform/qt/QtImages.h"
#include "platform/x11/X11Clients.h"

namespace tolv::x11 {

X11ScreenCapture::X11ScreenCapture(X11Connection& connection, X11Clients& clients, RunLoop& runLoop)
    : connection_(connection), clients_(clients), runLoop_(runLoop) {
  xcb_connection_t* x = connection_.raw();
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(x, &xcb_composite_id);
  if (extension && extension->present) {
    auto cookie = xcb_composite_query_version(x, 0, 4);
    std::unique_ptr<xcb_composite_query_version_reply_t, decltype(&std::free)> version(
        xcb_composite_query_version_reply(x, cookie, nullptr), &std::free);
    if (version && (version->major_version > 0 || version->minor_version >= 2)) {
      xcb_composite_redirect_subwindows(x, connection_.root(), XCB_COMPOSITE_REDIRECT_AUTOMATIC);
      connection_.flush();
      available_ = true;
    }
  }
  worker_ = std::thread([this] { work(); });
}

X11ScreenCapture::~X11ScreenCapture() {
  {
    std::lock_guard guard(lock_);
    stopping_ = true;
  }
  wake_.notify_all();
  worker_.join();
  if (available_) {
    xcb_composite_unredirect_subwindows(connection_.raw(), connection_.root(),
                                        XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    connection_.flush();
  }
}

void X11ScreenCapture::fetchShareableContent(ContentHandler done) {
  std::optional<ShareableContent> content;
  if (available_) {
    content.emplace();
    xcb_connection_t* x = connection_.raw();
    for (xcb_window_t window : clients_.windows()) {
      auto pid = clients_.pidOf(window);
      if (!pid) continue;
      auto cookie = xcb_get_geometry(x, window);
      std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> geometry(
          xcb_get_geometry_reply(x, cookie, nullptr), &std::free);
      if (!geometry) continue;
      std::string title = connection_.text(window, "_NET_WM_NAME")
                              .value_or(connection_.text(window, "WM_NAME").value_or(""));
      content->windows.push_back({window, *pid, std::move(title),
                                  Rect{double(geometry->x), double(geometry->y),
                                       double(geometry->width), double(geometry->height)}});
    }
  }
  runLoop_.post([done = std::move(done), content = std::move(content)] { done(content); });
}

xcb_window_t X11ScreenCapture::frameOf(xcb_window_t window) {
  xcb_connection_t* x = connection_.raw();
  for (int depth = 0; depth < 16; ++depth) {
    auto cookie = xcb_query_tree(x, window);
    std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> tree(
        xcb_query_tree_reply(x, cookie, nullptr), &std::free);
    if (!tree || tree->parent == XCB_WINDOW_NONE) return XCB_WINDOW_NONE;
    if (tree->parent == connection_.root()) return window;
    window = tree->parent;
  }
  return XCB_WINDOW_NONE;
}

void X11ScreenCapture::captureWindow(const ShareableWindow& window, int width, int height,
                                     ImageHandler done) {
  xcb_window_t frame = XCB_WINDOW_NONE;
  if (available_) frame = frameOf(window.windowID);
  xcb_connection_t* x = connection_.raw();
  std::optional<xcb_get_geometry_reply_t> geometry;
  if (frame != XCB_WINDOW_NONE) {
    auto cookie = xcb_get_geometry(x, frame);
    if (auto* reply = xcb_get_geometry_reply(x, cookie, nullptr)) {
      geometry = *reply;
      std::free(reply);
    }
  }
  if (!geometry || geometry->width == 0 || geometry->height == 0) {
    runLoop_.post([done = std::move(done)] { done(std::nullopt); });
    return;
  }
  // An unmapped frame has no picture: the naming fails, and so does the read.
  const xcb_pixmap_t pixmap = xcb_generate_id(x);
  xcb_discard_reply(x, xcb_composite_name_window_pixmap_checked(x, frame, pixmap).sequence);
  auto image = xcb_get_image(x, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, 0, 0, geometry->width,
                             geometry->height, ~0u);
  xcb_free_pixmap(x, pixmap);
  connection_.flush();
  const uint64_t id = nextJob_++;
  waiting_[id] = std::move(done);
  {
    std::lock_guard guard(lock_);
    jobs_.push_back({id, image.sequence, geometry->width, geometry->height, width, height});
  }
  wake_.notify_one();
}

void X11ScreenCapture::captureDesktop(const ShareableDisplay&, int, int, ImageHandler done) {
  runLoop_.post([done = std::move(done)] { done(std::nullopt); });
}

void X11ScreenCapture::answer(uint64_t id, std::optional<Image> image) {
  auto found = waiting_.find(id);
  if (found == waiting_.end()) return;
  ImageHandler done = std::move(found->second);
  waiting_.erase(found);
  done(std::move(image));
}

// Reads the pictures and scales them, away from the main thread.
void X11ScreenCapture::work() {
  xcb_connection_t* x = connection_.raw();
  for (;;) {
    Job job;
    {
      std::unique_lock guard(lock_);
      wake_.wait(guard, [this] { return stopping_ || !jobs_.empty(); });
      if (stopping_) return;
      job = jobs_.front();
      jobs_.pop_front();
    }
    xcb_get_image_cookie_t cookie{job.sequence};
    std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
        xcb_get_image_reply(x, cookie, nullptr), &std::free);
    std::optional<QImage> scaled;
    if (reply && (reply->depth == 24 || reply->depth == 32) &&
        xcb_get_image_data_length(reply.get()) >= job.sourceWidth * job.sourceHeight * 4) {
      // 32 bits per pixel, blue first: the toolkit's 0xAARRGGBB in memory order.
      const QImage::Format format =
          reply->depth == 32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
      const QImage frame(xcb_get_image_data(reply.get()), job.sourceWidth, job.sourceHeight,
                         job.sourceWidth * 4, format);
      scaled = frame.scaled(job.width, job.height, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    std::weak_ptr<bool> alive = alive_;
    runLoop_.postFromAnyThread([this, alive, id = job.id, scaled] {
      if (alive.expired()) return;
      if (!scaled || scaled->isNull()) {
        answer(id, std::nullopt);
      } else {
        answer(id, qt::wrap(*scaled));
      }
    });
  }
}

}  // namespace tolv::x11
