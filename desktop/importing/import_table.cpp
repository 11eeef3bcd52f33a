#include "desktop/importing/import_table.h"

#include <QHeaderView>

namespace depcalc::desktop {

QTableView* makeImportTable(QAbstractItemModel& model, const char* name,
                            const QString& accessible_name, QWidget* parent) {
  auto* const view = new QTableView(parent);
  view->setObjectName(QLatin1String(name));
  view->setAccessibleName(accessible_name);
  view->setModel(&model);
  view->setTabKeyNavigation(false);
  view->setSelectionMode(QAbstractItemView::SingleSelection);
  view->setWordWrap(false);
  view->horizontalHeader()->setHighlightSections(false);
  view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() * 7 / 4);
  return view;
}

}  // namespace depcalc::desktop
