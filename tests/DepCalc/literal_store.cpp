#include "tests/DepCalc/literal_store.h"

#include <utility>

#include "values/number_text.h"
#include "values/rounding.h"
#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc::testing_support {

template <typename Body>
void LiteralStore::trap(const std::string& procedure, Body body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    reports.push_back("DepCalc::" + procedure + " Error#" + std::to_string(error.number()) + ": " +
                      error.description());
  }
}

void LiteralStore::OpenTable() {
  if (!open) throw RuntimeError(91, "Object variable or With block variable not set");
  plan.read();
  if (TableName.empty()) throw RuntimeError(5, "Invalid procedure call or argument");
}

Date LiteralStore::FiscalYearStart() {
  plan.read();
  return fiscal_year_start;
}

int LiteralStore::Count() {
  plan.read();
  return static_cast<int>(table.size());
}

bool LiteralStore::Exists(int index) {
  plan.read();
  return table.contains(index);
}

LiteralStore::Record LiteralStore::Item(int index) {
  plan.read();
  if (!table.contains(index)) throw RuntimeError(9, "Subscript out of range");
  return {index, nullptr, &table[index]};
}

LiteralStore::Record LiteralStore::Add(int index) {
  plan.change();
  if (table.contains(index)) throw RuntimeError(5, "Invalid procedure call or argument");
  table[index] = {};
  return {index, std::make_shared<Values>(), nullptr};
}

void LiteralStore::BeginEdit() { plan.change(); }
void LiteralStore::Modified() { plan.change(); }

StoredValue LiteralStore::Get(const Record& record, const std::string& name) {
  plan.read();  // Fields
  plan.read();
  const Values& values = record.own != nullptr ? *record.own : *record.stored;
  const auto found = values.find(toLower(name));
  return found == values.end() ? StoredValue() : found->second;
}

void LiteralStore::Set(Record& record, const std::string& name, StoredValue value) {
  plan.read();  // Fields
  plan.change();
  if (record.own == nullptr) record.own = std::make_shared<Values>(*record.stored);
  (*record.own)[toLower(name)] = std::move(value);
}

void LiteralStore::Commit(const Record& record) {
  plan.change();
  if (record.own != nullptr) table[record.index] = *record.own;
}

void LiteralStore::Delete(const Record& record) {
  plan.change();
  table.erase(record.index);
}

bool LiteralStore::openStore() {
  TableName = "ZEM:DepCalc";
  InfoIndex = 0;
  OpenTable();
  const Date end = FiscalYearStart().plusDays(-1);
  const bool fresh = !Exists(InfoIndex) || Count() < 1;
  Record record = fresh ? Add(InfoIndex) : Item(InfoIndex);
  BeginEdit();
  Set(record, "FYEND", StoredValue::date(end));
  Modified();
  Commit(record);
  return !fresh && Count() > 1;
}

void LiteralStore::ReadTableInfo(std::int16_t& start, double& years, std::int16_t& assets,
                                 Date& end) {
  trap("ReadTableInfo", [&] {
    OpenTable();
    const bool ok = Exists(InfoIndex);
    const int n = Count();
    if (n < 1 || !ok) return;
    const Record record = Item(InfoIndex);
    const std::string s = Get(record, "Start").asText();
    if (!s.empty()) start = toInteger16HalfEven(numberFromText(s));
    years = Get(record, "NumYears").asDouble();
    assets = toInteger16HalfEven(Count() - 1);
    end = Get(record, "FYEnd").asDate(today);
    const Date d = FiscalYearStart().plusDays(-1);
    if (d != end) end = d;
  });
}

int LiteralStore::firstYear(const Record& record) {
  const Date e = Get(record, "FYEnd").asDate(today);
  const Date s = Get(record, "AStart").asDate(today);
  const bool leap = (s.year() % 4 == 0 && s.year() % 100 != 0) || s.year() % 400 == 0;
  int month = e.month();
  int day = e.day();
  if (month == 2 && day == 29 && !leap) month = 3, day = 1;
  const bool before = std::pair(month, day) < std::pair(s.month(), s.day());
  return before ? s.year() + 1 : s.year();
}

void LiteralStore::WriteTableInfo() {
  trap("WriteTableInfo", [&] {
    OpenTable();
    StartYr = 3000;
    NumYrs = 0;
    int count = Count();
    for (int i = 1; i <= count - 1; ++i) {
      const Record record = Item(i);
      const int f = firstYear(record);
      if (f < StartYr) StartYr = static_cast<std::int16_t>(f);
    }
    count = Count();
    for (int i = 1; i <= count - 1; ++i) {
      const Record record = Item(i);
      const int f = firstYear(record);
      const std::string c = Get(record, "DConvention").asText();
      const int offset = f - StartYr;
      const std::string m = Get(record, "DMethod").asText();
      std::int16_t span = 1;
      if (m != "uop" && m != "UOP") {
        const double r = Get(record, "DRecovery").asDouble();
        span = numberFromText(c) != 0 ? toInteger16HalfEven(offset + r + 1)
                                      : toInteger16HalfEven(offset + r);
      }
      if (span > NumYrs) NumYrs = span;
    }
    Record record = Item(InfoIndex);
    BeginEdit();
    Set(record, "Start", StoredValue::integer(StartYr));
    Set(record, "NumYears", StoredValue::real(NumYrs));
    const Date end = FiscalYearStart().plusDays(-1);
    Set(record, "FYEND", StoredValue::date(end));
    Modified();
    Commit(record);
  });
}

CalculateDepPtr LiteralStore::ReadData(std::int16_t index) {
  auto result = std::make_shared<CalculateDep>();
  trap("ReadData", [&] {
    OpenTable();
    const bool ok = Exists(index);
    const int n = Count();
    if (n < 1 || !ok) return;
    const Record record = Item(index);
    result->RecIndex(Get(record, "RecIndex").asText());
    result->AssetID(Get(record, "AID").asText());
    result->AssetName(Get(record, "AName").asText());
    result->ASerial(Get(record, "ASerial").asText());
    result->ADept(Get(record, "ADept").asText());
    result->AssetEndDate(Get(record, "AEnd").asDate(today));
    result->ASalePrice(Get(record, "ASale").asText());
    result->AssetBasis(Get(record, "ABasis").asCurrency());
    result->AssetStartDate(Get(record, "AStart").asDate(today));
    result->AssetSalvage(Get(record, "ASalvage").asCurrency());
    result->AssetProdCap(Get(record, "AProdCap").asText());
    result->DepRecovery(Get(record, "DRecovery").asDouble());
    result->DepConvention(Get(record, "DConvention").asText());
    result->FYEnd(Get(record, "FYEnd").asDate(today));
    result->DepMethod(Get(record, "DMethod").asText());
    if (result->DepMethod() != "UOP") {
      const int last = toInteger16HalfEven(result->DepRecovery() + 1);
      for (int y = 0; y <= last; ++y) {
        result->DepItem(static_cast<std::int16_t>(y),
                        Get(record, "Dep" + std::to_string(y)).asCurrency());
      }
    } else {
      result->DepItem(0, Get(record, "Dep0").asCurrency());
    }
    if (CurrentRecord == nullptr) {
      throw RuntimeError(91, "Object variable or With block variable not set");
    }
    CurrentRecord->RecNew(false);
  });
  return result;
}

void LiteralStore::WriteData(std::int16_t& index) {
  trap("WriteData", [&] {
    if (TableName.empty() || InfoIndex < 0) return;
    OpenTable();
    const int n = Count();
    const bool ok = Exists(InfoIndex);
    if (!(n != 0 && ok)) Add(InfoIndex);
    if (CurrentRecord == nullptr) {
      throw RuntimeError(91, "Object variable or With block variable not set");
    }
    CalculateDep& asset = *CurrentRecord;
    Record record;
    if (numberFromText(asset.RecIndex()) != 0) {
      record = Item(index);
    } else {
      const int k = Count();
      if (k > 32767) throw RuntimeError(6, "Overflow");
      index = static_cast<std::int16_t>(k);
      asset.RecIndex(std::to_string(k));
      record = Add(k);
    }
    BeginEdit();
    Set(record, "RecIndex", StoredValue::integer(index));
    Set(record, "AID", StoredValue::text(asset.AssetID()));
    Set(record, "AName", StoredValue::text(asset.AssetName()));
    Set(record, "ASerial", StoredValue::text(asset.ASerial()));
    Set(record, "ADept", StoredValue::text(asset.ADept()));
    Set(record, "AEnd", StoredValue::date(asset.AssetEndDate()));
    Set(record, "ASale", StoredValue::text(asset.ASalePrice()));
    Set(record, "ABasis", StoredValue::currency(asset.AssetBasis()));
    Set(record, "AStart",
        StoredValue::date(asset.AssetStartDate().isNone() ? today : asset.AssetStartDate()));
    Set(record, "ASalvage", StoredValue::currency(asset.AssetSalvage()));
    Set(record, "AProdCap", StoredValue::text(asset.AssetProdCap()));
    Set(record, "DRecovery", StoredValue::real(asset.DepRecovery()));
    Set(record, "DConvention", StoredValue::text(asset.DepConvention()));
    Set(record, "FYEnd", StoredValue::date(asset.FYEnd()));
    Set(record, "DMethod", StoredValue::text(asset.DepMethod()));
    Modified();
    Commit(record);
    WriteTableInfo();
    ReadTableInfo(StartYr, NumYrs, NumAssets, FYEnd);
    BeginEdit();
    const int blanks = toInteger16HalfEven(NumYrs + 1);
    for (int y = 0; y <= blanks; ++y) {
      Set(record, "Dep" + std::to_string(y), StoredValue::text(""));
    }
    if (asset.DepMethod() == "UOP") {
      Set(record, "Dep0", StoredValue::currency(asset.DepItem(0)));
    } else if (!asset.DepMethod().empty()) {
      const int amounts = toInteger16HalfEven(NumYrs);
      for (int y = 0; y <= amounts; ++y) {
        Set(record, "Dep" + std::to_string(y),
            StoredValue::currency(asset.DepItem(static_cast<std::int16_t>(y))));
      }
    }
    Modified();
    Commit(record);
    Item(InfoIndex);
    WriteTableInfo();
  });
}

void LiteralStore::DeleteRecord(const std::vector<CalculateDepPtr>& records, std::int16_t index) {
  trap("DeleteRecord", [&] {
    OpenTable();
    if (Count() == 1) {
      const Record only = Item(0);
      BeginEdit();
      Delete(only);
    }
    const int last = Count() - 1;
    if (!Exists(last)) return;
    const Record gone = Item(last);
    BeginEdit();
    Delete(gone);
    if (Count() == 1) {
      const Record info = Item(0);
      BeginEdit();
      Delete(info);
      return;
    }
    for (int i = index == 0 ? 1 : index; i <= last - 1; ++i) {
      if (i - 1 < 0 || i - 1 >= static_cast<int>(records.size())) {
        throw RuntimeError(9, "Subscript out of range");
      }
      CurrentRecord = records[static_cast<std::size_t>(i - 1)];
      auto slot = static_cast<std::int16_t>(i);
      WriteData(slot);
    }
  });
}

void LiteralStore::DepCalcContSaveRecord(CalculateDepPtr record) {
  trap("DepCalcContSaveRecord", [&] {
    CurrentRecord = std::move(record);
    if (CurrentRecord == nullptr) {
      throw RuntimeError(91, "Object variable or With block variable not set");
    }
    auto index = toInteger16HalfEven(numberFromText(CurrentRecord->RecIndex()));
    WriteData(index);
  });
}

}  // namespace depcalc::testing_support
