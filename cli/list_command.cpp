// depcalc list: the register's assets.
#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/options.h"
#include "cli/text_columns.h"
#include "engine/convention.h"
#include "entry/field_rules.h"
#include "importing/asset_columns.h"
#include "values/data_text.h"
#include "values/display_format.h"
#include "values/json_writer.h"
#include "values/number_text.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

bool isDisposed(const CalculateDep& asset) { return !asset.AssetEndDate().isNone(); }

/// What the columns of an asset file hold for `asset`, in their order, in the form that import
/// reads.
std::array<std::string, asset_column_names.size()> fileTexts(const CalculateDep& asset) {
  const Date start = asset.AssetStartDate();
  const Currency proceeds = Currency::fromText(asset.ASalePrice());
  return {asset.AssetID(),
          asset.AssetName(),
          asset.ASerial(),
          asset.ADept(),
          start.isNone() ? "" : start.toIsoText(),
          asset.FYEnd().toIsoText(),
          numberToText(asset.DepRecovery()),
          std::string(conventionName(asset.DepConvention())),
          asset.AssetBasis().toFixed4(),
          asset.AssetSalvage().toFixed4(),
          asset.AssetProdCap(),
          asset.DepMethod(),
          isDisposed(asset) ? asset.AssetEndDate().toIsoText() : "",
          isDisposed(asset) || proceeds != Currency() ? proceeds.toFixed4() : ""};
}

std::string csvRow(const std::array<std::string, asset_column_names.size()>& texts,
                   CsvFields fields) {
  std::string row;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    row += i == 0 ? "" : ",";
    row +=
        isTextColumn(static_cast<AssetColumn>(i)) ? fields.text(texts[i]) : fields.number(texts[i]);
  }
  return row + '\n';
}

// --- For people ----------------------------------------------------------------------------------

constexpr std::size_t usual_columns = 9;
constexpr std::array<std::string_view, 11> headings{"N",      "Asset ID", "Name",    "In service",
                                                    "Basis",  "Salvage",  "Life",    "Convention",
                                                    "Method", "Disposed", "Proceeds"};
constexpr std::array<bool, 11> is_number{true, false, false, false, true, true,
                                         true, false, false, false, true};
using Row = std::array<std::string, headings.size()>;

Row rowFor(std::int32_t number, const CalculateDep& asset) {
  const Date start = asset.AssetStartDate();
  return {std::to_string(number),
          printableText(asset.AssetID()),
          printableText(asset.AssetName()),
          start.isNone() ? "" : start.toText(),
          formatMoney(asset.AssetBasis()),
          formatMoney(asset.AssetSalvage()),
          numberToText(asset.DepRecovery()),
          std::string(conventionName(asset.DepConvention())),
          printableText(asset.DepMethod()),
          isDisposed(asset) ? asset.AssetEndDate().toText() : "",
          isDisposed(asset) ? formatMoney(Currency::fromText(asset.ASalePrice())) : ""};
}

/// The first columns of `rows` and `is_number`.
void writeUsualColumns(const std::vector<Row>& rows, Output& out) {
  std::vector<std::array<std::string, usual_columns>> usual(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::copy_n(rows[i].begin(), usual_columns, usual[i].begin());
  }
  std::array<bool, usual_columns> numbers{};
  std::copy_n(is_number.begin(), usual_columns, numbers.begin());
  writeColumns(usual, numbers, out);
}

// --- The command ---------------------------------------------------------------------------------

class ListCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "list"; }

  [[nodiscard]] std::string_view summary() const override {
    return "List the assets of a company file";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc list workshop.company
      the assets and their numbers
  depcalc list --format csv old.company | depcalc import --allow-duplicates new.company -
      copy every asset to another company file
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareMore(Arguments& arguments) override {
    addFormatOption(arguments, format_);
    arguments.flag("--raw", raw_, "With csv: write text unchanged, for other programs");
    arguments.footer(
        R"(In csv, text that a spreadsheet would take for a formula (beginning with = + - @, a tab or a
carriage return) is preceded by an apostrophe, which import and schedule remove again.
With --raw it is not; import --raw reads such a file.

Exit status: 0 success, 1 the file is damaged, 2 wrong usage, 3 it cannot be read,
4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    if (format_ == OutputFormat::csv) {
      listCsv(company, CsvFields(raw_), surroundings.out);
    } else if (format_ == OutputFormat::json) {
      listJson(company, surroundings.out);
    } else {
      listTable(company, surroundings.out);
    }
    return exit_success;
  }

  static void listCsv(Company& company, CsvFields fields, Output& out) {
    std::string header;
    for (const std::string_view column : asset_column_names) {
      header.append(header.empty() ? "" : ",").append(column);
    }
    out.write(header + '\n');
    const std::int32_t count = company.assetCount();
    for (std::int32_t i = 1; i <= count; ++i) {
      out.write(csvRow(fileTexts(*company.asset(i)), fields));
    }
  }

  static void listJson(Company& company, Output& out) {
    const std::int32_t count = company.assetCount();
    JsonWriter json;
    json.beginArray(JsonWriter::Layout::below);
    for (std::int32_t i = 1; i <= count; ++i) {
      const auto texts = fileTexts(*company.asset(i));
      json.beginObject().name("n").number(i);
      for (std::size_t column = 0; column < texts.size(); ++column) {
        json.name(asset_column_names[column]).text(texts[column]);
      }
      json.endObject();
      out.write(json.take());
    }
    json.endArray();
    out.write(json.take());
  }

  static void listTable(Company& company, Output& out) {
    const std::int32_t count = company.assetCount();
    std::vector<Row> rows(1);
    for (std::size_t i = 0; i < headings.size(); ++i) rows.front()[i] = headings[i];
    bool any_disposed = false;
    for (std::int32_t i = 1; i <= count; ++i) {
      const CalculateDepPtr asset = company.asset(i);
      any_disposed = any_disposed || isDisposed(*asset);
      rows.push_back(rowFor(i, *asset));
    }
    any_disposed ? writeColumns(rows, is_number, out) : writeUsualColumns(rows, out);
  }

  OutputFormat format_ = OutputFormat::table;
  bool raw_ = false;
};

}  // namespace

std::unique_ptr<Command> listCommand() { return std::make_unique<ListCommand>(); }

}  // namespace depcalc
