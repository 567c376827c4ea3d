#pragma once

#include "platform/Accessibility.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;
struct SimElement;

// The accessibility interface of the simulated desktop: elements for each
// application, window and close button, with the faults the desktop was told to
// show.
class SimAccessibility : public Accessibility {
 public:
  SimAccessibility(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  bool isProcessTrusted() override;
  bool isProcessTrustedWithPrompt() override;
  AXElement applicationElement(Pid pid) override;
  AXValue copyAttribute(const AXElement& element, std::string_view attribute) override;
  std::optional<std::vector<AXValue>> copyMultipleAttributes(
      const AXElement& element, const std::vector<std::string>& attributes) override;
  uint64_t hash(const AXElement& element) override;
  bool equal(const AXElement& a, const AXElement& b) override;
  std::optional<uint32_t> windowNumber(const AXElement& window) override;

  // How often the permission prompt was asked for.
  int promptCount() const { return promptCount_; }

 private:
  // The error that every call on this element gives now, if any.
  std::optional<AXError> callFailure(const SimElement* element) const;
  AXValue read(const SimElement& element, std::string_view attribute) const;

  SimDesktop& desktop_;
  CallCounter& calls_;
  int promptCount_ = 0;
};

}  // namespace tolv::sim
