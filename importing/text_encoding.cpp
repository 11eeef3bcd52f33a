#include "importing/text_encoding.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>

#include "values/utf8.h"

namespace depcalc {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool isUtf8(std::string_view bytes) {
  Utf8Check check;
  for (const char byte : bytes) {
    if (!check.accepts(static_cast<unsigned char>(byte))) return false;
  }
  return check.atBoundary();
}

/// Which of the bytes that come in pairs is zero in most pairs; nothing where neither is.
std::optional<std::size_t> zeroByteOfPairs(std::string_view bytes) {
  constexpr std::size_t looked_at = 65'536;
  const std::string_view beginning = bytes.substr(0, looked_at);
  for (const std::size_t first : {0U, 1U}) {
    std::size_t zeros = 0;
    for (std::size_t i = first; i < beginning.size(); i += 2) zeros += beginning[i] == '\0';
    if (zeros * 4 > beginning.size()) return first;
  }
  return std::nullopt;
}

/// The system's converter for one text.
class Conversion {
 public:
  explicit Conversion(Encoding from)
      : handle_(::iconv_open(
            "UTF-8", std::string(encoding_names[static_cast<std::size_t>(from)].key).c_str())) {}
  ~Conversion() {
    if (isOpen()) ::iconv_close(handle_);
  }
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;

  [[nodiscard]] bool isOpen() const { return handle_ != iconv_t(-1); }

  /// Adds what it can convert of `rest` to `text`. Returns whether that was all.
  bool convert(std::string_view& rest, std::string& text) {
    std::array<char, 16'384> out;
    while (!rest.empty()) {
      // The converter reads through a pointer to characters that it never changes.
      char* in = const_cast<char*>(rest.data());
      std::size_t left = rest.size();
      char* to = out.data();
      std::size_t room = out.size();
      const std::size_t result = ::iconv(handle_, &in, &left, &to, &room);
      text.append(out.data(), to);
      rest.remove_prefix(rest.size() - left);
      if (result == std::size_t(-1) && errno != E2BIG) return false;
    }
    return true;
  }

 private:
  iconv_t handle_;
};

}  // namespace

Encoding detectedEncoding(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE"sv)) return Encoding::utf16_le;
  if (bytes.starts_with("\xFE\xFF"sv)) return Encoding::utf16_be;
  if (const auto zero = zeroByteOfPairs(bytes)) {
    return *zero == 1 ? Encoding::utf16_le : Encoding::utf16_be;
  }
  return isUtf8(bytes) ? Encoding::utf8 : Encoding::windows_1252;
}

DecodedText decodedText(std::string_view bytes, Encoding encoding) {
  const std::size_t unit = encoding == Encoding::utf16_le || encoding == Encoding::utf16_be ? 2 : 1;
  DecodedText decoded;
  decoded.text.reserve(bytes.size());
  Conversion conversion(encoding);
  while (conversion.isOpen() && !conversion.convert(bytes, decoded.text)) {
    ++decoded.unreadable;
    decoded.text.append(replacement);
    bytes.remove_prefix(std::min(unit, bytes.size()));
  }
  if (decoded.text.starts_with(utf8_mark)) decoded.text.erase(0, utf8_mark.size());
  return decoded;
}

}  // namespace depcalc
