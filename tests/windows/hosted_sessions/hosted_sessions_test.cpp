// The sessions that every host prints alike, by the library's own control on a page of the control
// container that comes with the system.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/drive/memory_drive_host.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/one_object_factory.h"
#include "tests/windows/host/served_host.h"
#include "tests/windows/hosted_sessions/session_hook.h"
#include "tests/windows/library/hosted_control.h"

namespace depcalc::testing {
namespace {

using windows::ComPtr;

template <typename Function>
Function* exported(const char* library, const char* name) {
  HMODULE module = LoadLibraryA(library);
  if (module == nullptr) throw std::runtime_error(std::string("no library at ") + library);
  auto* const found =
      reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
  FreeLibrary(module);
  return found;
}

/// The application object, as the class that the registry names for the host hands it out.
class NamedApplication {
 public:
  explicit NamedApplication(ComPtr<IDispatch> application) : factory_(std::move(application)) {
    CoRegisterClassObject(class_.id(), &factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &registration_);
  }
  ~NamedApplication() { CoRevokeClassObject(registration_); }
  NamedApplication(const NamedApplication&) = delete;
  NamedApplication& operator=(const NamedApplication&) = delete;

 private:
  testing_support::HostClass class_{testing_support::HostClass::Server::missing_library};
  testing_support::NamedHost named_{HKEY_CURRENT_USER, testing_support::reference_host_name};
  testing_support::OneObjectFactory factory_;
  DWORD registration_ = 0;
};

/// A program with company files and the calculator on a page.
class Program final : public SessionHost {
 public:
  std::string replayed(const std::string& session) {
    exported<ReplaySession>(DEPCALC_LIBRARY, replay_session_name)(session.c_str(), *this);
    return transcript_;
  }

  void begin(int year, int month, int day) override {
    files_.emplace(Date::strict(year, month, day));
    application_ = testing_support::servedApplication(files_->application());
    named_.emplace(application_);
  }
  IDispatch* application() override { return ComPtr<IDispatch>(application_).Detach(); }
  void open(const char* path) override { files_->open(path); }
  void close() override { files_->close(); }
  bool setMultiUser(bool multi_user) override {
    try {
      files_->setMultiUser(multi_user);
      return true;
    } catch (const RuntimeError&) {
      return false;
    }
  }

  IUnknown* hostCalculator() override {
    try {
      page_.emplace(library_.make(__uuidof(::DepCalcCont)));
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
      return nullptr;
    }
    SetForegroundWindow(page_->page());
    beside_ = CreateWindowExW(0, L"BUTTON", L"Beside", WS_CHILD | WS_VISIBLE, 0, 0, 1, 1,
                              page_->page(), nullptr, nullptr, nullptr);
    act(OLEIVERB_UIACTIVATE);
    return page_->control();
  }
  void takeKeys() override {
    SetFocus(beside_);
    EXPECT_EQ(GetFocus(), beside_);
    ComPtr<IOleInPlaceObject> object;
    page_->control()->QueryInterface(IID_PPV_ARGS(&object));
    EXPECT_EQ(object->UIDeactivate(), S_OK);
  }
  void end() override { page_.reset(); }
  void complain(const char* what) override { ADD_FAILURE() << what; }
  void take(const char* transcript) override { transcript_ = transcript; }

 private:
  void act(LONG verb) {
    ComPtr<IOleObject> object;
    ComPtr<IOleClientSite> site;
    page_->control()->QueryInterface(IID_PPV_ARGS(&object));
    object->GetClientSite(&site);
    EXPECT_EQ(object->DoVerb(verb, nullptr, site.Get(), 0, page_->page(), nullptr), S_OK);
  }

  windows::Library library_;
  std::optional<drive::MemoryDriveHost> files_;
  ComPtr<IDispatch> application_;
  std::optional<NamedApplication> named_;
  std::optional<windows::HostedControl> page_;
  HWND beside_ = nullptr;  ///< a window of the page's own
  std::string transcript_;
};

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::filesystem::path> sessions() {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::directory_iterator(DEPCALC_SESSIONS)) {
    if (entry.path().extension() == ".golden") found.push_back(entry.path());
  }
  return found;
}

class HostedSessions : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(HostedSessions, PrintWhatTheyPrintOnEveryHost) {
  const std::string expected = contentOf(GetParam());
  ASSERT_NE(expected, "");
  EXPECT_EQ(Program().replayed(expected), expected);
}

INSTANTIATE_TEST_SUITE_P(All, HostedSessions, ::testing::ValuesIn(sessions()),
                         [](const auto& at) { return at.param.stem().string(); });

TEST(SessionHook, IsTheTestBuildsAlone) {
  EXPECT_NE(exported<ReplaySession>(DEPCALC_LIBRARY, replay_session_name), nullptr);
  EXPECT_EQ(exported<ReplaySession>(DEPCALC_SHIPPED_LIBRARY, replay_session_name), nullptr);
  EXPECT_NE(exported<ReplaySession>(DEPCALC_SHIPPED_LIBRARY, "DllGetClassObject"), nullptr);
}

}  // namespace
}  // namespace depcalc::testing
