#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/Pid.h"

namespace tolv {

struct Notification {
  std::string name;
  // The application the notification is about (NSWorkspaceApplicationKey).
  std::optional<Pid> processIdentifier;
};

// Named notifications delivered synchronously to every observer of the name, in
// the order the observers were added. Stands for NSNotificationCenter (the
// default and the workspace centres) and NSDistributedNotificationCenter.
class NotificationCenter {
 public:
  using Token = uint64_t;
  using Handler = std::function<void(const Notification&)>;

  Token addObserver(std::string name, Handler handler);
  void removeObserver(Token token);
  void post(const Notification& notification);
  size_t observerCount() const { return observers_.size(); }

 private:
  struct Observer {
    std::string name;
    Handler handler;
  };
  std::map<Token, Observer> observers_;
  Token nextToken_ = 1;
};

}  // namespace tolv
