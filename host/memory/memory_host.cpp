#include "host/memory/memory_host.h"

#include <optional>
#include <utility>

#include "host/record_storage.h"
#include "host/unit_of_work.h"
#include "values/runtime_error.h"

namespace depcalc {

/// What the file and its tables share; tables may outlive the file object.
struct MemoryCompanyFile::Session {
  bool open = true;
  int depth = 0;  ///< of units
  std::uint64_t revision = 0;

  void requireOpen() const {
    if (!open) throw RuntimeError::objectNotSet();
  }
};

class MemoryCompanyFile::Storage final : public RecordStorage {
 public:
  explicit Storage(std::shared_ptr<Session> session) : session_(std::move(session)) {}

  [[nodiscard]] std::int32_t count() const override {
    session_->requireOpen();
    return static_cast<std::int32_t>(records_.size());
  }
  [[nodiscard]] bool has(std::int16_t index) const override {
    session_->requireOpen();
    return records_.contains(index);
  }
  [[nodiscard]] RecordValues load(std::int16_t index) const override { return records_.at(index); }
  void save(std::int16_t index, RecordValues values) override {
    remember(index);
    records_[index] = std::move(values);
  }
  void remove(std::int16_t index) override {
    remember(index);
    records_.erase(index);
  }

  void forgetBefore() { before_.clear(); }
  void undo() {
    for (auto& [index, values] : before_) {
      records_.erase(index);
      if (values) records_.emplace(index, std::move(*values));
    }
    before_.clear();
  }

 private:
  /// Keeps what the record was before the unit that is open.
  void remember(std::int16_t index) {
    ++session_->revision;
    if (session_->depth == 0 || before_.contains(index)) return;
    const auto old = records_.find(index);
    before_.emplace(index, old != records_.end() ? std::optional(old->second) : std::nullopt);
  }

  std::shared_ptr<Session> session_;
  std::map<std::int16_t, RecordValues> records_;
  std::map<std::int16_t, std::optional<RecordValues>> before_;
};

class MemoryCompanyFile::UnitOfWork final : public HostUnitOfWork {
 public:
  explicit UnitOfWork(MemoryCompanyFile& file) : file_(file) {}

  void begin() noexcept override { ++file_.session_->depth; }
  void end() override {
    if (--file_.session_->depth > 0) return;
    for (const auto& [name, table] : file_.tables_) table->forgetBefore();
  }
  void abandon() override {
    --file_.session_->depth;
    ++file_.session_->revision;
    for (const auto& [name, table] : file_.tables_) table->undo();
  }
  [[nodiscard]] std::uint64_t revision() const noexcept override {
    return file_.session_->revision;
  }

 private:
  MemoryCompanyFile& file_;
};

MemoryCompanyFile::MemoryCompanyFile(Date fiscal_year_start, Units units)
    : session_(std::make_shared<Session>()),
      fiscal_year_start_(fiscal_year_start),
      picture_(std::make_shared<const HostPicture>()) {
  if (units == Units::offered) units_ = std::make_unique<UnitOfWork>(*this);
}

MemoryCompanyFile::~MemoryCompanyFile() = default;

std::shared_ptr<HostTable> MemoryCompanyFile::OpenTable(std::string_view name) {
  session_->requireOpen();
  if (name.empty()) throw RuntimeError::invalidCall();
  auto found = tables_.find(name);
  if (found == tables_.end()) {
    found = tables_.emplace(name, std::make_shared<Storage>(session_)).first;
  }
  return tableOver(found->second);
}

Date MemoryCompanyFile::FiscalYearStart() const {
  session_->requireOpen();
  return fiscal_year_start_;
}

bool MemoryCompanyFile::IsMultiUser() const {
  session_->requireOpen();
  return multi_user_;
}

std::shared_ptr<const HostPicture> MemoryCompanyFile::PalettePicture() const {
  session_->requireOpen();
  return picture_;
}

HostUnitOfWork* MemoryCompanyFile::unitOfWork() { return units_.get(); }

void MemoryCompanyFile::palettePicture(HostPicture picture) {
  picture_ = std::make_shared<const HostPicture>(std::move(picture));
}

void MemoryCompanyFile::close() {
  if (!session_->open) return;
  listeners_.raise(&HostCompanyFileEvents::CompanyFileClosing);
  session_->open = false;
}

void MemoryCompanyFile::reopen() { session_->open = true; }

void MemoryApplication::open(std::shared_ptr<MemoryCompanyFile> file) {
  file_ = std::move(file);
  listeners_.raise(&HostApplicationEvents::CompanyFileOpened);
}

void MemoryApplication::close() {
  if (file_ == nullptr) return;
  const auto closing = std::exchange(file_, nullptr);
  closing->close();
}

}  // namespace depcalc
