// The way from a window or a box to its page in the guide.
#pragma once

#include <string_view>

class QDialog;
class QString;
class QWidget;

namespace depcalc::desktop {

/// Who can open the guide: a window that the asking one belongs to, near or far.
class GuideReader {
 public:
  virtual ~GuideReader() = default;

  /// `page` is a file of the guide, with the place on it: "backups.html#restore".
  virtual void openGuide(const QString& page) = 0;
};

/// F1 anywhere in `window` opens that page; `page` must last.
void addGuideKey(QWidget& window, std::string_view page);

/// The same, and a Help button among the dialog's buttons; comes when they are there.
void addGuideHelp(QDialog& dialog, std::string_view page);

/// The page that was given to `window`, or to the nearest one that it belongs to; "" for none.
[[nodiscard]] QString guidePageOf(const QWidget& window);

}  // namespace depcalc::desktop
