#include "platform/x11/PulseVolume.h"

#include <pulse/context.h>
#include <pulse/glib-mainloop.h>
#include <pulse/introspect.h>
#include <pulse/subscribe.h>
#include <pulse/volume.h>

#include <QTimer>

#include <algorithm>

namespace tolv::x11 {

namespace {

// A server that went away is looked for again after this long.
constexpr int kReconnectMilliseconds = 2000;

}  // namespace

struct PulseVolume::Sink {
  std::string name;
  pa_cvolume volume;
};

PulseVolume::PulseVolume() : mainloop_(pa_glib_mainloop_new(nullptr)) {
  connect();
}

PulseVolume::~PulseVolume() {
  dropContext();
  if (mainloop_) pa_glib_mainloop_free(mainloop_);
}

void PulseVolume::connect() {
  if (!mainloop_) return;
  context_ = pa_context_new(pa_glib_mainloop_get_api(mainloop_), "Tolv");
  if (!context_) return;
  pa_context_set_state_callback(context_, &PulseVolume::stateChanged, this);
  // Without a server the context waits for one instead of failing.
  if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOFAIL, nullptr) < 0) dropContext();
}

void PulseVolume::dropContext() {
  if (!context_) return;
  pa_context_set_state_callback(context_, nullptr, nullptr);
  pa_context_set_subscribe_callback(context_, nullptr, nullptr);
  pa_context_disconnect(context_);
  pa_context_unref(context_);
  context_ = nullptr;
}

void PulseVolume::forgetSink() {
  if (!sink_) return;
  sink_.reset();
  changed().emit();
}

void PulseVolume::stateChanged(pa_context* context, void* data) {
  auto* self = static_cast<PulseVolume*>(data);
  // Answers of an earlier connection are stale.
  if (context != self->context_) return;
  switch (pa_context_get_state(context)) {
    case PA_CONTEXT_READY: {
      pa_context_set_subscribe_callback(
          context,
          [](pa_context* c, pa_subscription_event_type_t type, uint32_t index, void* d) {
            eventArrived(c, static_cast<int>(type), index, d);
          },
          self);
      auto mask = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK |
                                                      PA_SUBSCRIPTION_MASK_SERVER);
      if (pa_operation* operation = pa_context_subscribe(context, mask, nullptr, nullptr)) {
        pa_operation_unref(operation);
      }
      self->askForDefaultSink();
      break;
    }
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED: {
      self->forgetSink();
      if (self->reconnectPosted_) break;
      // The context can't be released inside its own callback.
      self->reconnectPosted_ = true;
      std::weak_ptr<int> alive = self->alive_;
      QTimer::singleShot(kReconnectMilliseconds, [self, context, alive] {
        if (alive.expired()) return;
        self->reconnectPosted_ = false;
        if (self->context_ != context) return;
        self->dropContext();
        self->connect();
      });
      break;
    }
    default:
      break;
  }
}

void PulseVolume::eventArrived(pa_context* context, int type, uint32_t, void* data) {
  auto* self = static_cast<PulseVolume*>(data);
  if (context != self->context_) return;
  int facility = type & PA_SUBSCRIPTION_EVENT_FACILITY_MASK;
  if (facility == PA_SUBSCRIPTION_EVENT_SINK || facility == PA_SUBSCRIPTION_EVENT_SERVER) {
    self->askForDefaultSink();
  }
}

void PulseVolume::askForDefaultSink() {
  if (!context_) return;
  pa_operation* operation = pa_context_get_server_info(
      context_,
      [](pa_context* c, const pa_server_info* info, void* d) { serverInfoArrived(c, info, d); },
      this);
  if (operation) pa_operation_unref(operation);
}

void PulseVolume::serverInfoArrived(pa_context* context, const void* answer, void* data) {
  auto* self = static_cast<PulseVolume*>(data);
  if (context != self->context_) return;
  const auto* info = static_cast<const pa_server_info*>(answer);
  if (!info || !info->default_sink_name) return self->forgetSink();
  pa_operation* operation = pa_context_get_sink_info_by_name(
      context, info->default_sink_name,
      [](pa_context* c, const pa_sink_info* sink, int last, void* d) {
        sinkInfoArrived(c, sink, last, d);
      },
      self);
  if (operation) pa_operation_unref(operation);
}

void PulseVolume::sinkInfoArrived(pa_context* context, const void* answer, int last, void* data) {
  auto* self = static_cast<PulseVolume*>(data);
  if (context != self->context_) return;
  if (last < 0) return self->forgetSink();
  if (last > 0 || !answer) return;
  const auto* info = static_cast<const pa_sink_info*>(answer);
  bool same = self->sink_ && self->sink_->name == info->name &&
              pa_cvolume_equal(&self->sink_->volume, &info->volume);
  if (same) return;
  self->sink_ = std::make_unique<Sink>(Sink{info->name, info->volume});
  self->changed().emit();
}

bool PulseVolume::hasDefaultOutputDevice() {
  return sink_ != nullptr;
}

bool PulseVolume::hasVolume(int element) {
  return element == 0 && sink_ && pa_cvolume_valid(&sink_->volume);
}

std::optional<float> PulseVolume::volume(int element) {
  if (!hasVolume(element)) return std::nullopt;
  return static_cast<float>(pa_cvolume_max(&sink_->volume)) / static_cast<float>(PA_VOLUME_NORM);
}

bool PulseVolume::setVolume(int element, float level) {
  if (!hasVolume(element) || !context_) return false;
  double wanted = std::clamp(static_cast<double>(level), 0.0, 1.0) * PA_VOLUME_NORM;
  pa_cvolume scaled = sink_->volume;
  if (pa_cvolume_max(&scaled) == PA_VOLUME_MUTED) {
    pa_cvolume_set(&scaled, scaled.channels, static_cast<pa_volume_t>(wanted));
  } else {
    pa_cvolume_scale(&scaled, static_cast<pa_volume_t>(wanted));
  }
  pa_operation* operation =
      pa_context_set_sink_volume_by_name(context_, sink_->name.c_str(), &scaled, nullptr, nullptr);
  if (!operation) return false;
  pa_operation_unref(operation);
  sink_->volume = scaled;
  return true;
}

}  // namespace tolv::x11
