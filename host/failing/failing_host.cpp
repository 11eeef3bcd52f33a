#include "host/failing/failing_host.h"

#include <utility>

namespace depcalc {
namespace {

using Plan = std::shared_ptr<FailurePlan>;

class FailingFields final : public HostFields {
 public:
  FailingFields(std::shared_ptr<HostRecord> inner, Plan plan)
      : inner_(std::move(inner)), plan_(std::move(plan)) {}

  [[nodiscard]] StoredValue GetValue(std::string_view name) const override {
    plan_->read();
    return inner_->Fields().GetValue(name);
  }
  void SetValue(std::string_view name, StoredValue value) override {
    plan_->change();
    inner_->Fields().SetValue(name, std::move(value));
  }
  [[nodiscard]] std::vector<std::string> names() const override { return inner_->Fields().names(); }

 private:
  std::shared_ptr<HostRecord> inner_;
  Plan plan_;
};

class FailingRecord final : public HostRecord {
 public:
  FailingRecord(std::shared_ptr<HostRecord> inner, Plan plan)
      : inner_(inner), plan_(plan), fields_(std::move(inner), std::move(plan)) {}

  int BeginEdit() override { return changing().BeginEdit(); }
  void Modified(bool changed) override { changing().Modified(changed); }
  void Commit() override { changing().Commit(); }
  void Delete() override { changing().Delete(); }
  HostFields& Fields() override {
    plan_->read();
    return fields_;
  }

 private:
  HostRecord& changing() {
    plan_->change();
    return *inner_;
  }

  std::shared_ptr<HostRecord> inner_;
  Plan plan_;
  FailingFields fields_;
};

class FailingTable final : public HostTable {
 public:
  FailingTable(std::shared_ptr<HostTable> inner, Plan plan)
      : inner_(std::move(inner)), plan_(std::move(plan)) {}

  [[nodiscard]] std::int32_t Count() const override { return counted().Count(); }
  [[nodiscard]] bool Exists(std::int16_t index) const override { return counted().Exists(index); }
  std::shared_ptr<HostRecord> Item(std::int16_t index) override {
    return wrapped(counted().Item(index));
  }
  std::shared_ptr<HostRecord> Add(std::int16_t index) override {
    plan_->change();
    return wrapped(inner_->Add(index));
  }

 private:
  [[nodiscard]] HostTable& counted() const {
    plan_->read();
    return *inner_;
  }
  [[nodiscard]] std::shared_ptr<HostRecord> wrapped(std::shared_ptr<HostRecord> record) const {
    return std::make_shared<FailingRecord>(std::move(record), plan_);
  }

  std::shared_ptr<HostTable> inner_;
  Plan plan_;
};

class FailingCompanyFile final : public HostCompanyFile {
 public:
  FailingCompanyFile(std::shared_ptr<HostCompanyFile> inner, Plan plan)
      : inner_(std::move(inner)), plan_(std::move(plan)) {}

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override {
    return std::make_shared<FailingTable>(counted().OpenTable(name), plan_);
  }
  [[nodiscard]] Date FiscalYearStart() const override { return counted().FiscalYearStart(); }
  [[nodiscard]] bool IsMultiUser() const override { return counted().IsMultiUser(); }
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override {
    return counted().PalettePicture();
  }
  [[nodiscard]] HostUnitOfWork* unitOfWork() override { return inner_->unitOfWork(); }
  void advise(HostCompanyFileEvents& listener) override { inner_->advise(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { inner_->unadvise(listener); }

 private:
  [[nodiscard]] HostCompanyFile& counted() const {
    plan_->read();
    return *inner_;
  }

  std::shared_ptr<HostCompanyFile> inner_;
  Plan plan_;
};

class FailingApplication final : public HostApplication {
 public:
  FailingApplication(std::shared_ptr<HostApplication> inner, Plan plan)
      : inner_(std::move(inner)), plan_(std::move(plan)) {}

  [[nodiscard]] bool IsCompanyFileOpen() const override { return counted().IsCompanyFileOpen(); }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override {
    auto file = counted().CompanyFile();
    return file != nullptr ? failingCompanyFile(std::move(file), plan_) : nullptr;
  }
  [[nodiscard]] std::string StartDirectory() const override { return counted().StartDirectory(); }
  void advise(HostApplicationEvents& listener) override { inner_->advise(listener); }
  void unadvise(HostApplicationEvents& listener) override { inner_->unadvise(listener); }

 private:
  [[nodiscard]] HostApplication& counted() const {
    plan_->read();
    return *inner_;
  }

  std::shared_ptr<HostApplication> inner_;
  Plan plan_;
};

}  // namespace

std::shared_ptr<HostCompanyFile> failingCompanyFile(std::shared_ptr<HostCompanyFile> inner,
                                                    std::shared_ptr<FailurePlan> plan) {
  return std::make_shared<FailingCompanyFile>(std::move(inner), std::move(plan));
}

std::shared_ptr<HostApplication> failingApplication(std::shared_ptr<HostApplication> inner,
                                                    std::shared_ptr<FailurePlan> plan) {
  return std::make_shared<FailingApplication>(std::move(inner), std::move(plan));
}

}  // namespace depcalc
