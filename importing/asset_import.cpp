#include "importing/asset_import.h"

#include <algorithm>

#include "values/display_format.h"

namespace depcalc {
namespace {

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return formatWhole(static_cast<double>(count)).append(" ").append(count == 1 ? one : many);
}

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
      duplicates_(std::move(duplicates)),
      recall_(std::move(recall)),
      judge_(settings_, rulesFor(company)) {
  settings_.encoding = detectedEncoding(bytes_);
  text_ = decodedText(bytes_, settings_.encoding);
  settings_.separator = detectedSeparator(text_.text);
  readAnew();
}

AssetImport::AssetImport(FileTable table, const ImportingCompany& company, Duplicates duplicates,
                         Recall recall)
    : is_text_(false),
      company_(company),
      duplicates_(std::move(duplicates)),
      recall_(std::move(recall)),
      table_(std::move(table)),
      judge_(settings_, rulesFor(company)) {
  takeTable();
}

void AssetImport::readAnew() {
  table_ = {};
  rows_.clear();
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
  rows_.assign(table_.rows.size() - settings_.header_row, {});
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
    lookForDuplicates();
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
  ImportRow& row = rows_[index];
  CalculateDep asset;
  row.problems = judge_.judge(fileRow(index), row.edits, asset);
  row.duplicates.clear();
  row.id = asset.AssetID();
  row.serial = asset.ASerial();
  row.differences = 0;
  row.distant = false;
  if (!row.problems.empty()) return;
  row.distant = refusedByDateLimit(asset.AssetStartDate(), company_.today).has_value();
  const auto amounts = judge_.compare(fileRow(index), asset);
  row.differences = static_cast<std::size_t>(
      std::count_if(amounts.begin(), amounts.end(),
                    [](const ComparedAmount& amount) { return amount.differs(); }));
}

/// Whoever is left out has no ID that another could have again.
void AssetImport::lookForDuplicates() {
  duplicates_.forgetLines();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    ImportRow& row = rows_[i];
    row.duplicates.clear();
    if (row.isLeftOut()) continue;
    for (RowProblem& problem : duplicates_.problemsOf(row.id, row.serial, fileRow(i).line)) {
      const auto use = useNamed(problem.column);
      row.duplicates.push_back({std::get<AssetColumn>(*use), std::move(problem.message)});
    }
    if (row.duplicates.empty() || !leaves_out_duplicates_ || row.taken == true) {
      duplicates_.add(row.id, row.serial, fileRow(i).line);
    }
  }
  count();
}

void AssetImport::count() {
  counts_ = {};
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const ImportRow& row = rows_[i];
    const RowStatus status = statusOf(i);
    const bool ready = status == RowStatus::ready;
    counts_.ready += ready;
    counts_.problems += status == RowStatus::problem;
    counts_.left_out += status == RowStatus::left_out;
    counts_.duplicates += status == RowStatus::duplicate;
    counts_.repeated += ready && !row.duplicates.empty();
    counts_.differing += ready && row.differences > 0;
    counts_.distant += ready && row.distant;
  }
}

RowStatus AssetImport::statusOf(std::size_t index) const {
  const ImportRow& row = rows_[index];
  if (row.isLeftOut()) return RowStatus::left_out;
  if (!row.problems.empty()) return RowStatus::problem;
  const bool taken = row.duplicates.empty() || !leaves_out_duplicates_ || row.taken == true;
  return taken ? RowStatus::ready : RowStatus::duplicate;
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
  rows_[index].edits[column] = std::move(text);
  if (!isDone()) return;
  judgeRow(index);
  lookForDuplicates();
}

void AssetImport::take(std::size_t index, bool taken) {
  rows_[index].taken = taken;
  if (isDone()) lookForDuplicates();
}

void AssetImport::leaveOutDuplicates(bool leave_out) {
  leaves_out_duplicates_ = leave_out;
  if (isDone()) lookForDuplicates();
}

std::vector<std::uint32_t> AssetImport::inOrder(RowFilter filter) const {
  std::array<std::vector<std::uint32_t>, 4> ranks;
  for (std::uint32_t i = 0; i < rows_.size(); ++i) {
    const ImportRow& row = rows_[i];
    const bool problem = !row.isLeftOut() && !row.problems.empty();
    const bool passes = filter == RowFilter::all || (filter == RowFilter::problems && problem) ||
                        (filter == RowFilter::duplicates && !row.duplicates.empty()) ||
                        (filter == RowFilter::differences && row.differences > 0);
    if (!passes) continue;
    ranks.at(problem ? 0 : !row.duplicates.empty() ? 1 : row.differences > 0 ? 2 : 3).push_back(i);
  }
  std::vector<std::uint32_t> order;
  order.reserve(rows_.size());
  for (const auto& rank : ranks) order.insert(order.end(), rank.begin(), rank.end());
  return order;
}

std::string AssetImport::summary() const {
  std::string text = counted(counts_.ready, "asset ready", "assets ready");
  if (counts_.problems > 0) {
    text += " · " + formatWhole(static_cast<double>(counts_.problems)) + " with problems";
  }
  if (counts_.duplicates > 0) {
    text += " · " + counted(counts_.duplicates, "duplicate left out", "duplicates left out");
  }
  if (counts_.repeated > 0) {
    text += " · " + counted(counts_.repeated, "duplicate", "duplicates") + " among them";
  }
  if (counts_.left_out > 0) {
    text += " · " + formatWhole(static_cast<double>(counts_.left_out)) + " left out by you";
  }
  if (counts_.differing > 0) {
    text +=
        " · " + formatWhole(static_cast<double>(counts_.differing)) + " with amounts that differ";
  }
  return text;
}

std::optional<std::string> AssetImport::obstacle() const {
  if (!isDone()) return "The file is being read.";
  if (rows_.empty()) return "The file has no rows with assets.";
  if (!questions_.date.empty()) {
    return "\"" + questions_.date +
           "\" can be read as two days. Please choose the order of day and month.";
  }
  if (!questions_.number.empty()) {
    return "\"" + questions_.number +
           "\" can be read as two numbers. Please choose the decimal sign.";
  }
  for (const AssetColumn column : required_columns) {
    if (hasColumn(column) || counts_.problems == 0) continue;
    return "Please choose the column of the file that holds the " +
           std::string(column == AssetColumn::life    ? "useful life"
                       : column == AssetColumn::basis ? "basis"
                                                      : "placed-in-service date") +
           ".";
  }
  if (counts_.problems > 0) {
    return "Please correct the rows with problems, or leave them out.";
  }
  if (counts_.ready == 0) return "No asset is left to import.";
  if (table_.beyond > 0 || company_.assets + counts_.ready > most_assets) {
    return "The register holds at most " + formatWhole(most_assets) + " assets; it has " +
           formatWhole(static_cast<double>(company_.assets)) + ", and the file has " +
           formatWhole(static_cast<double>(counts_.ready + table_.beyond)) + " more.";
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
