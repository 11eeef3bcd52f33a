// What the user reads of a step.
#pragma once

#include <QDateTime>
#include <QString>

#include "host/history/step.h"

namespace depcalc::desktop {

/// "Deletion of TRK-014"
QString stepName(const StepTitle& title);

/// "Deletion"
QString shortStepName(const StepTitle& title);

/// "November 22, 2026, 10:15:30"
QString timeInWords(const QDateTime& time);

/// The same of a step, in the user's time zone.
QString stepTime(const Step& step);

}  // namespace depcalc::desktop
