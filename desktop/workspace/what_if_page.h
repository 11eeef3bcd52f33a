// Insight's page with the asset by other values.
#pragma once

#include "desktop/workspace/insight_page.h"
#include "desktop/workspace/what_if_model.h"

class QLabel;
class QPushButton;
class QTableView;

namespace depcalc::desktop {

class WhatIfPage : public InsightPage {
  Q_OBJECT

 public:
  explicit WhatIfPage(QWidget* parent = nullptr);

  [[nodiscard]] QString title() const override { return tr("What if"); }
  void follow(const InsightSubject& subject) override;

 signals:
  /// The user wants this row's value in the form.
  void used(const depcalc::desktop::InsightSubject& subject, const depcalc::WhatIfRow& row);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void enable();
  void use();
  [[nodiscard]] const WhatIfRow* chosen() const;

  InsightSubject subject_;
  WhatIfModel model_;
  QLabel* note_;
  QTableView* table_;
  QPushButton* use_;
};

}  // namespace depcalc::desktop
