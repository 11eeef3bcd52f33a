// The colours of tones and texts, on paper and on dark screens.
#pragma once

#include <cstdint>

#include "reports/pages/paper.h"

namespace depcalc {

struct PaperColour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

inline constexpr PaperColour white_paper{255, 255, 255};
inline constexpr PaperColour dark_paper{27, 26, 25};

/// The lines of charts differ to colour-blind readers, too, and each from its ground.
constexpr PaperColour onWhite(PaperTone tone) {
  switch (tone) {
    case PaperTone::heading:
      return {245, 232, 219};
    case PaperTone::group:
      return {250, 246, 240};
    case PaperTone::hairline:
      return {214, 210, 204};
    case PaperTone::accent:
    case PaperTone::second_line:
      return {102, 0, 0};
    case PaperTone::axis:
      return {120, 116, 110};
    case PaperTone::mark:
      return {26, 26, 26};
    case PaperTone::first_line:
      return {0, 60, 175};
    case PaperTone::third_line:
      return {225, 88, 10};
    case PaperTone::fourth_line:
      return {0, 155, 130};
  }
  return {};
}

constexpr PaperColour onDark(PaperTone tone) {
  switch (tone) {
    case PaperTone::heading:
      return {58, 46, 39};
    case PaperTone::group:
      return {38, 35, 33};
    case PaperTone::hairline:
      return {70, 64, 59};
    case PaperTone::accent:
    case PaperTone::second_line:
      return {255, 157, 138};
    case PaperTone::axis:
      return {150, 144, 138};
    case PaperTone::mark:
      return {236, 236, 236};
    case PaperTone::first_line:
      return {90, 200, 250};
    case PaperTone::third_line:
      return {255, 240, 110};
    case PaperTone::fourth_line:
      return {10, 135, 60};
  }
  return {};
}

constexpr PaperColour onWhite(PaperFont font) {
  switch (font) {
    case PaperFont::title:
      return {102, 0, 0};
    case PaperFont::lead:
    case PaperFont::small:
      return {96, 96, 96};
    default:
      return {26, 26, 26};
  }
}

constexpr PaperColour onDark(PaperFont font) {
  switch (font) {
    case PaperFont::title:
      return {255, 157, 138};
    case PaperFont::lead:
    case PaperFont::small:
      return {176, 176, 176};
    default:
      return {236, 236, 236};
  }
}

/// Points of a text, and whether it is bold.
struct PaperLetters {
  double points = 8.5;
  bool bold = false;
};

constexpr PaperLetters lettersOf(PaperFont font) {
  switch (font) {
    case PaperFont::title:
      return {15, true};
    case PaperFont::lead:
      return {9.5, false};
    case PaperFont::heading:
    case PaperFont::strong:
      return {8.5, true};
    case PaperFont::body:
      return {8.5, false};
    case PaperFont::small:
      return {7.5, false};
  }
  return {};
}

inline constexpr PaperFont last_paper_font = PaperFont::small;
inline constexpr PaperTone last_paper_tone = PaperTone::fourth_line;

}  // namespace depcalc
