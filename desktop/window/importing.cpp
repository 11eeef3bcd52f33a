#include "desktop/window/importing.h"

#include <QFileInfo>

#include "desktop/importing/import_dialog.h"
#include "desktop/window/failure_telling.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/file_to_import.h"
#include "importing/asset_saving.h"

namespace depcalc::desktop {
namespace {

QString importableFiles() {
  return QObject::tr("Lists of assets (*.csv *.txt *.tsv *.tab *.xlsx);;All files (*)");
}

}  // namespace

void Importing::ask() {
  const QString path = askFileToOpen(
      &around_.window,
      {.title = QObject::tr("Import"), .filter = importableFiles(), .proposed = around_.folder()});
  if (!path.isEmpty()) importFile(path);
}

/// What it holds; null where it cannot be read, or holds no list, and the user was told.
std::unique_ptr<AssetImport> Importing::read(const QString& path) {
  // Closing the company's own file would give back the locks on it.
  if (around_.is_open(path)) {
    around_.failures.tell(
        QObject::tr("%1 is the company that is open.").arg(QFileInfo(path).fileName()));
    return nullptr;
  }
  CompanyAssets assets(around_.application.CompanyFile(), around_.today());
  auto found = readFileToImport(path, assets, around_.settings);
  if (const auto* refusal = std::get_if<QString>(&found)) {
    around_.failures.tell(*refusal);
    return nullptr;
  }
  return std::get<std::unique_ptr<AssetImport>>(std::move(found));
}

/// Unsaved changes are asked about first, as the calculator starts anew afterwards.
void Importing::importFile(const QString& path) {
  if (!around_.may_leave()) return;
  const auto import = read(path);
  bool accepted = false;
  if (import != nullptr) {
    ImportDialog dialog(*import, QFileInfo(path).fileName(), &around_.window);
    accepted = dialog.exec() == QDialog::Accepted;
  }
  accepted ? save(*import) : around_.stay();
}

void Importing::save(const AssetImport& import) {
  rememberColumns(import, around_.settings);
  CompanyAssets assets(around_.application.CompanyFile(), around_.today());
  std::size_t saved = 0;
  const QString problem = around_.save(assets.assetCount() + 1, StepKind::imported, [&] {
    return saveAssets(assets, import.assets(), true, [&](std::size_t count) { saved = count; });
  });
  if (problem.isEmpty()) {
    around_.note(saved == 1 ? QObject::tr("1 asset imported")
                            : QObject::tr("%L1 assets imported").arg(saved));
  } else {
    around_.failures.tellUnlessAsked(QObject::tr("Nothing was imported. %1").arg(problem));
  }
}

}  // namespace depcalc::desktop
