// What every COM object is.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <atomic>
#include <type_traits>

#include "windows/com/module_count.h"

namespace depcalc::windows {

/// The interface that `Interface` begins with and that clients ask for by its own identifier; void
/// where there is none but IUnknown.
template <typename Interface>
struct BaseOf {
  using type = std::conditional_t<std::is_base_of_v<IDispatch, Interface> &&
                                      !std::is_same_v<IDispatch, Interface>,
                                  IDispatch, void>;
};
template <>
struct BaseOf<IOleInPlaceObject> {
  using type = IOleWindow;
};
template <>
struct BaseOf<IOleInPlaceActiveObject> {
  using type = IOleWindow;
};
template <>
struct BaseOf<IViewObject2> {
  using type = IViewObject;
};
template <>
struct BaseOf<IProvideClassInfo2> {
  using type = IProvideClassInfo;
};
template <>
struct BaseOf<IPersistStream> {
  using type = IPersist;
};
template <>
struct BaseOf<IPersistStreamInit> {
  using type = IPersist;
};
template <>
struct BaseOf<IPersistStorage> {
  using type = IPersist;
};
template <>
struct BaseOf<IPersistPropertyBag> {
  using type = IPersist;
};

template <typename Interface>
bool answersTo(REFIID id) {
  using Base = typename BaseOf<Interface>::type;
  if constexpr (!std::is_void_v<Base>) {
    if (id == __uuidof(Base)) return true;
  }
  return id == __uuidof(Interface);
}

/// What a part of an object, which leaves IUnknown to the whole, names its interfaces by:
/// `using Interfaces = InterfaceList<…>`.
template <typename... Interfaces>
struct InterfaceList {
  /// The interface `id` of `part`; null where it is none of these.
  template <typename Part>
  static void* find(Part* part, REFIID id) {
    void* found = nullptr;
    ((found == nullptr && answersTo<Interfaces>(id) ? void(found = static_cast<Interfaces*>(part))
                                                    : void()),
     ...);
    return found;
  }
};

template <typename Part>
void* interfaceOf(Part* part, REFIID id) {
  if constexpr (requires { typename Part::Interfaces; }) {
    return Part::Interfaces::find(part, id);
  } else {
    return InterfaceList<Part>::find(part, id);
  }
}

/// Counts its references, keeps the library in memory, and answers for its interfaces; the first is
/// the one that it is known by. Made with one reference, which belongs to the maker.
template <typename First, typename... Others>
class ComObject : public First, public Others... {
 public:
  ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = find(id);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      references_ = 1;  // what the end calls may take references and drop them
      delete this;
    }
    return left;
  }

 protected:
  virtual ~ComObject() = default;

  /// The interface `id` of this object; null where it has none. For interfaces of parts of it.
  virtual void* find(REFIID id) {
    if (id == IID_IUnknown) return static_cast<First*>(this);
    void* found = interfaceOf<First>(this, id);
    ((found == nullptr ? void(found = interfaceOf<Others>(this, id)) : void()), ...);
    return found;
  }

 private:
  ModuleUse use_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace depcalc::windows
