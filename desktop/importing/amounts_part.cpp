#include "desktop/importing/amounts_part.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include "desktop/importing/amounts_model.h"
#include "desktop/importing/import_table.h"

namespace depcalc::desktop {

AmountsPart::AmountsPart(QWidget* parent) : QWidget(parent), amounts_(new AmountsModel(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel(tr("&Amounts of the selected row"), this);
  QTableView* const view =
      makeImportTable(*amounts_, "Amounts", tr("Amounts in the file and as calculated"), this);
  // Its three rows, and the bar below where there are many years.
  const int rows = view->verticalHeader()->defaultSectionSize() * 3;
  view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view->setFixedHeight(rows + view->horizontalHeader()->sizeHint().height() +
                       view->horizontalScrollBar()->sizeHint().height() + view->frameWidth() * 2 +
                       fontMetrics().height() / 2);
  label->setBuddy(view);
  layout->addWidget(label);
  layout->addWidget(view);
  hide();
}

void AmountsPart::showAmounts(std::vector<ComparedAmount> amounts) {
  amounts_->show(std::move(amounts));
}

}  // namespace depcalc::desktop
