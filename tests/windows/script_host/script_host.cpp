// script_host ENGINE SCRIPT CLASS: runs a script with a control of CLASS on a page, as the object
// `screen`, and calls the script's function screen_EVENT for each of its events, whose arguments it
// may set where the event lets it. The script's `page` has pump(), which delivers what waits, and
// quit(STATUS). The host's own status is 0 where the script has quit with 42, else 3.
#include <windows.h>

#include <activscp.h>
#include <oleauto.h>

#include <cstdio>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/windows/library/hosted_control.h"
#include "windows/com/com_object.h"
#include "windows/com/com_text.h"
#include "windows/com/variant_value.h"

using namespace depcalc;
using namespace depcalc::windows;

namespace {

constexpr int script_failed = 3;
constexpr int script_passed = 42;

[[noreturn]] void fail(const char* what) { throw std::runtime_error(what); }
void require(HRESULT result, const char* what) {
  if (FAILED(result)) fail(what);
}

/// What the script knows as `page`.
class Page final : public ComObject<IDispatch> {
 public:
  int status = script_failed;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    const std::wstring name = names[0];
    ids[0] = name == L"pump" ? 1 : name == L"quit" ? 2 : name == L"say" ? 3 : DISPID_UNKNOWN;
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    Variant value;
    if (member == 1) deliverMessages();
    if (member == 2) {
      convertVariant(given->rgvarg[0], VT_I4, value.get());
      status = V_I4(&value.get());
    }
    if (member == 3) {
      convertVariant(given->rgvarg[0], VT_BSTR, value.get());
      std::puts(textFromBstr(V_BSTR(&value.get())).c_str());
    }
    return S_OK;
  }
};

class ScriptSite final : public ComObject<IActiveScriptSite> {
 public:
  std::map<std::wstring, IUnknown*> items;
  bool failed = false;

  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                        ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    const auto found = items.find(name);
    if (found == items.end()) return TYPE_E_ELEMENTNOTFOUND;
    if ((mask & SCRIPTINFO_IUNKNOWN) != 0) *item = ComPtr<IUnknown>(found->second).Detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
    failed = true;
    EXCEPINFO info{};
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&info);
    error->GetSourcePosition(&context, &line, &column);
    std::printf("line %lu: %s\n", line + 1, textFromBstr(info.bstrDescription).c_str());
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrSource);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
};

/// The names of a control's events, by number.
std::map<DISPID, std::wstring> eventNames(IUnknown& control) {
  ComPtr<IProvideClassInfo2> provider;
  ComPtr<ITypeInfo> of_class;
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> events;
  GUID id{};
  UINT index = 0;
  require(control.QueryInterface(IID_PPV_ARGS(&provider)), "no class information");
  require(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), "no events");
  require(provider->GetClassInfo(&of_class), "no class information");
  require(of_class->GetContainingTypeLib(&library, &index), "no type library");
  require(library->GetTypeInfoOfGuid(id, &events), "no description of the events");
  std::map<DISPID, std::wstring> names;
  for (DISPID member = 1;; ++member) {
    BSTR name = nullptr;
    UINT count = 0;
    if (FAILED(events->GetNames(member, &name, 1, &count)) || count == 0) return names;
    names[member] = name;
    SysFreeString(name);
  }
}

/// Calls the script's function for an event. Its arguments are Variants by reference, so that the
/// engine can set them; what it sets goes back where the event takes it.
void callFunction(IDispatch& script, const std::wstring& name, VARIANTARG** arguments,
                  std::size_t count) {
  DISPID function = 0;
  auto* asked = const_cast<wchar_t*>(name.c_str());
  if (FAILED(script.GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_NEUTRAL, &function))) return;
  std::vector<VARIANT> values(count);
  std::vector<VARIANTARG> given(count);
  for (std::size_t i = 0; i < count; ++i) {
    VariantInit(&values[i]);
    VariantCopyInd(&values[i], arguments[i]);
    V_VT(&given[count - 1 - i]) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&given[count - 1 - i]) = &values[i];
  }
  DISPPARAMS parameters{given.data(), nullptr, static_cast<UINT>(count), 0};
  Variant ignored;
  script.Invoke(function, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &parameters, &ignored.get(),
                nullptr, nullptr);
  for (std::size_t i = 0; i < count; ++i) {
    // An array stays as it is: script engines make arrays of Variants alone.
    if ((V_VT(arguments[i]) & VT_BYREF) != 0 && (V_VT(arguments[i]) & VT_ARRAY) == 0) {
      const auto type = static_cast<VARTYPE>(V_VT(arguments[i]) & ~VT_BYREF);
      VARIANT set;
      convertVariant(values[i], type, set);
      if (type == VT_BSTR) SysFreeString(std::exchange(*V_BSTRREF(arguments[i]), V_BSTR(&set)));
      if (type == VT_BOOL) *V_BOOLREF(arguments[i]) = V_BOOL(&set);
      if (type == VT_I2) *V_I2REF(arguments[i]) = V_I2(&set);
      if (type == VT_R8) *V_R8REF(arguments[i]) = V_R8(&set);
      if (type == VT_DATE) *V_DATEREF(arguments[i]) = V_DATE(&set);
      if (type == VT_DISPATCH) {
        IDispatch* const old = std::exchange(*V_DISPATCHREF(arguments[i]), V_DISPATCH(&set));
        if (old != nullptr) old->Release();
      }
    }
    VariantClear(&values[i]);
  }
}

std::wstring readScript(const wchar_t* path) {
  std::FILE* const file = _wfopen(path, L"rb");
  if (file == nullptr) fail("no such script");
  std::string text;
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
  std::fclose(file);
  return utf16(text);
}

int run(const wchar_t* engine, const wchar_t* script, const wchar_t* class_name) {
  CLSID id{};
  ComPtr<IUnknown> control;
  require(CLSIDFromProgID(class_name, &id), "no such class");
  require(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)),
          "no such object");
  const auto page = owned(new Page);
  const auto site = owned(new ScriptSite);
  site->items = {{L"screen", control.Get()}, {L"page", page.Get()}};

  ComPtr<IActiveScript> running;
  ComPtr<IActiveScriptParse> parser;
  ComPtr<IDispatch> functions;
  require(CLSIDFromProgID(engine, &id), "no such script engine");
  require(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&running)), "no engine");
  require(running.As(&parser), "no parser");
  require(running->SetScriptSite(site.Get()), "no site");
  require(parser->InitNew(), "no script");
  for (const auto& item : site->items)
    require(running->AddNamedItem(item.first.c_str(), SCRIPTITEM_ISVISIBLE), "no item");
  require(running->SetScriptState(SCRIPTSTATE_CONNECTED), "no start");
  EXCEPINFO error{};
  parser->ParseScriptText(readScript(script).c_str(), nullptr, nullptr, nullptr, 0, 0,
                          SCRIPTTEXT_ISVISIBLE, nullptr, &error);
  require(running->GetScriptDispatch(nullptr, &functions), "no functions");

  const auto names = eventNames(*control.Get());
  {
    const EventConnection connection(
        *control.Get(), [&](DISPID member, VARIANTARG** arguments, std::size_t count) {
          callFunction(*functions.Get(), L"screen_" + names.at(member), arguments, count);
        });
    HostedControl hosted(control);
    deliverMessages();
    callFunction(*functions.Get(), L"check", nullptr, 0);
  }
  running->Close();
  // As with the system's own script hosts, only a status of the script's own says that it passed.
  return site->failed || page->status != script_passed ? script_failed : 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 4) return 2;
  OleInitialize(nullptr);
  try {
    return run(arguments[1], arguments[2], arguments[3]);
  } catch (const std::exception& error) {
    std::puts(error.what());
    return script_failed;
  }
}
