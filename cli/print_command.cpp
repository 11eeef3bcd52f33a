// depcalc print: the depreciation schedule as a PDF document.
#include "cli/arguments.h"
#include "cli/output_file.h"
#include "cli/print_module.h"
#include "cli/register_page.h"
#include "register/print_pages.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

class PrintCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "print"; }
  [[nodiscard]] std::string_view summary() const override {
    return "Print the depreciation schedule of a company file as PDF";
  }
  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc print acme.company --output schedule.pdf
      the pages that the calculator's Print button prints
  depcalc print acme.company --output - --paper Letter --landscape | lp
      the same in landscape, to standard output
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareMore(Arguments& arguments) override {
    arguments
        .option("--output FILE.pdf", output_, "The PDF document to write; - for standard output")
        .required();
    arguments.option("--paper PAPER", paper_, "A4 (the default) or Letter")
        .oneOf({"A4", "Letter"}, LetterCase::ignored);
    arguments.flag("--landscape", landscape_,
                   "Print in landscape: more assets and fewer years per page");
    arguments.footer(
        R"(No display is needed. In portrait, seven assets fit on a page beside the captions.
Exit status: 0 success, 1 the file is damaged or not everything could be printed, 2 wrong usage,
3 a file cannot be read or written, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& errors = surroundings.errors;
    if (isSameFile(path(), output_)) {
      complain(company, "the document would replace the company file", errors);
      return exit_usage;
    }
    RegisterPage page(company);
    if (!page.hasAssets()) {
      complain(company, "there are no assets to print", errors);
      return exit_bad_data;
    }
    std::string trouble;
    const auto printer = loadPdfPrinter(paperCalled(paper_, landscape_), schedule_heading, trouble);
    if (printer != nullptr) trouble = page.print(*printer);
    if (trouble.empty()) trouble = writeDocument(printer->document(), surroundings.out);
    if (!trouble.empty()) {
      errors.write("depcalc: " + printableText(output_ + ": " + trouble) + '\n');
      return exit_system;
    }
    return tellWhatIsMissing(company, page, *printer, errors);
  }

  /// Answers why that failed.
  [[nodiscard]] std::string writeDocument(std::string_view document, Output& out) const {
    if (output_ != "-") return writeWholeFile(output_, document);
    out.write(document);
    return {};
  }

  static ExitStatus tellWhatIsMissing(const Company& company, const RegisterPage& page,
                                      Printer& printer, Output& errors) {
    const int left_out = page.assetsLeftOut(printer);
    if (left_out > 0) {
      complain(company, "the last " + std::to_string(left_out) + " assets do not fit on the pages",
               errors);
    }
    if (!page.trouble().empty()) {
      complain(company, "the table is incomplete: " + page.trouble(), errors);
    }
    return left_out > 0 || !page.trouble().empty() ? exit_bad_data : exit_success;
  }

  std::string output_;
  std::string paper_ = "A4";
  bool landscape_ = false;
};

}  // namespace

std::unique_ptr<Command> printCommand() { return std::make_unique<PrintCommand>(); }

}  // namespace depcalc
