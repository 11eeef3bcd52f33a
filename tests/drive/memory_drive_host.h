// Company files in memory, for scripts.
#pragma once

#include <map>

#include "host/fiscal_year.h"
#include "host/memory/memory_host.h"
#include "tests/drive/drive_host.h"
#include "values/runtime_error.h"

namespace depcalc::drive {

/// A file comes into being when it is first opened, and is there again when it is opened anew.
class MemoryDriveHost : public DriveHost {
 public:
  explicit MemoryDriveHost(Date fiscal_year_start)
      : fiscal_year_start_(currentFiscalYearStart(fiscal_year_start.month(), fiscal_year_start)) {}

  std::shared_ptr<HostApplication> application() override { return application_; }

  void open(const std::string& path) override {
    close();
    auto& file = files_[path];
    if (file == nullptr) {
      file = std::make_shared<MemoryCompanyFile>(fiscal_year_start_);
    } else {
      file->reopen();
    }
    open_ = file;
    application_->open(file);
  }

  void close() override {
    application_->close();
    open_ = nullptr;
  }

  void setMultiUser(bool multi_user) override {
    if (open_ == nullptr) throw RuntimeError::objectNotSet();
    open_->multiUser(multi_user);
  }

 private:
  Date fiscal_year_start_;
  std::shared_ptr<MemoryApplication> application_ = std::make_shared<MemoryApplication>("/books");
  std::shared_ptr<MemoryCompanyFile> open_;
  std::map<std::string, std::shared_ptr<MemoryCompanyFile>> files_;
};

}  // namespace depcalc::drive
