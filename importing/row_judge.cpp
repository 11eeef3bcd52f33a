#include "importing/row_judge.h"

#include <algorithm>

#include "common/report_error.h"
#include "engine/convention.h"
#include "engine/method.h"
#include "reports/todays_calculation.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

/// No number and no date in any country.
constexpr std::string_view unreadable = "?";

std::string orUnreadable(std::optional<std::string> text) {
  return text ? std::move(*text) : std::string(unreadable);
}

/// A name in words as the code that files of ours have; every other text stays.
std::string methodFrom(std::string_view text) {
  constexpr std::array<std::string_view, 4> straight{"linear", "lineare", "lineaire", "lineal"};
  const std::string plain = plainLetters(text);
  for (const Method& method : methods) {
    if (plainLetters(method.name) == plain) return std::string(method.code);
  }
  if (std::find(straight.begin(), straight.end(), plain) != straight.end()) {
    return std::string(method_straight_line);
  }
  return std::string(text);
}

std::string conventionFrom(std::string_view text) {
  const std::string plain = plainLetters(text);
  for (const std::string_view name : convention_names) {
    if (plainLetters(name) == plain) return std::string(name);
  }
  return std::string(text);
}

/// What the reports would say of the asset once it is saved.
std::optional<ReportAsset> asReported(const CalculateDep& asset) {
  SavedAsset saved;
  saved.placed_in_service = asset.AssetStartDate();
  saved.disposed = asset.AssetEndDate();
  saved.basis = asset.AssetBasis();
  saved.salvage = asset.AssetSalvage();
  saved.capacity = asset.AssetProdCap();
  saved.life = asset.DepRecovery();
  saved.convention = asset.DepConvention();
  saved.fiscal_year_end = asset.FYEnd();
  saved.method = asset.DepMethod();
  const auto results = calculatedToday(ReportAsset(saved));
  if (!results) return std::nullopt;
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    if (scheduled.method.code == saved.method) saved.amounts = (*results).*scheduled.amounts;
  }
  return saved.amounts.empty() ? std::nullopt : std::optional(ReportAsset(std::move(saved)));
}

/// Nothing where no asset of ours could have so much.
std::optional<Currency> centsOf(const std::string& plain) {
  constexpr double too_much = 1e12;
  const auto number = plain.empty() ? 0.0 : tryNumberFromText(plain);
  if (!number || *number >= too_much || *number <= -too_much) return std::nullopt;
  return plain.empty() ? Currency() : moneyAsShown(plain);
}

std::string numberedFields(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " field" : " fields");
}

}  // namespace

RowJudge::RowJudge(const ImportSettings& settings, const AssetRules& rules)
    : settings_(&settings), rules_(rules), columns_(asset_column_names.size()) {
  for (std::size_t i = 0; i < settings.uses.size(); ++i) {
    const auto* column = std::get_if<AssetColumn>(&settings.uses[i]);
    if (column != nullptr) places_[static_cast<std::size_t>(*column)] = i;
    has_amounts_ = has_amounts_ || std::holds_alternative<AmountOfYear>(settings.uses[i]);
  }
  // Every row comes to the rules with all columns, empty where the file has none.
  for (std::size_t c = 0; c < asset_column_names.size(); ++c) {
    columns_.place(static_cast<AssetColumn>(c), c);
  }
}

std::string_view RowJudge::textOf(const FileRow& row, const RowEdits& edits,
                                  AssetColumn column) const {
  const auto edit = edits.find(column);
  if (edit != edits.end()) return edit->second;
  const auto place = placeOf(column);
  return place && *place < row.cells.size() ? std::string_view(row.cells[*place])
                                            : std::string_view();
}

std::string RowJudge::plainText(const FileRow& row, const RowEdits& edits,
                                AssetColumn column) const {
  const std::string_view text = textOf(row, edits, column);
  const bool empty = trimmed(text).empty();
  switch (column) {
    case AssetColumn::id:
    case AssetColumn::name:
    case AssetColumn::serial:
    case AssetColumn::department:
      return std::string(text);
    case AssetColumn::placed_in_service:
    case AssetColumn::disposed:
      return empty ? "" : orUnreadable(plainDate(text, settings_->dates));
    case AssetColumn::fiscal_year_end:
      return empty ? "" : orUnreadable(plainDayOfYear(text, settings_->dates));
    case AssetColumn::method:
      return empty ? settings_->method : methodFrom(text);
    case AssetColumn::convention:
      return empty ? settings_->convention : conventionFrom(text);
    default:
      return orUnreadable(plainNumber(text, settings_->decimal));
  }
}

/// More than the header has is too much where it is not empty.
std::string RowJudge::widthProblem(const FileRow& row) const {
  const std::size_t width = settings_->uses.size();
  std::size_t count = row.cells.size();
  while (count > width && trimmed(row.cells[count - 1]).empty()) --count;
  if (count == width) return {};
  return "The row has " + numberedFields(count) + ", but the header has " + std::to_string(width) +
         ". Please check each of them.";
}

std::vector<RowFinding> RowJudge::judge(const FileRow& row, const RowEdits& edits,
                                        CalculateDep& asset) const {
  std::array<std::string, asset_column_names.size()> texts;
  std::array<CsvField, asset_column_names.size()> fields;
  for (std::size_t c = 0; c < texts.size(); ++c) {
    texts[c] = plainText(row, edits, static_cast<AssetColumn>(c));
    fields[c] = {texts[c], {row.line, 1}};
  }
  std::vector<RowFinding> findings;
  if (edits.empty()) {
    const std::string problem = row.problem.empty() ? widthProblem(row) : row.problem;
    if (!problem.empty()) findings.push_back({std::nullopt, problem});
    if (!row.problem.empty()) return findings;
  }
  std::vector<RowProblem> problems;
  readAssetRow(columns_, fields, rules_, asset, problems);
  for (RowProblem& problem : problems) {
    const auto use = useNamed(problem.column);
    findings.push_back({use ? std::optional(std::get<AssetColumn>(*use)) : std::nullopt,
                        std::move(problem.message)});
  }
  return findings;
}

std::vector<ComparedAmount> RowJudge::compare(const FileRow& row, CalculateDep& asset) const {
  std::vector<ComparedAmount> compared;
  const ErrorReportHook quiet([](const ErrorReport& /*shown nowhere*/) {});
  const auto reported = has_amounts_ ? asReported(asset) : std::nullopt;
  if (!reported) return compared;
  for (std::size_t i = 0; i < std::min(settings_->uses.size(), row.cells.size()); ++i) {
    const auto* amount = std::get_if<AmountOfYear>(&settings_->uses[i]);
    if (amount == nullptr || trimmed(row.cells[i]).empty()) continue;
    const auto plain = plainNumber(row.cells[i], settings_->decimal);
    std::optional<Currency> expected;
    if (plain) expected = centsOf(*plain);
    compared.push_back({amount->year, row.cells[i], expected, reported->amount(amount->year)});
  }
  std::sort(compared.begin(), compared.end(),
            [](const ComparedAmount& a, const ComparedAmount& b) { return a.year < b.year; });
  return compared;
}

}  // namespace depcalc
