// Creating the host that the registry names, in its own process, and outliving it.
#include "windows/host/create_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/windows/host/host_class.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using testing_support::HostClass;
using testing_support::NamedHost;
using testing_support::reference_host_name;

std::string refusal() {
  try {
    (void)createHostApplication();
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + ": " + error.description();
  }
  return "";
}

struct CreateHost : testing::Test {
  testing_support::Apartment apartment;
};

TEST_F(CreateHost, SaysWhereToNameAHostWhereNoneIsNamed) {
  EXPECT_EQ(refusal(),
            "429: No host is named: write the ProgID of the host's application as value Host of "
            "HKEY_CURRENT_USER\\Software\\ZemDepCalc");
  const NamedHost empty(HKEY_CURRENT_USER, L"");
  EXPECT_THAT(refusal(), HasSubstr("No host is named"));
}

TEST_F(CreateHost, SaysWhichHostIsNotRegistered) {
  const NamedHost named(HKEY_LOCAL_MACHINE, L"Nobody.Application");
  EXPECT_EQ(refusal(), "429: The host \"Nobody.Application\" is not registered on this computer");
}

TEST_F(CreateHost, AsksTheUsersKeyBeforeTheComputers) {
  const NamedHost for_all(HKEY_LOCAL_MACHINE, L"Nobody.ForAll");
  EXPECT_THAT(refusal(), HasSubstr("Nobody.ForAll"));
  const NamedHost for_user(HKEY_CURRENT_USER, L"Nobody.ForUser");
  EXPECT_THAT(refusal(), HasSubstr("Nobody.ForUser"));
}

TEST_F(CreateHost, SaysWhichHostCannotBeHad) {
  const HostClass registered(HostClass::Server::missing_library);
  const NamedHost named(HKEY_CURRENT_USER, reference_host_name);
  EXPECT_THAT(refusal(),
              HasSubstr("The host \"DepCalcReferenceHost.Application\" cannot be had: "));
}

TEST_F(CreateHost, CreatesTheHostInAProcessOfItsOwn) {
  const HostClass registered;
  const NamedHost named(HKEY_CURRENT_USER, reference_host_name);
  const auto host = createHostApplication();
  EXPECT_FALSE(host->IsCompanyFileOpen());
  EXPECT_EQ(host->CompanyFile(), nullptr);
  EXPECT_EQ(host->StartDirectory(), "C:\\books");
}

}  // namespace
}  // namespace depcalc
