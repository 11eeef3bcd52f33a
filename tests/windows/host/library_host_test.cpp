// The library in the process of a host application: start-up, refusals, the host's events, letting
// go, the palette. It is built twice: into a program that is called as hosts are, and another one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "host/failing/failing_host.h"
#include "host/memory/memory_host.h"
#include "tests/windows/host/box_answerer.h"
#include "tests/windows/host/call_by_name.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/one_object_factory.h"
#include "tests/windows/host/served_host.h"
#include "tests/windows/library/hosted_control.h"

namespace depcalc {
namespace {

using Microsoft::WRL::ComPtr;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing_support::callByName;
using testing_support::servedPaletteCount;

bool calledAsHostsAre() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return std::wstring(path.data()).find(L"orvw32") != std::wstring::npos;
}

/// An application with the library, and a company file that is not open yet.
struct LibraryInAHost : ::testing::Test {
  LibraryInAHost() {
    CoRegisterClassObject(host_class.id(), &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &registration);
  }
  ~LibraryInAHost() override { CoRevokeClassObject(registration); }

  [[nodiscard]] ComPtr<IUnknown> newCalculator() const {
    return library.make(__uuidof(::DepCalcCont));
  }
  static ComPtr<IDispatch> scripted(const ComPtr<IUnknown>& calculator) {
    ComPtr<IDispatch> object;
    calculator.As(&object);
    return object;
  }
  static ComPtr<::IOrvAddIn> addIn(const ComPtr<IUnknown>& calculator) {
    ComPtr<::IOrvAddIn> object;
    calculator->QueryInterface(__uuidof(::IOrvAddIn),
                               reinterpret_cast<void**>(object.GetAddressOf()));
    return object;
  }
  static void saveBlankAsset(const ComPtr<IUnknown>& calculator) {
    callByName(*scripted(calculator).Get(), L"NewRecord");
    callByName(*scripted(calculator).Get(), L"SaveCurrent");
  }
  std::shared_ptr<HostTable> table() { return file->OpenTable("ZEM:DepCalc"); }
  /// How many references there are besides the test's two.
  [[nodiscard]] ULONG held() const {
    served.Get()->AddRef();
    return served.Get()->Release() - 2;
  }

  windows::Library library;
  testing_support::HostClass host_class{testing_support::HostClass::Server::missing_library};
  testing_support::NamedHost named{HKEY_CURRENT_USER, testing_support::reference_host_name};
  std::shared_ptr<MemoryApplication> application = std::make_shared<MemoryApplication>("C:\\books");
  std::shared_ptr<MemoryCompanyFile> file =
      std::make_shared<MemoryCompanyFile>(Date::strict(2024, 4, 1));
  std::shared_ptr<FailurePlan> plan = std::make_shared<FailurePlan>();
  ComPtr<IDispatch> served =
      testing_support::servedApplication(failingApplication(application, plan));
  testing_support::OneObjectFactory factory{served};
  DWORD registration = 0;
  testing_support::BoxAnswerer answerer;
};

TEST_F(LibraryInAHost, RefusesWithoutACompanyFile) {
  const auto calculator = newCalculator();
  EXPECT_THAT(answerer.boxes(),
              ElementsAre("Depreciate Your Assets: You must have a company file open to use this "
                          "feature. Open a company file, then select the Depreciation Calculator "
                          "again."));
}

TEST_F(LibraryInAHost, RefusesAMultiUserFile) {
  application->open(file);
  file->multiUser(true);
  const auto calculator = newCalculator();
  EXPECT_THAT(answerer.boxes(),
              ElementsAre("Depreciate Your Assets: You must be in single-user mode to use this "
                          "feature. To change modes, choose Switch to Single-user Mode from the "
                          "File menu."));
  EXPECT_EQ(table()->Count(), 0);
}

TEST_F(LibraryInAHost, StartsOnTheOpenFileAndSavesIntoIt) {
  application->open(file);
  windows::HostedControl hosted(newCalculator());
  EXPECT_THAT(answerer.boxes(), IsEmpty());
  ASSERT_EQ(table()->Count(), 1);
  EXPECT_EQ(table()->Item(0)->Fields().GetValue("FYEnd"),
            StoredValue::date(Date::strict(2024, 3, 31)));
  saveBlankAsset(hosted.control());
  EXPECT_EQ(table()->Count(), 2);
}

TEST_F(LibraryInAHost, FollowsTheCompanyFileClosingAndOpening) {
  application->open(file);
  const auto calculator = newCalculator();
  application->close();
  saveBlankAsset(calculator);
  const auto other = std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1));
  application->open(other);
  saveBlankAsset(calculator);
  EXPECT_EQ(other->OpenTable("ZEM:DepCalc")->Count(), 2);
  file->reopen();
  EXPECT_EQ(table()->Count(), 1) << "the closed file is left alone";
}

TEST_F(LibraryInAHost, LetsGoOfTheHostThatTerminates) {
  application->open(file);
  const auto calculator = newCalculator();
  EXPECT_GT(held(), 0U);
  EXPECT_EQ(addIn(calculator)->Initialize(served.Get()), S_OK);
  EXPECT_EQ(addIn(calculator)->AboutToTerminate(), S_OK);
  EXPECT_EQ(held(), 0U);
  EXPECT_EQ(addIn(calculator)->AboutToTerminate(), S_OK);
  EXPECT_EQ(addIn(calculator)->Terminate(), S_OK);
  saveBlankAsset(calculator);
  EXPECT_EQ(table()->Count(), 1);
}

TEST_F(LibraryInAHost, LetsGoOfTheHostWhenItIsReleased) {
  application->open(file);
  {
    windows::HostedControl hosted(newCalculator());
    EXPECT_GT(held(), 0U);
  }
  EXPECT_EQ(held(), 0U);
  EXPECT_TRUE(library.canUnload());
  application->close();
}

TEST_F(LibraryInAHost, SurvivesAnyFailingCallOfTheHost) {
  application->open(file);
  int nth = 0;
  do {
    *plan = FailurePlan{};
    plan->fail_at = ++nth;
    const auto calculator = newCalculator();
    plan->fail_at = 0;
    EXPECT_EQ(callByName(*scripted(calculator).Get(), L"CheckforChanges").type(), VT_BOOL);
    ASSERT_LT(nth, 100);
  } while (plan->calls >= nth);
  EXPECT_GT(nth, 8);
  EXPECT_THAT(answerer.boxes(), IsEmpty());
}

TEST_F(LibraryInAHost, TakesThePaletteInAProgramThatIsCalledAsHostsAre) {
  application->open(file);
  const LONG before = servedPaletteCount();
  const auto calculator = newCalculator();
  EXPECT_EQ(servedPaletteCount() > before, calledAsHostsAre());
}

TEST(LibraryOnAHostThatDies, GoesOn) {
  const windows::Library library;
  const testing_support::HostClass host_class(testing_support::HostClass::Server::shared_process);
  const testing_support::NamedHost named(HKEY_CURRENT_USER, testing_support::reference_host_name);
  testing_support::BoxAnswerer answerer;
  ComPtr<IDispatch> host;
  ASSERT_EQ(CoCreateInstance(host_class.id(), nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&host)),
            S_OK);
  callByName(*host.Get(), L"Open", testing_support::argument(""));
  windows::HostedControl hosted(library.make(__uuidof(::DepCalcCont)));
  EXPECT_THAT(answerer.boxes(), IsEmpty());
  EXPECT_ANY_THROW(callByName(*host.Get(), L"Die"));
  ComPtr<IDispatch> scripted;
  hosted.control()->QueryInterface(IID_PPV_ARGS(&scripted));
  callByName(*scripted.Get(), L"NewRecord");
  callByName(*scripted.Get(), L"SaveCurrent");
  ComPtr<::IOrvAddIn> add_in;
  hosted.control()->QueryInterface(__uuidof(::IOrvAddIn),
                                   reinterpret_cast<void**>(add_in.GetAddressOf()));
  EXPECT_EQ(add_in->AboutToTerminate(), S_OK);
}

}  // namespace
}  // namespace depcalc
