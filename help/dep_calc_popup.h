// The help popup.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "controls/label.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/user_control.h"
#include "help/dep_calc_popup_events.h"

namespace depcalc {

/// A floating panel that explains one topic: a title over a body, or, on the main page, over
/// links to further topics. Shown, it asks its container for the topic; painted for the first
/// time after that, it takes the size of its text.
class DepCalcPopup : public UserControl {
 public:
  static constexpr std::size_t link_count = 6;
  /// In twips; the catalogue has no title and no link so long that it would need more.
  static constexpr int greatest_width = 5240;

  DepCalcPopup(UserControl& parent, std::string name, DepCalcPopupEvents& events);

  /// Fills the popup from the catalogue. A topic that is not in it changes nothing.
  void AssignHelpTopic(std::string_view topic);

  /// `source` was dragged and dropped here: it moves to the point it was dropped at.
  void DragDrop(Control& source, int x, int y);

  Shape BorderShape{*this, "BorderShape"};
  Label HelpTitle{*this, "HelpTitle"};
  Label HelpLabel{*this, "HelpLabel"};
  std::array<Label, link_count> LinkLabel{{{*this, "LinkLabel(0)"},
                                           {*this, "LinkLabel(1)"},
                                           {*this, "LinkLabel(2)"},
                                           {*this, "LinkLabel(3)"},
                                           {*this, "LinkLabel(4)"},
                                           {*this, "LinkLabel(5)"}}};
  PictureButton CloseButton{*this, "CloseButton", "close", "Close"};

 private:
  void Show() override;
  void Paint() override;
  void Resize() override;
  void Activate() override;
  void close();
  void clickLink(std::size_t index);

  void setTexts(std::string_view title, std::string_view body, bool with_links);
  void sizeToContent();
  int placeLinks();
  [[nodiscard]] int widthOf(const Label& body) const;
  [[nodiscard]] int contentBottom(int content_height) const;
  [[nodiscard]] int contentRight() const;

  DepCalcPopupEvents& events_;
  int pixel_;           ///< twips
  bool shown_ = false;  ///< painted and sized since it was last shown
  bool sizing_ = false;
};

}  // namespace depcalc
