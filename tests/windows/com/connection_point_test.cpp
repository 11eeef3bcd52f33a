#include "windows/com/connection_point.h"

#include <gtest/gtest.h>
#include <oleauto.h>

#include <functional>
#include <vector>

namespace depcalc::windows {
namespace {

/// Notes the events that it hears, and does something meanwhile.
class Sink final : public ComObject<IDispatch> {
 public:
  explicit Sink(std::vector<DISPID>& heard, std::function<void()> meanwhile = {})
      : heard_(heard), meanwhile_(std::move(meanwhile)) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    heard_.push_back(member);
    if (meanwhile_) meanwhile_();
    return E_FAIL;  // of no consequence
  }

 private:
  std::vector<DISPID>& heard_;
  std::function<void()> meanwhile_;
};

/// Sets what it is given, tells an error in every way there is, and fails.
class FailingSink final : public ComObject<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*,
                                   EXCEPINFO* exception, UINT* argument) override {
    if (given->cArgs > 0) *V_I2REF(&given->rgvarg[0]) = 7;
    exception->bstrSource = SysAllocString(L"sink");
    exception->bstrDescription = SysAllocString(L"not today");
    exception->bstrHelpFile = SysAllocString(L"none");
    exception->scode = E_FAIL;
    *argument = 0;
    ComPtr<ICreateErrorInfo> created;
    ComPtr<IErrorInfo> error;
    CreateErrorInfo(&created);
    created.As(&error);
    SetErrorInfo(0, error.Get());
    return DISP_E_EXCEPTION;
  }
};

class Container final : public ComObject<IConnectionPointContainer> {
 public:
  Container() { points.push_back(owned(new ConnectionPoint(IID_IDispatch, *this))); }
  ~Container() override { points.front()->orphan(); }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** all) override {
    return enumerateConnectionPoints(points, all);
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    return findConnectionPoint(points, id, point);
  }

  ConnectionPoints points;
};

class ConnectionPointTest : public testing::Test {
 protected:
  ConnectionPoint& point() { return *container->points.front().Get(); }
  DWORD advise(std::function<void()> meanwhile = {}) {
    const auto sink = owned(new Sink(heard, std::move(meanwhile)));
    DWORD cookie = 0;
    EXPECT_EQ(point().Advise(sink.Get(), &cookie), S_OK);
    return cookie;
  }
  void raise(DISPID member) {
    DISPPARAMS none{};
    point().raise(member, none);
  }

  std::vector<DISPID> heard;
  ComPtr<Container> container = owned(new Container);
};

TEST_F(ConnectionPointTest, TellsEverySinkUntilItLeaves) {
  const DWORD first = advise();
  advise();
  raise(4);
  EXPECT_EQ(heard, (std::vector<DISPID>{4, 4}));
  EXPECT_EQ(point().Unadvise(first), S_OK);
  raise(5);
  EXPECT_EQ(heard, (std::vector<DISPID>{4, 4, 5}));
  EXPECT_EQ(point().Unadvise(first), CONNECT_E_NOCONNECTION);
}

TEST_F(ConnectionPointTest, LeavesOutWhoIsDisconnectedMeanwhile) {
  DWORD second = 0;
  advise([&] { point().Unadvise(second); });
  second = advise();
  raise(1);
  EXPECT_EQ(heard.size(), 1U);
}

TEST_F(ConnectionPointTest, TellsWhoCameMeanwhileFromTheNextEventOn) {
  bool came = false;
  advise([&] {
    if (!std::exchange(came, true)) advise();
  });
  raise(1);
  EXPECT_EQ(heard.size(), 1U);
  raise(2);
  EXPECT_EQ(heard.size(), 3U);
}

TEST_F(ConnectionPointTest, TellsTheOthersWhereASinkFails) {
  DWORD cookie = 0;
  ASSERT_EQ(point().Advise(owned(new FailingSink).Get(), &cookie), S_OK);
  advise();
  short set = 0;
  VARIANTARG argument;
  V_VT(&argument) = VT_BYREF | VT_I2;
  V_I2REF(&argument) = &set;
  DISPPARAMS given{&argument, nullptr, 1, 0};
  point().raise(3, given);
  EXPECT_EQ(heard, (std::vector<DISPID>{3}));
  EXPECT_EQ(set, 7);
  ComPtr<IErrorInfo> left;
  EXPECT_EQ(GetErrorInfo(0, &left), S_FALSE);
  raise(4);
  EXPECT_EQ(heard, (std::vector<DISPID>{3, 4}));
}

TEST_F(ConnectionPointTest, OutlivesItsOwnerInsideAnEvent) {
  advise([&] { container.Reset(); });
  advise();
  ConnectionPoint& raising = point();
  DISPPARAMS none{};
  raising.raise(1, none);
  EXPECT_EQ(heard.size(), 1U);
}

TEST_F(ConnectionPointTest, IsFoundAndListed) {
  ComPtr<IConnectionPoint> found;
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &found), S_OK);
  EXPECT_EQ(container->FindConnectionPoint(IID_IUnknown, &found), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(found.Get(), nullptr);

  ComPtr<IEnumConnectionPoints> all;
  ASSERT_EQ(container->EnumConnectionPoints(&all), S_OK);
  ULONG fetched = 0;
  EXPECT_EQ(all->Next(1, &found, &fetched), S_OK);
  EXPECT_EQ(all->Next(1, &found, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 0U);

  const DWORD cookie = advise();
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point().EnumConnections(&connections), S_OK);
  CONNECTDATA data{};
  EXPECT_EQ(connections->Next(1, &data, nullptr), S_OK);
  EXPECT_EQ(data.dwCookie, cookie);
  data.pUnk->Release();
  EXPECT_EQ(connections->Skip(1), S_FALSE);
  EXPECT_EQ(connections->Reset(), S_OK);
  EXPECT_EQ(connections->Next(2, nullptr, &fetched), E_POINTER);
}

}  // namespace
}  // namespace depcalc::windows
