#include "tests/windows/host/script_engine.h"

#include <stdexcept>

#include "windows/com/com_text.h"

namespace depcalc::testing_support {
namespace {

void require(HRESULT done, const char* what) {
  if (FAILED(done)) throw std::runtime_error(what + (": " + std::to_string(done)));
}

}  // namespace

/// Asks nothing of the engine and hides nothing from it.
class ScriptEngine::Site final : public IActiveScriptSite {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IActiveScriptSite;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // It lives as long as the engine that holds it.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE GetLCID(LCID* language) override {
    *language = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
    return TYPE_E_ELEMENTNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
};

ScriptEngine::ScriptEngine(const wchar_t* engine, const std::string& script)
    : site_(std::make_unique<Site>()) {
  CLSID id{};
  require(CLSIDFromProgID(engine, &id), "no such engine");
  require(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&engine_)),
          "the engine cannot be had");
  Microsoft::WRL::ComPtr<IActiveScriptParse> parser;
  require(engine_->QueryInterface(IID_PPV_ARGS(&parser)), "the engine reads no scripts");
  require(engine_->SetScriptSite(site_.get()), "the engine wants another site");
  require(parser->InitNew(), "the engine does not start");
  require(parser->ParseScriptText(utf16(script).c_str(), nullptr, nullptr, nullptr, 0, 0, 0,
                                  nullptr, nullptr),
          "the script cannot be read");
  require(engine_->SetScriptState(SCRIPTSTATE_CONNECTED), "the script does not run");
}

ScriptEngine::~ScriptEngine() {
  if (engine_ != nullptr) engine_->Close();
}

Microsoft::WRL::ComPtr<IDispatch> ScriptEngine::functions() const {
  Microsoft::WRL::ComPtr<IDispatch> functions;
  require(engine_->GetScriptDispatch(nullptr, &functions), "the script has no functions");
  return functions;
}

}  // namespace depcalc::testing_support
