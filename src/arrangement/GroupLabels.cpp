#include "arrangement/GroupLabels.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <memory>

#include "model/Text.h"

namespace tolv {

std::string groupIconFromText(std::string_view text) {
  const std::string trimmed = trimmedWhitespaceAndNewlines(text);
  if (trimmed.empty()) return kDefaultGroupIcon;

  const icu::UnicodeString unicode =
      icu::UnicodeString::fromUTF8(icu::StringPiece(trimmed.data(), trimmed.size()));
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  int32_t end = unicode.length();
  if (U_SUCCESS(status) && characters) {
    characters->setText(unicode);
    int32_t next = characters->next();
    if (next != icu::BreakIterator::DONE) end = next;
  }
  std::string first;
  unicode.tempSubString(0, end).toUTF8String(first);
  return first;
}

}  // namespace tolv
