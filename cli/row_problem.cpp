#include "cli/row_problem.h"

#include "cli/shown_text.h"

namespace depcalc {

std::string problemText(std::string_view file, const RowProblem& problem) {
  std::string text = shownText(file);
  text.append(":").append(std::to_string(problem.line)).append(": ");
  text.append(problem.column).append(": ").append(problem.message);
  if (problem.value) text.append(" (found ").append(quotedText(*problem.value)).append(")");
  return text;
}

}  // namespace depcalc
