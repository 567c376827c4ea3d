#include "platform/x11/TextProperty.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <unicode/unistr.h>

#include <string>

namespace tolv::x11 {

std::string sanitizedUtf8(std::string_view bytes) {
  // ICU's conversion puts U+FFFD in place of each ill-formed sequence.
  std::string out;
  icu::UnicodeString::fromUTF8(icu::StringPiece(bytes.data(), static_cast<int32_t>(bytes.size())))
      .toUTF8String(out);
  return out;
}

std::string utf8FromLatin1(std::string_view bytes) {
  std::string asUtf8 = sanitizedUtf8(bytes);
  if (asUtf8 == bytes) return asUtf8;
  std::string out;
  out.reserve(bytes.size() * 2);
  for (unsigned char c : bytes) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

CompoundTextDecoder::~CompoundTextDecoder() {
  if (xlibDisplay_) XCloseDisplay(static_cast<Display*>(xlibDisplay_));
}

std::optional<std::string> CompoundTextDecoder::decode(std::string_view bytes) {
  if (!xlibDisplay_ && !openFailed_) {
    xlibDisplay_ = XOpenDisplay(display_.empty() ? nullptr : display_.c_str());
    openFailed_ = xlibDisplay_ == nullptr;
  }
  if (!xlibDisplay_) return std::nullopt;
  auto* display = static_cast<Display*>(xlibDisplay_);

  std::string copy(bytes);
  XTextProperty property;
  property.value = reinterpret_cast<unsigned char*>(copy.data());
  property.encoding = XInternAtom(display, "COMPOUND_TEXT", False);
  property.format = 8;
  property.nitems = copy.size();
  char** list = nullptr;
  int count = 0;
  // Success (0) or the number of characters that had no conversion (> 0, shown
  // as Xlib's default string); below 0 nothing was converted.
  if (Xutf8TextPropertyToTextList(display, &property, &list, &count) < 0 || !list) {
    return std::nullopt;
  }
  // A property may hold several NUL-separated strings; a title is their join.
  std::string text;
  for (int i = 0; i < count; ++i)
    text += list[i];
  XFreeStringList(list);
  return sanitizedUtf8(text);
}

std::string decodeTextProperty(TextEncoding encoding, std::string_view bytes,
                               CompoundTextDecoder& compound) {
  switch (encoding) {
    case TextEncoding::Latin1:
      return utf8FromLatin1(bytes);
    case TextEncoding::CompoundText:
      // Compound text without escapes is Latin-1, which is also what remains
      // when Xlib isn't at hand.
      if (auto decoded = compound.decode(bytes)) return *decoded;
      return utf8FromLatin1(bytes);
    case TextEncoding::Utf8:
    case TextEncoding::Other:
      break;
  }
  return sanitizedUtf8(bytes);
}

}  // namespace tolv::x11
