// The rules of tables and records, over whatever keeps the records.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/host.h"
#include "host/record_storage.h"
#include "host/table_texts.h"
#include "values/runtime_error.h"

namespace depcalc {

/// `Values` are a record's values by name, which are made of what is kept of them
/// (`Values::Kept`) and hand out what is to be kept (`kept`).
template <typename Values>
class StorageFields final : public HostFields {
 public:
  explicit StorageFields(Values values) : values_(std::move(values)) {}

  [[nodiscard]] StoredValue GetValue(std::string_view name) const override {
    return values_.get(name);
  }
  void SetValue(std::string_view name, StoredValue value) override {
    values_.set(name, std::move(value));
  }
  [[nodiscard]] std::vector<std::string> names() const override { return values_.names(); }
  [[nodiscard]] const Values& values() const { return values_; }

 private:
  Values values_;
};

template <typename Values>
class StorageRecord final : public HostRecord {
 public:
  using Storage = RecordStorageOf<typename Values::Kept>;

  StorageRecord(std::shared_ptr<Storage> storage, std::int16_t index, Values values)
      : storage_(std::move(storage)), index_(index), fields_(std::move(values)) {}

  int BeginEdit() override { return 0; }
  void Modified(bool changed) override { modified_ = changed; }
  void Commit() override {
    requirePresent();
    if (!modified_) return;
    storage_->save(index_, fields_.values().kept());
    modified_ = false;
  }
  void Delete() override {
    requirePresent();
    storage_->remove(index_);
  }
  HostFields& Fields() override { return fields_; }

 private:
  void requirePresent() const {
    if (!storage_->has(index_)) throw RuntimeError::subscriptOutOfRange();
  }

  std::shared_ptr<Storage> storage_;
  std::int16_t index_;
  StorageFields<Values> fields_;
  bool modified_ = false;
};

template <typename Values>
class StorageTable final : public HostTable, public TableTexts {
 public:
  using Record = StorageRecord<Values>;
  using Storage = typename Record::Storage;

  explicit StorageTable(std::shared_ptr<Storage> storage) : storage_(std::move(storage)) {}

  [[nodiscard]] std::int32_t Count() const override { return storage_->count(); }
  [[nodiscard]] bool Exists(std::int16_t index) const override { return storage_->has(index); }
  std::shared_ptr<HostRecord> Item(std::int16_t index) override {
    if (!storage_->has(index)) throw RuntimeError::subscriptOutOfRange();
    return std::make_shared<Record>(storage_, index, Values(storage_->load(index)));
  }
  [[nodiscard]] std::optional<std::string> recordText(std::int16_t index) const override {
    if (!storage_->has(index)) throw RuntimeError::subscriptOutOfRange();
    return storage_->text(index);
  }
  std::shared_ptr<HostRecord> Add(std::int16_t index) override {
    if (index < 0 || storage_->has(index)) throw RuntimeError::invalidCall();
    Values none;
    storage_->save(index, none.kept());
    return std::make_shared<Record>(storage_, index, std::move(none));
  }

 private:
  std::shared_ptr<Storage> storage_;
};

}  // namespace depcalc
