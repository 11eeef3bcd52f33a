// What surrounds the controls.
#pragma once

#include <string>
#include <string_view>

#include "controls/font.h"
#include "controls/printer.h"
#include "values/date.h"

namespace depcalc {

enum class BoxButtons { ok, yesNo, yesNoCancel };
enum class BoxAnswer { ok, yes, no, cancel };

/// "OK", "Yes/No", "Yes/No/Cancel".
std::string_view boxButtonsText(BoxButtons buttons);
/// "OK", "Yes", "No", "Cancel".
std::string_view boxAnswerText(BoxAnswer answer);
/// Whether a box with these buttons can be answered so.
bool canAnswer(BoxButtons buttons, BoxAnswer answer);

/// What a box without a title of its own is called.
inline constexpr const char* default_box_title = "DepCalc10";

struct MessageBox {
  std::string text;
  BoxButtons buttons = BoxButtons::ok;
  std::string title = default_box_title;

  friend bool operator==(const MessageBox&, const MessageBox&) = default;
};

enum class Pointer { normal, hourglass };

struct TextExtent {
  int width = 0;
  int height = 0;

  friend bool operator==(const TextExtent&, const TextExtent&) = default;
};

/// Message boxes, sound, pointer, clock, printer and measures, given by whoever shows the controls.
class Site {
 public:
  virtual ~Site() = default;

  /// Modal: returns when the user has answered.
  virtual BoxAnswer showBox(const MessageBox& box) = 0;
  virtual void beep() = 0;
  virtual void setPointer(Pointer pointer) = 0;
  virtual Date today() = 0;
  /// The current system printer. None: throws RuntimeError.
  virtual Printer& systemPrinter() = 0;
  virtual double twipsPerPixel() = 0;
  /// Size in twips of a text that is broken at line breaks and, where `wrap_width` is not 0,
  /// between words so that no line is wider than that.
  virtual TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) = 0;
};

/// An extent without a font at hand: every character half as wide as the font's size, lines
/// 1.25 times as high. The same everywhere.
TextExtent plainTextExtent(std::string_view text, const Font& font, int wrap_width);

}  // namespace depcalc
