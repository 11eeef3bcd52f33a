// The controls on a page of the system's own control container.
#include <gtest/gtest.h>
#include <oleauto.h>

#include <optional>
#include <vector>

#include "tests/windows/library/control_names.h"
#include "tests/windows/library/hosted_control.h"
#include "tests/windows/library/process_use.h"
#include "windows/com/com_text.h"
#include "windows/com/variant_value.h"

namespace depcalc::windows {
namespace {

class HostedEveryControl : public testing::TestWithParam<GUID> {
 protected:
  Library library;
};

INSTANTIATE_TEST_SUITE_P(Controls, HostedEveryControl, testing::ValuesIn(control_classes),
                         controlName);

TEST_P(HostedEveryControl, HasAWindowOnThePage) {
  HostedControl hosted(library.make(GetParam()));
  ASSERT_NE(hosted.window(), nullptr);
  EXPECT_TRUE(IsChild(hosted.page(), hosted.window()));
  EXPECT_TRUE(IsWindowVisible(hosted.window()));
  ComPtr<IDispatch> object;
  ASSERT_EQ(hosted.control()->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
  Variant window;
  ASSERT_EQ(call(*object.Get(), DISPID_HWND, DISPATCH_PROPERTYGET, {}, &window.get()).result, S_OK);
  EXPECT_EQ(LongToHandle(V_I4(&window.get())), hosted.window());
}

TEST_P(HostedEveryControl, TakesTheUsersHandsAwayWhereItIsDisabled) {
  HostedControl hosted(library.make(GetParam()));
  ComPtr<IDispatch> object;
  ASSERT_EQ(hosted.control()->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
  EXPECT_TRUE(IsWindowEnabled(hosted.window()));
  call(*object.Get(), DISPID_ENABLED, DISPATCH_PROPERTYPUT, {integer(0)});
  EXPECT_FALSE(IsWindowEnabled(hosted.window()));
  call(*object.Get(), DISPID_ENABLED, DISPATCH_PROPERTYPUT, {integer(1)});
  EXPECT_TRUE(IsWindowEnabled(hosted.window()));
}

TEST_P(HostedEveryControl, DrawsWhatItShowsIntoAMetafile) {
  HostedControl hosted(library.make(GetParam()));
  ComPtr<IViewObject2> view;
  ASSERT_EQ(hosted.control()->QueryInterface(IID_PPV_ARGS(&view)), S_OK);
  HDC metafile = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  const RECTL bounds{0, 0, 800, 600};
  EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, metafile, &bounds, nullptr,
                       nullptr, 0),
            S_OK);
  HENHMETAFILE drawn = CloseEnhMetaFile(metafile);
  ENHMETAHEADER header{};
  GetEnhMetaFileHeader(drawn, sizeof header, &header);
  DeleteEnhMetaFile(drawn);
  // Head and end alone where there is nothing to show: the calculator has no host here.
  EXPECT_EQ(header.nRecords > 2, GetParam() != __uuidof(::DepCalcCont)) << header.nRecords;
}

TEST_P(HostedEveryControl, GoesWithItsHost) {
  std::optional<HostedControl> hosted(library.make(GetParam()));
  const HWND window = hosted->window();
  hosted->end();
  deliverMessages();
  EXPECT_FALSE(IsWindow(window));
  hosted.reset();
  EXPECT_TRUE(library.canUnload());
}

class HostedEntryForm : public testing::Test {
 protected:
  Library library;
  ComPtr<IUnknown> form = library.make(__uuidof(::DepCalcCtl));
  ComPtr<ICalculateDep> record = library.make<ICalculateDep>(__uuidof(::CalculateDep));

  /// Puts the record into the event's argument, as a host that keeps one does.
  void handOut(VARIANTARG** arguments) {
    ASSERT_EQ(V_VT(arguments[0]), VT_BYREF | VT_DISPATCH);
    ASSERT_EQ(V_VT(arguments[1]), VT_BYREF | VT_DATE);
    if (*V_DISPATCHREF(arguments[0]) != nullptr) (*V_DISPATCHREF(arguments[0]))->Release();
    *V_DISPATCHREF(arguments[0]) = ComPtr<ICalculateDep>(record).Detach();
    *V_DATEREF(arguments[1]) = 45291;  // 31 December 2023
  }
};

TEST_F(HostedEntryForm, AsksForTheRecordThatItEdits) {
  std::vector<DISPID> heard;
  const EventConnection connection(*form.Get(),
                                   [&](DISPID member, VARIANTARG** arguments, std::size_t) {
                                     heard.push_back(member);
                                     if (member == 1) handOut(arguments);
                                   });
  HostedControl hosted(form);
  deliverMessages();
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.front(), 1);
  BSTR index = nullptr;
  ASSERT_EQ(record->get_RecIndex(&index), S_OK);
  EXPECT_EQ(textFromBstr(index), "0");
  SysFreeString(index);
}

TEST_F(HostedEntryForm, TakesWhatAHandlerSetBeforeItFailed) {
  int asked = 0;
  const EventConnection connection(*form.Get(),
                                   [&](DISPID member, VARIANTARG** arguments, std::size_t) {
                                     if (member == 1 && ++asked == 1) handOut(arguments);
                                     throw SinkFailure{};
                                   });
  HostedControl hosted(form);
  deliverMessages();
  EXPECT_EQ(asked, 1);  // the form has its record
  BSTR index = nullptr;
  ASSERT_EQ(record->get_RecIndex(&index), S_OK);
  EXPECT_EQ(textFromBstr(index), "0");
  SysFreeString(index);
  EXPECT_TRUE(IsWindow(hosted.window()));
}

TEST_F(HostedEntryForm, StandsWithoutARecordWhereItsHandlerFails) {
  int asked = 0;
  const EventConnection connection(*form.Get(), [&](DISPID, VARIANTARG**, std::size_t) {
    ++asked;
    throw SinkFailure{};
  });
  HostedControl hosted(form);
  deliverMessages();
  EXPECT_GE(asked, 1);
  EXPECT_TRUE(IsWindow(hosted.window()));
  ComPtr<IDispatch> object;
  ASSERT_EQ(form.As(&object), S_OK);
  EXPECT_EQ(call(*object.Get(), DISPID_REFRESH, DISPATCH_METHOD, {}).result, S_OK);
}

TEST_F(HostedEntryForm, SurvivesAHandlerThatEndsItsHost) {
  std::optional<HostedControl> hosted;
  std::optional<EventConnection> connection;
  int asked = 0;
  connection.emplace(*form.Get(), [&](DISPID member, VARIANTARG**, std::size_t) {
    if (member != 1 || ++asked > 1) return;
    connection->disconnect();
    if (hosted) hosted->end();
    form.Reset();
  });
  hosted.emplace(form);
  deliverMessages();
  EXPECT_EQ(asked, 1);
  hosted->end();
  hosted.reset();
  connection.reset();
  form.Reset();
  record.Reset();
  EXPECT_TRUE(library.canUnload());
}

TEST_F(HostedEntryForm, RefusesARecordThatIsNoneOfOurs) {
  int asked = 0;
  const EventConnection connection(
      *form.Get(), [&](DISPID member, VARIANTARG** arguments, std::size_t) {
        if (member != 1) return;
        ++asked;
        IDispatch*& given = *V_DISPATCHREF(arguments[0]);
        if (given != nullptr) given->Release();
        form->QueryInterface(IID_PPV_ARGS(&given));  // an object, but no record
      });
  HostedControl hosted(form);
  deliverMessages();
  EXPECT_GE(asked, 1);
  EXPECT_TRUE(IsWindow(hosted.window()));
}

TEST_F(HostedEntryForm, KeepsEventsWhileItsHostHasFrozenThem) {
  int heard = 0;
  const EventConnection connection(*form.Get(),
                                   [&](DISPID, VARIANTARG**, std::size_t) { ++heard; });
  ComPtr<IOleControl> control;
  ASSERT_EQ(form.As(&control), S_OK);
  EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
  EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
  HostedControl hosted(form);
  deliverMessages();
  EXPECT_EQ(heard, 0);
  EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
  ComPtr<IDispatch> object;
  ASSERT_EQ(form.As(&object), S_OK);
  ComPtr<IOleInPlaceObject> in_place;
  ASSERT_EQ(form.As(&in_place), S_OK);
  EXPECT_EQ(in_place->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(hosted.window(), nullptr);
}

TEST_F(HostedEntryForm, TakesTheKeysThatAreItsOwn) {
  std::string topic;
  const EventConnection connection(*form.Get(),
                                   [&](DISPID member, VARIANTARG** arguments, std::size_t) {
                                     if (member == 1) handOut(arguments);
                                     if (member == 3)
                                       topic = textFromBstr(*V_BSTRREF(arguments[0]));
                                   });
  HostedControl hosted(form);
  deliverMessages();
  ComPtr<IOleInPlaceActiveObject> active;
  ASSERT_EQ(form.As(&active), S_OK);
  MSG key{hosted.window(), WM_KEYDOWN, VK_F1, 1, 0, {0, 0}};
  EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
  EXPECT_EQ(topic, "ID");  // of the field that has the focus
  MSG letter{hosted.window(), WM_KEYDOWN, 'Q', 1, 0, {0, 0}};
  EXPECT_EQ(active->TranslateAccelerator(&letter), S_FALSE);
}

TEST(HostedControls, LeaveNothingBehind) {
  const Library library;
  const auto round = [&] {
    HostedControl hosted(library.make(__uuidof(::DepCalcCtl)));
    hosted.end();
    deliverMessages();
  };
  for (int i = 0; i < 5; ++i) round();
  const ProcessUse before = processUse();
  for (int i = 0; i < 50; ++i) round();
  EXPECT_EQ(processUse(), before);
  EXPECT_TRUE(library.canUnload());
}

}  // namespace
}  // namespace depcalc::windows
