// Handles of GDI that are given back.
#pragma once

#include <windows.h>

#include <utility>

namespace depcalc::native {

/// A pen, brush, font, bitmap or region.
template <typename Handle>
class GdiHandle {
 public:
  GdiHandle() = default;
  explicit GdiHandle(Handle handle) : handle_(handle) {}
  GdiHandle(GdiHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  GdiHandle& operator=(GdiHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~GdiHandle() {
    if (handle_ != nullptr) DeleteObject(handle_);
  }

  [[nodiscard]] Handle get() const { return handle_; }

 private:
  Handle handle_ = nullptr;
};

using FontHandle = GdiHandle<HFONT>;
using BrushHandle = GdiHandle<HBRUSH>;
using PenHandle = GdiHandle<HPEN>;
using BitmapHandle = GdiHandle<HBITMAP>;

/// Whatever is selected into the device context and set on it meanwhile is undone at the end.
class SavedDc {
 public:
  explicit SavedDc(HDC dc) : dc_(dc), state_(SaveDC(dc)) {}
  ~SavedDc() { RestoreDC(dc_, state_); }
  SavedDc(const SavedDc&) = delete;
  SavedDc& operator=(const SavedDc&) = delete;

 private:
  HDC dc_;
  int state_;
};

/// A device context in memory.
class MemoryDc {
 public:
  explicit MemoryDc(HDC like = nullptr) : dc_(CreateCompatibleDC(like)) {}
  ~MemoryDc() { DeleteDC(dc_); }
  MemoryDc(const MemoryDc&) = delete;
  MemoryDc& operator=(const MemoryDc&) = delete;
  [[nodiscard]] HDC get() const { return dc_; }

 private:
  HDC dc_;
};

}  // namespace depcalc::native
