// How a control looks, as text.
#pragma once

#include <ostream>

#include "controls/user_control.h"

namespace depcalc::drive {

/// A line for each control of a screen, shown or not, in tab order: "NAME: " and its place (left,
/// top, width, height, in twips), "hidden", colours (text on background, as red, green and blue)
/// and, where they are not what most have, font, alignment, letter, role, target and picture.
void printControls(std::ostream& out, const UserControl& screen);

}  // namespace depcalc::drive
