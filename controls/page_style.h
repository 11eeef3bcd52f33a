// The looks that the calculator's pages share: a frame with two tabs above it.
#pragma once

#include "controls/label.h"
#include "controls/shape.h"

namespace depcalc::style {

// Twips.
inline constexpr int page_width = 13500;
inline constexpr int frame_left = 570;
inline constexpr int frame_top = 540;
inline constexpr int frame_width = 12360;
inline constexpr int inner_left = 870;  ///< where a page's contents start
inline constexpr int inner_right = 12750;
inline constexpr int button_height = 420;

inline constexpr double body_points = 9;
inline constexpr double title_points = 13;

/// A label in the frame: dark red on cream.
void caption(Label& label);
/// The same, underlined as a sign that a click opens help.
void helpLink(Label& label);
/// The same, for the whole page.
void pageHelp(Label& label);
void title(Label& label);
/// The tab of the page that shows: cream on dark red; of another page: dark red on tan.
void currentTab(Label& label);
void otherTab(Label& label);
void frame(Shape& shape, int height);

// The places of what every page has.
inline constexpr Place calculate_tab{750, 150, 2700, 390};
inline constexpr Place view_all_tab{3540, 150, 2700, 390};
inline constexpr Place page_help{9855, 240, 3000, 240};
inline constexpr Place page_title{inner_left, 750, 8400, 330};
inline constexpr Place page_step{10950, 780, 1800, 240};

}  // namespace depcalc::style
