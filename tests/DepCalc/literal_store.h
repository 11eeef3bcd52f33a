// The store's procedures once more, step by step as they are defined, over plain maps: slow,
// obvious, and sharing nothing with the store but values and the asset record.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/calculate_dep.h"
#include "host/failing/failing_host.h"
#include "values/stored_value.h"

namespace depcalc::testing_support {

/// What a table holds: by index, by name in small letters.
using TableContent = std::map<int, std::map<std::string, StoredValue>>;

class LiteralStore {
 public:
  /// What host and container are to the procedures; public, to be compared.
  TableContent table;
  bool open = true;
  Date fiscal_year_start;
  Date today;
  FailurePlan plan;
  std::vector<std::string> reports;

  std::string TableName;
  int InfoIndex = 0;
  CalculateDepPtr CurrentRecord;
  std::int16_t StartYr = 0;
  double NumYrs = 0;
  std::int16_t NumAssets = 0;
  Date FYEnd;

  /// Whether the register is what to show first.
  bool openStore();
  void ReadTableInfo(std::int16_t& start, double& years, std::int16_t& assets, Date& end);
  void WriteTableInfo();
  CalculateDepPtr ReadData(std::int16_t index);
  void WriteData(std::int16_t& index);
  void DeleteRecord(const std::vector<CalculateDepPtr>& records, std::int16_t index);
  void DepCalcContSaveRecord(CalculateDepPtr record);

 private:
  using Values = std::map<std::string, StoredValue>;
  struct Record {
    int index = 0;
    std::shared_ptr<Values> own;     ///< once something was set
    const Values* stored = nullptr;  ///< what a fresh copy holds until then
  };

  template <typename Body>
  void trap(const std::string& procedure, Body body);

  // The host's operations; each counts as a call.
  void OpenTable();
  Date FiscalYearStart();
  int Count();
  bool Exists(int index);
  Record Item(int index);
  Record Add(int index);
  void BeginEdit();
  StoredValue Get(const Record& record, const std::string& name);
  void Set(Record& record, const std::string& name, StoredValue value);
  void Modified();
  void Commit(const Record& record);
  void Delete(const Record& record);

  int firstYear(const Record& record);
};

}  // namespace depcalc::testing_support
