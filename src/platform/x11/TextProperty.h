#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolv::x11 {

// How a client wrote a text property such as WM_NAME or _NET_WM_NAME: the
// property's type.
enum class TextEncoding { Latin1, Utf8, CompoundText, Other };

// The text as valid UTF-8: every ill-formed sequence becomes one U+FFFD, so a
// client's broken bytes show as replacement characters, never as mojibake.
std::string sanitizedUtf8(std::string_view bytes);

// A STRING property (ISO 8859-1 by the conventions of X) as UTF-8. Bytes that
// already form valid UTF-8 are taken as UTF-8: many clients write it there.
std::string utf8FromLatin1(std::string_view bytes);

// Decodes COMPOUND_TEXT through Xlib's converter, the standard decoder of the
// ISO 2022 escapes X clients write (xterm's -T with non-ASCII text, for one).
// Xlib wants a display of its own for the atoms of the encodings; it is opened
// on the first compound text and kept. Nothing when the display can't be opened
// or the bytes can't be converted.
class CompoundTextDecoder {
 public:
  // `display` empty means $DISPLAY.
  explicit CompoundTextDecoder(std::string display) : display_(std::move(display)) {}
  ~CompoundTextDecoder();
  CompoundTextDecoder(const CompoundTextDecoder&) = delete;
  CompoundTextDecoder& operator=(const CompoundTextDecoder&) = delete;

  std::optional<std::string> decode(std::string_view bytes);

 private:
  std::string display_;
  void* xlibDisplay_ = nullptr;  // Display*, kept out of this header
  bool openFailed_ = false;
};

// The text of a property of that encoding as UTF-8. Bytes of any other type are
// read as UTF-8, as most clients mean them.
std::string decodeTextProperty(TextEncoding encoding, std::string_view bytes,
                               CompoundTextDecoder& compound);

}  // namespace tolv::x11
