#include "DepCalc/units_following.h"

#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "DepCalc/asset_store.h"
#include "common/report_error.h"

namespace depcalc {

/// What was done to assets in the unit of work that is open, as far as it concerns units.
struct UnitsFollowing::Followed {
  struct Deletion {
    std::int32_t number = 0;
    bool host_failed = false;
  };

  UnitsStore units;
  std::optional<Deletion> deletion = {};
  bool any_deleted = false;
  /// What those that have units were known by before they were saved.
  std::map<std::int16_t, UnitsStore::Marks> saved = {};

  void beforeSaving(std::int16_t index) {
    // In a deletion assets are saved in the places of others.
    if (!deletion && units.has(index)) saved.try_emplace(index, units.marksOfAsset(index));
  }
  /// The first record is no asset.
  void afterDeleting(std::int16_t index) { any_deleted = any_deleted || index > 0; }

  void bringAlong() {
    if (deletion && any_deleted) units.assetDeleted(deletion->number);
    for (const auto& [index, before] : saved) units.assetSaved(index, before);
  }
  void forget() noexcept {
    any_deleted = false;
    saved.clear();
  }
};

class UnitsFollowing::Record final : public HostRecord {
 public:
  Record(std::shared_ptr<HostRecord> record, std::int16_t index, std::shared_ptr<Followed> followed)
      : record_(std::move(record)), index_(index), followed_(std::move(followed)) {}

  int BeginEdit() override { return record_->BeginEdit(); }
  void Modified(bool changed) override { record_->Modified(changed); }
  void Commit() override {
    followed_->beforeSaving(index_);
    record_->Commit();
  }
  void Delete() override {
    record_->Delete();
    followed_->afterDeleting(index_);
  }
  HostFields& Fields() override { return record_->Fields(); }

 private:
  std::shared_ptr<HostRecord> record_;
  std::int16_t index_;
  std::shared_ptr<Followed> followed_;
};

class UnitsFollowing::Table final : public HostTable {
 public:
  Table(std::shared_ptr<HostTable> table, std::shared_ptr<Followed> followed)
      : table_(std::move(table)), followed_(std::move(followed)) {}

  [[nodiscard]] std::int32_t Count() const override { return table_->Count(); }
  [[nodiscard]] bool Exists(std::int16_t index) const override { return table_->Exists(index); }
  std::shared_ptr<HostRecord> Item(std::int16_t index) override {
    return std::make_shared<Record>(table_->Item(index), index, followed_);
  }
  std::shared_ptr<HostRecord> Add(std::int16_t index) override {
    return std::make_shared<Record>(table_->Add(index), index, followed_);
  }

 private:
  std::shared_ptr<HostTable> table_;
  std::shared_ptr<Followed> followed_;
};

UnitsFollowing::UnitsFollowing(std::shared_ptr<HostCompanyFile> file)
    : file_(std::move(file)), followed_(std::make_shared<Followed>(Followed{UnitsStore(file_)})) {}

std::shared_ptr<HostTable> UnitsFollowing::OpenTable(std::string_view name) {
  auto table = file_->OpenTable(name);
  if (name != asset_table_name) return table;
  return std::make_shared<Table>(std::move(table), followed_);
}

void UnitsFollowing::deletion(std::int32_t number, const std::function<void()>& deletes) {
  followed_->deletion = {.number = number};
  const ErrorReportHook hook([this, &hook](const ErrorReport& report) {
    if (!report.isOfValues()) followed_->deletion->host_failed = true;
    hook.passOn(report);
  });
  deletes();
  followed_->deletion.reset();
}

void UnitsFollowing::begin() noexcept {
  ++depth_;
  inner().begin();
}

void UnitsFollowing::end() {
  if (--depth_ > 0) return inner().end();
  if (followed_->deletion && followed_->deletion->host_failed) return undo();
  try {
    followed_->bringAlong();
  } catch (...) {
    undo();
    throw;
  }
  followed_->forget();
  inner().end();
}

void UnitsFollowing::abandon() {
  --depth_;
  undo();
}

void UnitsFollowing::undo() {
  followed_->forget();
  inner().abandon();
}

}  // namespace depcalc
