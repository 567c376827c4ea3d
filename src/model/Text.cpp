#include "model/Text.h"

#include <unicode/brkiter.h>
#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <memory>

namespace tolv {

std::string trimmedWhitespaceAndNewlines(std::string_view text) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  int32_t length = static_cast<int32_t>(text.size());

  int32_t start = 0;
  while (start < length) {
    int32_t next = start;
    UChar32 c;
    U8_NEXT(bytes, next, length, c);
    if (c < 0 || !u_isUWhiteSpace(c)) break;
    start = next;
  }
  int32_t end = length;
  while (end > start) {
    int32_t previous = end;
    UChar32 c;
    U8_PREV(bytes, start, previous, c);
    if (c < 0 || !u_isUWhiteSpace(c)) break;
    end = previous;
  }
  return std::string(text.substr(start, end - start));
}

namespace {
icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), text.size()));
}
}  // namespace

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  return unicode(a).caseCompare(unicode(b), U_FOLD_CASE_DEFAULT) == 0;
}

int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) {
  static const std::unique_ptr<icu::Collator> collator = [] {
    // A process under the C or POSIX locale gets ICU's "en_US_POSIX", whose
    // collation is byte order; people's names sort by the root collation there.
    icu::Locale locale = icu::Locale::getDefault();
    if (std::string_view(locale.getName()) == "en_US_POSIX") locale = icu::Locale::getRoot();
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(locale, status));
    if (U_FAILURE(status)) made.reset();
    if (made) made->setStrength(icu::Collator::SECONDARY);
    return made;
  }();
  if (!collator) {
    return unicode(a).caseCompare(unicode(b), U_FOLD_CASE_DEFAULT);
  }
  UErrorCode status = U_ZERO_ERROR;
  return collator->compareUTF8(icu::StringPiece(a.data(), a.size()),
                               icu::StringPiece(b.data(), b.size()), status);
}

std::string foldedForSearch(std::string_view text) {
  std::string folded;
  unicode(text).foldCase(U_FOLD_CASE_DEFAULT).toUTF8String(folded);
  return folded;
}

std::string firstGrapheme(std::string_view text) {
  if (text.empty()) return {};
  icu::UnicodeString string = unicode(text);
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::BreakIterator> breaks(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  int32_t end = string.moveIndex32(0, 1);
  if (U_SUCCESS(status)) {
    breaks->setText(string);
    end = breaks->following(0);
  }
  std::string result;
  string.tempSubString(0, end).toUTF8String(result);
  return result;
}

std::string withoutLastGrapheme(std::string_view text) {
  if (text.empty()) return {};
  icu::UnicodeString string = unicode(text);
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::BreakIterator> breaks(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  icu::UnicodeString kept;
  if (U_FAILURE(status)) {
    kept = string.tempSubString(0, string.moveIndex32(string.length(), -1));
  } else {
    breaks->setText(string);
    kept = string.tempSubString(0, breaks->preceding(string.length()));
  }
  std::string result;
  kept.toUTF8String(result);
  return result;
}

}  // namespace tolv
