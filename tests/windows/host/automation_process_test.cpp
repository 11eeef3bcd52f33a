// A host in a process of its own: what every host promises, across the border, and what is left of
// the calculator when that process dies.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "host/fiscal_year.h"
#include "tests/support/container_fixture.h"
#include "tests/support/error_of.h"
#include "tests/support/test_hosts.h"
#include "tests/windows/host/call_by_name.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/reference_host.h"
#include "windows/host/automation_host.h"

namespace depcalc {
namespace {

using Microsoft::WRL::ComPtr;
using testing_support::argument;
using testing_support::callByName;

ComPtr<IDispatch> newHost(const testing_support::HostClass& host_class) {
  ComPtr<IDispatch> host;
  const HRESULT made =
      CoCreateInstance(host_class.id(), nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&host));
  if (FAILED(made)) throw std::runtime_error("no reference host: " + std::to_string(made));
  return host;
}

/// The process that serves the tests which leave it alive.
class OneProcess final : public ::testing::Environment {
 public:
  void SetUp() override {
    apartment_.emplace();
    class_.emplace();
    host_ = newHost(*class_);
  }
  void TearDown() override {
    host_.Reset();
    class_.reset();
    apartment_.reset();
  }
  [[nodiscard]] ComPtr<IDispatch> anotherHost() const { return newHost(*class_); }

 private:
  std::optional<testing_support::Apartment> apartment_;
  std::optional<testing_support::HostClass> class_;
  ComPtr<IDispatch> host_;
};

const auto* const one_process =
    static_cast<OneProcess*>(::testing::AddGlobalTestEnvironment(new OneProcess));

/// A company file in the other process's memory.
class ProcessTestHost final : public testing_support::TestHost {
 public:
  explicit ProcessTestHost(Date fiscal_year_start)
      : host_(one_process->anotherHost()), application_(automationApplication(host_.Get())) {
    fiscalYearStart(fiscal_year_start);
    reopen();
  }

  std::shared_ptr<HostCompanyFile> file() override { return file_; }
  std::shared_ptr<HostCompanyFile> failingFile(std::shared_ptr<FailurePlan> plan) override {
    return failingCompanyFile(file_, std::move(plan));
  }
  void close() override { callByName(*host_.Get(), L"Close"); }
  void reopen() override {
    callByName(*host_.Get(), L"Open", argument(""));
    file_ = application_->CompanyFile();
  }
  void fiscalYearStart(Date first_day) override {
    const Date start = currentFiscalYearStart(first_day.month(), first_day);
    callByName(*host_.Get(), L"FiscalYear", argument(start));
  }

 private:
  ComPtr<IDispatch> host_;
  std::shared_ptr<HostApplication> application_;
  std::shared_ptr<HostCompanyFile> file_;
};

struct Hearing final : HostApplicationEvents, HostCompanyFileEvents {
  void CompanyFileOpened() override { ++openings; }
  void CompanyFileClosing() override { ++closings; }
  int openings = 0;
  int closings = 0;
};

TEST(HostInItsOwnProcess, IsHeardAcrossTheBorder) {
  const auto host = one_process->anotherHost();
  const auto application = automationApplication(host.Get());
  Hearing hearing;
  application->advise(hearing);
  callByName(*host.Get(), L"Open", argument(""));
  EXPECT_EQ(hearing.openings, 1);
  const auto file = application->CompanyFile();
  file->advise(hearing);
  callByName(*host.Get(), L"Close");
  EXPECT_EQ(hearing.closings, 1);
  application->unadvise(hearing);
  callByName(*host.Get(), L"Open", argument(""));
  EXPECT_EQ(hearing.openings, 1);
  file->unadvise(hearing);
}

/// Ends the process of `host`, and waits for it where a call still gets through.
void kill(const ComPtr<IDispatch>& host) {
  EXPECT_ANY_THROW(callByName(*host.Get(), L"Die"));
  EXPECT_ANY_THROW(callByName(*host.Get(), L"Calls"));
}

constexpr int unavailable = 462;

TEST(HostThatDies, FailsEveryCallWithOneError) {
  const testing_support::HostClass host_class;
  const auto host = newHost(host_class);
  const auto application = automationApplication(host.Get());
  callByName(*host.Get(), L"Open", argument(""));
  Hearing hearing;
  application->advise(hearing);
  const auto file = application->CompanyFile();
  file->advise(hearing);
  const auto table = file->OpenTable("T");
  const auto record = table->Add(0);
  HostFields& fields = record->Fields();
  kill(host);
  EXPECT_EQ(errorOf([&] { (void)application->IsCompanyFileOpen(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)application->CompanyFile(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)application->StartDirectory(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)file->OpenTable("T"); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)file->FiscalYearStart(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)file->IsMultiUser(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)file->PalettePicture(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)table->Count(); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)table->Exists(0); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)table->Item(0); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)table->Add(1); }), unavailable);
  EXPECT_EQ(errorOf([&] { record->BeginEdit(); }), unavailable);
  EXPECT_EQ(errorOf([&] { fields.SetValue("A", StoredValue::integer(1)); }), unavailable);
  EXPECT_EQ(errorOf([&] { (void)fields.GetValue("A"); }), unavailable);
  EXPECT_EQ(errorOf([&] { record->Modified(true); }), unavailable);
  EXPECT_EQ(errorOf([&] { record->Commit(); }), unavailable);
  EXPECT_EQ(errorOf([&] { record->Delete(); }), unavailable);
  file->unadvise(hearing);
  application->unadvise(hearing);
}

/// The calculator on a host of another process.
struct CalculatorOnAHostThatDies : testing::ContainerFixture {
  CalculatorOnAHostThatDies() {
    create_host = [this] { return automationApplication(host.Get()); };
    callByName(*host.Get(), L"Open", argument(""));
    container.DepCalcCont_Initialize();
    stage.pumpPaint();
    saveAsset("A1");
  }

  testing_support::HostClass host_class;
  ComPtr<IDispatch> host = newHost(host_class);
};

TEST_F(CalculatorOnAHostThatDies, GoesOnAndReportsWhatFails) {
  EXPECT_THAT(reports, ::testing::IsEmpty());
  kill(host);
  CalculateDepPtr record;
  Date end;
  screens.ctl->events.GetCalcDep(record, end);
  EXPECT_EQ(record, container.CurrentRecord());
  loadRegister();
  screens.ctl->events.ButtonClick("Save");
  screens.view->events.ButtonClick("Edit");
  CalculateDepArray slots(2);
  screens.view->events.DeleteButtonClick(slots, 0);
  EXPECT_THAT(reports, ::testing::SizeIs(5));
  EXPECT_THAT(reports, ::testing::Each(::testing::HasSubstr(" Error#462: The host's ")));
  container.AboutToTerminate();
  EXPECT_EQ(container.m_orvcf(), nullptr);
}

}  // namespace

namespace testing_support {

const std::vector<HostKind>& hostKinds() {
  static const std::vector<HostKind> kinds{
      {.name = "process",
       .make = [](Date start) { return std::make_unique<ProcessTestHost>(start); },
       .keeps_bytes = false},
  };
  return kinds;
}

std::vector<HostKind> hostKindsWithUnits() { return {}; }

std::string testNameOf(const HostKind& kind) {
  std::string name = kind.name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name;
}

}  // namespace testing_support
}  // namespace depcalc
