// Insight's page that explains the amount in view.
#pragma once

#include "desktop/workspace/insight_page.h"
#include "desktop/workspace/why_this_amount.h"

class QTextBrowser;

namespace depcalc::desktop {

/// A text to be read and selected, by mouse and keys.
class WhyPage : public InsightPage {
  Q_OBJECT

 public:
  explicit WhyPage(QWidget* parent = nullptr);

  [[nodiscard]] QString title() const override { return tr("Why this amount?"); }
  void follow(const InsightSubject& subject) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void showText();

  WhyThisAmount why_;
  QTextBrowser* text_;
};

}  // namespace depcalc::desktop
