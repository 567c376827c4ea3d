#include "taskbar/FixedTextMeasurer.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <algorithm>

namespace tolv {

namespace {

constexpr double kClusterWidthPerPoint = 0.6;

std::unique_ptr<icu::BreakIterator> makeClusterIterator() {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::BreakIterator> iterator(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  if (U_FAILURE(status)) return nullptr;
  return iterator;
}

// Printable ASCII is one cluster per byte; only other text needs the break rules.
bool isPrintableAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7f; });
}

size_t countClusters(icu::BreakIterator* iterator, std::string_view text) {
  if (isPrintableAscii(text)) return text.size();
  UErrorCode status = U_ZERO_ERROR;
  UText* utext = utext_openUTF8(nullptr, text.data(), static_cast<int64_t>(text.size()), &status);
  if (U_FAILURE(status) || !iterator) {
    utext_close(utext);
    return text.size();
  }
  iterator->setText(utext, status);
  size_t count = 0;
  if (U_SUCCESS(status)) {
    iterator->first();
    while (iterator->next() != icu::BreakIterator::DONE)
      ++count;
  }
  utext_close(utext);
  return count;
}

}  // namespace

FixedTextMeasurer::FixedTextMeasurer() : clusters_(makeClusterIterator()) {}
FixedTextMeasurer::~FixedTextMeasurer() = default;

double FixedTextMeasurer::width(std::string_view text, double fontSize) {
  return kClusterWidthPerPoint * fontSize *
         static_cast<double>(countClusters(clusters_.get(), text));
}

}  // namespace tolv
