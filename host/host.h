// What the calculator asks of the application that hosts it. Every failure is a RuntimeError;
// what "not found" means stands with each operation.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "values/date.h"
#include "values/stored_value.h"

namespace depcalc {

class HostUnitOfWork;

/// The values of one record object. Names ignore case; the spelling used first is kept.
class HostFields {
 public:
  virtual ~HostFields() = default;

  /// The value called `name`. Not found: Empty, and no error.
  [[nodiscard]] virtual StoredValue GetValue(std::string_view name) const = 0;
  /// Creates or replaces a value. Only the record object that these fields belong to sees it
  /// until that object commits. An empty name, or a Double that is not finite: error 5.
  virtual void SetValue(std::string_view name, StoredValue value) = 0;
  /// The names in the order in which they were first set. For tools; the calculator knows its
  /// names.
  [[nodiscard]] virtual std::vector<std::string> names() const = 0;
};

/// A record as it was committed when this object was made, with what was set since.
class HostRecord {
 public:
  virtual ~HostRecord() = default;

  /// Called before every change or delete. The status says nothing that anybody needs.
  virtual int BeginEdit() = 0;
  /// Marks the record as changed. A commit of a record not so marked writes nothing.
  virtual void Modified(bool changed) = 0;
  /// Writes the values of this object to the company file, all of them or none, and takes the
  /// mark away. The record is no longer in the table: error 9.
  virtual void Commit() = 0;
  /// Removes the record from the table, which counts one less at once. Already gone: error 9.
  virtual void Delete() = 0;
  /// The values, as long as this object lives.
  virtual HostFields& Fields() = 0;
};

/// A named table of records, addressed by index from 0.
class HostTable {
 public:
  virtual ~HostTable() = default;

  /// The number of records, those added and not yet committed among them.
  [[nodiscard]] virtual std::int32_t Count() const = 0;
  /// Whether there is a record `index`. A negative index: false.
  [[nodiscard]] virtual bool Exists(std::int16_t index) const = 0;
  /// A fresh copy of what record `index` holds, a new object every time. Not found: error 9.
  virtual std::shared_ptr<HostRecord> Item(std::int16_t index) = 0;
  /// A new record without values. It counts at once. Negative or already there: error 5.
  virtual std::shared_ptr<HostRecord> Add(std::int16_t index) = 0;
};

/// A picture that a screen takes its colours from.
struct HostPicture {
  std::vector<std::uint32_t> colours;  ///< 0x00BBGGRR
};

/// Told what happens to a company file.
class HostCompanyFileEvents {
 public:
  virtual ~HostCompanyFileEvents() = default;
  /// The file is still open during the call and closed after it.
  virtual void CompanyFileClosing() = 0;
};

/// An open company file. Once it is closed, every operation but the listeners' is error 91.
class HostCompanyFile {
 public:
  virtual ~HostCompanyFile() = default;

  /// The table called `name`, made when it is not there. The empty name: error 5.
  virtual std::shared_ptr<HostTable> OpenTable(std::string_view name) = 0;
  /// The first day of the company's current fiscal year; which one that is, is left to the host
  /// (host/fiscal_year.h says what ours hand out).
  [[nodiscard]] virtual Date FiscalYearStart() const = 0;
  /// Whether the file is open in multi-user mode.
  [[nodiscard]] virtual bool IsMultiUser() const = 0;
  /// The picture whose colours serve as palette; never null.
  [[nodiscard]] virtual std::shared_ptr<const HostPicture> PalettePicture() const = 0;

  /// The unit of work (host/unit_of_work.h) where the host has one, else null.
  [[nodiscard]] virtual HostUnitOfWork* unitOfWork() = 0;

  /// `listener` hears of the closing until it is dismissed. It is not owned.
  virtual void advise(HostCompanyFileEvents& listener) = 0;
  virtual void unadvise(HostCompanyFileEvents& listener) = 0;
};

/// Told what happens to the application.
class HostApplicationEvents {
 public:
  virtual ~HostApplicationEvents() = default;
  /// A company file was opened and is now what CompanyFile answers.
  virtual void CompanyFileOpened() = 0;
};

/// The hosting application.
class HostApplication {
 public:
  virtual ~HostApplication() = default;

  [[nodiscard]] virtual bool IsCompanyFileOpen() const = 0;
  /// The open company file. None open: null, and no error.
  [[nodiscard]] virtual std::shared_ptr<HostCompanyFile> CompanyFile() const = 0;
  /// A text that the host keeps for the calculator: the directory it was started in.
  [[nodiscard]] virtual std::string StartDirectory() const = 0;

  /// `listener` hears of openings until it is dismissed. It is not owned.
  virtual void advise(HostApplicationEvents& listener) = 0;
  virtual void unadvise(HostApplicationEvents& listener) = 0;
};

}  // namespace depcalc
