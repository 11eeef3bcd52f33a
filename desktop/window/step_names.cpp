#include "desktop/window/step_names.h"

#include <QDateTime>
#include <QLocale>
#include <QObject>

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

/// A long ID would push the keys out of the menu.
QString subjectOf(const StepTitle& title) {
  constexpr qsizetype most = 40;
  const QString subject = qtText(title.subject).simplified();
  return subject.size() > most ? subject.left(most - 1) + QStringLiteral("…") : subject;
}

}  // namespace

QString shortStepName(const StepTitle& title) {
  switch (title.kind) {
    case StepKind::saved:
      return QObject::tr("Save");
    case StepKind::deleted:
      return QObject::tr("Deletion");
    case StepKind::imported:
      return QObject::tr("Import");
    case StepKind::disposed:
      return QObject::tr("Disposal");
    case StepKind::put_back:
      return QObject::tr("Return to Service");
    case StepKind::units:
      return QObject::tr("Units Produced");
    case StepKind::recalculated:
      return QObject::tr("Recalculation");
    case StepKind::company:
      return QObject::tr("Company Info");
    case StepKind::restored:
      return QObject::tr("Restored Backup");
    case StepKind::changed:
      break;
  }
  return QObject::tr("Change");
}

QString stepName(const StepTitle& title) {
  const QString name = shortStepName(title);
  if (!title.subject.empty()) return QObject::tr("%1 of %2").arg(name, subjectOf(title));
  const bool whole = title.kind == StepKind::company || title.kind == StepKind::restored;
  if (whole || title.count == 0) return name;
  return title.count == 1 ? QObject::tr("%1 of 1 Asset").arg(name)
                          : QObject::tr("%1 of %L2 Assets").arg(name).arg(title.count);
}

QString timeInWords(const QDateTime& time) {
  return QLocale::c().toString(time, QStringLiteral("MMMM d, yyyy, HH:mm:ss"));
}

QString stepTime(const Step& step) { return timeInWords(QDateTime::fromSecsSinceEpoch(step.when)); }

}  // namespace depcalc::desktop
