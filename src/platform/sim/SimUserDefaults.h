#pragma once

#include "platform/UserDefaults.h"

namespace tolv::sim {

class CallCounter;

// User defaults held in memory for the life of the simulated desktop, so that
// they survive a restart of the model.
class SimUserDefaults : public UserDefaults {
 public:
  explicit SimUserDefaults(CallCounter& calls) : calls_(calls) {}

  std::optional<PropertyValue> value(std::string_view domain, std::string_view key) override;
  void setValue(std::string_view domain, std::string_view key, PropertyValue value) override;
  void removeValue(std::string_view domain, std::string_view key) override;
  std::map<std::string, PropertyValue> values(std::string_view domain) override;
  void synchronize(std::string_view domain) override;

 private:
  CallCounter& calls_;
  std::map<std::string, std::map<std::string, PropertyValue>, std::less<>> domains_;
};

}  // namespace tolv::sim
