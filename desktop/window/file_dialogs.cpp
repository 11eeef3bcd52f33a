#include "desktop/window/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"

namespace depcalc::desktop {
namespace {

/// Asked on a thread of the dialog's own.
class IconsByName final : public QFileIconProvider {
 public:
  [[nodiscard]] QIcon icon(IconType type) const override {
    return type == File ? file_ : QFileIconProvider::icon(type);
  }
  [[nodiscard]] QIcon icon(const QFileInfo& info) const override {
    return info.isDir() ? folder_ : file_;
  }
  [[nodiscard]] QString type(const QFileInfo& info) const override {
    if (info.isDir()) return QObject::tr("Folder");
    if (info.fileName().endsWith(QStringLiteral(".company"))) return QObject::tr("Company file");
    if (info.fileName().endsWith(QStringLiteral(".pdf"))) return QObject::tr("PDF document");
    return QObject::tr("File");
  }

 private:
  QIcon file_ = QFileIconProvider::icon(File);
  QIcon folder_ = QFileIconProvider::icon(Folder);
};

QString answerOf(QWidget* window, const FileQuestion& question,
                 const std::function<void(QFileDialog&)>& prepare) {
  IconsByName icons;
  // A dialog lists its first folder before it can be told how: that one is empty.
  const QTemporaryDir empty;
  QFileDialog dialog(window, question.title, empty.path(), question.filter);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
  dialog.setIconProvider(&icons);
  const QFileInfo proposed(question.proposed.isEmpty() ? QDir::currentPath() : question.proposed);
  const bool is_folder = proposed.isDir();
  dialog.setDirectory(is_folder ? proposed.absoluteFilePath() : proposed.absolutePath());
  prepare(dialog);
  if (!is_folder) dialog.selectFile(proposed.fileName());
  addGuideKey(dialog, question.page);
  dropButtonIcons(dialog);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

QString askFileToOpen(QWidget* window, const FileQuestion& question) {
  return answerOf(window, question, [](QFileDialog& dialog) {
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
  });
}

QString askFileToSave(QWidget* window, const FileQuestion& question) {
  return answerOf(window, question, [](QFileDialog& dialog) {
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
  });
}

}  // namespace depcalc::desktop
