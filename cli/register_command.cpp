// depcalc register: the register as the calculator shows it.
#include <algorithm>

#include "cli/arguments.h"
#include "cli/options.h"
#include "cli/register_page.h"
#include "cli/text_columns.h"
#include "values/data_text.h"
#include "values/json_writer.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

class RegisterCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "register"; }
  [[nodiscard]] std::string_view summary() const override {
    return "Show the assets of a company file side by side, year by year";
  }
  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc register acme.company
      the table of the calculator's page "View All Assets"
  depcalc register --format csv acme.company > register.csv
      the same for a spreadsheet, a line for each row of the table
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareMore(Arguments& arguments) override {
    addFormatOption(arguments, format_);
    arguments.flag("--raw", raw_,
                   "With csv: write text unchanged, for other programs; see list --help");
    arguments.footer(R"(Each row is a field or a fiscal year, each column an asset.
Exit status: 0 success, 1 the file is damaged or the table is incomplete, 2 wrong usage,
3 it cannot be read, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    const RegisterPage page(company);
    write(page, surroundings.out);
    if (page.trouble().empty()) return exit_success;
    complain(company, "the table is incomplete: " + page.trouble(), surroundings.errors);
    return exit_bad_data;
  }

  void write(const RegisterPage& page, Output& out) const {
    if (format_ == OutputFormat::json) {
      writeJson(page, out);
    } else if (!page.hasAssets()) {
      if (format_ == OutputFormat::table) out.write("No assets.\n");
    } else if (format_ == OutputFormat::csv) {
      writeCsv(page.table(), CsvFields(raw_), out);
    } else {
      writeTable(page.table(), out);
    }
  }

  /// Captions, and what users entered; everything else is a number, a date or a name of ours.
  static bool isText(const Grid& table, int row, int column) {
    const CellKind kind = table.kind(row, column);
    return kind == CellKind::text || kind == CellKind::caption;
  }

  static void writeCsv(const Grid& table, CsvFields fields, Output& out) {
    for (int row = 0; row < table.rows(); ++row) {
      for (int column = 0; column < table.columns(); ++column) {
        if (column > 0) out.write(',');
        const std::string_view text = table.text(row, column);
        out.write(isText(table, row, column) ? fields.text(text) : fields.number(text));
      }
      out.write('\n');
    }
  }

  static void writeJson(const RegisterPage& page, Output& out) {
    const Grid& table = page.table();
    const int rows = page.hasAssets() ? table.rows() : 0;
    JsonWriter json;
    json.beginArray(JsonWriter::Layout::below);
    for (int row = 0; row < rows; ++row) {
      json.beginObject().name("caption").text(table.text(row, 0)).name("cells").beginArray();
      for (int column = 1; column < table.columns(); ++column) json.text(table.text(row, column));
      json.endArray().endObject();
      out.write(json.take());
    }
    json.endArray();
    out.write(json.take());
  }

  /// Texts to the left, everything else to the right.
  static void writeTable(const Grid& table, Output& out) {
    std::vector<std::size_t> widths;
    for (int column = 0; column < table.columns(); ++column) {
      std::size_t width = 0;
      for (int row = 0; row < table.rows(); ++row) {
        width = std::max(width, characterCount(printableText(table.text(row, column))));
      }
      widths.push_back(width);
    }
    for (int row = 0; row < table.rows(); ++row) {
      std::string line;
      for (int column = 0; column < table.columns(); ++column) {
        const std::string text = printableText(table.text(row, column));
        const std::size_t width = widths[static_cast<std::size_t>(column)];
        line +=
            (isText(table, row, column) ? padded(text, width) : rightAligned(text, width)) + "  ";
      }
      line.erase(line.find_last_not_of(' ') + 1);
      out.write(line + '\n');
    }
  }

  OutputFormat format_ = OutputFormat::table;
  bool raw_ = false;
};

}  // namespace

std::unique_ptr<Command> registerCommand() { return std::make_unique<RegisterCommand>(); }

}  // namespace depcalc
