#include "cli/print_module.h"

#include <dlfcn.h>

#include <filesystem>

#include "desktop/printing/print_module.h"

namespace depcalc {
namespace {

/// Beside the program, in the build tree as where it is installed.
std::string modulePath() {
  std::error_code unknown;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
  return (program.parent_path() / "../lib/depcalc/modules" / desktop::print_module_name).string();
}

}  // namespace

std::unique_ptr<desktop::PdfPrinter> loadPdfPrinter(desktop::PdfPaper paper,
                                                    const std::string& title,
                                                    std::string& trouble) {
  // It stays loaded: the printer is code of its own.
  void* const module = ::dlopen(modulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const function =
      module == nullptr ? nullptr : ::dlsym(module, desktop::print_module_function);
  if (function == nullptr) {
    const char* const reason = ::dlerror();
    trouble = reason != nullptr ? reason : desktop::print_module_name;
    return nullptr;
  }
  const auto make = reinterpret_cast<desktop::MakePdfPrinter*>(function);
  std::unique_ptr<desktop::PdfPrinter> printer(make(paper, title.c_str()));
  if (printer == nullptr) trouble = "no font is installed";
  return printer;
}

}  // namespace depcalc
