#include "help/dep_calc_popup.h"

#include <algorithm>

#include "common/trapped.h"
#include "controls/colour_scheme.h"
#include "help/help_topics.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

// Twips. Everything else follows from the texts.
constexpr int margin = 120;
constexpr int title_top = 75;
constexpr int body_top = 525;
constexpr int widest_body = DepCalcPopup::greatest_width - 2 * margin;
constexpr int close_size = 195;
constexpr double title_points = 9;
constexpr double body_points = 9;

}  // namespace

DepCalcPopup::DepCalcPopup(UserControl& parent, std::string name, DepCalcPopupEvents& events)
    : UserControl(parent, std::move(name)),
      events_(events),
      pixel_(toLong32HalfEven(site().twipsPerPixel())) {
  SetupPalette();
  setBackColour(scheme::white);
  BorderShape.setForeColour(scheme::dark_red);
  BorderShape.setBackColour(scheme::white);

  HelpTitle.setRole(LabelRole::title);
  HelpTitle.setFont({title_points, true});
  HelpTitle.setForeColour(scheme::dark_red);
  HelpTitle.setAutoSize(true);
  HelpTitle.setPosition(margin, title_top);
  HelpLabel.setFont({body_points});
  HelpLabel.setPlace({margin, body_top, widest_body, 0});
  HelpLabel.setWordWrap(true);
  HelpLabel.setAutoSize(true);
  for (std::size_t i = 0; i < link_count; ++i) {
    Label& link = LinkLabel[i];
    link.setRole(LabelRole::link);
    link.setFont({body_points, false, true});
    link.setForeColour(scheme::dark_red);
    link.setAutoSize(true);
    link.setPosition(margin, body_top);
    link.hide();
    link.onClick = [this, i] { clickLink(i); };
  }
  CloseButton.setSize(close_size, close_size);
  CloseButton.setRole(ButtonRole::close);
  CloseButton.onClick = [this] { close(); };
}

void DepCalcPopup::AssignHelpTopic(std::string_view topic) {
  trapped("DepCalcPopup::AssignHelpTopic", [&] {
    const HelpTopic* const found = findHelpTopic(topic);
    if (found == nullptr) return;
    setTexts(found->title, found->body, topic == main_help_topic);
  });
}

void DepCalcPopup::setTexts(std::string_view title, std::string_view body, bool with_links) {
  const auto links = helpLinks();
  for (std::size_t i = 0; i < link_count; ++i) {
    const bool captioned = with_links && i < links.size();
    LinkLabel[i].setText(captioned ? std::string(links[i].caption) : std::string());
    LinkLabel[i].setVisible(with_links);
  }
  HelpTitle.setText(std::string(title));
  HelpLabel.setText(std::string(body));
  HelpLabel.setWidth(widthOf(HelpLabel));
}

/// As wide as the longest of the lines that the text is broken into; a pixel more, so that it is
/// broken at the same words again.
int DepCalcPopup::widthOf(const Label& body) const {
  if (body.text().empty()) return 0;
  const int longest = site().textExtent(body.text(), body.font(), widest_body).width;
  return std::min(widest_body, longest + pixel_);
}

void DepCalcPopup::Show() {
  shown_ = false;
  std::string topic;
  events_.GetHelpTopic(topic);
  AssignHelpTopic(topic);
}

void DepCalcPopup::Paint() {
  if (shown_) return;
  shown_ = true;
  sizeToContent();
}

void DepCalcPopup::Resize() {
  if (!sizing_) sizeToContent();
}

void DepCalcPopup::Activate() { events_.FrontMe(); }

void DepCalcPopup::close() {
  shown_ = false;
  events_.CloseMe();
  sizeToContent();
}

void DepCalcPopup::clickLink(std::size_t index) {
  if (!LinkLabel[index].visible() || index >= helpLinks().size()) return;
  events_.OpenNewMe(std::string(helpLinks()[index].topic));
}

void DepCalcPopup::DragDrop(Control& source, int x, int y) { source.setPosition(x, y); }

void DepCalcPopup::sizeToContent() {
  sizing_ = true;
  const bool has_links = std::any_of(LinkLabel.begin(), LinkLabel.end(),
                                     [](const Label& link) { return !link.text().empty(); });
  const int content_height = has_links ? placeLinks() : HelpLabel.height();
  setSize(contentRight() + margin, contentBottom(content_height) + margin);
  BorderShape.setPlace({pixel_, pixel_, width() - 2 * pixel_, height() - 2 * pixel_});
  CloseButton.setPosition(width() - margin - close_size, title_top);
  events_.ResizedDisplay();
  sizing_ = false;
}

/// Puts each link below the one before it, and returns the height that they count for.
int DepCalcPopup::placeLinks() {
  const int line = LinkLabel[0].height();
  int content_height = 0;
  for (std::size_t i = 0; i < link_count; ++i) {
    Label& link = LinkLabel[i];
    if (link.text().empty()) continue;
    content_height += link.height() + line / 4;
    if (i == 0) continue;
    link.setPosition(HelpLabel.left(), LinkLabel[i - 1].top() + link.height() + line / 2);
  }
  return content_height;
}

int DepCalcPopup::contentBottom(int content_height) const {
  int bottom = HelpLabel.top() + content_height;
  // The gaps between links are wider than what they count for.
  for (const Label& link : LinkLabel) {
    if (!link.text().empty()) bottom = std::max(bottom, link.top() + link.height());
  }
  return bottom;
}

int DepCalcPopup::contentRight() const {
  const int title_right = HelpTitle.left() + HelpTitle.width() + margin + close_size;
  int right = std::max(title_right, HelpLabel.left() + HelpLabel.width());
  for (const Label& link : LinkLabel) right = std::max(right, link.left() + link.width());
  return right;
}

}  // namespace depcalc
