// What a help popup asks of the container.
#pragma once

#include <string>

namespace depcalc {

class DepCalcPopupEvents {
 public:
  virtual ~DepCalcPopupEvents() = default;

  /// The user closed the popup.
  virtual void CloseMe() = 0;
  /// The popup is being shown: which topic?
  virtual void GetHelpTopic(std::string& myHelpTopic) = 0;
  /// The popup has taken the size of its text.
  virtual void ResizedDisplay() = 0;
  /// A link was clicked.
  virtual void OpenNewMe(const std::string& myHelpTopic) = 0;
  /// The user turned to the popup, which ought to come to the front.
  virtual void FrontMe() = 0;
};

}  // namespace depcalc
