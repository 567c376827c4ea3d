#include "app/scenario/Checkpoints.h"

#include "app/scenario/DesktopPicture.h"

#include <algorithm>
#include <map>

namespace tolv::scenario {

namespace {
std::map<std::string, FieldReader, std::less<>>& fieldRegistry() {
  static std::map<std::string, FieldReader, std::less<>> registry;
  return registry;
}
}  // namespace

FieldRegistration::FieldRegistration(std::vector<std::pair<std::string, FieldReader>> fields) {
  for (auto& [name, reader] : fields)
    fieldRegistry()[name] = std::move(reader);
}

const FieldReader* findField(std::string_view name) {
  auto found = fieldRegistry().find(name);
  return found == fieldRegistry().end() ? nullptr : &found->second;
}

std::vector<std::string> fieldNames() {
  std::vector<std::string> names;
  for (const auto& [name, reader] : fieldRegistry())
    names.push_back(name);
  return names;
}

OutJson checkpointLine(RunContext& run, const std::string& name,
                       const std::optional<std::vector<std::string>>& fields) {
  OutJson line;
  line["checkpoint"] = name;
  line["time"] = run.model.platform().runLoop->now() - run.startTime;
  for (const auto& field : fields ? *fields : fieldNames()) {
    if (auto value = (*findField(field))(run)) line[field] = std::move(*value);
  }
  return line;
}

StepAction readCheckpoint(JsonReader& entry) {
  std::string name = entry.requireString("checkpoint");
  std::optional<std::vector<std::string>> fields;
  if (const Json* given = entry.take("fields")) {
    if (!given->is_array()) entry.fail("fields", "expected a list of field names");
    fields.emplace();
    for (size_t i = 0; i < given->size(); ++i) {
      std::string place = entry.placeOf("fields") + "[" + std::to_string(i) + "]";
      const Json& field = (*given)[i];
      if (!field.is_string()) throw ScenarioError(place + ": expected a field name");
      if (field.get<std::string>() == "checkpoint" || field.get<std::string>() == "time") continue;
      if (!findField(field.get<std::string>())) {
        throw ScenarioError(place + ": unknown field \"" + field.get<std::string>() + "\"");
      }
      fields->push_back(field.get<std::string>());
    }
    std::sort(fields->begin(), fields->end());
  }
  return [name, fields](RunContext& run) {
    auto line = checkpointLine(run, name, fields);
    if (run.writeLine) run.writeLine(line);
    if (run.views && run.snapshotDirectory) {
      run.views->saveSnapshots(*run.snapshotDirectory, name,
                               run.desktop ? desktopScene(*run.desktop) : DesktopScene{});
    }
  };
}

}  // namespace tolv::scenario
