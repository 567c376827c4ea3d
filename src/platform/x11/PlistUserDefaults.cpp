#include "platform/x11/PlistUserDefaults.h"

#include <plist/plist.h>

#include <cmath>
#include <cstdlib>

namespace tolv::x11 {

namespace {

struct PlistFree {
  void operator()(plist_t node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistFree>;

std::optional<PropertyValue> fromPlist(plist_t node);

std::optional<PropertyValue::Dictionary> dictionaryFromPlist(plist_t node) {
  PropertyValue::Dictionary dictionary;
  plist_dict_iter iter = nullptr;
  plist_dict_new_iter(node, &iter);
  for (;;) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, iter, &key, &item);
    if (!item) {
      std::free(key);
      break;
    }
    auto value = fromPlist(item);
    std::string name = key ? key : "";
    std::free(key);
    // A container holding something the store can't represent is left out whole.
    if (!value) {
      std::free(iter);
      return std::nullopt;
    }
    dictionary.emplace(std::move(name), std::move(*value));
  }
  std::free(iter);
  return dictionary;
}

std::optional<PropertyValue> fromPlist(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      return PropertyValue(plist_bool_val_is_true(node) != 0);
    case PLIST_UINT: {
      uint64_t value = 0;
      plist_get_uint_val(node, &value);
      return PropertyValue(static_cast<int64_t>(value));
    }
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return PropertyValue(value);
    }
    case PLIST_STRING: {
      uint64_t length = 0;
      const char* text = plist_get_string_ptr(node, &length);
      return PropertyValue(std::string(text ? text : "", length));
    }
    case PLIST_DATA: {
      uint64_t length = 0;
      const char* bytes = plist_get_data_ptr(node, &length);
      return PropertyValue(PropertyValue::Data(bytes, bytes + length));
    }
    case PLIST_ARRAY: {
      PropertyValue::Array array;
      for (uint32_t i = 0, n = plist_array_get_size(node); i < n; ++i) {
        auto item = fromPlist(plist_array_get_item(node, i));
        if (!item) return std::nullopt;
        array.push_back(std::move(*item));
      }
      return PropertyValue(std::move(array));
    }
    case PLIST_DICT: {
      auto dictionary = dictionaryFromPlist(node);
      if (!dictionary) return std::nullopt;
      return PropertyValue(std::move(*dictionary));
    }
    default:
      return std::nullopt;
  }
}

plist_t toPlist(const PropertyValue& value) {
  struct Visitor {
    plist_t operator()(bool flag) const { return plist_new_bool(flag ? 1 : 0); }
    plist_t operator()(int64_t number) const {
      return plist_new_uint(static_cast<uint64_t>(number));
    }
    plist_t operator()(double number) const { return plist_new_real(number); }
    plist_t operator()(const std::string& text) const { return plist_new_string(text.c_str()); }
    plist_t operator()(const PropertyValue::Data& data) const {
      return plist_new_data(reinterpret_cast<const char*>(data.data()), data.size());
    }
    plist_t operator()(const PropertyValue::Array& array) const {
      plist_t node = plist_new_array();
      for (const auto& item : array)
        plist_array_append_item(node, toPlist(item));
      return node;
    }
    plist_t operator()(const PropertyValue::Dictionary& dictionary) const {
      plist_t node = plist_new_dict();
      for (const auto& [key, item] : dictionary)
        plist_dict_set_item(node, key.c_str(), toPlist(item));
      return node;
    }
  };
  return std::visit(Visitor{}, value.storage());
}

// A domain name as a file name: path separators would leave the folder.
std::string fileNameOf(std::string_view domain) {
  std::string name(domain);
  for (char& c : name) {
    if (c == '/' || c == '\0') c = '_';
  }
  if (name.empty() || name == "." || name == "..") name = "_" + name;
  return name + ".plist";
}

}  // namespace

struct PlistUserDefaults::Domain {
  PlistPtr root{plist_new_dict()};
};

PlistUserDefaults::PlistUserDefaults(FileSystem& fileSystem, std::string folder,
                                     std::function<double()> now, UnreadableReport report)
    : fileSystem_(fileSystem),
      folder_(std::move(folder)),
      now_(std::move(now)),
      report_(std::move(report)) {}

PlistUserDefaults::~PlistUserDefaults() = default;

std::string PlistUserDefaults::pathOf(std::string_view domain) const {
  return folder_ + "/" + fileNameOf(domain);
}

PlistUserDefaults::Domain& PlistUserDefaults::domain(std::string_view name) {
  if (auto found = domains_.find(name); found != domains_.end()) return *found->second;
  auto loaded = std::make_unique<Domain>();
  const std::string path = pathOf(name);
  if (fileSystem_.exists(path)) {
    auto bytes = fileSystem_.readFile(path);
    plist_t parsed = nullptr;
    if (bytes && !bytes->empty()) {
      plist_from_memory(reinterpret_cast<const char*>(bytes->data()),
                        static_cast<uint32_t>(bytes->size()), &parsed);
    }
    if (parsed && plist_get_node_type(parsed) == PLIST_DICT) {
      loaded->root.reset(parsed);
    } else {
      if (parsed) plist_free(parsed);
      const std::string aside =
          path + ".unreadable-" + std::to_string(static_cast<int64_t>(std::floor(now_())));
      const bool moved = fileSystem_.moveFile(path, aside);
      if (report_) {
        report_("Unreadable defaults",
                moved ? "The defaults file " + path + " could not be read; it was moved to " +
                            aside + " and Tolv starts with default settings."
                      : "The defaults file " + path +
                            " could not be read nor moved aside; changes to its settings are "
                            "not saved this run.");
      }
      if (!moved) loaded->root.reset();
    }
  }
  return *domains_.emplace(std::string(name), std::move(loaded)).first->second;
}

std::optional<PropertyValue> PlistUserDefaults::value(std::string_view domainName,
                                                      std::string_view key) {
  Domain& entry = domain(domainName);
  if (!entry.root) return std::nullopt;
  plist_t item = plist_dict_get_item(entry.root.get(), std::string(key).c_str());
  if (!item) return std::nullopt;
  return fromPlist(item);
}

void PlistUserDefaults::setValue(std::string_view domainName, std::string_view key,
                                 PropertyValue value) {
  Domain& entry = domain(domainName);
  if (!entry.root) return;
  plist_dict_set_item(entry.root.get(), std::string(key).c_str(), toPlist(value));
  write(domainName, entry);
}

void PlistUserDefaults::removeValue(std::string_view domainName, std::string_view key) {
  Domain& entry = domain(domainName);
  if (!entry.root) return;
  const std::string name(key);
  if (!plist_dict_get_item(entry.root.get(), name.c_str())) return;
  plist_dict_remove_item(entry.root.get(), name.c_str());
  write(domainName, entry);
}

std::map<std::string, PropertyValue> PlistUserDefaults::values(std::string_view domainName) {
  std::map<std::string, PropertyValue> result;
  Domain& entry = domain(domainName);
  if (!entry.root) return result;
  plist_dict_iter iter = nullptr;
  plist_dict_new_iter(entry.root.get(), &iter);
  for (;;) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(entry.root.get(), iter, &key, &item);
    if (!item) {
      std::free(key);
      break;
    }
    if (auto value = fromPlist(item)) result.emplace(key ? key : "", std::move(*value));
    std::free(key);
  }
  std::free(iter);
  return result;
}

// Every change is already on disk.
void PlistUserDefaults::synchronize(std::string_view) {}

void PlistUserDefaults::write(std::string_view name, Domain& entry) {
  char* xml = nullptr;
  uint32_t length = 0;
  plist_to_xml(entry.root.get(), &xml, &length);
  if (!xml) return;
  std::vector<uint8_t> bytes(xml, xml + length);
  plist_to_xml_free(xml);
  fileSystem_.createDirectories(folder_);
  fileSystem_.writeFileAtomically(pathOf(name), bytes);
}

}  // namespace tolv::x11
