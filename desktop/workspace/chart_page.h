// Insight's page with the chart, and what can be done with it.
#pragma once

#include "desktop/workspace/chart_canvas.h"
#include "desktop/workspace/insight_page.h"

class QAction;
class QPushButton;

namespace depcalc::desktop {

/// A picture to be written to a file.
struct ChartFile {
  QString name;    ///< proposed, with its suffix
  QString filter;  ///< of the dialog
  QString suffix;
  QByteArray content;
};

class ChartPage : public InsightPage {
  Q_OBJECT

 public:
  explicit ChartPage(QWidget* parent = nullptr);

  [[nodiscard]] QString title() const override { return tr("Chart"); }
  void follow(const InsightSubject& subject) override;

 signals:
  void saveWanted(const ChartFile& file);

 private:
  /// On the menu of the chart, too.
  void addButton(const QString& text, const char* name, void (ChartPage::*act)());
  void copyPicture();
  void copyTable();
  void saveSvg();
  void savePng();
  void enable();

  ChartCanvas* canvas_;
  QList<QPushButton*> buttons_;
  QList<QAction*> actions_;
};

}  // namespace depcalc::desktop
