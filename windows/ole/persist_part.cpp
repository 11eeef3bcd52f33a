#include "windows/ole/persist_part.h"

#include "windows/ole/control_state.h"

namespace depcalc::windows {
namespace {

constexpr const wchar_t* stream_name = L"Contents";
constexpr DWORD alone = STGM_SHARE_EXCLUSIVE;

}  // namespace

HRESULT PersistPart::GetClassID(CLSID* id) {
  return hub().answer([&] { required(id) = hub().of().id; });
}

HRESULT PersistPart::IsDirty() {
  return hub().answer([&] { return hub().dirty() ? S_OK : S_FALSE; });
}

HRESULT PersistPart::InitNew() { return S_OK; }

HRESULT PersistPart::Load(IStream* stream) {
  return hub().answer([&] { ControlState::read(required(stream)).apply(hub()); });
}

HRESULT PersistPart::Save(IStream* stream, BOOL clear_dirty) {
  return hub().answer([&] {
    ControlState::of(hub()).write(required(stream));
    if (clear_dirty != FALSE) hub().setDirty(false);
  });
}

HRESULT PersistPart::GetSizeMax(ULARGE_INTEGER* size) {
  return hub().answer([&] { required(size).QuadPart = ControlState::stream_size; });
}

HRESULT PersistPart::InitNew(IStorage* storage) {
  return hub().answer([&] { required(storage); });
}

HRESULT PersistPart::Load(IStorage* storage) {
  return hub().answer([&] {
    ComPtr<IStream> stream;
    passed(required(storage).OpenStream(stream_name, nullptr, alone | STGM_READ, 0, &stream));
    ControlState::read(*stream.Get()).apply(hub());
  });
}

HRESULT PersistPart::Save(IStorage* storage, BOOL /*same_as_load*/) {
  return hub().answer([&] {
    ComPtr<IStream> stream;
    passed(required(storage).CreateStream(stream_name, alone | STGM_WRITE | STGM_CREATE, 0, 0,
                                          &stream));
    ControlState::of(hub()).write(*stream.Get());
    hub().setDirty(false);
  });
}

// No storage is held between calls.
HRESULT PersistPart::SaveCompleted(IStorage* /*storage*/) { return S_OK; }
HRESULT PersistPart::HandsOffStorage() { return S_OK; }

HRESULT PersistPart::Load(IPropertyBag* bag, IErrorLog* log) {
  return hub().answer(
      [&] { ControlState::read(required(bag), log, ControlState::of(hub())).apply(hub()); });
}

HRESULT PersistPart::Save(IPropertyBag* bag, BOOL clear_dirty, BOOL /*all*/) {
  return hub().answer([&] {
    ControlState::of(hub()).write(required(bag));
    if (clear_dirty != FALSE) hub().setDirty(false);
  });
}

}  // namespace depcalc::windows
