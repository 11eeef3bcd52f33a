// Insight: pages about the asset in view, beside the calculator's page.
#pragma once

#include <QWidget>

#include "desktop/workspace/insight_page.h"

class QTabWidget;

namespace depcalc::desktop {

/// Only the page in front hears of what is in view.
class InsightPanel : public QWidget {
  Q_OBJECT

 public:
  explicit InsightPanel(QWidget* parent = nullptr);

  /// Takes the page; its tab comes behind the others.
  void addPage(InsightPage* page);
  [[nodiscard]] bool hasPages() const;
  [[nodiscard]] InsightPage* current() const;
  /// The page of this title comes to the front, where there is one.
  void choose(const QString& title);

  /// The tabs get the keys.
  void takeKeys();

  /// Hears of the same subject once.
  void follow(const InsightSubject& subject);

 signals:
  /// "Insight: TRK-014 Delivery truck".
  void titled(const QString& title);

 protected:
  bool focusNextPrevChild(bool next) override;

 private:
  void showCurrent();

  QTabWidget* pages_;
  InsightSubject subject_;
};

}  // namespace depcalc::desktop
