#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolv::scenario {

struct RuntimeLogEntry {
  std::string title;
  std::string detail;
  bool operator==(const RuntimeLogEntry&) const = default;
};

// The entries of runtime-errors.log. Each starts with its stamp line
// ("[2026-03-02T09:00:00Z] Tolv 0.1.0"), then the title line, then the detail,
// which may run over several lines, up to the blank line that ends the entry.
// Text before the first stamp line belongs to no entry.
std::vector<RuntimeLogEntry> parseRuntimeLog(std::string_view text);

}  // namespace tolv::scenario
