// A page of Insight.
#pragma once

#include <QWidget>

#include "desktop/workspace/insight_subject.h"

namespace depcalc::desktop {

/// Shows one thing about the asset and the amount in view.
class InsightPage : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// On its tab: "Why this amount?".
  [[nodiscard]] virtual QString title() const = 0;
  /// Called while the page is in front, with every change; and with the latest subject when it
  /// comes to the front. There may be nothing to show.
  virtual void follow(const InsightSubject& subject) = 0;
};

}  // namespace depcalc::desktop
