#include "app/scenario/RuntimeLogEntries.h"

#include <regex>

namespace tolv::scenario {

namespace {

bool isStampLine(const std::string& line) {
  static const std::regex stamp(R"(^\[\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ\] Tolv .*$)");
  return std::regex_match(line, stamp);
}

std::vector<std::string> splitLines(std::string_view text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    lines.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

}  // namespace

std::vector<RuntimeLogEntry> parseRuntimeLog(std::string_view text) {
  std::vector<RuntimeLogEntry> entries;
  std::vector<std::string> lines = splitLines(text);
  size_t i = 0;
  while (i < lines.size() && !isStampLine(lines[i]))
    ++i;
  while (i < lines.size()) {
    RuntimeLogEntry entry;
    ++i;  // the stamp line
    if (i < lines.size() && !isStampLine(lines[i])) entry.title = lines[i++];
    std::vector<std::string> detail;
    while (i < lines.size() && !isStampLine(lines[i]))
      detail.push_back(lines[i++]);
    while (!detail.empty() && detail.back().empty())
      detail.pop_back();
    for (size_t line = 0; line < detail.size(); ++line) {
      if (line > 0) entry.detail += '\n';
      entry.detail += detail[line];
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tolv::scenario
