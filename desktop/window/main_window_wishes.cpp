// What the user can ask of the window itself.
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>

#include "DepCalc/recalculation.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/company_dialogs.h"
#include "desktop/window/company_info_dialog.h"
#include "desktop/window/file_names.h"
#include "desktop/window/help_boxes.h"
#include "desktop/window/hints.h"
#include "desktop/window/importing.h"
#include "desktop/window/main_menus.h"
#include "desktop/window/main_window.h"
#include "desktop/window/preferences_dialog.h"
#include "desktop/window/recalculating.h"
#include "desktop/window/reports_keeping.h"

namespace depcalc::desktop {
namespace {

/// The one file that is dragged over the window; "" where it is none, or more than one.
QString draggedFile(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

/// A copy that is the user's own, beside what is there already.
void MainWindow::openSampleCompany() {
  if (!mayLeave()) return;
  const QString folder = companies_->documents();
  QDir().mkpath(folder);
  const QString path = freePath(folder, tr("Sample Joinery"), QStringLiteral(".company"));
  if (!QFile::copy(around_.shared + QStringLiteral("/sample.company"), path)) {
    return tell(tr("The sample company could not be copied to %1.").arg(folder));
  }
  QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteOwner);
  around_.settings.addSample(path);
  openCompany(path);
}

void MainWindow::askCompanyInfo() {
  CompanyInfoDialog dialog(company()->info(), this);
  if (dialog.exec() == QDialog::Accepted) changeCompanyInfo(dialog.info());
}

void MainWindow::askPreferences() {
  PreferencesDialog dialog(around_.settings, this);
  connect(&dialog, &PreferencesDialog::appearanceChosen, this,
          [this](Appearance chosen) { appearances_.use(chosen); });
  connect(&dialog, &PreferencesDialog::zoomChosen, this, [this](int percent) {
    percent == 0 ? menus_->viewMenu().setFitWidth(true) : menus_->viewMenu().setZoom(percent);
  });
  connect(&dialog, &PreferencesDialog::paperChosen, reports_, &ReportsKeeping::followPaper);
  connect(&dialog, &PreferencesDialog::noticesChosen, hints_, &Hints::follow);
  dialog.exec();
}

void MainWindow::setZoom(int percent) { menus_->viewMenu().setZoom(percent); }

void MainWindow::showReports(ReportKind kind) { reports_->show(kind); }

void MainWindow::importFile(const QString& path) { importing_->importFile(path); }

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const bool can_import = menus_->offered().import->isEnabled();
  if (!can_import || draggedFile(*event->mimeData()).isEmpty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

/// Later: who dropped the file waits for the answer.
void MainWindow::dropEvent(QDropEvent* event) {
  const QString path = draggedFile(*event->mimeData());
  if (path.isEmpty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  QMetaObject::invokeMethod(
      this, [this, path] { importFile(path); }, Qt::QueuedConnection);
}

/// The keys stay in the list, for the next choice.
void MainWindow::selectAsset(std::int32_t number) {
  if (calculator_ == nullptr) return;
  const QPointer<QWidget> keys = QApplication::focusWidget();
  calculator_->selectAsset(number);
  if (keys != nullptr) keys->setFocus();
}

/// Where the user stays with the asset that is being entered, its form gets the keys.
void MainWindow::editAsset(std::int32_t number) {
  if (calculator_ == nullptr) return;
  if (!calculator_->goToRegister()) return page_->takeKeys();
  calculator_->selectAsset(number);
  if (calculator_->currentAsset() == number) menus_->assetMenu().item("edit")->trigger();
}

bool MainWindow::hasGuide() const { return guide_.isInstalled(); }

void MainWindow::openGuide(const QString& page) { guide_.open(page); }

/// Where the calculator explains nothing.
void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) return hints_->openGuide();
  QMainWindow::keyPressEvent(event);
}

/// Where no calculator could show a topic, a box does.
void MainWindow::showHelpTopic(int link) {
  if (calculator_ == nullptr) return showTopicInBox(link, this);
  link < 0 ? calculator_->showMainHelp() : calculator_->showHelpLink(link);
}

}  // namespace depcalc::desktop
