// Any bytes as a file to import: they are read to their end, nothing beyond the limits is kept, and
// what is ready follows the form's rules.
#include <cstdint>
#include <string>

#include "importing/asset_import.h"
#include "tests/fuzz/property.h"

namespace depcalc {
namespace {

void checkAll(AssetImport& import) {
  while (import.goOn(3)) {
  }
  mustHold(import.isDone() && import.done() == 1, "a file has an end");
  mustHold(import.header().size() == import.settings().uses.size(), "every column has a use");
  const ImportCounts& counts = import.counts();
  mustHold(
      counts.ready + counts.problems + counts.duplicates + counts.left_out == import.rowCount(),
      "every row is counted once");
  mustHold(import.inOrder(RowFilter::all).size() == import.rowCount(), "every row is shown");
  const auto assets = import.assets();
  mustHold(assets.size() == counts.ready, "what is ready is imported");
  for (const CalculateDepPtr& asset : assets) {
    mustHold(!asset->AssetStartDate().isNone(), "an asset has a date");
    mustHold(asset->DepRecovery() >= 0 && asset->DepRecovery() <= 50, "a life is in its range");
    mustHold(asset->AssetBasis() >= Currency(), "a basis is in its range");
  }
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace depcalc;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  AssetImport import(bytes, {Date::strict(2024, 6, 15), Date::strict(2024, 12, 31), 0}, {}, {});
  checkAll(import);
  for (std::size_t c = 0; c < import.settings().uses.size() && c < 4; ++c) {
    constexpr AssetColumn columns[] = {AssetColumn::placed_in_service, AssetColumn::life,
                                       AssetColumn::basis, AssetColumn::id};
    import.setUse(c, columns[c]);
  }
  import.setDates(DateOrder::day_month_year);
  import.setDecimal(DecimalSign::comma);
  checkAll(import);
  if (import.rowCount() > 0) import.edit(0, AssetColumn::life, "5");
  import.setSeparator(';');
  checkAll(import);
  import.setHeaderRow(0);
  import.setEncoding(Encoding::windows_1252);
  checkAll(import);
  return 0;
}
