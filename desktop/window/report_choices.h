// The bar above a report: what it is to be about, its paper, and its pages.
#pragma once

#include <QObject>
#include <vector>

#include "desktop/printing/pdf_printer.h"
#include "desktop/reports/report_desk.h"
#include "desktop/window/settings.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QToolButton;
class QWidget;

namespace depcalc::desktop {

/// Tells what the user chooses, and decides nothing. The paper is remembered in the settings.
class ReportChoices : public QObject {
  Q_OBJECT

 public:
  /// Fills `bar`, which is empty. Both live longer than this.
  ReportChoices(Settings& settings, QWidget& bar);

  // These tell nobody.

  /// Offers the fiscal years and the assets of the desk's register.
  void offer(const ReportDesk& desk);
  /// Only what the desk's kind of report asks for is to be seen.
  void showAsked(const ReportDesk& desk);
  /// Page `page`, from 0, of so many.
  void showPage(int page, int count);
  /// Another paper may be preferred now. Returns whether it is.
  bool followPaper();

  [[nodiscard]] PdfPaper paper() const;

 signals:
  void yearChosen(int year);
  /// By its number, from 1.
  void assetChosen(std::int32_t asset);
  void groupingChosen(depcalc::Grouping grouping);
  void paperChosen();
  /// Forward or back, by so many.
  void pageTurned(int pages);

 private:
  struct Choice {
    QLabel* label = nullptr;
    QComboBox* box = nullptr;

    void setVisible(bool visible) const;
  };

  Choice addChoice(QHBoxLayout& row, const QString& caption, const char* name,
                   void (ReportChoices::*chosen)(int));
  QToolButton* addTurn(QHBoxLayout& row, Qt::ArrowType arrow, const QString& name, int pages);

  void chooseYear(int index);
  void chooseAsset(int index);
  void chooseGrouping(int index);
  void choosePaper(int index);

  Settings& settings_;
  QWidget& bar_;
  Choice year_;
  Choice asset_;
  Choice grouping_;
  Choice paper_;
  QToolButton* back_ = nullptr;
  QLabel* page_ = nullptr;
  QToolButton* forward_ = nullptr;
  std::vector<int> years_;  ///< that are offered
};

}  // namespace depcalc::desktop
