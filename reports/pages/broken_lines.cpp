#include "reports/pages/broken_lines.h"

#include <algorithm>

#include "values/printable_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

constexpr std::string_view ellipsis = "\u2026";

/// On paper a tab is a blank, and what else no letter stands for is written out.
std::string cleaned(std::string_view text) {
  std::string clean(text);
  std::replace(clean.begin(), clean.end(), '\t', ' ');
  return printableText(clean);
}

/// Without the blanks that a broken line would end in.
std::string_view withoutEnd(std::string_view line) {
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

/// How long the part of `text` is that must stay together with the blanks behind it.
std::size_t wordLength(std::string_view text) {
  const std::size_t end = text.find_first_of(" -/");
  if (end == text.npos) return text.size();
  const std::size_t next = text.find_first_not_of(" -/", end);
  return next == text.npos ? text.size() : next;
}

/// Whether a line must not begin with it: accents, joiners, variants of the letter before.
bool belongsToTheLetterBefore(std::string_view character) {
  const std::string_view c = character.substr(0, 3);
  const bool accent = (c >= "\u0300" && c < "\u0370") || (c >= "\u20D0" && c < "\u2100");
  const bool joined = c == "\u200D" || (c >= "\uFE00" && c <= "\uFE0F");
  return accent || joined;
}

/// How long the letter at the beginning is, with all that is put on it.
std::size_t letterLength(std::string_view text) {
  std::size_t length = firstCharacters(text, 1).size();
  while (length < text.size() && belongsToTheLetterBefore(text.substr(length))) {
    length += firstCharacters(text.substr(length), 1).size();
  }
  return length;
}

class LineBreaker {
 public:
  LineBreaker(double width, PaperFont font, const PaperMeasures& measures)
      : width_(width), font_(font), measures_(measures) {}

  void add(std::string_view paragraph) {
    line_.clear();
    if (fits(paragraph)) {
      line_ = paragraph;
    } else {
      addWords(paragraph);
    }
    lines_.emplace_back(fits(line_) ? std::string_view(line_) : withoutEnd(line_));
  }
  [[nodiscard]] std::vector<std::string> take() { return std::move(lines_); }

 private:
  [[nodiscard]] bool fits(std::string_view text) const {
    return measures_.width(text, font_) <= width_;
  }

  void addWords(std::string_view paragraph) {
    while (!paragraph.empty()) {
      const std::string_view word = paragraph.substr(0, wordLength(paragraph));
      paragraph.remove_prefix(word.size());
      if (takes(word)) continue;
      if (!line_.empty()) endLine();
      if (!takes(word)) addLetters(word);
    }
  }
  bool takes(std::string_view word) {
    const std::string longer = line_ + std::string(word);
    if (!fits(withoutEnd(longer))) return false;
    line_ = longer;
    return true;
  }
  void addLetters(std::string_view word) {
    while (!word.empty()) {
      const std::string_view letter = word.substr(0, letterLength(word));
      word.remove_prefix(letter.size());
      if (!line_.empty() && !takes(letter)) endLine();
      if (line_.empty()) line_ = letter;
    }
  }
  void endLine() {
    lines_.emplace_back(withoutEnd(line_));
    line_.clear();
  }

  double width_;
  PaperFont font_;
  const PaperMeasures& measures_;
  std::string line_;
  std::vector<std::string> lines_;
};

/// Without its line end.
std::string_view takeParagraph(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view paragraph = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  if (paragraph.ends_with('\r')) paragraph.remove_suffix(1);
  return paragraph;
}

}  // namespace

std::vector<std::string> brokenLines(std::string_view text, double width, PaperFont font,
                                     const PaperMeasures& measures) {
  LineBreaker breaker(width, font, measures);
  do {
    breaker.add(cleaned(takeParagraph(text)));
  } while (!text.empty());
  return breaker.take();
}

double widestWord(std::string_view text, PaperFont font, const PaperMeasures& measures) {
  double widest = 0;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, wordLength(text));
    widest = std::max(widest, measures.width(withoutEnd(word), font));
    text.remove_prefix(word.size());
  }
  return widest;
}

std::string shortened(std::string_view text, double width, PaperFont font,
                      const PaperMeasures& measures) {
  const std::string whole = cleaned(takeParagraph(text));
  if (text.empty() && measures.width(whole, font) <= width) return whole;
  std::string part;
  for (std::string_view left = whole; !left.empty();) {
    const std::size_t letter = letterLength(left);
    const std::string longer = part + std::string(left.substr(0, letter));
    if (measures.width(longer + std::string(ellipsis), font) > width) break;
    part = longer;
    left.remove_prefix(letter);
  }
  return part + std::string(ellipsis);
}

}  // namespace depcalc
