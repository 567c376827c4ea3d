#include "platform/x11/X11Connection.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <cstdlib>
#include <cstring>

namespace tolv::x11 {

namespace {

template <class T>
struct Freed {
  void operator()(T* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Freed<T>>;

}  // namespace

std::unique_ptr<X11Connection> X11Connection::open(const std::string& display) {
  int screenNumber = 0;
  xcb_connection_t* connection =
      xcb_connect(display.empty() ? nullptr : display.c_str(), &screenNumber);
  if (!connection || xcb_connection_has_error(connection)) {
    if (connection) xcb_disconnect(connection);
    return nullptr;
  }
  return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber, display));
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber,
                             const std::string& display)
    : connection_(connection), compoundText_(display) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
  for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
    xcb_screen_next(&screens);
  screen_ = screens.data;
  const uint32_t rootEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_, root(), XCB_CW_EVENT_MASK, &rootEvents);
  flush();
  notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_),
                                                QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { dispatchPending(); });
  // A reply wait reads whatever events come before the reply into xcb's queue,
  // where the socket notifier never sees them; they are taken before every sleep.
  if (auto* dispatcher = QAbstractEventDispatcher::instance()) {
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, notifier_.get(),
                     [this] { dispatchPending(); });
  }
}

X11Connection::~X11Connection() {
  notifier_.reset();
  xcb_disconnect(connection_);
}

void X11Connection::dispatchPending() {
  while (xcb_generic_event_t* event = xcb_poll_for_event(connection_)) {
    Reply<xcb_generic_event_t> owned(event);
    for (size_t i = 0; i < listeners_.size(); ++i)
      listeners_[i](*event);
    if ((event->response_type & 0x7F) == XCB_DESTROY_NOTIFY) {
      eventMasks_.erase(reinterpret_cast<xcb_destroy_notify_event_t*>(event)->window);
    }
  }
  flush();
}

xcb_atom_t X11Connection::atom(const std::string& name) {
  if (auto found = atoms_.find(name); found != atoms_.end()) return found->second;
  auto cookie = xcb_intern_atom(connection_, 0, static_cast<uint16_t>(name.size()), name.c_str());
  Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
  xcb_atom_t value = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  atoms_[name] = value;
  return value;
}

namespace {

std::optional<std::vector<uint32_t>> cardinalsOf(const xcb_get_property_reply_t* reply) {
  if (!reply || reply->type == XCB_ATOM_NONE || reply->format != 32) return std::nullopt;
  const auto* items = static_cast<const uint32_t*>(xcb_get_property_value(reply));
  return std::vector<uint32_t>(items, items + xcb_get_property_value_length(reply) / 4);
}

}  // namespace

std::optional<std::vector<uint32_t>> X11Connection::cardinals(xcb_window_t window,
                                                              const std::string& property) {
  return std::move(cardinalsOfEach({{window, property.c_str()}}).front());
}

std::vector<std::optional<std::vector<uint32_t>>> X11Connection::cardinalsOfEach(
    const std::vector<PropertyRequest>& requests) {
  std::vector<xcb_get_property_cookie_t> cookies;
  cookies.reserve(requests.size());
  for (const auto& request : requests) {
    cookies.push_back(xcb_get_property(connection_, 0, request.window, atom(request.property),
                                       XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 20));
  }
  std::vector<std::optional<std::vector<uint32_t>>> answers;
  answers.reserve(requests.size());
  for (auto cookie : cookies) {
    Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
    answers.push_back(cardinalsOf(reply.get()));
  }
  return answers;
}

std::optional<std::string> X11Connection::text(xcb_window_t window, const std::string& property) {
  auto cookie = xcb_get_property(connection_, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY,
                                 0, 1 << 16);
  Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
  if (!reply || reply->type == XCB_ATOM_NONE || reply->format != 8) return std::nullopt;
  const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
  std::string_view value(bytes, xcb_get_property_value_length(reply.get()));
  TextEncoding encoding = reply->type == XCB_ATOM_STRING         ? TextEncoding::Latin1
                          : reply->type == atom("UTF8_STRING")   ? TextEncoding::Utf8
                          : reply->type == atom("COMPOUND_TEXT") ? TextEncoding::CompoundText
                                                                 : TextEncoding::Other;
  return decodeTextProperty(encoding, value, compoundText_);
}

std::optional<std::pair<std::string, std::string>> X11Connection::windowClass(xcb_window_t window) {
  auto value = text(window, "WM_CLASS");
  if (!value) return std::nullopt;
  auto separator = value->find('\0');
  if (separator == std::string::npos) return std::make_pair(*value, *value);
  std::string instance = value->substr(0, separator);
  std::string rest = value->substr(separator + 1);
  if (auto end = rest.find('\0'); end != std::string::npos) rest.resize(end);
  return std::make_pair(instance, rest);
}

bool X11Connection::hasAtom(xcb_window_t window, const std::string& property,
                            const std::string& value) {
  auto items = cardinals(window, property);
  if (!items) return false;
  const xcb_atom_t wanted = atom(value);
  for (uint32_t item : *items) {
    if (item == wanted) return true;
  }
  return false;
}

std::optional<Rect> X11Connection::frameGeometry(xcb_window_t window) {
  auto geometryCookie = xcb_get_geometry(connection_, window);
  Reply<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(connection_, geometryCookie, nullptr));
  if (!geometry) return std::nullopt;
  auto translateCookie = xcb_translate_coordinates(connection_, window, root(), 0, 0);
  Reply<xcb_translate_coordinates_reply_t> origin(
      xcb_translate_coordinates_reply(connection_, translateCookie, nullptr));
  if (!origin) return std::nullopt;
  // _NET_FRAME_EXTENTS: left, right, top, bottom.
  std::vector<uint32_t> extents =
      cardinals(window, "_NET_FRAME_EXTENTS").value_or(std::vector<uint32_t>{});
  extents.resize(4, 0);
  return Rect{double(origin->dst_x) - extents[0], double(origin->dst_y) - extents[2],
              double(geometry->width) + extents[0] + extents[1],
              double(geometry->height) + extents[2] + extents[3]};
}

void X11Connection::sendRootMessage(xcb_window_t window, const std::string& type,
                                    const std::vector<uint32_t>& data) {
  xcb_client_message_event_t message;
  std::memset(&message, 0, sizeof message);
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = atom(type);
  for (size_t i = 0; i < data.size() && i < 5; ++i)
    message.data.data32[i] = data[i];
  xcb_send_event(connection_, 0, root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&message));
  flush();
}

void X11Connection::watch(xcb_window_t window) {
  selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void X11Connection::selectEvents(xcb_window_t window, uint32_t eventMask) {
  uint32_t& mask = eventMasks_[window];
  // A destroyed window's mask is dropped, so it has to be told.
  mask |= eventMask | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &mask);
}

}  // namespace tolv::x11
