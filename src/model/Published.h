#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/Signal.h"

namespace tolv {

// An observable value. Views subscribe; assigning an equal value notifies
// nobody, and `publish` notifies even then, for the places where every
// assignment counts.
template <class T>
class Published {
 public:
  Published() = default;
  explicit Published(T initial) : value_(std::move(initial)) {}

  const T& get() const { return value_; }
  operator const T&() const { return value_; }
  const T* operator->() const { return &value_; }

  // Returns whether the value changed.
  bool set(T value) {
    if (value == value_) return false;
    value_ = std::move(value);
    ++assignments_;
    changed_.emit(value_);
    return true;
  }
  Published& operator=(T value) {
    set(std::move(value));
    return *this;
  }
  void publish(T value) {
    value_ = std::move(value);
    ++assignments_;
    changed_.emit(value_);
  }

  [[nodiscard]] Subscription subscribe(std::function<void(const T&)> handler) {
    return changed_.subscribe(std::move(handler));
  }
  // How often a value was published; lets tests tell a skipped assignment.
  uint64_t assignmentCount() const { return assignments_; }

 private:
  T value_{};
  Signal<T> changed_;
  uint64_t assignments_ = 0;
};

}  // namespace tolv
