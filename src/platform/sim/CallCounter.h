#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace tolv::sim {

// Counts the platform calls made to the simulated desktop, by "service.operation".
class CallCounter {
 public:
  void count(const std::string& name) { ++counts_[name]; }
  int64_t operator[](const std::string& name) const {
    auto found = counts_.find(name);
    return found == counts_.end() ? 0 : found->second;
  }
  // The sum over every operation of a service ("accessibility").
  int64_t service(const std::string& service) const;
  const std::map<std::string, int64_t>& all() const { return counts_; }
  void reset() { counts_.clear(); }

 private:
  std::map<std::string, int64_t> counts_;
};

inline int64_t CallCounter::service(const std::string& service) const {
  int64_t total = 0;
  std::string prefix = service + ".";
  for (const auto& [name, count] : counts_) {
    if (name.compare(0, prefix.size(), prefix) == 0) total += count;
  }
  return total;
}

}  // namespace tolv::sim
