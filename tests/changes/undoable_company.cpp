#include "tests/changes/undoable_company.h"

#include <filesystem>

#include "DepCalc/recalculation.h"
#include "changes/entering_units.h"
#include "host/stored/record_text.h"
#include "tests/DepCalc/store_pair.h"

namespace depcalc::testing_support {
namespace {

CalculateDepPtr asset(const std::string& id, double life, const std::string& method) {
  AssetEntry entry;
  entry.id = id;
  entry.life = life;
  entry.method = method;
  if (method == "UOP") entry.capacity = "10,000";
  return newAsset(entry);
}

std::shared_ptr<SqliteCompanyFile> fileOf(const SqliteCompanyFile::Opened& answer) {
  if (const auto* trouble = std::get_if<FileTrouble>(&answer)) throw FileTrouble(*trouble);
  return std::get<std::shared_ptr<SqliteCompanyFile>>(answer);
}

/// Of a register with assets.
std::string spanOf(const RecordTexts& assets) {
  if (assets.size() < 2 || !assets.contains(0)) return {};
  const RecordValues summary = recordOfText(assets.at(0));
  const auto text = [&](std::string_view name) {
    const StoredValue* const value = summary.find(name);
    return value == nullptr ? "none" : value->asText();
  };
  return text("Start") + " and " + text("NumYears");
}

RecordTexts withoutSummary(RecordTexts assets) {
  assets.erase(0);
  return assets;
}

}  // namespace

bool same(const Content& one, const Content& other) {
  return one.info == other.info && one.tables[1] == other.tables[1] &&
         withoutSummary(one.tables[0]) == withoutSummary(other.tables[0]) &&
         spanOf(one.tables[0]) == spanOf(other.tables[0]);
}

UndoableCompany::UndoableCompany(std::string folder)
    : path_(folder + "/sample.company"), history_path_(folder + "/history/undo.history") {
  open();
}

void UndoableCompany::open(std::optional<Content> replaced) {
  const SqliteCompanyFile::Options options{
      .today = [] { return today(); }, .writable = true, .vfs = ""};
  file_ = fileOf(std::filesystem::exists(path_)
                     ? SqliteCompanyFile::open(path_, options)
                     : SqliteCompanyFile::create(path_, {"Sample", 1, false}, options));
  recorder_ = std::make_shared<Recorder>(file_, Recorder::Options{.tables = followedTables(),
                                                                  .info = infoAccess(),
                                                                  .path = history_path_,
                                                                  .now = [] { return 0; },
                                                                  .name = stepTitle,
                                                                  .replaced = std::move(replaced)});
  following_ = std::make_shared<UnitsFollowing>(recorder_);
  assets_ = std::make_unique<CompanyAssets>(following_, today());
  assets_->store().open();
}

CompanyInfoAccess UndoableCompany::infoAccess() {
  return {.read = [file = file_] { return file->info(); },
          .write = [file = file_](const CompanyInfo& info) { file->info(info); }};
}

void UndoableCompany::close() {
  if (file_ == nullptr) return;
  file_->close();
  assets_.reset();
  following_.reset();
  recorder_.reset();
  file_.reset();
}

void UndoableCompany::saveNew(const std::string& id, double life, const std::string& method) {
  assets_->store().DepCalcContSaveRecord(asset(id, life, method));
}

void UndoableCompany::saveEdited(int number, const std::string& name, std::int64_t basis) {
  const CalculateDepPtr edited = assets_->asset(number);
  edited->AssetName(name);
  edited->AssetBasis(Currency::fromTicks(basis * 10'000));
  assets_->store().DepCalcContSaveRecord(edited);
}

void UndoableCompany::remove(int number) {
  std::vector<CalculateDepPtr> left;
  for (int i = 1; i <= count(); ++i) {
    if (i == number) continue;
    left.push_back(assets_->asset(i));
    left.back()->RecIndex(std::to_string(left.size()));
  }
  left.resize(static_cast<std::size_t>(count()));
  following_->deletion(
      number, [&] { assets_->store().DeleteRecord(left, static_cast<std::int16_t>(number)); });
}

void UndoableCompany::import(int count, const std::string& prefix) {
  assets_->changeAtOnce([&] {
    for (int i = 0; i < count; ++i) saveNew(prefix + std::to_string(i), 3 + i % 5, "SL");
  });
}

void UndoableCompany::dispose(int number, bool back) {
  recorder_->called(back ? StepKind::put_back : StepKind::disposed, [&] {
    saveDisposal(*assets_, number,
                 back ? std::nullopt : std::optional<Disposal>({today(), Currency()}));
  });
}

void UndoableCompany::enterUnits(int number, int year, double units) {
  UnitsByYear all = assets_->units().unitsOf(number);
  all[year] = units;
  saveUnits(*assets_, number, all);
}

void UndoableCompany::recalculate() {
  const Recalculation result = recalculated(*assets_, FiscalYearEnds::company);
  recorder_->called(StepKind::recalculated,
                    [&] { saveRecalculation(*assets_, result, [](std::size_t) {}); });
}

}  // namespace depcalc::testing_support
