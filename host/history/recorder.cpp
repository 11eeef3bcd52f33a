#include "host/history/recorder.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "host/history/recorded_unit.h"
#include "host/table_texts.h"

namespace depcalc {

class Recorder::Record final : public HostRecord {
 public:
  struct Place {
    std::shared_ptr<HostTable> table;
    std::size_t number;
    std::int16_t index;
  };

  Record(std::shared_ptr<HostRecord> record, Place place, std::shared_ptr<Unit> unit)
      : record_(std::move(record)), place_(std::move(place)), unit_(std::move(unit)) {}

  int BeginEdit() override { return record_->BeginEdit(); }
  void Modified(bool changed) override { record_->Modified(changed); }
  void Commit() override {
    touch();
    record_->Commit();
  }
  void Delete() override {
    touch();
    record_->Delete();
  }
  HostFields& Fields() override { return record_->Fields(); }

 private:
  void touch() noexcept { unit_->touch(place_.number, *place_.table, place_.index); }

  std::shared_ptr<HostRecord> record_;
  Place place_;
  std::shared_ptr<Unit> unit_;
};

class Recorder::Table final : public HostTable, public TableTexts {
 public:
  Table(std::shared_ptr<HostTable> table, std::size_t number, std::shared_ptr<Unit> unit)
      : table_(std::move(table)), number_(number), unit_(std::move(unit)) {}

  [[nodiscard]] std::int32_t Count() const override { return table_->Count(); }
  [[nodiscard]] bool Exists(std::int16_t index) const override { return table_->Exists(index); }
  [[nodiscard]] std::optional<std::string> recordText(std::int16_t index) const override {
    return recordTextIn(*table_, index);
  }
  std::shared_ptr<HostRecord> Item(std::int16_t index) override {
    return recorded(table_->Item(index), index);
  }
  std::shared_ptr<HostRecord> Add(std::int16_t index) override {
    if (index >= 0) unit_->touch(number_, *table_, index);
    return recorded(table_->Add(index), index);
  }

 private:
  std::shared_ptr<HostRecord> recorded(std::shared_ptr<HostRecord> record, std::int16_t index) {
    return std::make_shared<Record>(std::move(record), Record::Place{table_, number_, index},
                                    unit_);
  }

  std::shared_ptr<HostTable> table_;
  std::size_t number_;
  std::shared_ptr<Unit> unit_;
};

Recorder::Recorder(std::shared_ptr<HostCompanyFile> file, Options options)
    : file_(std::move(file)),
      options_(std::move(options)),
      log_(options_.path),
      unit_(std::make_shared<Unit>()) {
  unit_->before.resize(options_.tables.size());
  try {
    open();
  } catch (const std::exception&) {
    forgetSteps();
    lost_ = true;
  }
}

void Recorder::open() {
  state_ = digestOfState(*file_, info(), options_.tables);
  const std::uint64_t known =
      options_.replaced ? digestOfState(*options_.replaced, options_.tables) : state_;
  found_ = log_.read(known, history_);
  opened_at_ = history_.forgotten() + history_.position();
  if (known != state_) addReplacement();
  options_.replaced.reset();
}

void Recorder::addReplacement() {
  Content before = std::move(*options_.replaced);
  Content after = content();
  StepChanges changes;
  if (!(before.info == after.info)) changes.info = {before.info, after.info};
  for (std::size_t table = 0; table < options_.tables.size(); ++table) {
    ChangedPlaces places;
    for (auto& [index, text] : before.tables[table]) places[index].before = std::move(text);
    for (auto& [index, text] : after.tables[table]) places[index].after = std::move(text);
    std::erase_if(places,
                  [](const auto& place) { return place.second.before == place.second.after; });
    appendChanges(changes.records, table, std::move(places));
  }
  state_ = digestBefore(state_, changes, options_.tables);
  kind_ = StepKind::restored;
  Step step = stepOf(changes);
  kind_.reset();
  log_.announce(history_, step);
  accept(std::move(step));
}

std::shared_ptr<HostTable> Recorder::OpenTable(std::string_view name) {
  auto table = file_->OpenTable(name);
  const auto followed =
      std::find_if(options_.tables.begin(), options_.tables.end(),
                   [name](const FollowedTable& known) { return known.name == name; });
  if (followed == options_.tables.end()) return table;
  const auto number = static_cast<std::size_t>(followed - options_.tables.begin());
  return std::make_shared<Table>(std::move(table), number, unit_);
}

void Recorder::called(StepKind kind, const std::function<void()>& change) {
  const auto outer = std::exchange(kind_, kind);
  try {
    change();
  } catch (...) {
    kind_ = outer;
    throw;
  }
  kind_ = outer;
}

void Recorder::setInfo(const CompanyInfo& info) {
  called(StepKind::company, [&] {
    begin();
    unit_->info_before = this->info();
    try {
      options_.info.write(info);
    } catch (...) {
      abandon();
      throw;
    }
    end();
  });
}

// --- Units of work -------------------------------------------------------------------------------

void Recorder::begin() noexcept {
  ++unit_->depth;
  inner().begin();
}

void Recorder::end() {
  if (unit_->depth > 1 || ending_) {
    // A change while another one is held ends with that, and nobody knows how.
    unit_->unrecorded = unit_->unrecorded || ending_;
    --unit_->depth;
    return inner().end();
  }
  std::optional<Step> step = announced();
  --unit_->depth;
  const std::uint64_t after = step ? step->after : state_;
  endInner(after, [&] {
    if (step) accept(std::move(*step));
  });
}

void Recorder::abandon() {
  unit_->depth = 0;
  unit_->clear();
  try {
    inner().abandon();
  } catch (...) {
    settle(state_, [] {});
    throw;
  }
}

/// Ends the outermost unit, which leads to the state `after`; `done` where it did. A host may give
/// a change up without an error, and bring one to the disk in spite of one.
void Recorder::endInner(std::uint64_t after, const std::function<void()>& done) {
  const std::uint64_t revision = inner().revision();
  ending_ = true;
  try {
    inner().end();
  } catch (...) {
    ending_ = false;
    settle(after, done);
    throw;
  }
  ending_ = false;
  if (unit_->unrecorded || inner().revision() != revision) {
    settle(after, done);
  } else {
    done();
  }
}

/// What came about says the company itself.
void Recorder::settle(std::uint64_t after, const std::function<void()>& done) noexcept {
  unit_->clear();
  try {
    const std::uint64_t now = digestOfState(*file_, info(), options_.tables);
    if (now == after && after != state_) return done();
    if (now == state_ && !lost_) return;
    forgetSteps();
    state_ = now;
    lost_ = false;
  } catch (...) {
    forgetSteps();
    lost_ = true;
  }
}

void Recorder::forgetSteps() noexcept {
  history_.clear();
  opened_at_ = 0;
  log_.startAnew();
}

// --- Steps ---------------------------------------------------------------------------------------

/// The step that the unit is, written to the history file; nothing where there is none, or no
/// memory for it.
std::optional<Step> Recorder::announced() noexcept {
  if (unit_->unrecorded) return std::nullopt;
  try {
    const StepChanges changes = takeChanges();
    if (lost_ || !anyCounts(changes)) return std::nullopt;
    Step step = stepOf(changes);
    log_.announce(history_, step);
    return step;
  } catch (...) {
    unit_->unrecorded = true;
    return std::nullopt;
  }
}

StepChanges Recorder::takeChanges() {
  StepChanges changes;
  const auto info_before = std::exchange(unit_->info_before, std::nullopt);
  if (info_before && !(*info_before == info())) changes.info = {*info_before, info()};
  for (std::size_t number = 0; number < options_.tables.size(); ++number) {
    auto touched = std::exchange(unit_->before[number], {});
    if (touched.empty()) continue;
    const auto table = file_->OpenTable(options_.tables[number].name);
    ChangedPlaces places;
    for (auto& [index, before] : touched) {
      std::optional<std::string> after;
      if (table->Exists(index)) after = recordTextIn(*table, index);
      if (before == after) continue;
      places.emplace_hint(places.end(), index, ChangedPlace{std::move(before), std::move(after)});
    }
    appendChanges(changes.records, number, std::move(places));
  }
  return changes;
}

bool Recorder::anyCounts(const StepChanges& changes) const {
  return changes.info ||
         std::any_of(changes.records.begin(), changes.records.end(), [&](const auto& change) {
           const FollowedTable& table = options_.tables[change.table];
           return (change.from && table.counts(*change.from)) ||
                  (change.to && table.counts(*change.to));
         });
}

Step Recorder::stepOf(const StepChanges& changes) const {
  return {.title = options_.name(changes, kind_),
          .when = options_.now(),
          .before = state_,
          .after = digestAfter(state_, changes, options_.tables),
          .changes = bytesOfChanges(changes, options_.tables)};
}

void Recorder::accept(Step step) {
  state_ = step.after;
  ++changes_made_;
  found_ = StepLog::Found::steps;
  try {
    history_.add(std::move(step));
  } catch (const std::exception&) {
    forgetSteps();
  }
}

}  // namespace depcalc
