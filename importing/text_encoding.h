// The encodings that files of assets come in.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

enum class Encoding {
  utf8,
  utf16_le,
  utf16_be,
  windows_1252,
  iso_8859_15,
  windows_1250,
  windows_1251,
  macintosh,
  dos_850,
};

struct EncodingName {
  std::string_view key;    ///< by which it is kept and asked for
  std::string_view label;  ///< for people
};

/// In the order of Encoding.
inline constexpr std::array<EncodingName, 9> encoding_names{{
    {"UTF-8", "Unicode (UTF-8)"},
    {"UTF-16LE", "Unicode (UTF-16)"},
    {"UTF-16BE", "Unicode (UTF-16, big-endian)"},
    {"CP1252", "Western European (Windows)"},
    {"ISO-8859-15", "Western European (ISO 8859-15)"},
    {"CP1250", "Central European (Windows)"},
    {"CP1251", "Cyrillic (Windows)"},
    {"MACINTOSH", "Western European (Macintosh)"},
    {"CP850", "Western European (DOS)"},
}};

/// What a byte order mark says; without one UTF-8 where all of `bytes` is UTF-8, UTF-16 where every
/// other byte is mostly zero, else Windows-1252. That bytes are UTF-8 by chance hardly happens;
/// which of the other encodings they are in, short texts do not tell, and nobody is asked about
/// letters that all of them have.
Encoding detectedEncoding(std::string_view bytes);

struct DecodedText {
  std::string text;            ///< in UTF-8, without a byte order mark
  std::size_t unreadable = 0;  ///< characters that the encoding does not have: U+FFFD in the text
};

DecodedText decodedText(std::string_view bytes, Encoding encoding);

}  // namespace depcalc
