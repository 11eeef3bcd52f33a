// The hint below the page, for where the user is.
#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "desktop/guide/next_step.h"
#include "desktop/window/settings.h"

namespace depcalc::desktop {

class HintBar;
class Page;

/// Gives the hint that comes next, unless the user wants none, or not that one any more.
class Hints : public QObject {
  Q_OBJECT

 public:
  /// Where the user is; nothing while no calculator runs.
  using Where = std::function<std::optional<UserState>()>;

  /// Puts `page`, and the bar of the hints below it, into `both`. All of them live longer than
  /// this.
  Hints(Page& page, QWidget& both, Settings& settings, Where where);

  /// The user may be somewhere else now, or want other hints.
  void follow();
  /// The user wants to read about that.
  void openGuide();

 signals:
  void guideWanted(const QString& page);

 private:
  [[nodiscard]] bool isDismissed(Hint hint) const;

  Settings& settings_;
  Where where_;
  HintBar* bar_ = nullptr;
};

}  // namespace depcalc::desktop
