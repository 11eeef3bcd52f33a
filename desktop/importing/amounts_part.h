// The part of the Import dialog with the amounts of one row.
#pragma once

#include <QWidget>
#include <vector>

#include "importing/asset_import.h"

namespace depcalc::desktop {

class AmountsModel;

/// Those in the file beside those that are calculated. Hidden to begin with, as most files have
/// none.
class AmountsPart : public QWidget {
  Q_OBJECT

 public:
  explicit AmountsPart(QWidget* parent);

  /// None where no row of the file is selected.
  void showAmounts(std::vector<ComparedAmount> amounts);

 private:
  AmountsModel* amounts_;
};

}  // namespace depcalc::desktop
