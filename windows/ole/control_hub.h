// What the parts of one control share.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "windows/com/com_call.h"
#include "windows/com/com_ptr.h"
#include "windows/com/connection_point.h"
#include "windows/ole/ambient_properties.h"
#include "windows/ole/control_model.h"
#include "windows/ole/in_place_window.h"

namespace depcalc::windows {

/// Drawn and used where they stand, activated with their page, laid out by their own size.
inline constexpr DWORD control_misc_status = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                             OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                             OLEMISC_SETCLIENTSITEFIRST;

/// Of one class of controls.
struct ControlClass {
  GUID id;
  GUID interface_id;  ///< the dual interface
  GUID events;        ///< IID_NULL for a class without
  const wchar_t* name;
  const wchar_t* description;
  DWORD misc_status;
};

/// The model, the host's site, and what the host was told of them.
class ControlHub {
 public:
  ControlHub(const ControlClass& of, std::shared_ptr<ControlModel> model, IUnknown& whole,
             IConnectionPointContainer& points);
  ~ControlHub();
  ControlHub(const ControlHub&) = delete;
  ControlHub& operator=(const ControlHub&) = delete;

  [[nodiscard]] const ControlClass& of() const { return class_; }
  [[nodiscard]] ControlModel& model() { return *model_; }
  [[nodiscard]] const std::shared_ptr<ControlModel>& sharedModel() const { return model_; }
  [[nodiscard]] const ConnectionPoints& points() const { return points_; }

  /// As CallPlace::answer; the control outlives what the call leads to.
  template <typename Body>
  HRESULT answer(Body&& body) const {
    const ComPtr<IUnknown> alive(whole_);
    return place_.answer(std::forward<Body>(body));
  }

  [[nodiscard]] IOleClientSite* site() const { return site_.Get(); }
  void setSite(IOleClientSite* site);
  [[nodiscard]] const AmbientValues& ambient() const { return ambient_; }
  void readAmbient();

  [[nodiscard]] InPlaceWindow& window() { return window_; }

  /// What the host gave the control, or what it takes by itself.
  [[nodiscard]] SIZEL extent() const;
  void setExtent(const SIZEL& extent);

  [[nodiscard]] bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  /// Whether there is anything to save that is not saved.
  [[nodiscard]] bool dirty() const { return dirty_; }
  void setDirty(bool dirty) { dirty_ = dirty; }

  // Whoever looks at the control from outside.
  void adviseView(DWORD aspect, DWORD flags, IAdviseSink* sink);
  void advisedView(DWORD* aspect, DWORD* flags, IAdviseSink** sink) const;
  /// The control looks different now.
  void viewChanged();
  IOleAdviseHolder& adviseHolder();
  /// Nobody has been told of anything where nobody asked.
  IOleAdviseHolder* adviseHolderIfAny() const { return advise_holder_.Get(); }

 private:
  ControlClass class_;
  std::shared_ptr<ControlModel> model_;
  IUnknown* whole_;  // not counted: it owns this
  CallPlace place_;
  ConnectionPoints points_;
  ComPtr<IOleClientSite> site_;
  AmbientValues ambient_;
  std::optional<SIZEL> extent_;
  bool enabled_ = true;
  bool dirty_ = false;
  ComPtr<IOleAdviseHolder> advise_holder_;
  ComPtr<IAdviseSink> view_sink_;
  DWORD view_aspect_ = 0;
  DWORD view_flags_ = 0;
  InPlaceWindow window_;
};

}  // namespace depcalc::windows
