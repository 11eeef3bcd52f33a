#include "desktop/window/file_to_write.h"

#include <QFileInfo>
#include <QMessageBox>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/file_names.h"
#include "desktop/window/warning_box.h"

namespace depcalc::desktop {

bool mayReplace(const QString& path, QWidget* window) {
  QMessageBox box(
      QMessageBox::Warning, QObject::tr("Replace File"),
      QObject::tr("%1 already exists. Do you want to replace it?").arg(QFileInfo(path).fileName()),
      QMessageBox::Yes | QMessageBox::No, window);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::No);
  addGuideKey(box, guide::exporting);
  tidyBox(box);
  return box.exec() == QMessageBox::Yes;
}

namespace {

/// By whatever names.
bool isSameFile(const QString& a, const QString& b) {
  const QString real = QFileInfo(a).canonicalFilePath();
  return !real.isEmpty() && real == QFileInfo(b).canonicalFilePath();
}

}  // namespace

QString askFileToWrite(QWidget* window, FileQuestion question, const QString& suffix,
                       const QString& never) {
  for (;;) {
    QString path = askFileToSave(window, question);
    if (path.isEmpty()) return {};
    path = withSuffix(path, suffix);
    question.proposed = path;
    if (const QString trouble = folderTrouble(path); !trouble.isEmpty()) {
      warn(trouble, window);
    } else if (isSameFile(path, never)) {
      warn(QObject::tr("That is the company's own file. Choose another name."), window);
    } else if (!QFileInfo::exists(path) || mayReplace(path, window)) {
      return path;
    }
  }
}

}  // namespace depcalc::desktop
