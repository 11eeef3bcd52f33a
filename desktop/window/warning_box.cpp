#include "desktop/window/warning_box.h"

#include <QMessageBox>

#include "desktop/widgets/dialog_looks.h"

namespace depcalc::desktop {

void warn(const QString& text, QWidget* window) {
  QMessageBox box(QMessageBox::Warning, QObject::tr("Depreciation Calculator"), text,
                  QMessageBox::Ok, window);
  box.setTextFormat(Qt::PlainText);
  tidyBox(box);
  box.exec();
}

}  // namespace depcalc::desktop
