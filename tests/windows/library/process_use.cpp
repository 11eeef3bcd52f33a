#include "tests/windows/library/process_use.h"

#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ostream>
#include <vector>

// The system's own counts (GetProcessHandleCount, GetGuiResources, the private bytes) are always 0
// under Wine, so everything is counted here piece by piece.
namespace depcalc::windows {
namespace {

/// As NtQuerySystemInformation answers for all processes.
struct SystemHandles {
  ULONG count;
  struct Entry {
    ULONG process;
    UCHAR type;
    UCHAR flags;
    USHORT handle;
    void* object;
    ACCESS_MASK access;
  } entries[1];
};
constexpr auto system_handles = static_cast<SYSTEM_INFORMATION_CLASS>(16);

std::size_t handleCount() {
  using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<std::uint64_t> room(1 << 17);
  const auto bytes = static_cast<ULONG>(room.size() * sizeof room.front());
  if (query(system_handles, room.data(), bytes, nullptr) != 0) return 0;
  const auto& handles = *reinterpret_cast<const SystemHandles*>(room.data());
  return static_cast<std::size_t>(
      std::count_if(handles.entries, handles.entries + handles.count,
                    [](const auto& entry) { return entry.process == GetCurrentProcessId(); }));
}

/// A handle without its upper half is that of whichever object has the place now.
std::size_t gdiObjectCount() {
  std::size_t count = 0;
  for (std::uintptr_t place = 1; place < 0x10000; ++place)
    count += GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0 ? 1 : 0;
  return count;
}

BOOL CALLBACK countChild(HWND /*window*/, LPARAM counter) {
  ++*reinterpret_cast<std::size_t*>(counter);
  return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM counter) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId()) return TRUE;
  EnumChildWindows(window, countChild, counter);
  return countChild(window, counter);
}

std::size_t windowCount() {
  std::size_t count = 0;
  EnumWindows(countWithChildren, reinterpret_cast<LPARAM>(&count));
  return count;
}

std::size_t bytesOf(HANDLE heap) {
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  HeapLock(heap);
  while (HeapWalk(heap, &entry) != FALSE) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
  }
  HeapUnlock(heap);
  return bytes;
}

std::size_t heapBytes() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(count, heaps.size()); ++i)
    bytes += bytesOf(heaps[i]);
  return bytes;
}

}  // namespace

ProcessUse processUse() { return {handleCount(), gdiObjectCount(), windowCount(), heapBytes()}; }

std::ostream& operator<<(std::ostream& stream, const ProcessUse& use) {
  return stream << use.handles << " handles, " << use.gdi_objects << " GDI objects, " << use.windows
                << " windows, " << use.heap_bytes << " bytes";
}

}  // namespace depcalc::windows
