// What the user reads of a step.
#pragma once

#include <QString>

#include "host/history/step.h"

namespace depcalc::desktop {

/// "Deletion of TRK-014"
QString stepName(const StepTitle& title);

/// "Deletion"
QString shortStepName(const StepTitle& title);

/// "22 November 2026, 10:15:30", in the user's time zone.
QString stepTime(const Step& step);

}  // namespace depcalc::desktop
