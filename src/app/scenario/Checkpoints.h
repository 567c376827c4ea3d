#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "app/scenario/JsonReader.h"
#include "app/scenario/RecordJson.h"
#include "app/scenario/RunContext.h"

namespace tolv::scenario {

// The fields of a checkpoint line. A field gives nothing while the feature
// behind it doesn't exist in this run (the panels of a core-only run), and is
// then left out. A topic registers its fields from its own file:
//
//   const FieldRegistration kFields{{
//       {"actions", [](RunContext& run) -> std::optional<OutJson> { ... }},
//   }};
//
// The library is linked whole, so such a file needs no other change.
using FieldReader = std::function<std::optional<OutJson>(RunContext& run)>;

struct FieldRegistration {
  FieldRegistration(std::vector<std::pair<std::string, FieldReader>> fields);
};

const FieldReader* findField(std::string_view name);
// Every registered field, sorted by name.
std::vector<std::string> fieldNames();

// One checkpoint line: "checkpoint" and "time" first, then the fields asked for
// (all when none are named) in name order.
OutJson checkpointLine(RunContext& run, const std::string& name,
                       const std::optional<std::vector<std::string>>& fields);

// Reads a "checkpoint" entry: its name and the optional "fields" to write.
StepAction readCheckpoint(JsonReader& entry);

}  // namespace tolv::scenario
