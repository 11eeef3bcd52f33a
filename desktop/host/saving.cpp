#include "desktop/host/saving.h"

#include <QObject>

#include "common/trapped.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

QString problemOfSaving(const DesktopApplication& application, const Save& save) {
  std::optional<std::string> report;
  const bool done = trapped("DepCalcDesktop::save", [&] { report = save(); });
  if (done && !report) return {};
  const auto trouble = application.company()->takeTrouble();
  if (trouble) return qtText(*trouble);
  return report ? qtText(*report) : QObject::tr("The file could not be written.");
}

QString problemOfStep(DesktopApplication& application, StepKind kind, const Save& save) {
  return problemOfSaving(application, [&] {
    std::optional<std::string> report;
    application.called(kind, [&] { report = save(); });
    return report;
  });
}

}  // namespace depcalc::desktop
