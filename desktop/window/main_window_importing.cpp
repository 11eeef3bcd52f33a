// Assets from a file into the register.
#include <QApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>

#include "common/trapped.h"
#include "desktop/importing/import_dialog.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/main_window.h"
#include "importing/asset_saving.h"
#include "importing/import_file.h"
#include "importing/workbook/workbook.h"

namespace depcalc::desktop {
namespace {

QString importableFiles() {
  return QObject::tr("Lists of assets (*.csv *.txt *.tsv *.tab *.xlsx);;All files (*)");
}

QStringList qtTexts(const std::vector<std::string>& texts) {
  QStringList all;
  for (const std::string& text : texts) all << qtText(text);
  return all;
}

/// What the columns of a file with this header were taken as when it was imported last.
std::optional<std::vector<ColumnUse>> rememberedUses(const Settings& settings,
                                                     const std::vector<std::string>& header) {
  const QStringList names = settings.importColumns(qtTexts(header));
  if (names.isEmpty()) return std::nullopt;
  std::vector<ColumnUse> uses;
  for (const QString& name : names) {
    uses.push_back(useNamed(name.toStdString()).value_or(ColumnUse()));
  }
  return uses;
}

/// The one file that is dragged over the window; "" where it is none, or more than one.
QString draggedFile(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

void MainWindow::askImport() {
  const QString path = askFileToOpen(
      this, {.title = tr("Import"), .filter = importableFiles(), .proposed = companyFolder()});
  if (!path.isEmpty()) importFile(path);
}

/// What it holds; null where it cannot be read, or holds no list, and the user was told.
std::unique_ptr<AssetImport> MainWindow::readFileToImport(const QString& path) {
  const QString name = QFileInfo(path).fileName();
  // Closing the company's own file would give back the locks on it.
  if (isOpen(path)) {
    tell(tr("%1 is the company that is open.").arg(name));
    return nullptr;
  }
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    tell(tr("%1 cannot be read: %2").arg(name, file.errorString()));
    return nullptr;
  }
  std::string bytes = file.read(static_cast<qint64>(most_import_bytes) + 1).toStdString();
  std::variant<FileTable, std::string> table = whyNotImportable(bytes);
  const bool workbook = looksLikeWorkbook(bytes) && std::get<std::string>(table).empty();
  if (workbook) table = tableOfWorkbook(path.toStdString(), AssetImport::most_rows);
  const auto* refusal = std::get_if<std::string>(&table);
  if (refusal != nullptr && (!refusal->empty() || file.error() != QFileDevice::NoError)) {
    tell(tr("%1 cannot be imported. %2")
             .arg(name, refusal->empty() ? file.errorString() : qtText(*refusal)));
    return nullptr;
  }
  CompanyAssets assets(application_->CompanyFile(), around_.today());
  std::unique_ptr<AssetImport> import;
  const auto recall = [this](const std::vector<std::string>& header) {
    return rememberedUses(around_.settings, header);
  };
  const bool read = trapped("DepCalcDesktop::importFile", [&] {
    const ImportingCompany into{around_.today(), assets.fiscalYearEnd(),
                                static_cast<std::size_t>(assets.assetCount())};
    import = workbook ? std::make_unique<AssetImport>(std::get<FileTable>(std::move(table)), into,
                                                      Duplicates(assets), recall)
                      : std::make_unique<AssetImport>(std::move(bytes), into, Duplicates(assets),
                                                      recall);
  });
  if (read) return import;
  tell(tr("The register could not be read. Nothing was imported."));
  return nullptr;
}

/// Unsaved changes are asked about first, as the calculator starts anew afterwards.
void MainWindow::importFile(const QString& path) {
  if (calculator_ == nullptr || !mayLeave()) return;
  const auto import = readFileToImport(path);
  bool accepted = false;
  if (import != nullptr) {
    ImportDialog dialog(*import, QFileInfo(path).fileName(), this);
    accepted = dialog.exec() == QDialog::Accepted;
  }
  may_leave_ = may_leave_ && accepted;
  if (accepted) saveImported(*import);
}

void MainWindow::saveImported(const AssetImport& import) {
  QStringList uses;
  for (const ColumnUse& use : import.settings().uses) uses << qtText(nameOfUse(use));
  around_.settings.setImportColumns(qtTexts(import.header()), uses);
  endCalculator();
  CompanyAssets assets(application_->CompanyFile(), around_.today());
  const std::int32_t present = assets.assetCount();
  std::size_t saved = 0;
  const QString problem = problemOfSaving([&] {
    return asStep(StepKind::imported, [&] {
      return saveAssets(assets, import.assets(), true, [&](std::size_t count) { saved = count; });
    });
  });
  followCompany();
  noteChanges();
  startCalculator();
  if (calculator_ != nullptr) calculator_->selectAsset(present + 1);
  if (problem.isEmpty()) {
    note_label_->setText(saved == 1 ? tr("1 asset imported")
                                    : tr("%L1 assets imported").arg(saved));
  } else if (!told_) {
    tell(tr("Nothing was imported. %1").arg(problem));
  }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!import_->isEnabled() || draggedFile(*event->mimeData()).isEmpty()) return;
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

}  // namespace depcalc::desktop
