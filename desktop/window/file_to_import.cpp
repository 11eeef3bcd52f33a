#include "desktop/window/file_to_import.h"

#include <QFile>
#include <QFileInfo>
#include <optional>
#include <string>
#include <vector>

#include "common/trapped.h"
#include "desktop/widgets/text_block.h"
#include "importing/import_file.h"
#include "importing/workbook/workbook.h"

namespace depcalc::desktop {
namespace {

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

/// The bytes of a text file, or the table of a workbook.
using FileContent = std::variant<std::string, FileTable>;

/// What is in the file, or why that cannot be imported.
std::variant<FileContent, QString> contentOfFile(const QString& path) {
  const QString name = QFileInfo(path).fileName();
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return QObject::tr("%1 cannot be read: %2").arg(name, file.errorString());
  }
  std::string bytes = file.read(static_cast<qint64>(most_import_bytes) + 1).toStdString();
  std::variant<FileTable, std::string> table = whyNotImportable(bytes);
  const bool workbook = looksLikeWorkbook(bytes) && std::get<std::string>(table).empty();
  if (workbook) table = tableOfWorkbook(path.toStdString(), AssetImport::most_rows);
  const auto* refusal = std::get_if<std::string>(&table);
  if (refusal != nullptr && (!refusal->empty() || file.error() != QFileDevice::NoError)) {
    return QObject::tr("%1 cannot be imported. %2")
        .arg(name, refusal->empty() ? file.errorString() : qtText(*refusal));
  }
  if (workbook) return FileContent(std::get<FileTable>(std::move(table)));
  return FileContent(std::move(bytes));
}

}  // namespace

std::variant<std::unique_ptr<AssetImport>, QString> readFileToImport(const QString& path,
                                                                     CompanyAssets& assets,
                                                                     const Settings& settings) {
  auto found = contentOfFile(path);
  if (const auto* refusal = std::get_if<QString>(&found)) return *refusal;
  const auto recall = [&settings](const std::vector<std::string>& header) {
    return rememberedUses(settings, header);
  };
  std::unique_ptr<AssetImport> import;
  const bool read = trapped("DepCalcDesktop::importFile", [&] {
    const ImportingCompany into{assets.today(), assets.fiscalYearEnd(),
                                static_cast<std::size_t>(assets.assetCount())};
    std::visit(
        [&](auto& content) {
          import =
              std::make_unique<AssetImport>(std::move(content), into, Duplicates(assets), recall);
        },
        std::get<FileContent>(found));
  });
  if (read) return import;
  return QObject::tr("The register could not be read. Nothing was imported.");
}

void rememberColumns(const AssetImport& import, Settings& settings) {
  QStringList uses;
  for (const ColumnUse& use : import.settings().uses) uses << qtText(nameOfUse(use));
  settings.setImportColumns(qtTexts(import.header()), uses);
}

}  // namespace depcalc::desktop
