// The tables of the Import dialog.
#pragma once

#include <QTableView>

namespace depcalc::desktop {

/// A table whose Tab key leaves it.
QTableView* makeImportTable(QAbstractItemModel& model, const char* name,
                            const QString& accessible_name, QWidget* parent);

}  // namespace depcalc::desktop
