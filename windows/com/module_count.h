// What keeps the library loaded.
#pragma once

namespace depcalc {

/// One reason to stay in memory, for as long as it lives: every object that clients can hold has
/// one, and every lock of a class factory is one.
class ModuleUse {
 public:
  ModuleUse() noexcept;
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
};

/// For IClassFactory::LockServer, whose caller pairs them.
void lockModule() noexcept;
void unlockModule() noexcept;

/// Whether the library can leave memory: nobody uses it.
bool moduleUnused() noexcept;

}  // namespace depcalc
