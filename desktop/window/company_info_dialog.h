// Company > Company Info.
#pragma once

#include <QDialog>

#include "desktop/host/company_files.h"

class QComboBox;
class QLineEdit;

namespace depcalc::desktop {

/// The company's name and the first month of its fiscal year.
class CompanyInfoDialog : public QDialog {
  Q_OBJECT

 public:
  CompanyInfoDialog(const CompanyInfo& info, QWidget* parent);

  [[nodiscard]] CompanyInfo info() const;

 private:
  CompanyInfo info_;
  QLineEdit* name_;
  QComboBox* month_;
};

}  // namespace depcalc::desktop
