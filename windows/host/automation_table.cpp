#include "windows/host/automation_table.h"

#include <utility>

#include "host/record_values.h"
#include "windows/host/host_answers.h"
#include "windows/host/stored_variant.h"

namespace depcalc {
namespace {

OwnedVariant nameArgument(std::string_view name) {
  return variantOf(StoredValue::text(std::string(name)));
}

class AutomationFields final : public HostFields {
 public:
  explicit AutomationFields(AutomationObject fields) : fields_(std::move(fields)) {}

  [[nodiscard]] StoredValue GetValue(std::string_view name) const override {
    return storedValueOf(fields_.call(HostRole::GetValue, nameArgument(name)).get());
  }
  void SetValue(std::string_view name, StoredValue value) override {
    // Every host keeps what can be kept; not every one knows what cannot.
    requireKeepable(name, value);
    fields_.call(HostRole::SetValue, nameArgument(name), variantOf(value));
  }
  [[nodiscard]] std::vector<std::string> names() const override {
    return textsIn(fields_.call(HostRole::Names));
  }

 private:
  AutomationObject fields_;
};

class AutomationRecord final : public HostRecord {
 public:
  explicit AutomationRecord(AutomationObject::Dispatch record) : record_(std::move(record)) {}

  int BeginEdit() override {
    record_.call(HostRole::BeginEdit);
    return 0;
  }
  void Modified(bool changed) override { record_.put(HostRole::Modified, booleanVariant(changed)); }
  void Commit() override { record_.call(HostRole::Commit); }
  void Delete() override { record_.call(HostRole::Delete); }
  /// The host is asked for them every time.
  HostFields& Fields() override {
    fields_ = AutomationFields(AutomationObject(objectIn(record_.call(HostRole::Fields))));
    return fields_;
  }

 private:
  AutomationObject record_;
  AutomationFields fields_{AutomationObject()};
};

class AutomationTable final : public HostTable {
 public:
  explicit AutomationTable(AutomationObject::Dispatch table) : table_(std::move(table)) {}

  [[nodiscard]] std::int32_t Count() const override { return longIn(table_.call(HostRole::Count)); }
  [[nodiscard]] bool Exists(std::int16_t index) const override {
    return booleanIn(table_.call(HostRole::Exists, indexArgument(index)));
  }
  std::shared_ptr<HostRecord> Item(std::int16_t index) override {
    return recordOf(HostRole::Item, index);
  }
  std::shared_ptr<HostRecord> Add(std::int16_t index) override {
    return recordOf(HostRole::Add, index);
  }

 private:
  static OwnedVariant indexArgument(std::int16_t index) {
    return variantOf(StoredValue::integer(index));
  }
  std::shared_ptr<HostRecord> recordOf(HostRole role, std::int16_t index) {
    return std::make_shared<AutomationRecord>(objectIn(table_.call(role, indexArgument(index))));
  }

  AutomationObject table_;
};

}  // namespace

std::shared_ptr<HostTable> automationTable(AutomationObject::Dispatch table) {
  return std::make_shared<AutomationTable>(std::move(table));
}

}  // namespace depcalc
