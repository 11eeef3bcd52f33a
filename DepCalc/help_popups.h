// The two help popups and where they stand.
#pragma once

#include <functional>
#include <string>

#include "DepCalc/screen_maker.h"

namespace depcalc {

/// The first popup opens on the topic that a screen asks for, the second on a link in the first.
class HelpPopups {
 public:
  /// In twips, `form_width` answers the width of the entry form, beside which popups stand, and
  /// `comparison_height` the height of the comparison screen, by which the topic "Total" is placed.
  HelpPopups(UserControl& container, ScreenMaker& screens, std::function<int()> form_width,
             std::function<int()> comparison_height);

  /// Opens the first popup on a topic, where it stands until it has taken its size.
  void openFromForm(const std::string& topic);        ///< entry form, register, container
  void openFromComparison(const std::string& topic);  ///< "Total" at the bottom edge

  [[nodiscard]] const std::string& HelpTopic() const { return HelpTopic_; }

 private:
  class First;
  class Second;

  struct Popup {
    std::unique_ptr<DepCalcPopupEvents> events;
    ScreenMaker::Screen screen;
  };

  void open(const std::string& topic, const std::function<int()>& top);
  [[nodiscard]] int atBottomEdge() const;
  [[nodiscard]] int besideForm() const;
  [[nodiscard]] int topFor(const std::string& topic) const;
  void placeFirst();
  void placeSecond();
  void openLink(const std::string& topic);

  std::string HelpTopic_;
  UserControl& container_;
  std::function<int()> form_width_;
  std::function<int()> comparison_height_;
  Popup first_;
  Popup second_;
};

}  // namespace depcalc
