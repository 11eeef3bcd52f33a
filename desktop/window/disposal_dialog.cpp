#include "desktop/window/disposal_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "values/display_format.h"

namespace depcalc::desktop {
namespace {

QLineEdit* field(const char* name, const QString& text, QWidget* parent) {
  auto* const edit = new QLineEdit(text, parent);
  edit->setObjectName(QString::fromLatin1(name));
  return edit;
}

QString named(const SavedAsset& asset) {
  const QString name = qtText(asset.name);
  const QString id = qtText(asset.id);
  if (id.isEmpty() && name.isEmpty()) return QObject::tr("Asset %1").arg(asset.number);
  return id.isEmpty() || name.isEmpty() ? id + name : id + QStringLiteral(", ") + name;
}

}  // namespace

DisposalDialog::DisposalDialog(const SavedAsset& asset, Date today, QWidget* parent)
    : QDialog(parent),
      asset_(asset),
      today_(today),
      date_(field("DisposalDate", {}, this)),
      proceeds_(field("Proceeds", {}, this)),
      names_(new QLabel(this)),
      amounts_(new QLabel(this)),
      note_(new QLabel(this)) {
  setWindowTitle(tr("Dispose of Asset"));
  auto* const title = new QLabel(named(asset), this);
  title->setTextFormat(Qt::PlainText);
  title->setWordWrap(true);
  const bool replaces = !asset.disposed.isNone();
  date_->setText(qtText((replaces ? asset.disposed : today).toText()));
  proceeds_->setText(qtText(formatMoney(replaces ? asset.proceeds : Currency())));
  names_->setObjectName(QStringLiteral("EffectNames"));
  amounts_->setObjectName(QStringLiteral("EffectAmounts"));
  amounts_->setAlignment(Qt::AlignRight);
  note_->setObjectName(QStringLiteral("Note"));
  note_->setWordWrap(true);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  save_ = buttons->addButton(tr("&Save"), QDialogButtonBox::AcceptRole);
  save_->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(date_, &QLineEdit::textChanged, this, [this] { look(); });
  connect(proceeds_, &QLineEdit::textChanged, this, [this] { look(); });
  addGuideHelp(*this, guide::disposals);
  dropButtonIcons(*this);
  auto* const form = new QFormLayout;
  form->addRow(tr("&Date of disposal:"), date_);
  form->addRow(tr("&Proceeds:"), proceeds_);
  auto* const effect = new QGridLayout;
  effect->addWidget(names_, 0, 0);
  effect->addWidget(amounts_, 0, 1);
  effect->setColumnStretch(0, 1);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(title);
  layout->addLayout(form);
  layout->addLayout(effect);
  layout->addWidget(note_);
  layout->addStretch();
  layout->addWidget(buttons);
  note_->setMinimumHeight(fontMetrics().lineSpacing() * 2);
  setMinimumWidth(fontMetrics().averageCharWidth() * 52);
  look();
  date_->selectAll();
}

/// What is entered now, and what it comes to.
void DisposalDialog::look() {
  const auto entered = disposalFrom(date_->text().trimmed().toStdString(),
                                    proceeds_->text().trimmed().toStdString(), asset_, today_);
  const auto* const refusal = std::get_if<std::string>(&entered);
  disposal_ = refusal == nullptr ? std::optional(std::get<Disposal>(entered)) : std::nullopt;
  save_->setEnabled(disposal_.has_value());
  if (refusal != nullptr) {
    show(std::nullopt);
    note_->setText(qtText(*refusal));
    return;
  }
  const DisposalEffect effect = effectOf(asset_, *disposal_);
  show(effect);
  note_->setText(
      !effect.scheduled ? tr("No amounts are saved for this asset.")
      : asset_.disposed.isNone()
          ? QString()
          : tr("This replaces the disposal of %1.").arg(qtText(asset_.disposed.toText())));
}

void DisposalDialog::show(const std::optional<DisposalEffect>& effect) {
  const auto money = [](Currency amount) { return qtText(formatMoney(amount)); };
  const bool loss = effect && effect->gain < Currency();
  const QStringList names{
      effect ? tr("Depreciation of FY%1").arg(effect->fiscal_year) : tr("Depreciation of the year"),
      tr("Accumulated depreciation"), tr("Book value"),
      loss ? tr("Loss on disposal") : tr("Gain on disposal")};
  const QStringList amounts =
      effect ? QStringList{money(effect->depreciation), money(effect->accumulated),
                           money(effect->book_value),
                           money(loss ? Currency() - effect->gain : effect->gain)}
             : QStringList{};
  names_->setText(names.join(u'\n'));
  amounts_->setText(amounts.join(u'\n'));
  QStringList spoken;
  for (int i = 0; i < amounts.size(); ++i) spoken << names[i] + QStringLiteral(": ") + amounts[i];
  amounts_->setAccessibleName(spoken.join(QStringLiteral("; ")));
}

}  // namespace depcalc::desktop
