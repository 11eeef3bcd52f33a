// How the register's table is filled.
#include <algorithm>
#include <string>
#include <string_view>

#include "common/trapped.h"
#include "engine/convention.h"
#include "engine/first_fiscal_year.h"
#include "engine/method.h"
#include "register/dep_calc_view.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

enum FieldRow : int {
  row_id,
  row_name,
  row_serial,
  row_department,
  row_placed_in_service,
  row_basis,
  row_salvage,
  row_depreciation_basis,
  row_convention,
  row_life,
  row_method,
  row_rate,
};
static_assert(row_rate + 1 == DepCalcView::first_year_row);

/// What the cells of an asset are in a row of the register.
constexpr CellKind assetCell(int row) {
  if (row <= row_department) return CellKind::text;
  const bool money = row >= row_basis && row <= row_depreciation_basis;
  return money || row >= row_rate ? CellKind::amount : CellKind::value;
}

std::string yearCaption(int year) { return "FY" + std::to_string(year); }

}  // namespace

void DepCalcView::SetupTable() {
  Grid& table = AssetViewTable;
  NoAssetsLabel.hide();
  table.show();
  DeleteButton.setVisible(true);
  EditButton.setVisible(true);
  InstrLabel.show();
  // Where the fill ends early, nothing of an earlier one may stand under other years' captions.
  table.setColumns(1);
  table.setColumns(myNumAssets + 1);
  table.setRows(toLong32HalfEven(myNumYrs + (first_year_row + 1)));
  table.setTopRow(0);
  table.setLeftColumn(0);
  const int last_caption = std::min(toLong32HalfEven(myNumYrs), table.rows() - 1 - first_year_row);
  for (int k = 0; k <= last_caption; ++k) {
    table.setText(first_year_row + k, 0, yearCaption(myStartYr + k));
  }
  for (int row = 0; row < table.rows(); ++row) {
    table.setKind(row, 0, CellKind::caption);
    // A print run that failed may have left it collapsed.
    table.setRowHeight(row, least_row_height);
  }
  for (int column = 1; column < table.columns(); ++column) {
    table.setColumnWidth(column, asset_width);
    table.setColumnAlignment(column, CellAlignment::centerTop);
    for (int row = 0; row < table.rows(); ++row) table.setKind(row, column, assetCell(row));
  }
}

void DepCalcView::ShowNoAssets() {
  InstrLabel.hide();
  DeleteButton.setVisible(false);
  EditButton.setVisible(false);
  NoAssetsLabel.show();
  AssetViewTable.hide();
}

void DepCalcView::DisplayData() {
  trapped("DepCalcView::DisplayData", [this] {
    for (int i = 0; i < myNumAssets; ++i) {
      const CalculateDepPtr& asset = slot(i);
      if (asset == nullptr) throw RuntimeError::objectNotSet();
      fillColumn(i + 1, *asset);
    }
  });
}

void DepCalcView::fillColumn(int column, CalculateDep& asset) {
  fillFields(column, asset);
  const int rows_below = toLong32HalfEven(myNumYrs + 1);
  for (int k = 0; k <= rows_below; ++k) AssetViewTable.setText(row_rate + k, column, {});
  if (countsAsUnitsOfProduction(asset.DepMethod())) {
    const Currency rate = asset.DepItem(0);
    if (rate != Currency()) AssetViewTable.setText(row_rate, column, formatRate(rate));
    return;
  }
  fillYears(column, asset);
}

void DepCalcView::fillFields(int column, const CalculateDep& asset) {
  const auto set = [&](int row, std::string_view text) {
    AssetViewTable.setText(row, column, text);
  };
  set(row_id, asset.AssetID());
  set(row_name, asset.AssetName());
  set(row_serial, asset.ASerial());
  set(row_department, asset.ADept());
  for (int row = row_id; row <= row_department; ++row) {
    AssetViewTable.setAlignment(row, column, CellAlignment::leftBottom);
  }
  const Date start = asset.AssetStartDate();
  set(row_placed_in_service, start.isNone() ? std::string() : start.toText());
  set(row_basis, formatMoney(asset.AssetBasis()));
  set(row_salvage, formatMoney(asset.AssetSalvage()));
  set(row_depreciation_basis, formatMoney(asset.AssetBasis() - asset.AssetSalvage()));
  set(row_convention, conventionName(asset.DepConvention()));
  set(row_life, numberToText(asset.DepRecovery()));
  set(row_method, asset.DepMethod());
}

void DepCalcView::fillYears(int column, CalculateDep& asset) {
  const int offset = firstFiscalYearStrict(asset.AssetStartDate(), asset.FYEnd()) - myStartYr;
  if (offset < 0) return;
  AssetViewTable.setText(row_rate, column, {});  // by definition, without effect: it is empty
  // The last year row stays empty when the longest schedule decides how many there are.
  const int last = toLong32HalfEven(myNumYrs - (offset + 1));
  for (int k = 0; k <= last; ++k) {
    const Currency amount = asset.DepItem(toInteger16HalfEven(k));
    AssetViewTable.setText(first_year_row + offset + k, column,
                           amount == Currency() ? std::string() : formatMoney(amount));
  }
}

}  // namespace depcalc
