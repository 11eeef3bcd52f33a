#include "cli/print_module.h"

#include <dlfcn.h>

#include <filesystem>

#include "desktop/printing/print_module.h"
#include "reports/pages/report_pages.h"
#include "values/text.h"

namespace depcalc {
namespace {

/// Beside the program, in the build tree as where it is installed.
std::string modulePath() {
  std::error_code unknown;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
  return (program.parent_path() / "../lib/depcalc/modules" / desktop::print_module_name).string();
}

/// Null where there is none; `trouble` then says why. It stays loaded: what it makes is code of its
/// own.
template <typename Function>
Function* functionOfModule(const char* name, std::string& trouble) {
  void* const module = ::dlopen(modulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const function = module == nullptr ? nullptr : ::dlsym(module, name);
  if (function == nullptr) {
    const char* const reason = ::dlerror();
    trouble = reason != nullptr ? reason : desktop::print_module_name;
  }
  return reinterpret_cast<Function*>(function);
}

constexpr const char* no_font = "no font is installed";

}  // namespace

desktop::PdfPaper paperCalled(std::string_view name, bool landscape) {
  const bool letter = equalIgnoringCase(name, "Letter");
  return {letter ? desktop::PaperSize::letter : desktop::PaperSize::a4, landscape};
}

std::unique_ptr<desktop::PdfPrinter> loadPdfPrinter(desktop::PdfPaper paper,
                                                    const std::string& title,
                                                    std::string& trouble) {
  auto* const make =
      functionOfModule<desktop::MakePdfPrinter>(desktop::print_module_function, trouble);
  if (make == nullptr) return nullptr;
  std::unique_ptr<desktop::PdfPrinter> printer(make(paper, title.c_str()));
  if (printer == nullptr) trouble = no_font;
  return printer;
}

std::string pdfReport(const Report& report, desktop::PdfPaper paper, Date today,
                      std::string& trouble) {
  auto* const make =
      functionOfModule<desktop::MakeReportPdf>(desktop::report_module_function, trouble);
  if (make == nullptr) return {};
  const std::unique_ptr<desktop::ReportPdf> pdf(make(paper, report.title.c_str()));
  if (pdf == nullptr) {
    trouble = no_font;
    return {};
  }
  const ReportPages pages(report, pdf->area(), pdf->measures(), today);
  for (std::size_t i = 0; i < pages.count(); ++i) pdf->add(pages.page(i));
  std::string document(pdf->document());
  if (document.empty()) trouble = "the PDF document could not be made";
  return document;
}

}  // namespace depcalc
