// Hearing the events of hosts that raise them in their own ways.
#include "windows/host/host_events.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/served_object.h"

namespace depcalc {
namespace {

using Microsoft::WRL::ComPtr;
using testing_support::ServedObject;

constexpr IID foreign_events{
    0x6C6E0D9A, 0x93F5, 0x4F0E, {0xA1, 0xD3, 0x5B, 0x1D, 0x7C, 0x2E, 0x8F, 0x40}};
constexpr GUID foreign_application{
    0x3F5B7C11, 0x2E64, 0x4A8B, {0x9C, 0x0D, 0x6A, 0x7E, 0x8F, 0x90, 0x12, 0x34}};

ComPtr<ITypeInfo> foreignClass() {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(LoadTypeLibEx(TEXT(DEPCALC_FOREIGN_HOST), REGKIND_NONE, &library), S_OK);
  if (library != nullptr) library->GetTypeInfoOfGuid(foreign_application, &type);
  return type;
}

/// A host that says by a type library how it raises its events.
class ForeignHost final : public ServedObject, public IProvideClassInfo {
 public:
  ForeignHost() : ServedObject({}, &foreign_events, 7) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id != IID_IProvideClassInfo) return ServedObject::QueryInterface(id, object);
    AddRef();
    *object = static_cast<IProvideClassInfo*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ServedObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ServedObject::Release(); }
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override {
    *info = foreignClass().Detach();
    return *info != nullptr ? S_OK : E_FAIL;
  }
};

struct HostEvents : testing::Test {
  testing_support::Apartment apartment;
  int heard = 0;
  std::function<void()> hear = [this] { ++heard; };
};

TEST_F(HostEvents, AreHeardByTheIdentifierOfTheirInterface) {
  const ComPtr<ServedObject> host(new ServedObject({}, &company_file_opened.source));
  {
    const HostEventConnection connection(*host.Get(), company_file_opened, hear);
    EXPECT_EQ(host->sinkCount(), 1U);
    host->raise();
    host->raise();
  }
  EXPECT_EQ(heard, 2);
  EXPECT_EQ(host->sinkCount(), 0U);
  host->raise();
  EXPECT_EQ(heard, 2);
}

TEST_F(HostEvents, AreHeardByTheirNameInTheHostsOwnInterface) {
  const ComPtr<ForeignHost> host(new ForeignHost);
  const HostEventConnection connection(*static_cast<IDispatch*>(host.Get()), company_file_opened,
                                       hear);
  host->raise();
  EXPECT_EQ(heard, 1);
}

TEST_F(HostEvents, AreSilentWhereTheHostRaisesNone) {
  const ComPtr<ServedObject> plain(new ServedObject({}));
  const HostEventConnection none(*plain.Get(), company_file_opened, hear);
  const ComPtr<ForeignHost> foreign(new ForeignHost);
  const HostEventConnection not_there(*static_cast<IDispatch*>(foreign.Get()), company_file_closing,
                                      hear);
  EXPECT_EQ(foreign->sinkCount(), 0U);
}

/// Takes no sink.
class FullHost final : public ServedObject {
 public:
  FullHost() : ServedObject({}, &company_file_opened.source) {}
  HRESULT STDMETHODCALLTYPE Advise(IUnknown*, DWORD*) override { return CONNECT_E_ADVISELIMIT; }
};

TEST_F(HostEvents, AreAnErrorWhereTheHostRefusesToTellOfThem) {
  const ComPtr<ServedObject> host(new FullHost);
  EXPECT_EQ(errorOf([&] { HostEventConnection(*host.Get(), company_file_opened, hear); }),
            CONNECT_E_ADVISELIMIT);
}

TEST_F(HostEvents, ThatCannotBeHandledDoNotReachTheHost) {
  const ComPtr<ServedObject> host(new ServedObject({}, &company_file_opened.source));
  const HostEventConnection connection(*host.Get(), company_file_opened,
                                       [] { throw std::bad_alloc(); });
  EXPECT_NO_THROW(host->raise());
}

TEST_F(HostEvents, MayEndTheConnection) {
  const ComPtr<ServedObject> host(new ServedObject({}, &company_file_opened.source));
  std::optional<HostEventConnection> connection;
  connection.emplace(*host.Get(), company_file_opened, [&] {
    ++heard;
    connection.reset();
  });
  host->raise();
  host->raise();
  EXPECT_EQ(heard, 1);
}

TEST_F(HostEvents, EndWithTheirHostsLastReference) {
  ComPtr<ServedObject> host(new ServedObject({}, &company_file_opened.source));
  const LONG before = testing_support::servedObjectCount();
  {
    const HostEventConnection connection(*host.Get(), company_file_opened, hear);
    host.Reset();
    EXPECT_EQ(testing_support::servedObjectCount(), before) << "the connection holds it";
  }
  EXPECT_EQ(testing_support::servedObjectCount(), before - 1);
}

}  // namespace
}  // namespace depcalc
