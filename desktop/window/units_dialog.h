// Asset > Units Produced.
#pragma once

#include <QDialog>
#include <map>

#include "changes/entering_units.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace depcalc::desktop {

/// What an asset by units of production has produced, a row for each fiscal year: the units can be
/// typed, the year's depreciation and what is left of the capacity follow. Can be accepted where
/// every text is units or empty.
class UnitsDialog : public QDialog {
  Q_OBJECT

 public:
  /// `through` is a fiscal year that is shown in any case; `note` says what the user should know
  /// beforehand.
  UnitsDialog(const SavedAsset& asset, int through, const QString& note, QWidget* parent);

  [[nodiscard]] const UnitsByYear& units() const { return units_; }

 private:
  void makeTable();
  void look();
  void setCell(int row, int column, const QString& text);

  SavedAsset asset_;
  int through_;
  QString beforehand_;
  UnitsByYear units_;
  QTableWidget* table_;
  QLabel* note_;
  QPushButton* save_;
};

}  // namespace depcalc::desktop
