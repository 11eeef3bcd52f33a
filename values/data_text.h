// Texts as data files write them.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// As a field of a CSV row: between quotes where it holds a comma, a quote or a line end.
std::string csvField(std::string_view text);

/// As a field between tabs, for the clipboard: between quotes where it holds a tab, a line end or a
/// quote.
std::string tabbedField(std::string_view text);

/// Spreadsheets take a field for a formula when it begins with = + - @, a tab or a carriage
/// return, whoever wrote it. Such a text gets an apostrophe in front, and so does one that begins
/// with apostrophes before such a character; every other text stays as it is.
std::string guardedText(std::string_view text);

/// The text behind `guardedText`; a text that it did not change stays as it is.
std::string_view unguardedText(std::string_view text);

/// How the fields of a CSV file for spreadsheets are written.
class CsvFields {
 public:
  /// With `raw` nothing is guarded: for programs that take every field as it is.
  explicit CsvFields(bool raw) : raw_(raw) {}

  [[nodiscard]] std::string text(std::string_view text) const {
    std::string storage;
    return std::string(this->text(text, storage));
  }
  /// The same; `text` itself where it can stand as it is, and else in `storage`.
  std::string_view text(std::string_view text, std::string& storage) const;
  /// A number is left alone, its sign included; what should be one and is not is a text.
  [[nodiscard]] std::string number(std::string_view number) const;

 private:
  bool raw_;
};

}  // namespace depcalc
