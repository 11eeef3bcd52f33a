#include "common/trapped.h"

#include <new>

#include "common/report_error.h"

namespace depcalc {
namespace {

/// The listener may have no memory to keep even this.
void reportWantOfMemory(std::string_view procedure) {
  try {
    ReportError({procedure, 7, "Out of memory"});
  } catch (const std::bad_alloc&) {
    return;
  }
}

}  // namespace

void reportTrapped(std::string_view procedure, const RuntimeError& error) {
  try {
    ReportError({procedure, error.number(), error.description()});
  } catch (const std::bad_alloc&) {
    reportWantOfMemory(procedure);
  }
}

}  // namespace depcalc
