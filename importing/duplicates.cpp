#include "importing/duplicates.h"

#include "importing/asset_columns.h"

namespace depcalc {

Duplicates::Duplicates(CompanyAssets& company) {
  const std::int32_t count = company.assetCount();
  for (std::int32_t i = 1; i <= count; ++i) {
    const CalculateDepPtr asset = company.asset(i);
    add(register_, asset->AssetID(), asset->ASerial(), static_cast<std::size_t>(i));
  }
}

void Duplicates::add(Known& known, const std::string& id, const std::string& serial,
                     std::size_t owner) {
  if (!id.empty()) known.ids.emplace(id, owner);
  if (!serial.empty()) known.serials.emplace(serial, owner);
}

void Duplicates::add(const std::string& id, const std::string& serial, std::size_t line) {
  add(lines_, id, serial, line);
}

void Duplicates::forgetLines() { lines_ = {}; }

std::vector<RowProblem> Duplicates::problemsOf(const std::string& id, const std::string& serial,
                                               std::size_t line) const {
  std::vector<RowProblem> problems;
  const auto look = [&](Owners Known::*owners, const std::string& text, AssetColumn column,
                        const char* what) {
    if (text.empty()) return;
    const auto asset = (register_.*owners).find(text);
    const auto row = (lines_.*owners).find(text);
    std::string owner;
    if (asset != (register_.*owners).end()) {
      owner = "Asset " + std::to_string(asset->second) + " of the register";
    } else if (row != (lines_.*owners).end()) {
      owner = "Line " + std::to_string(row->second);
    } else {
      return;
    }
    problems.push_back(
        {line, std::string(nameOf(column)), owner + " already has this " + what + ".", text});
  };
  look(&Known::ids, id, AssetColumn::id, "ID");
  look(&Known::serials, serial, AssetColumn::serial, "serial number");
  return problems;
}

}  // namespace depcalc
