// The type library of what a host provides says what the calculator asks for.
#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <map>
#include <string>

#include "tests/windows/host/host_class.h"
#include "windows/com/com_text.h"
#include "windows/host/host_events.h"
#include "windows/host/host_role.h"

namespace depcalc {
namespace {

using Microsoft::WRL::ComPtr;

struct HostLibrary : testing::Test {
  HostLibrary() { LoadTypeLibEx(TEXT(DEPCALC_HOST_LIBRARY), REGKIND_NONE, &library); }

  [[nodiscard]] ComPtr<ITypeInfo> type(UINT i) const {
    ComPtr<ITypeInfo> found;
    library->GetTypeInfo(i, &found);
    return found;
  }
  /// How many of its interfaces have a member of this name.
  [[nodiscard]] int interfacesWith(const wchar_t* member) const {
    int count = 0;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
      auto* name = const_cast<wchar_t*>(member);
      MEMBERID id = 0;
      if (SUCCEEDED(type(i)->GetIDsOfNames(&name, 1, &id))) ++count;
    }
    return count;
  }
  [[nodiscard]] MEMBERID idIn(const IID& source, const wchar_t* event) const {
    ComPtr<ITypeInfo> found;
    if (FAILED(library->GetTypeInfoOfGuid(source, &found))) return MEMBERID_NIL;
    auto* name = const_cast<wchar_t*>(event);
    MEMBERID id = MEMBERID_NIL;
    found->GetIDsOfNames(&name, 1, &id);
    return id;
  }

  testing_support::Apartment apartment;
  ComPtr<ITypeLib> library;
};

TEST_F(HostLibrary, HasEveryRoleInOneInterface) {
  ASSERT_NE(library, nullptr);
  for (std::size_t i = 0; i < host_role_count; ++i) {
    const wchar_t* name = nameOf(static_cast<HostRole>(i));
    EXPECT_EQ(interfacesWith(name), 1) << textFromUtf16(name);
  }
}

TEST_F(HostLibrary, HasTheEventsUnderTheirIdentifiers) {
  for (const HostEvent* event : {&company_file_opened, &company_file_closing}) {
    EXPECT_EQ(idIn(event->source, event->name), event->id) << textFromUtf16(event->name);
  }
}

TEST_F(HostLibrary, ExplainsEveryMember) {
  int members = 0;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type(i)->GetTypeAttr(&attributes), S_OK);
    const UINT functions = attributes->cFuncs;
    type(i)->ReleaseTypeAttr(attributes);
    for (UINT f = 0; f < functions; ++f) {
      FUNCDESC* function = nullptr;
      ASSERT_EQ(type(i)->GetFuncDesc(f, &function), S_OK);
      const MEMBERID id = function->memid;
      type(i)->ReleaseFuncDesc(function);
      if (id >= 0x60000000) continue;  // IUnknown's and IDispatch's
      BSTR name = nullptr;
      BSTR help = nullptr;
      type(i)->GetDocumentation(id, &name, &help, nullptr, nullptr);
      EXPECT_GT(SysStringLen(help), 0U) << textFromBstr(name);
      SysFreeString(name);
      SysFreeString(help);
      ++members;
    }
  }
  EXPECT_EQ(members, static_cast<int>(host_role_count) + 2);
}

}  // namespace
}  // namespace depcalc
