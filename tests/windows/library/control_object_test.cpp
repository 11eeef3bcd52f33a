// The controls as any host has them.
#include <gtest/gtest.h>
#include <objsafe.h>
#include <oleauto.h>

#include <map>
#include <string>

#include "tests/windows/library/control_names.h"
#include "tests/windows/library/library_objects.h"
#include "tests/windows/library/process_use.h"
#include "windows/com/com_object.h"
#include "windows/com/variant_value.h"

__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0,
                0x64)

namespace depcalc::windows {
namespace {

class EveryControl : public testing::TestWithParam<GUID> {
 protected:
  Library library;
  ComPtr<IUnknown> control = library.make(GetParam());

  template <typename Interface>
  [[nodiscard]] ComPtr<Interface> as() const {
    ComPtr<Interface> found;
    EXPECT_EQ(control.As(&found), S_OK);
    return found;
  }
  void putColour(LONG colour) {
    EXPECT_EQ(
        call(*as<IDispatch>().Get(), DISPID_BACKCOLOR, DISPATCH_PROPERTYPUT, {integer(colour)})
            .result,
        S_OK);
  }
  [[nodiscard]] LONG colour() {
    Variant answer;
    EXPECT_EQ(
        call(*as<IDispatch>().Get(), DISPID_BACKCOLOR, DISPATCH_PROPERTYGET, {}, &answer.get())
            .result,
        S_OK);
    return V_I4(&answer.get());
  }
};

INSTANTIATE_TEST_SUITE_P(Controls, EveryControl, testing::ValuesIn(control_classes), controlName);

TEST_P(EveryControl, IsOneObjectWhateverInterfaceIsAsked) {
  const GUID interfaces[] = {IID_IOleObject,
                             IID_IOleControl,
                             IID_IOleWindow,
                             IID_IOleInPlaceObject,
                             IID_IOleInPlaceActiveObject,
                             IID_IViewObject,
                             IID_IViewObject2,
                             IID_IPersist,
                             IID_IPersistStream,
                             IID_IPersistStreamInit,
                             IID_IPersistStorage,
                             IID_IPersistPropertyBag,
                             IID_IProvideClassInfo,
                             IID_IProvideClassInfo2,
                             IID_IConnectionPointContainer,
                             IID_ISupportErrorInfo,
                             IID_IDispatch};
  for (const GUID& id : interfaces) {
    ComPtr<IUnknown> found;
    ASSERT_EQ(control->QueryInterface(id, reinterpret_cast<void**>(found.GetAddressOf())), S_OK);
    ComPtr<IUnknown> identity;
    ASSERT_EQ(
        found->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(identity.GetAddressOf())),
        S_OK);
    EXPECT_EQ(identity.Get(), control.Get());
  }
  void* none = &none;
  EXPECT_EQ(control->QueryInterface(IID_IClassFactory, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
}

TEST_P(EveryControl, KeepsItsLooksInAStream) {
  ComPtr<IStream> stream;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
  const auto kept = as<IPersistStreamInit>();
  EXPECT_EQ(kept->InitNew(), S_OK);
  EXPECT_EQ(kept->IsDirty(), S_FALSE);
  putColour(0x123456);
  EXPECT_EQ(kept->IsDirty(), S_OK);
  ASSERT_EQ(kept->Save(stream.Get(), TRUE), S_OK);
  EXPECT_EQ(kept->IsDirty(), S_FALSE);
  ULARGE_INTEGER size{};
  EXPECT_EQ(kept->GetSizeMax(&size), S_OK);
  EXPECT_EQ(size.QuadPart, 24U);
  putColour(0x654321);
  ASSERT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
  ASSERT_EQ(as<IPersistStream>()->Load(stream.Get()), S_OK);
  EXPECT_EQ(colour(), 0x123456);
}

TEST_P(EveryControl, RefusesAStreamThatIsNone) {
  const auto kept = as<IPersistStreamInit>();
  const LONG before = colour();
  for (const std::size_t length :
       {std::size_t{0}, std::size_t{23}, std::size_t{24}, std::size_t{4096}}) {
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    const std::string nonsense(length, '\xEE');
    stream->Write(nonsense.data(), static_cast<ULONG>(length), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(kept->Load(stream.Get()), STG_E_DOCFILECORRUPT) << length;
  }
  const std::int32_t sizes[] = {0x31534344, -5, 7, 0, 0, 1};
  ComPtr<IStream> stream;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
  stream->Write(sizes, sizeof sizes, nullptr);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  EXPECT_EQ(kept->Load(stream.Get()), E_INVALIDARG);
  EXPECT_EQ(colour(), before);
}

TEST_P(EveryControl, KeepsItsLooksInAStorage) {
  ComPtr<IStorage> storage;
  ASSERT_EQ(StgCreateDocfile(
                nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                0, &storage),
            S_OK);
  const auto kept = as<IPersistStorage>();
  EXPECT_EQ(kept->InitNew(storage.Get()), S_OK);
  putColour(0x10203);
  ASSERT_EQ(kept->Save(storage.Get(), TRUE), S_OK);
  EXPECT_EQ(kept->SaveCompleted(nullptr), S_OK);
  putColour(0x30201);
  EXPECT_EQ(kept->HandsOffStorage(), S_OK);
  ASSERT_EQ(kept->Load(storage.Get()), S_OK);
  EXPECT_EQ(colour(), 0x10203);
}

/// A host's bag of named values.
class Bag final : public ComObject<IPropertyBag> {
 public:
  std::map<std::wstring, LONG> values;

  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* /*log*/) override {
    const auto found = values.find(name);
    if (found == values.end()) return E_INVALIDARG;
    *value = integer(found->second);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override {
    values[name] = V_I4(value);
    return S_OK;
  }
};

TEST_P(EveryControl, KeepsItsLooksInABag) {
  const auto bag = owned(new Bag);
  const auto kept = as<IPersistPropertyBag>();
  putColour(0xABCDEF);
  ASSERT_EQ(kept->Save(bag.Get(), TRUE, TRUE), S_OK);
  EXPECT_EQ(bag->values.size(), 5U);
  EXPECT_EQ(bag->values.at(L"BackColor"), 0xABCDEF);
  putColour(0);
  ASSERT_EQ(kept->Load(bag.Get(), nullptr), S_OK);
  EXPECT_EQ(colour(), 0xABCDEF);
  // What a bag does not have stays as it is; a size that is none is refused as a whole.
  bag->values = {{L"_ExtentX", -1}, {L"BackColor", 5}};
  EXPECT_EQ(kept->Load(bag.Get(), nullptr), E_INVALIDARG);
  EXPECT_EQ(colour(), 0xABCDEF);
  bag->values = {{L"ForeColor", 7}};
  EXPECT_EQ(kept->Load(bag.Get(), nullptr), S_OK);
  EXPECT_EQ(colour(), 0xABCDEF);
}

TEST_P(EveryControl, DrawsOnlyWhatItCan) {
  const auto view = as<IViewObject2>();
  HDC screen = GetDC(nullptr);
  const RECTL bounds{0, 0, 800, 600};
  EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, screen, &bounds, nullptr,
                       nullptr, 0),
            DV_E_DVASPECT);
  EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, screen, nullptr, nullptr,
                       nullptr, 0),
            E_POINTER);
  EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr,
                       nullptr, 0),
            E_INVALIDARG);
  ReleaseDC(nullptr, screen);
}

TEST_P(EveryControl, TakesTheExtentThatItsHostGives) {
  const auto object = as<IOleObject>();
  SIZEL extent{4000, 3000};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  SIZEL got{};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &got), S_OK);
  EXPECT_EQ(got.cx, 4000);
  EXPECT_EQ(got.cy, 3000);
  SIZEL wrong{-1, 5};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &wrong), E_INVALIDARG);
  EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
}

TEST_P(EveryControl, RefusesNullPointers) {
  const auto object = as<IOleObject>();
  EXPECT_EQ(object->GetClientSite(nullptr), E_POINTER);
  EXPECT_EQ(object->GetMoniker(1, 1, nullptr), E_POINTER);
  EXPECT_EQ(object->GetClipboardData(0, nullptr), E_POINTER);
  EXPECT_EQ(object->EnumVerbs(nullptr), E_POINTER);
  EXPECT_EQ(object->GetUserClassID(nullptr), E_POINTER);
  EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(object->Advise(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(object->Unadvise(7), OLE_E_NOCONNECTION);
  EXPECT_EQ(object->EnumAdvise(nullptr), E_POINTER);
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(object->Close(99), E_INVALIDARG);
  // Without a site there is no page to be activated on.
  EXPECT_EQ(object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr), E_FAIL);
  EXPECT_EQ(object->DoVerb(-99, nullptr, nullptr, 0, nullptr, nullptr), E_NOTIMPL);
  EXPECT_EQ(as<IOleControl>()->GetControlInfo(nullptr), E_POINTER);
  EXPECT_EQ(as<IOleControl>()->OnMnemonic(nullptr), E_POINTER);
  EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(nullptr), E_POINTER);
  EXPECT_EQ(as<IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(as<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr), E_POINTER);
  EXPECT_EQ(as<IOleInPlaceActiveObject>()->ResizeBorder(nullptr, nullptr, TRUE), E_POINTER);
  EXPECT_EQ(as<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(
      as<IViewObject2>()->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr),
      E_POINTER);
  EXPECT_EQ(as<IViewObject2>()->Freeze(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(as<IPersistStreamInit>()->GetClassID(nullptr), E_POINTER);
  EXPECT_EQ(as<IPersistStreamInit>()->Load(static_cast<IStream*>(nullptr)), E_POINTER);
  EXPECT_EQ(as<IPersistStreamInit>()->Save(static_cast<IStream*>(nullptr), TRUE), E_POINTER);
  EXPECT_EQ(as<IPersistStreamInit>()->GetSizeMax(nullptr), E_POINTER);
  EXPECT_EQ(as<IPersistStorage>()->InitNew(nullptr), E_POINTER);
  EXPECT_EQ(as<IPersistStorage>()->Load(static_cast<IStorage*>(nullptr)), E_POINTER);
  EXPECT_EQ(as<IPersistStorage>()->Save(static_cast<IStorage*>(nullptr), TRUE), E_POINTER);
  EXPECT_EQ(as<IPersistPropertyBag>()->Load(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(as<IPersistPropertyBag>()->Save(nullptr, TRUE, TRUE), E_POINTER);
  EXPECT_EQ(as<IProvideClassInfo2>()->GetClassInfo(nullptr), E_POINTER);
  EXPECT_EQ(as<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr),
            E_POINTER);
  EXPECT_EQ(as<IConnectionPointContainer>()->EnumConnectionPoints(nullptr), E_POINTER);
  EXPECT_EQ(as<IConnectionPointContainer>()->FindConnectionPoint(IID_IDispatch, nullptr),
            E_POINTER);
}

TEST_P(EveryControl, SaysWhichEventsItRaises) {
  GUID events{};
  const HRESULT answer =
      as<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events);
  if (GetParam() == __uuidof(::DepCalcCont)) {
    EXPECT_EQ(answer, E_INVALIDARG);
    return;
  }
  ASSERT_EQ(answer, S_OK);
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(as<IConnectionPointContainer>()->FindConnectionPoint(events, &point), S_OK);
}

TEST_P(EveryControl, LeavesNothingBehind) {
  control.Reset();
  const auto round = [&] {
    const ComPtr<IUnknown> made = library.make(GetParam());
    ComPtr<IOleObject> object;
    made.As(&object);
    SIZEL extent{};
    object->GetExtent(DVASPECT_CONTENT, &extent);
    ComPtr<IDispatch> dispatch;
    made.As(&dispatch);
    call(*dispatch.Get(), DISPID_ENABLED, DISPATCH_PROPERTYGET, {});
  };
  for (int i = 0; i < 20; ++i) round();
  const ProcessUse before = processUse();
  for (int i = 0; i < 1000; ++i) round();
  EXPECT_EQ(processUse(), before);
  EXPECT_TRUE(library.canUnload());
}

class Container : public testing::Test {
 protected:
  Library library;
  ComPtr<IDepCalcCont> container = library.make<IDepCalcCont>(__uuidof(::DepCalcCont));
};

TEST_F(Container, AnswersForItsSafetyByNumber) {
  ComPtr<IObjectSafety> safety;
  ASSERT_EQ(container.As(&safety), S_OK);
  const struct {
    GUID id;
    DWORD enabled;
  } known[] = {{IID_IDispatch, 1},
               {IID_IPersistStorage, 2},
               {IID_IPersistStream, 2},
               {IID_IPersistPropertyBag, 2}};
  for (const auto& of : known) {
    DWORD supported = 0;
    DWORD enabled = 0;
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(of.id, &supported, &enabled), S_OK);
    EXPECT_EQ(supported, 3U);
    EXPECT_EQ(enabled, of.enabled);
    for (DWORD mask = 0; mask < 4; ++mask) {
      for (DWORD asked = 0; asked < 4; ++asked)
        EXPECT_EQ(safety->SetInterfaceSafetyOptions(of.id, mask, asked),
                  (mask & asked) == of.enabled ? S_OK : E_FAIL);
    }
  }
  DWORD supported = 0;
  DWORD enabled = 7;
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IPersistStreamInit, &supported, &enabled),
            E_NOINTERFACE);
  EXPECT_EQ(enabled, 7U);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IUnknown, 1, 1), E_NOINTERFACE);
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IDispatch, nullptr, &enabled), E_POINTER);
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, nullptr), E_POINTER);
}

TEST_F(Container, IsAnAddIn) {
  ComPtr<IOrvAddIn> add_in;
  ASSERT_EQ(container.As(&add_in), S_OK);
  EXPECT_EQ(add_in->Initialize(nullptr), E_POINTER);
  EXPECT_EQ(add_in->Initialize(container.Get()), S_OK);
  EXPECT_EQ(add_in->AboutToTerminate(), S_OK);
  EXPECT_EQ(add_in->Terminate(), S_OK);
  // Asked by name, it is the add-in's members that count.
  EXPECT_EQ(call(*add_in.Get(), 3, DISPATCH_METHOD, {}).result, S_OK);
}

TEST_F(Container, ShowsItsScreensByNumber) {
  IDispatch& object = *container.Get();
  for (LONG view = 0; view < 4; ++view)
    EXPECT_EQ(call(object, 1, DISPATCH_METHOD, {integer(view)}).result, S_OK) << view;
  EXPECT_EQ(call(object, 3, DISPATCH_METHOD, {}).result, S_OK);
  Variant changed;
  ASSERT_EQ(call(object, 2, DISPATCH_METHOD, {}, &changed.get()).result, S_OK);
  EXPECT_EQ(V_VT(&changed.get()), VT_BOOL);
  EXPECT_EQ(V_BOOL(&changed.get()), VARIANT_FALSE);
  EXPECT_EQ(container->CheckforChanges(nullptr), E_POINTER);
}

}  // namespace
}  // namespace depcalc::windows
