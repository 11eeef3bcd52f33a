#include "importing/asset_import.h"

#include <algorithm>

#include "importing/import_summary.h"

namespace depcalc {
namespace {

AssetRules rulesFor(const ImportingCompany& company) {
  return {.today = company.today,
          .date_limit = DateLimit::none,
          .as_saved = true,
          .fiscal_year_end = company.fiscal_year_end};
}

}  // namespace

AssetImport::AssetImport(std::string bytes, const ImportingCompany& company, Duplicates duplicates,
                         Recall recall)
    : bytes_(std::move(bytes)),
      company_(company),
      recall_(std::move(recall)),
      judge_(settings_, rulesFor(company)),
      rows_(std::move(duplicates)) {
  settings_.encoding = detectedEncoding(bytes_);
  text_ = decodedText(bytes_, settings_.encoding);
  settings_.separator = detectedSeparator(text_.text);
  readAnew();
}

AssetImport::AssetImport(FileTable table, const ImportingCompany& company, Duplicates duplicates,
                         Recall recall)
    : is_text_(false),
      company_(company),
      recall_(std::move(recall)),
      table_(std::move(table)),
      judge_(settings_, rulesFor(company)),
      rows_(std::move(duplicates)) {
  takeTable();
}

void AssetImport::readAnew() {
  table_ = {};
  rows_.startAnew(0);
  counts_ = {};
  reading_.emplace(text_.text, settings_.separator, most_rows);
  stage_ = Stage::reading;
}

/// The table is whole: what its columns mean and how they are written follows from it.
void AssetImport::takeTable() {
  settings_.header_row = detectedHeaderRow(table_);
  setHeaderRow(settings_.header_row);
}

void AssetImport::setHeaderRow(std::size_t row) {
  settings_.header_row = std::min(row, table_.rows.size());
  header_ = headerOf(table_, settings_.header_row);
  settings_.uses =
      settings_.header_row == 0 ? std::vector<ColumnUse>(header_.size()) : usesOfHeader(header_);
  const auto remembered = recall_ ? recall_(header_) : std::nullopt;
  if (remembered && remembered->size() == header_.size()) settings_.uses = *remembered;
  findForms();
  rows_.startAnew(table_.rows.size() - settings_.header_row);
  judgeAnew();
}

/// Which columns hold numbers and dates decides what they say; what the user has chosen stays.
void AssetImport::findForms() {
  questions_ = detectForms(table_, settings_);
  if (chosen_decimal_) {
    settings_.decimal = *chosen_decimal_;
    questions_.number.clear();
  }
  if (chosen_dates_) {
    settings_.dates = *chosen_dates_;
    questions_.date.clear();
  }
}

bool AssetImport::goOn(std::size_t rows) {
  if (stage_ == Stage::reading) {
    if (reading_->goOn(rows, table_)) return true;
    reading_.reset();
    takeTable();
  }
  if (stage_ == Stage::judging) {
    for (const std::size_t end = std::min(judged_ + rows, rows_.size()); judged_ < end; ++judged_) {
      judgeRow(judged_);
    }
    if (judged_ < rows_.size()) return true;
    stage_ = Stage::done;
    settle();
  }
  return false;
}

double AssetImport::done() const {
  constexpr double part_of_reading = 0.3;
  if (stage_ == Stage::reading) return reading_->done() * part_of_reading;
  if (stage_ == Stage::done || rows_.empty()) return 1;
  const double part = static_cast<double>(judged_) / static_cast<double>(rows_.size());
  return part_of_reading + (1 - part_of_reading) * part;
}

void AssetImport::setEncoding(Encoding encoding) {
  settings_.encoding = encoding;
  text_ = decodedText(bytes_, encoding);
  readAnew();
}

void AssetImport::setSeparator(char separator) {
  settings_.separator = separator;
  readAnew();
}

void AssetImport::setDecimal(DecimalSign sign) {
  chosen_decimal_ = sign;
  findForms();
  judgeAnew();
}

void AssetImport::setDates(DateOrder order) {
  chosen_dates_ = order;
  findForms();
  judgeAnew();
}

void AssetImport::setUse(std::size_t column, const ColumnUse& use) {
  if (!std::holds_alternative<std::monostate>(use)) {
    std::replace(settings_.uses.begin(), settings_.uses.end(), use, ColumnUse());
  }
  settings_.uses[column] = use;
  findForms();
  judgeAnew();
}

void AssetImport::setMethod(std::string_view code) {
  settings_.method = code;
  judgeAnew();
}

void AssetImport::setConvention(std::string_view digit) {
  settings_.convention = digit;
  judgeAnew();
}

void AssetImport::judgeAnew() {
  judge_ = RowJudge(settings_, rulesFor(company_));
  judged_ = 0;
  counts_ = {};
  stage_ = Stage::judging;
}

void AssetImport::judgeRow(std::size_t index) {
  rows_.judge(index, fileRow(index), judge_, company_.today);
}

/// What a row is may depend on every other.
void AssetImport::settle() {
  rows_.findDuplicates();
  counts_ = rows_.counts();
}

std::string_view AssetImport::text(std::size_t index, AssetColumn column) const {
  return judge_.textOf(fileRow(index), rows_[index].edits, column);
}

std::vector<AssetColumn> AssetImport::columns() const {
  std::vector<AssetColumn> shown;
  for (std::size_t c = 0; c < asset_column_names.size(); ++c) {
    const auto column = static_cast<AssetColumn>(c);
    const bool required = std::find(required_columns.begin(), required_columns.end(), column) !=
                          required_columns.end();
    if (required || hasColumn(column)) shown.push_back(column);
  }
  return shown;
}

std::vector<ComparedAmount> AssetImport::amountsOf(std::size_t index) const {
  CalculateDep asset;
  if (!judge_.judge(fileRow(index), rows_[index].edits, asset).empty()) return {};
  return judge_.compare(fileRow(index), asset);
}

void AssetImport::edit(std::size_t index, AssetColumn column, std::string text) {
  rows_.edit(index, column, std::move(text));
  if (!isDone()) return;
  judgeRow(index);
  settle();
}

void AssetImport::take(std::size_t index, bool taken) {
  rows_.take(index, taken);
  if (isDone()) settle();
}

void AssetImport::leaveOutDuplicates(bool leave_out) {
  rows_.leaveOutDuplicates(leave_out);
  if (isDone()) settle();
}

std::string AssetImport::summary() const { return summaryOf(counts_); }

std::optional<std::string> AssetImport::obstacle() const {
  if (!isDone()) return "The file is being read.";
  return obstacleTo({.rows = rows_.size(),
                     .beyond = table_.beyond,
                     .questions = questions_,
                     .missing = missingColumn(),
                     .counts = counts_,
                     .in_register = company_.assets});
}

std::optional<AssetColumn> AssetImport::missingColumn() const {
  for (const AssetColumn column : required_columns) {
    if (!hasColumn(column)) return column;
  }
  return std::nullopt;
}

std::vector<CalculateDepPtr> AssetImport::assets() const {
  std::vector<CalculateDepPtr> assets;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (statusOf(i) != RowStatus::ready) continue;
    auto asset = std::make_shared<CalculateDep>();
    // Its rules have agreed already.
    judge_.judge(fileRow(i), rows_[i].edits, *asset);
    assets.push_back(std::move(asset));
  }
  return assets;
}

}  // namespace depcalc
