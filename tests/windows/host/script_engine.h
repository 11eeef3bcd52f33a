// A script engine of the system's, with one script in it.
#pragma once

#include <windows.h>

#include <activscp.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <memory>
#include <string>

namespace depcalc::testing_support {

class ScriptEngine {
 public:
  /// Runs `script` in the engine called `engine` ("VBScript"). A script that fails throws.
  ScriptEngine(const wchar_t* engine, const std::string& script);
  ~ScriptEngine();
  ScriptEngine(const ScriptEngine&) = delete;
  ScriptEngine& operator=(const ScriptEngine&) = delete;

  /// The script's functions, as the members of an object.
  [[nodiscard]] Microsoft::WRL::ComPtr<IDispatch> functions() const;

 private:
  class Site;

  std::unique_ptr<Site> site_;
  Microsoft::WRL::ComPtr<IActiveScript> engine_;
};

}  // namespace depcalc::testing_support
