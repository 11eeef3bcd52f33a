#include "controls/site.h"

#include <algorithm>
#include <cmath>

#include "values/text.h"

namespace depcalc {
namespace {

constexpr int twips_per_point = 20;

// Lines that a paragraph takes when each holds at most `room` characters; longer words are cut.
int wrappedLines(std::string_view paragraph, int room) {
  int lines = 1;
  int used = 0;
  while (!paragraph.empty()) {
    const std::size_t end = std::min(paragraph.find(' '), paragraph.size());
    int word = static_cast<int>(characterCount(paragraph.substr(0, end)));
    if (used > 0 && used + word > room) {
      ++lines;
      used = 0;
    }
    lines += std::max(0, word - 1) / room;
    used += word > room ? (word - 1) % room + 1 : word;
    ++used;  // the blank, which may hang over the edge
    paragraph.remove_prefix(std::min(end + 1, paragraph.size()));
  }
  return lines;
}

}  // namespace

std::string_view boxButtonsText(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::ok:
      return "OK";
    case BoxButtons::yesNo:
      return "Yes/No";
    case BoxButtons::yesNoCancel:
      return "Yes/No/Cancel";
  }
  return {};
}

std::string_view boxAnswerText(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::ok:
      return "OK";
    case BoxAnswer::yes:
      return "Yes";
    case BoxAnswer::no:
      return "No";
    case BoxAnswer::cancel:
      return "Cancel";
  }
  return {};
}

bool canAnswer(BoxButtons buttons, BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::ok:
      return buttons == BoxButtons::ok;
    case BoxAnswer::yes:
    case BoxAnswer::no:
      return buttons != BoxButtons::ok;
    case BoxAnswer::cancel:
      return buttons == BoxButtons::yesNoCancel;
  }
  return false;
}

TextExtent plainTextExtent(std::string_view text, const Font& font, int wrap_width) {
  const int character = std::max(1, static_cast<int>(std::lround(font.size * twips_per_point / 2)));
  const int line = static_cast<int>(std::lround(font.size * twips_per_point * 1.25));
  const int room = std::max(1, wrap_width / character);
  TextExtent extent;
  for (bool more = true; more;) {
    const std::size_t end = text.find('\n');
    std::string_view paragraph = text.substr(0, end);
    if (paragraph.ends_with('\r')) paragraph.remove_suffix(1);
    const int length = static_cast<int>(characterCount(paragraph));
    extent.width =
        std::max(extent.width, (wrap_width > 0 ? std::min(length, room) : length) * character);
    extent.height += line * (wrap_width > 0 ? wrappedLines(paragraph, room) : 1);
    more = end != std::string_view::npos;
    text.remove_prefix(more ? end + 1 : text.size());
  }
  return extent;
}

}  // namespace depcalc
