// How texts are broken into lines, and how large they are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/site.h"
#include "windows/controls/fonts.h"

namespace depcalc::native {

struct TextLine {
  std::size_t start = 0;
  std::size_t length = 0;
  int width = 0;
};

enum class Breaking {
  atBreaks,  ///< at line breaks alone
  atWords,   ///< and between words; a word that is wider than a line stays whole
  anywhere   ///< and inside words that are wider than a line
};

/// In the font and the units of `dc`.
[[nodiscard]] std::vector<TextLine> brokenLines(HDC dc, std::wstring_view text, int width,
                                                Breaking breaking);

/// Measures in twips with fonts whose unit is the twip: free of any screen's pixels, so that lines
/// break at the same words at every resolution.
class TextMeasure {
 public:
  explicit TextMeasure(std::wstring family);

  [[nodiscard]] std::vector<TextLine> lines(std::wstring_view text, const Font& font,
                                            int wrap_width);
  [[nodiscard]] int lineHeight(const Font& font);
  /// What Site::textExtent answers.
  [[nodiscard]] TextExtent extent(std::string_view text, const Font& font, int wrap_width);
  [[nodiscard]] const std::wstring& family() const { return fonts_.family(); }

 private:
  MemoryDc dc_;
  Fonts fonts_;
  HGDIOBJ stock_;

 public:
  ~TextMeasure() { SelectObject(dc_.get(), stock_); }
};

}  // namespace depcalc::native
