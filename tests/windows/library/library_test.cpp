// The library as the system loads it.
#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

namespace {

template <typename Function>
Function* entry(HMODULE library, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

TEST(Library, LoadsAndCanLeave) {
  HMODULE library = LoadLibraryA(DEPCALC_LIBRARY);
  ASSERT_NE(library, nullptr);
  const auto canUnload = entry<HRESULT WINAPI()>(library, "DllCanUnloadNow");
  ASSERT_NE(canUnload, nullptr);
  EXPECT_EQ(canUnload(), S_OK);
  FreeLibrary(library);
}

TEST(Library, KnowsNoOtherClasses) {
  HMODULE library = LoadLibraryA(DEPCALC_LIBRARY);
  ASSERT_NE(library, nullptr);
  const auto getClass =
      entry<HRESULT WINAPI(REFCLSID, REFIID, void**)>(library, "DllGetClassObject");
  ASSERT_NE(getClass, nullptr);
  void* object = &object;
  EXPECT_EQ(getClass(IID_IUnknown, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(getClass(IID_IUnknown, IID_IClassFactory, nullptr), E_POINTER);
  FreeLibrary(library);
}

}  // namespace
