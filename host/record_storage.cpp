#include "host/record_storage.h"

#include <utility>

#include "host/table_texts.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

class ValueFields final : public HostFields {
 public:
  explicit ValueFields(RecordValues values) : values_(std::move(values)) {}

  [[nodiscard]] StoredValue GetValue(std::string_view name) const override {
    const StoredValue* value = values_.find(name);
    return value != nullptr ? *value : StoredValue();
  }
  void SetValue(std::string_view name, StoredValue value) override {
    values_.set(name, std::move(value));
  }
  [[nodiscard]] std::vector<std::string> names() const override {
    std::vector<std::string> names;
    for (const RecordValues::Entry& entry : values_.entries()) names.push_back(entry.name);
    return names;
  }
  [[nodiscard]] const RecordValues& values() const { return values_; }

 private:
  RecordValues values_;
};

class StorageRecord final : public HostRecord {
 public:
  StorageRecord(std::shared_ptr<RecordStorage> storage, std::int16_t index, RecordValues values)
      : storage_(std::move(storage)), index_(index), fields_(std::move(values)) {}

  int BeginEdit() override { return 0; }
  void Modified(bool changed) override { modified_ = changed; }
  void Commit() override {
    requirePresent();
    if (!modified_) return;
    storage_->save(index_, fields_.values());
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

  std::shared_ptr<RecordStorage> storage_;
  std::int16_t index_;
  ValueFields fields_;
  bool modified_ = false;
};

class StorageTable final : public HostTable, public TableTexts {
 public:
  explicit StorageTable(std::shared_ptr<RecordStorage> storage) : storage_(std::move(storage)) {}

  [[nodiscard]] std::int32_t Count() const override { return storage_->count(); }
  [[nodiscard]] bool Exists(std::int16_t index) const override { return storage_->has(index); }
  std::shared_ptr<HostRecord> Item(std::int16_t index) override {
    if (!storage_->has(index)) throw RuntimeError::subscriptOutOfRange();
    return std::make_shared<StorageRecord>(storage_, index, storage_->load(index));
  }
  [[nodiscard]] std::optional<std::string> recordText(std::int16_t index) const override {
    if (!storage_->has(index)) throw RuntimeError::subscriptOutOfRange();
    return storage_->text(index);
  }
  std::shared_ptr<HostRecord> Add(std::int16_t index) override {
    if (index < 0 || storage_->has(index)) throw RuntimeError::invalidCall();
    storage_->save(index, RecordValues());
    return std::make_shared<StorageRecord>(storage_, index, RecordValues());
  }

 private:
  std::shared_ptr<RecordStorage> storage_;
};

}  // namespace

std::optional<std::string> RecordStorage::text(std::int16_t /*index*/) const { return {}; }

std::shared_ptr<HostTable> tableOver(std::shared_ptr<RecordStorage> storage) {
  return std::make_shared<StorageTable>(std::move(storage));
}

}  // namespace depcalc
