#include "windows/controls/text_lines.h"

#include <algorithm>

#include "windows/com/com_text.h"

namespace depcalc::native {
namespace {

constexpr double twips_per_inch = 1440;

/// GDI measures no more at once.
constexpr std::size_t longest = 8191;

int widthOf(HDC dc, std::wstring_view text) {
  text = text.substr(0, longest);
  SIZE size{};
  GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

/// How many units from the start fit into `width`; at least one.
std::size_t fitting(HDC dc, std::wstring_view text, int width) {
  text = text.substr(0, longest);
  int count = 0;
  SIZE size{};
  GetTextExtentExPointW(dc, text.data(), static_cast<int>(text.size()), width, &count, nullptr,
                        &size);
  return static_cast<std::size_t>(std::max(1, count));
}

/// The end of the line that starts `text`, and of the blanks behind it, which may hang over.
struct LineEnd {
  std::size_t shown;
  std::size_t next;
};

std::size_t pastBlanks(std::wstring_view text, std::size_t at) {
  return std::min(text.find_first_not_of(L' ', at), text.size());
}

LineEnd endOfLine(HDC dc, std::wstring_view text, int width, Breaking breaking) {
  const std::size_t fits = fitting(dc, text, width);
  if (fits >= text.size()) return {text.size(), text.size()};
  if (text[fits] == L' ') return {fits, pastBlanks(text, fits)};
  const std::size_t blank = text.rfind(L' ', fits);
  const std::size_t word_end = text.find_last_not_of(L' ', blank);
  if (blank != std::wstring_view::npos && word_end != std::wstring_view::npos) {
    return {word_end + 1, blank + 1};
  }
  if (breaking == Breaking::anywhere) return {fits, fits};
  const std::size_t end = std::min(text.find(L' ', fits), text.size());
  return {end, pastBlanks(text, end)};
}

void breakParagraph(HDC dc, std::wstring_view text, std::size_t start, std::size_t end, int width,
                    Breaking breaking, std::vector<TextLine>& lines) {
  do {
    const std::wstring_view rest = text.substr(start, end - start);
    const LineEnd line = breaking == Breaking::atBreaks ? LineEnd{rest.size(), rest.size()}
                                                        : endOfLine(dc, rest, width, breaking);
    lines.push_back({start, line.shown, widthOf(dc, rest.substr(0, line.shown))});
    start += line.next;
  } while (start < end);
}

}  // namespace

std::vector<TextLine> brokenLines(HDC dc, std::wstring_view text, int width, Breaking breaking) {
  std::vector<TextLine> lines;
  for (std::size_t start = 0;;) {
    const std::size_t end = text.find(L'\n', start);
    std::size_t stop = std::min(end, text.size());
    if (stop > start && text[stop - 1] == L'\r') --stop;
    breakParagraph(dc, text, start, stop, width, breaking, lines);
    if (end == std::wstring_view::npos) return lines;
    start = end + 1;
  }
}

TextMeasure::TextMeasure(std::wstring family)
    : fonts_(std::move(family), twips_per_inch), stock_(GetCurrentObject(dc_.get(), OBJ_FONT)) {}

std::vector<TextLine> TextMeasure::lines(std::wstring_view text, const Font& font, int wrap_width) {
  SelectObject(dc_.get(), fonts_.of(font));
  return brokenLines(dc_.get(), text, wrap_width,
                     wrap_width > 0 ? Breaking::anywhere : Breaking::atBreaks);
}

int TextMeasure::lineHeight(const Font& font) {
  SelectObject(dc_.get(), fonts_.of(font));
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc_.get(), &metrics);
  return metrics.tmHeight;
}

TextExtent TextMeasure::extent(std::string_view text, const Font& font, int wrap_width) {
  TextExtent extent;
  const auto broken = lines(utf16(text), font, wrap_width);
  for (const TextLine& line : broken) extent.width = std::max(extent.width, line.width);
  extent.height = static_cast<int>(broken.size()) * lineHeight(font);
  return extent;
}

}  // namespace depcalc::native
