// Company > Recalculate All Assets.
#pragma once

#include <QDialog>
#include <functional>

#include "DepCalc/recalculation.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableView;

namespace depcalc::desktop {

/// Lists the amounts that would change, before and after, and the assets that would be left as
/// they are. Accepted, the user wants `result()` saved.
class RecalculationDialog : public QDialog {
  Q_OBJECT

 public:
  struct Company {
    int other_fiscal_years = 0;  ///< assets with another fiscal-year end than the company's
    QString fiscal_year_end;     ///< "March 31"
  };
  using Calculate = std::function<Recalculation(FiscalYearEnds)>;

  /// `ends` is what the dialog begins with; where no asset has another fiscal year there is nothing
  /// to choose.
  RecalculationDialog(const Company& company, FiscalYearEnds ends, Calculate calculate,
                      QWidget* parent);

  [[nodiscard]] FiscalYearEnds ends() const;
  [[nodiscard]] const Recalculation& recalculation() const { return recalculation_; }

 private:
  void calculate();
  [[nodiscard]] QString summary() const;

  Company company_;
  Calculate calculate_;
  Recalculation recalculation_;
  QCheckBox* company_year_;
  QLabel* summary_;
  QTableView* changes_;
  QLabel* left_label_;
  QListWidget* left_;
  QLabel* note_;
  QPushButton* save_;
};

}  // namespace depcalc::desktop
