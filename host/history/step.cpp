#include "host/history/step.h"

#include "host/history/bytes.h"

namespace depcalc {

std::string bytesOfStep(const Step& step) {
  ByteWriter out;
  out.number(static_cast<std::uint64_t>(step.title.kind)).text(step.title.subject);
  out.number(static_cast<std::uint64_t>(step.title.count));
  out.number(static_cast<std::uint64_t>(step.when)).number(step.before).number(step.after);
  return out.text(step.changes).take();
}

Step stepOfBytes(std::string_view bytes) {
  ByteReader in(bytes);
  Step step;
  const std::uint64_t kind = in.numberBelow(last_step_kind + 1);
  if (kind == 0) throw RuntimeError::typeMismatch();
  step.title.kind = static_cast<StepKind>(kind);
  step.title.subject = in.text();
  step.title.count = static_cast<std::int32_t>(in.numberBelow(std::uint64_t{1} << 31));
  step.when = static_cast<std::int64_t>(in.number());
  step.before = in.number();
  step.after = in.number();
  step.changes = in.text();
  if (!in.atEnd()) throw RuntimeError::typeMismatch();
  return step;
}

}  // namespace depcalc
