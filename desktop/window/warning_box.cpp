#include "desktop/window/warning_box.h"

#include <QMessageBox>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"

namespace depcalc::desktop {

void warn(const QString& text, QWidget* window) {
  QMessageBox box(QMessageBox::Warning, QObject::tr("Depreciation Calculator"), text,
                  QMessageBox::Ok, window);
  box.setTextFormat(Qt::PlainText);
  addGuideKey(box, guide::contents);
  tidyBox(box);
  box.exec();
}

}  // namespace depcalc::desktop
