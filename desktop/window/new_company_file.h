// File > New Company: where the company is to be kept.
#pragma once

#include <QString>

class QWidget;

namespace depcalc::desktop {

/// The kinds of files that the dialogs for companies offer.
[[nodiscard]] QString companyFileFilter();

/// Asks for the file of a new company, in `folder` to begin with, until a company can be made where
/// the user says; "" where the user thought better of it. The name ends in ".company".
QString askNewCompanyFile(QWidget* window, const QString& folder);

}  // namespace depcalc::desktop
