#include "desktop/importing/import_captions.h"

#include <QCoreApplication>
#include <QStringList>

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("Import", text); }

void addFindings(QStringList& texts, const std::vector<RowFinding>& findings) {
  for (const RowFinding& finding : findings) {
    const QString message = qtText(finding.message);
    texts << (finding.column ? tr("%1: %2").arg(captionOf(*finding.column), message) : message);
  }
}

}  // namespace

QString captionOf(AssetColumn column) {
  switch (column) {
    case AssetColumn::id:
      return tr("Asset ID");
    case AssetColumn::name:
      return tr("Name");
    case AssetColumn::serial:
      return tr("Serial number");
    case AssetColumn::department:
      return tr("Dept/Location");
    case AssetColumn::placed_in_service:
      return tr("Placed in service");
    case AssetColumn::fiscal_year_end:
      return tr("Fiscal year end");
    case AssetColumn::life:
      return tr("Useful life");
    case AssetColumn::convention:
      return tr("Convention");
    case AssetColumn::basis:
      return tr("Basis");
    case AssetColumn::salvage:
      return tr("Salvage value");
    case AssetColumn::capacity:
      return tr("Production capacity");
    case AssetColumn::method:
      return tr("Method");
    case AssetColumn::disposed:
      return tr("Disposed");
    case AssetColumn::proceeds:
      return tr("Proceeds");
  }
  return {};
}

QString captionOf(const ColumnUse& use) {
  if (const auto* column = std::get_if<AssetColumn>(&use)) return captionOf(*column);
  const auto* amount = std::get_if<AmountOfYear>(&use);
  return amount == nullptr ? tr("Not used") : tr("Amount of FY%1").arg(amount->year);
}

QString remarkOn(const AssetImport& import, std::size_t row) {
  const ImportRow& judged = import.row(row);
  if (judged.isLeftOut()) return tr("Left out");
  QStringList texts;
  addFindings(texts, judged.problems);
  addFindings(texts, judged.duplicates);
  if (judged.differences > 0) {
    texts << (judged.differences == 1
                  ? tr("One amount differs from the file's.")
                  : tr("%1 amounts differ from the file's.").arg(judged.differences));
  }
  if (judged.distant && judged.problems.empty()) {
    texts << tr("More than 50 years from today: please check the date.");
  }
  return texts.isEmpty() ? tr("Ready") : texts.join(QStringLiteral(" "));
}

}  // namespace depcalc::desktop
