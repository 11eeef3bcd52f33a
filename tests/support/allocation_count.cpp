#include "tests/support/allocation_count.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> live_bytes = 0;

}  // namespace

namespace depcalc::testing {

std::size_t liveBytes() { return live_bytes; }

}  // namespace depcalc::testing

void* operator new(std::size_t size) {
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  live_bytes += malloc_usable_size(memory);
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory == nullptr) return;
  live_bytes -= malloc_usable_size(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }
