#include "importing/row_problem.h"

#include "values/printable_text.h"

namespace depcalc {

std::string problemText(std::string_view file, const RowProblem& problem) {
  std::string text = printableText(file);
  text.append(":").append(std::to_string(problem.line)).append(": ");
  text.append(problem.column).append(": ").append(problem.message);
  if (problem.value) text.append(" (found ").append(quotedText(*problem.value)).append(")");
  return text;
}

}  // namespace depcalc
