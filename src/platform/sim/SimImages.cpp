#include "platform/sim/SimImages.h"

#include "platform/sim/CallCounter.h"

namespace tolv::sim {

Image SimImages::systemSymbol(std::string_view name) {
  calls_.count("images.systemSymbol");
  auto found = symbols_.find(name);
  if (found != symbols_.end()) return found->second;
  Image symbol(std::make_shared<SimImage>("symbol:" + std::string(name), 32, 32));
  symbols_.emplace(std::string(name), symbol);
  return symbol;
}

Image SimImages::named(const std::string& name, int size) {
  return Image(std::make_shared<SimImage>(name, size, size));
}

}  // namespace tolv::sim
