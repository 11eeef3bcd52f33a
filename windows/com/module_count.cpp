#include "windows/com/module_count.h"

#include <atomic>

namespace depcalc {
namespace {

// One library in the process, one count: the system asks a function without arguments for it.
std::atomic<long> uses = 0;

}  // namespace

ModuleUse::ModuleUse() noexcept { lockModule(); }
ModuleUse::~ModuleUse() { unlockModule(); }

void lockModule() noexcept { ++uses; }
void unlockModule() noexcept { --uses; }

bool moduleUnused() noexcept { return uses == 0; }

}  // namespace depcalc
