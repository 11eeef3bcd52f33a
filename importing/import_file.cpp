#include "importing/import_file.h"

#include <algorithm>
#include <array>

namespace depcalc {
namespace {

using namespace std::string_view_literals;

struct KnownKind {
  std::string_view beginning;
  std::string_view advice;
};

constexpr std::string_view workbook =
    "This is a workbook of an older kind. Please open it in the spreadsheet program and save the "
    "sheet as CSV or as "
    "Unicode text.";

constexpr std::array<KnownKind, 5> known_kinds{{
    {"SQLite format 3\0"sv, "This is a company file. File > Open Company opens it."},
    {"\xD0\xCF\x11\xE0"sv, workbook},
    {"%PDF"sv, "This is a PDF document. Please import the list that it was printed from."},
    {"\x1F\x8B"sv, "This file is compressed. Please unpack it first."},
    {"{\\rtf"sv, "This is a text document. Please save its table as CSV."},
}};

}  // namespace

bool looksLikeWorkbook(std::string_view bytes) { return bytes.starts_with("PK\x03\x04"sv); }

std::string whyNotImportable(std::string_view bytes) {
  if (bytes.size() > most_import_bytes) {
    return "The file is larger than 256 MB. Please import it in parts.";
  }
  const auto* kind =
      std::find_if(known_kinds.begin(), known_kinds.end(),
                   [&](const KnownKind& known) { return bytes.starts_with(known.beginning); });
  return kind == known_kinds.end() ? "" : std::string(kind->advice);
}

}  // namespace depcalc
