// How each kind of control looks.
#pragma once

#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_box.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/text_box.h"
#include "windows/controls/canvas.h"

namespace depcalc::native {

void drawLabel(const Canvas& canvas, const Label& label, const RECT& area);
void drawShape(const Canvas& canvas, const Shape& shape, const RECT& area);
void drawButton(const Canvas& canvas, const PictureButton& button, const RECT& area, bool hovered);
void drawPictureBox(const Canvas& canvas, const PictureBox& box, const RECT& area);

/// The field of a text box without its text.
void drawField(const Canvas& canvas, const Control& control, const RECT& area, bool focused);
void drawTextBox(const Canvas& canvas, const TextBox& box, const RECT& area, bool focused);
/// Where in the field its text stands.
[[nodiscard]] RECT textAreaOf(const RECT& field, int text_height, const Zoom& zoom);
void drawList(const Canvas& canvas, const DropDownList& list, const RECT& area, bool focused);
void drawOption(const Canvas& canvas, const OptionButton& option, const RECT& area, bool focused);

/// What surrounds a button or link that has the keys: the area of the control, or of the text in
/// it.
[[nodiscard]] RECT ringAround(const Canvas& canvas, const Control& control, const RECT& area);
void drawRing(const Canvas& canvas, const RECT& ring);

}  // namespace depcalc::native
