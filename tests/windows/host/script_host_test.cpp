// A host written in script, which knows IDispatchEx alone here, and the calculator on it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <limits>

#include "tests/support/container_fixture.h"
#include "tests/support/error_of.h"
#include "tests/windows/host/call_by_name.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/script_engine.h"
#include "windows/host/automation_host.h"
#include "windows/host/automation_object.h"

namespace depcalc {
namespace {

using Microsoft::WRL::ComPtr;
using testing_support::callByName;

std::string scriptText() {
  std::ifstream file(DEPCALC_HOST_SCRIPT, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// An application object of the script's.
class ScriptHost {
 public:
  [[nodiscard]] IDispatch& object() const { return *application_.Get(); }

 private:
  testing_support::Apartment apartment_;
  testing_support::ScriptEngine engine_{L"VBScript", scriptText()};
  ComPtr<IDispatch> application_ = objectIn(callByName(*engine_.functions().Get(), L"NewHost"));
};

struct CalculatorOnAScript : testing::ContainerFixture {
  CalculatorOnAScript() {
    create_host = [this] { return automationApplication(&host.object()); };
  }
  ScriptHost host;
};

TEST_F(CalculatorOnAScript, SavesReadsAndDeletes) {
  container.DepCalcCont_Initialize();
  stage.pumpPaint();
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
  saveAsset("A1");
  saveAsset("A2");
  CalculateDepArray all = loadRegister();
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[1]->AssetID(), "A2");
  EXPECT_EQ(all[1]->AssetBasis(), testing::money("1000"));
  EXPECT_EQ(all[1]->DepItem(1), testing::money("180"));
  all.erase(all.begin());
  screens.view->events.DeleteButtonClick(all, 0);
  all = loadRegister();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0]->AssetID(), "A2");
  EXPECT_EQ(all[0]->RecIndex(), "1");
  EXPECT_THAT(reports, ::testing::IsEmpty());
}

TEST_F(CalculatorOnAScript, IsRefusedWithoutACompanyFile) {
  callByName(host.object(), L"CloseFile");
  container.DepCalcCont_Initialize();
  EXPECT_THAT(site.boxes, ::testing::SizeIs(1));
  EXPECT_THAT(reports, ::testing::IsEmpty());
}

TEST_F(CalculatorOnAScript, FindsNoValueWhereNoneWasSet) {
  const auto table = create_host()->CompanyFile()->OpenTable("T");
  const auto record = table->Add(0);
  EXPECT_EQ(record->Fields().GetValue("Start").type(), StoredValue::Type::empty);
  EXPECT_THAT(record->Fields().names(), ::testing::IsEmpty());
  EXPECT_TRUE(table->Exists(0));
  EXPECT_FALSE(table->Exists(1));
  record->Delete();
  EXPECT_EQ(table->Count(), 0);
}

TEST_F(CalculatorOnAScript, GetsEveryTypeOfValueBack) {
  const std::vector<StoredValue> values{
      StoredValue::integer(-32768),
      StoredValue::real(-0.0),
      StoredValue::real(std::numeric_limits<double>::denorm_min()),
      StoredValue::currency(Currency::fromTicks(std::numeric_limits<std::int64_t>::min())),
      StoredValue::date(Date()),
      StoredValue::date(Date::strict(9999, 12, 31)),
      StoredValue::text(""),
      StoredValue::text(std::string("a\0b", 3)),
      StoredValue::text("caf\xC3\xA9 \xF0\x9F\x93\x92"),
  };
  const auto record = create_host()->CompanyFile()->OpenTable("T")->Add(0);
  for (std::size_t i = 0; i < values.size(); ++i) {
    record->Fields().SetValue("V" + std::to_string(i), values[i]);
  }
  record->Modified(true);
  record->Commit();
  const auto read = create_host()->CompanyFile()->OpenTable("T")->Item(0);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const StoredValue value = read->Fields().GetValue("v" + std::to_string(i));
    EXPECT_TRUE(value == values[i]) << i << " " << value.typeName() << " " << value.asText();
  }
  EXPECT_THAT(read->Fields().names(), ::testing::Contains("V0"));
}

TEST_F(CalculatorOnAScript, HearsOfAnErrorOfTheScript) {
  const auto company = create_host()->CompanyFile();
  EXPECT_NE(errorOf([&] { (void)company->OpenTable(""); }), 0);
  callByName(host.object(), L"CloseFile");
  EXPECT_NE(errorOf([&] { (void)company->FiscalYearStart(); }), 0);
}

}  // namespace
}  // namespace depcalc
