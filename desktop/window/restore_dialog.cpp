#include "desktop/window/restore_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/step_names.h"

namespace depcalc::desktop {

namespace {

QString inWords(const std::optional<int>& assets) {
  if (!assets.has_value()) return QObject::tr("cannot be opened");
  return *assets == 1 ? QObject::tr("1 asset") : QObject::tr("%1 assets").arg(*assets);
}

}  // namespace

RestoreDialog::RestoreDialog(QVector<Backup> backups, const QVector<std::optional<int>>& assets,
                             QWidget* parent)
    : QDialog(parent), backups_(std::move(backups)), list_(new QListWidget(this)) {
  setWindowTitle(tr("Restore Backup"));
  auto* const question =
      new QLabel(tr("Restore the company to what it was before the changes that began at:"), this);
  list_->setObjectName(QStringLiteral("Backups"));
  list_->setAccessibleName(question->text());
  for (qsizetype i = 0; i < backups_.size(); ++i) {
    list_->addItem(tr("%1   ·   %2").arg(timeInWords(backups_[i].made), inWords(assets[i])));
  }
  list_->setCurrentRow(0);
  auto* const note = new QLabel(tr("The company as it is now is also kept as a backup."), this);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  QPushButton* const restore = buttons->addButton(tr("&Restore"), QDialogButtonBox::AcceptRole);
  restore->setDefault(true);
  restore->setEnabled(!backups_.isEmpty());
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
  addGuideHelp(*this, guide::backups);
  dropButtonIcons(*this);
  auto* const layout = new QVBoxLayout(this);
  for (QWidget* part : std::initializer_list<QWidget*>{question, list_, note, buttons}) {
    layout->addWidget(part);
  }
}

const Backup& RestoreDialog::chosen() const { return backups_[list_->currentRow()]; }

}  // namespace depcalc::desktop
