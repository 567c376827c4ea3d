#include <gtest/gtest.h>

#include "app/RuntimeIssues.h"
#include "app/scenario/RuntimeLogEntries.h"

namespace tolv::testing {
namespace {

using scenario::parseRuntimeLog;
using scenario::RuntimeLogEntry;

TEST(RuntimeLogEntries, ReadsBackWhatTheLogWrites) {
  std::string log =
      runtimeIssueLogEntry(1772442000, "0.1.0", "Duplicate window", "Safari: “News”") +
      runtimeIssueLogEntry(1772442060, "", "Second", "");
  EXPECT_EQ(parseRuntimeLog(log),
            (std::vector<RuntimeLogEntry>{{"Duplicate window", "Safari: “News”"}, {"Second", ""}}));
}

TEST(RuntimeLogEntries, DetailsRunOverLinesUpToTheNextStamp) {
  std::string log =
      "left over from an old format\n"
      "[2026-03-02T09:00:00Z] Tolv 0.1.0\nTitle\nline one\n\nline three\n\n\n"
      "[2026-03-02T09:00:01Z] Tolv 0.1.0\nCut short";
  EXPECT_EQ(parseRuntimeLog(log),
            (std::vector<RuntimeLogEntry>{{"Title", "line one\n\nline three"}, {"Cut short", ""}}));
  EXPECT_TRUE(parseRuntimeLog("").empty());
  EXPECT_TRUE(parseRuntimeLog("no stamp at all\n").empty());
}

}  // namespace
}  // namespace tolv::testing
