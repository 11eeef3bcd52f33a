#include "tests/support/failing_allocation.h"

#include <malloc.h>
#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

using In = depcalc::testing_support::FailingAllocation::In;

struct Plan {
  In in = In::program;
  long left = 0;  ///< until one fails; 0 and less: it has
  long in_a_row = 1;
  bool planned = false;
};

Plan plan;
std::atomic<std::size_t> live = 0;

bool fails(In in) {
  if (!plan.planned || plan.in != in) return false;
  --plan.left;
  return plan.left <= 0 && -plan.left < plan.in_a_row;
}

sqlite3_mem_methods usual;

/// Before any test, since SQLite takes no other memory once it has begun.
bool install() {
  sqlite3_config(SQLITE_CONFIG_GETMALLOC, &usual);
  sqlite3_mem_methods failing = usual;
  failing.xMalloc = [](int size) { return fails(In::library) ? nullptr : usual.xMalloc(size); };
  failing.xRealloc = [](void* memory, int size) {
    return fails(In::library) ? nullptr : usual.xRealloc(memory, size);
  };
  return sqlite3_config(SQLITE_CONFIG_MALLOC, &failing) == SQLITE_OK;
}

const bool installed = install();

}  // namespace

namespace depcalc::testing_support {

FailingAllocation::FailingAllocation(In in, long nth, long in_a_row) {
  if (!installed) std::abort();
  plan = {in, nth, in_a_row, nth > 0};
}

FailingAllocation::~FailingAllocation() { plan.planned = false; }

bool FailingAllocation::reached() const { return plan.left <= 0; }

std::size_t liveMemory() { return live + static_cast<std::size_t>(sqlite3_memory_used()); }

}  // namespace depcalc::testing_support

void* operator new(std::size_t size) {
  void* const memory = fails(In::program) ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  live += malloc_usable_size(memory);
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory == nullptr) return;
  live -= malloc_usable_size(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }

// The algorithms that sort ask for memory in this way.
void* operator new(std::size_t size, const std::nothrow_t& /*no_throw*/) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void operator delete(void* memory, const std::nothrow_t& /*no_throw*/) noexcept {
  operator delete(memory);
}
