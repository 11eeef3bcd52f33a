#include "desktop/window/company_info_dialog.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "values/en_us.h"

namespace depcalc::desktop {

CompanyInfoDialog::CompanyInfoDialog(const CompanyInfo& info, QWidget* parent)
    : QDialog(parent), info_(info), name_(new QLineEdit(this)), month_(new QComboBox(this)) {
  setWindowTitle(tr("Company Info"));
  name_->setObjectName(QStringLiteral("CompanyName"));
  name_->setText(qtText(info.name));
  name_->setMinimumWidth(name_->fontMetrics().averageCharWidth() * 40);
  month_->setObjectName(QStringLiteral("FirstMonth"));
  for (const auto& month : en_us::month_names) month_->addItem(qtText(month));
  month_->view()->setAccessibleName(tr("Months"));
  month_->setCurrentIndex(info.first_month - 1);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  addGuideHelp(*this, guide::company_info);
  dropButtonIcons(*this);
  auto* const form = new QFormLayout(this);
  form->addRow(tr("&Name:"), name_);
  form->addRow(tr("First &month of the fiscal year:"), month_);
  form->addRow(buttons);
}

CompanyInfo CompanyInfoDialog::info() const {
  CompanyInfo changed = info_;
  changed.name = name_->text().trimmed().toStdString();
  changed.first_month = month_->currentIndex() + 1;
  return changed;
}

}  // namespace depcalc::desktop
