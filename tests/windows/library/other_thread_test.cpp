// Every method of every interface, called from a thread that has no business with the object.
#include <gtest/gtest.h>
#include <objsafe.h>

#include <algorithm>
#include <array>
#include <map>
#include <thread>

#include "tests/windows/library/control_names.h"
#include "tests/windows/library/library_objects.h"

__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0,
                0x64)

namespace depcalc::windows {
namespace {

constexpr int own_methods = 3;  // after those of IUnknown, which any thread may call

/// An interface by the places of its methods, those of IUnknown included.
struct MethodTable {
  const char* name;
  GUID id;
  int methods;
  /// What touches nothing of the object answers there as it does everywhere.
  std::map<int, HRESULT> harmless = {};
};

const MethodTable of_controls[] = {
    {"IOleObject",
     IID_IOleObject,
     24,
     {{5, S_OK}, {7, E_NOTIMPL}, {9, E_NOTIMPL}, {13, S_OK}, {14, S_OK}, {23, E_NOTIMPL}}},
    {"IOleControl", IID_IOleControl, 7},
    {"IOleInPlaceObject", IID_IOleInPlaceObject, 9, {{4, S_OK}, {8, INPLACE_E_NOTUNDOABLE}}},
    {"IOleInPlaceActiveObject", IID_IOleInPlaceActiveObject, 10, {{4, S_OK}, {6, S_OK}, {7, S_OK}}},
    {"IViewObject2", IID_IViewObject2, 10, {{6, E_NOTIMPL}}},
    {"IPersistStream", IID_IPersistStream, 8},
    {"IPersistStreamInit", IID_IPersistStreamInit, 9, {{8, S_OK}}},
    {"IPersistStorage", IID_IPersistStorage, 10, {{8, S_OK}, {9, S_OK}}},
    {"IPersistPropertyBag", IID_IPersistPropertyBag, 7, {{4, S_OK}}},
    {"IProvideClassInfo2", IID_IProvideClassInfo2, 5},
    {"IConnectionPointContainer", IID_IConnectionPointContainer, 5},
    {"ISupportErrorInfo", IID_ISupportErrorInfo, 4, {{3, S_FALSE}}},
};
const MethodTable of_the_container[] = {
    {"IObjectSafety", __uuidof(IObjectSafety), 5},
    {"IOrvAddIn", __uuidof(::IOrvAddIn), 10},
};
const MethodTable of_connection_points = {"IConnectionPoint", IID_IConnectionPoint, 8, {{3, S_OK}}};
const MethodTable of_enumerations[] = {
    {"IEnumConnectionPoints", IID_IEnumConnectionPoints, 7},
    {"IEnumConnections", IID_IEnumConnections, 7},
};

/// Room for whatever a method writes; its address is every argument.
using Scratch = std::array<void*, 64>;

/// By its place in the table, with more arguments than any method takes: the caller clears them.
HRESULT callMethod(IUnknown& object, int method, Scratch& scratch) {
  using Method = HRESULT(STDMETHODCALLTYPE*)(void*, void*, void*, void*, void*, void*, void*, void*,
                                             void*, void*, void*);
  const auto* methods = *reinterpret_cast<void***>(&object);
  void* const any = scratch.data();
  return reinterpret_cast<Method>(methods[method])(&object, any, any, any, any, any, any, any, any,
                                                   any, any);
}

void expectRefusals(IUnknown& object, const MethodTable& of) {
  ComPtr<IUnknown> asked;
  ASSERT_EQ(object.QueryInterface(of.id, reinterpret_cast<void**>(asked.GetAddressOf())), S_OK)
      << of.name;
  std::thread([&] {
    for (int method = own_methods; method < of.methods; ++method) {
      Scratch scratch{};
      const HRESULT answer = callMethod(*asked.Get(), method, scratch);
      const auto harmless = of.harmless.find(method);
      EXPECT_EQ(answer, harmless == of.harmless.end() ? RPC_E_WRONG_THREAD : harmless->second)
          << of.name << ", method " << method;
      EXPECT_TRUE(harmless != of.harmless.end() || scratch == Scratch{})
          << of.name << ", method " << method << " wrote something";
    }
  }).join();
}

/// The dual interface of an object, as long as its type library says.
MethodTable dualInterface(IUnknown& object) {
  ComPtr<IDispatch> dispatch;
  ComPtr<ITypeInfo> dispatched;
  ComPtr<ITypeInfo> dual;
  HREFTYPE reference = 0;
  TYPEATTR* attributes = nullptr;
  if (FAILED(object.QueryInterface(IID_PPV_ARGS(&dispatch))) ||
      FAILED(dispatch->GetTypeInfo(0, 0, &dispatched)) ||
      FAILED(dispatched->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
      FAILED(dispatched->GetRefTypeInfo(reference, &dual)) ||
      FAILED(dual->GetTypeAttr(&attributes)))
    return {"no dual interface", IID_NULL, 0};
  const MethodTable table{"the dual interface", attributes->guid,
                          static_cast<int>(attributes->cbSizeVft / sizeof(void*))};
  dual->ReleaseTypeAttr(attributes);
  return table;
}

class OtherThread : public testing::TestWithParam<GUID> {
 protected:
  Library library;
  ComPtr<IUnknown> control = library.make(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Controls, OtherThread, testing::ValuesIn(control_classes), controlName);

TEST_P(OtherThread, IsAnsweredByNoMethodOfAControl) {
  for (const MethodTable& of : of_controls) expectRefusals(*control.Get(), of);
  const MethodTable dual = dualInterface(*control.Get());
  EXPECT_GE(dual.methods, 15);  // IDispatch and the stock members
  expectRefusals(*control.Get(), dual);
}

TEST_P(OtherThread, IsAnsweredByNoMethodOfItsConnections) {
  ComPtr<IConnectionPointContainer> container;
  ASSERT_EQ(control.As(&container), S_OK);
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(&points), S_OK);
  expectRefusals(*points.Get(), of_enumerations[0]);
  ComPtr<IConnectionPoint> point;
  if (points->Next(1, &point, nullptr) != S_OK) {
    EXPECT_TRUE(GetParam() == __uuidof(::DepCalcCont));
    return;
  }
  expectRefusals(*point.Get(), of_connection_points);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(&connections), S_OK);
  expectRefusals(*connections.Get(), of_enumerations[1]);
}

TEST(OtherThreadOf, TheContainerIsAnsweredByNoMethodOfItsOwn) {
  const Library library;
  const ComPtr<IUnknown> container = library.make(__uuidof(::DepCalcCont));
  for (const MethodTable& of : of_the_container) expectRefusals(*container.Get(), of);
}

TEST(OtherThreadOf, TheAssetIsAnsweredByNoMethod) {
  const Library library;
  const ComPtr<IUnknown> record = library.make(__uuidof(::CalculateDep));
  const MethodTable dual = dualInterface(*record.Get());
  EXPECT_EQ(dual.methods, 50);
  expectRefusals(*record.Get(), dual);
  expectRefusals(*record.Get(), {"IProvideClassInfo", IID_IProvideClassInfo, 4});
  expectRefusals(*record.Get(), {"ISupportErrorInfo", IID_ISupportErrorInfo, 4, {{3, S_FALSE}}});
}

}  // namespace
}  // namespace depcalc::windows
