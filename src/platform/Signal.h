#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace tolv {

// Ends a subscription when it goes out of scope.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      reset();
      cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
  }
  ~Subscription() { reset(); }
  void reset() {
    if (cancel_) std::exchange(cancel_, nullptr)();
  }

 private:
  std::function<void()> cancel_;
};

// A list of callbacks, told in the order they subscribed. Safe against
// subscribing and unsubscribing from inside a callback.
template <class... Args>
class Signal {
 public:
  using Handler = std::function<void(const Args&...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  [[nodiscard]] Subscription subscribe(Handler handler) {
    uint64_t token = nextToken_++;
    handlers_->emplace(token, std::move(handler));
    std::weak_ptr<Handlers> weak = handlers_;
    return Subscription([weak, token] {
      if (auto handlers = weak.lock()) handlers->erase(token);
    });
  }

  void emit(const Args&... args) const {
    std::vector<uint64_t> tokens;
    tokens.reserve(handlers_->size());
    for (const auto& [token, handler] : *handlers_)
      tokens.push_back(token);
    for (uint64_t token : tokens) {
      auto found = handlers_->find(token);
      if (found == handlers_->end()) continue;
      Handler handler = found->second;
      handler(args...);
    }
  }

  size_t subscriberCount() const { return handlers_->size(); }

 private:
  using Handlers = std::map<uint64_t, Handler>;
  std::shared_ptr<Handlers> handlers_ = std::make_shared<Handlers>();
  uint64_t nextToken_ = 1;
};

}  // namespace tolv
