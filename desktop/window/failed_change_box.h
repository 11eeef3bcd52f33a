// The box that stands while a change waits that could not be saved.
#pragma once

#include <QString>
#include <functional>

#include "host/failed_change.h"

class QWidget;

namespace depcalc::desktop {

/// Says what failed, why, and what the company file has of it, and asks what becomes of the change.
/// `ask_copy` asks for the path of a copy; "" where the user thought better of it. To close the box
/// is to give the change up, and asked about again.
FailedChangeAnswer askAboutFailedChange(const FailedChange& change,
                                        const std::function<QString()>& ask_copy, QWidget* window);

}  // namespace depcalc::desktop
