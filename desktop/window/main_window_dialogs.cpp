#include <QApplication>
#include <QDir>
#include <QMessageBox>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/place.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/company_info_dialog.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/main_window.h"
#include "desktop/window/new_company_file.h"
#include "desktop/window/open_from_server_dialog.h"
#include "desktop/window/printing.h"
#include "desktop/window/warning_box.h"
#include "help/help_topics.h"

namespace depcalc::desktop {
/// What waits to be told would say it once more.
void MainWindow::tell(const QString& text) {
  to_tell_.clear();
  warn(text, this);
}

/// Where the user keeps companies.
QString MainWindow::companyFolder() const {
  const QString last = company() != nullptr ? companyPath() : around_.settings.recent().value(0);
  if (isOnServer(last)) return around_.documents.isEmpty() ? QDir::homePath() : around_.documents;
  return last.isEmpty() ? QString() : folderOf(last);
}

void MainWindow::askNewCompany() {
  const QString path = askNewCompanyFile(this, companyFolder());
  if (path.isEmpty()) return;
  CompanyInfo fresh;
  fresh.name = nameAt(path).toStdString();
  CompanyInfoDialog dialog(fresh, this);
  if (dialog.exec() == QDialog::Accepted) createCompany(path, dialog.info());
}

void MainWindow::askOpenCompany() {
  const QString path = askFileToOpen(
      this,
      {.title = tr("Open Company"), .filter = companyFileFilter(), .proposed = companyFolder()});
  if (!path.isEmpty()) openCompany(path);
}

void MainWindow::askOpenFromServer() {
  OpenFromServerDialog dialog(around_.files, around_.settings, companyPath(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  if (!dialog.wantsNew()) {
    openCompany(dialog.company());
    return;
  }
  CompanyInfo fresh;
  while (fresh.name.empty()) {
    CompanyInfoDialog info(fresh, this);
    if (info.exec() != QDialog::Accepted) return;
    fresh = info.info();
    if (fresh.name.empty()) tell(tr("Please enter a name. The server files the company under it."));
  }
  createCompany(dialog.addressOf(qtText(fresh.name)), fresh);
}

void MainWindow::showAbout() {
  QMessageBox box(QMessageBox::NoIcon, tr("About"),
                  tr("<h3>Depreciation Calculator %1</h3><p>Keeps a register of a business's "
                     "assets, compares four methods of depreciation side by side and prints the "
                     "schedule.</p>")
                      .arg(QApplication::applicationVersion()),
                  QMessageBox::Ok, this);
  addGuideKey(box, guide::contents);
  tidyBox(box);
  box.exec();
}

/// Where no calculator could show a topic, a box does.
void MainWindow::showHelpTopic(int link) {
  if (calculator_ != nullptr) {
    link < 0 ? calculator_->showMainHelp() : calculator_->showHelpLink(link);
    return;
  }
  if (link < 0) link = 0;
  const HelpTopic* const topic = findHelpTopic(helpLinks()[static_cast<std::size_t>(link)].topic);
  if (topic == nullptr) return;
  QMessageBox box(QMessageBox::NoIcon, qtText(topic->title), qtText(topic->body), QMessageBox::Ok,
                  this);
  box.setTextFormat(Qt::PlainText);
  addGuideKey(box, guide::contents);
  tidyBox(box);
  box.exec();
}

std::unique_ptr<Printer> MainWindow::systemPrinter() {
  return makeSystemPrinter({around_.settings.printer(), around_.settings.paperSize()}, this);
}

ScheduleJob MainWindow::jobOf(Calculator& calculator) {
  return {[&calculator](Printer& printer) { return calculator.missingOnPaper(printer); },
          [&calculator](Printer& printer) { calculator.print(printer); },
          [this] { showReports(ReportKind::years); }};
}

void MainWindow::print() {
  // The register as it is in the file, whatever screen shows.
  Calculator printed(site_, application_, view_menu_->scale(), Colours(palette()));
  printed.start();
  Settings& settings = around_.settings;
  const auto chosen =
      printThroughDialog({settings.printer(), settings.paperSize()}, jobOf(printed), this);
  if (!chosen) return;
  if (!chosen->printer.isEmpty()) settings.setPrinter(chosen->printer);
  if (chosen->paper) settings.setPaperSize(*chosen->paper);
}

void MainWindow::previewPrint() {
  Calculator printed(site_, application_, view_menu_->scale(), Colours(palette()));
  printed.start();
  showPrintPreview(around_.settings.paperSize(), jobOf(printed), this);
}

}  // namespace depcalc::desktop
