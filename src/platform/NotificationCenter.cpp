#include "platform/NotificationCenter.h"

#include <vector>

namespace tolv {

NotificationCenter::Token NotificationCenter::addObserver(std::string name, Handler handler) {
  Token token = nextToken_++;
  observers_.emplace(token, Observer{std::move(name), std::move(handler)});
  return token;
}

void NotificationCenter::removeObserver(Token token) {
  observers_.erase(token);
}

void NotificationCenter::post(const Notification& notification) {
  // A handler may add or remove observers; deliver to those present at posting
  // time that are still registered when their turn comes.
  std::vector<Token> tokens;
  for (const auto& [token, observer] : observers_) {
    if (observer.name == notification.name) tokens.push_back(token);
  }
  for (Token token : tokens) {
    auto found = observers_.find(token);
    if (found == observers_.end()) continue;
    Handler handler = found->second.handler;
    handler(notification);
  }
}

}  // namespace tolv
