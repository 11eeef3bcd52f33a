#include "desktop/window/recalculation_dialog.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "values/display_format.h"

namespace depcalc::desktop {
namespace {

constexpr int shown_rows = 12;

/// Of the amounts of a register that may have a million of them, only those in sight are asked for.
class ChangesModel final : public QAbstractTableModel {
 public:
  ChangesModel(const std::vector<ChangedAmount>& changes, QObject* parent)
      : QAbstractTableModel(parent), changes_(changes) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(changes_.size());
  }
  [[nodiscard]] int columnCount(const QModelIndex& /*parent*/) const override { return 5; }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole) return alignment(index.column());
    if (role != Qt::DisplayRole) return {};
    const ChangedAmount& change = changes_[static_cast<std::size_t>(index.row())];
    const std::array<QString, 5> texts{
        QString::number(change.number), qtText(change.id),
        change.fiscal_year ? QStringLiteral("FY%1").arg(*change.fiscal_year) : QObject::tr("Rate"),
        amount(change, change.before), amount(change, change.after)};
    return texts.at(static_cast<std::size_t>(index.column()));
  }

  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return alignment(section);
    const std::array<QString, 5> titles{QObject::tr("No."), QObject::tr("Asset ID"),
                                        QObject::tr("Fiscal year"), QObject::tr("Before"),
                                        QObject::tr("After")};
    return role == Qt::DisplayRole ? titles.at(static_cast<std::size_t>(section)) : QVariant();
  }

 private:
  static QVariant alignment(int column) {
    const bool number = column == 0 || column >= 3;
    return QVariant((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  /// A rate has four decimals, as the register shows it.
  static QString amount(const ChangedAmount& change, Currency value) {
    return qtText(change.fiscal_year ? formatMoney(value) : value.toText());
  }

  const std::vector<ChangedAmount>& changes_;
};

QString assets(int count) {
  return count == 1 ? QObject::tr("1 asset") : QObject::tr("%L1 assets").arg(count);
}

}  // namespace

RecalculationDialog::RecalculationDialog(const Company& company, FiscalYearEnds ends,
                                         Calculate calculate, QWidget* parent)
    : QDialog(parent),
      company_(company),
      calculate_(std::move(calculate)),
      company_year_(new QCheckBox(this)),
      summary_(new QLabel(this)),
      changes_(new QTableView(this)),
      left_label_(new QLabel(tr("These assets cannot be calculated and remain unchanged:"), this)),
      left_(new QListWidget(this)),
      note_(new QLabel(this)) {
  setWindowTitle(tr("Recalculate All Assets"));
  auto* const explanation = new QLabel(this);
  explanation->setWordWrap(true);
  explanation->setText(company.other_fiscal_years == 0
                           ? tr("Every asset is recalculated by its method from its saved values.")
                           : tr("Every asset is recalculated by its method from its saved values. "
                                "The fiscal year of %1 does not end on %2, as the company's does.")
                                 .arg(assets(company.other_fiscal_years), company.fiscal_year_end));
  company_year_->setObjectName(QStringLiteral("CompanyYear"));
  company_year_->setText(tr("Use the company's fiscal year for &all assets"));
  company_year_->setChecked(ends == FiscalYearEnds::company);
  company_year_->setVisible(company.other_fiscal_years > 0);
  summary_->setObjectName(QStringLiteral("Summary"));
  summary_->setWordWrap(true);
  changes_->setObjectName(QStringLiteral("Changes"));
  changes_->setAccessibleName(tr("Amounts before and after"));
  changes_->setSelectionBehavior(QAbstractItemView::SelectRows);
  changes_->setTabKeyNavigation(false);
  changes_->verticalHeader()->hide();
  changes_->verticalHeader()->setDefaultSectionSize(changes_->fontMetrics().height() * 3 / 2);
  changes_->horizontalHeader()->setMinimumSectionSize(changes_->fontMetrics().averageCharWidth() *
                                                      9);
  changes_->horizontalHeader()->setHighlightSections(false);
  changes_->setMinimumHeight(changes_->fontMetrics().height() * 3 / 2 * shown_rows);
  left_->setObjectName(QStringLiteral("LeftAssets"));
  left_->setAccessibleName(left_label_->text());
  left_->setWordWrap(true);
  left_->setMaximumHeight(left_->fontMetrics().height() * 6);
  note_->setText(tr("A backup is made first. The changes are saved completely or not at all."));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  save_ = buttons->addButton(tr("&Save"), QDialogButtonBox::AcceptRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(company_year_, &QCheckBox::toggled, this, [this] { this->calculate(); });
  addGuideHelp(*this, guide::recalculation);
  dropButtonIcons(*this);
  auto* const layout = new QVBoxLayout(this);
  for (QWidget* part : std::initializer_list<QWidget*>{explanation, company_year_, summary_,
                                                       changes_, left_label_, left_, note_}) {
    layout->addWidget(part);
  }
  layout->addWidget(buttons);
  layout->setStretchFactor(changes_, 1);
  this->calculate();
  const int across = fontMetrics().averageCharWidth() * 80;
  resize(across, layout->totalHeightForWidth(across));
}

FiscalYearEnds RecalculationDialog::ends() const {
  return company_year_->isChecked() ? FiscalYearEnds::company : FiscalYearEnds::own;
}

void RecalculationDialog::calculate() {
  QAbstractItemModel* const before = changes_->model();
  changes_->setModel(nullptr);
  delete before;
  recalculation_ = calculate_(ends());
  changes_->setModel(new ChangesModel(recalculation_.changes, changes_));
  for (int column = 0; column < 5; ++column) {
    const auto mode = column == 1 ? QHeaderView::Stretch : QHeaderView::ResizeToContents;
    changes_->horizontalHeader()->setSectionResizeMode(column, mode);
  }
  left_->clear();
  for (const LeftAsset& asset : recalculation_.left) {
    left_->addItem(tr("%1  %2: %3")
                       .arg(QString::number(asset.number), qtText(asset.id), qtText(asset.reason)));
  }
  const bool any_left = !recalculation_.left.empty();
  left_label_->setVisible(any_left);
  left_->setVisible(any_left);
  summary_->setText(summary());
  const bool any_change = !recalculation_.to_save.empty();
  changes_->setVisible(!recalculation_.changes.empty());
  note_->setVisible(any_change);
  save_->setEnabled(any_change);
  save_->setDefault(save_->isEnabled());
  // Lines that break make a dialog's own minimum too small for what has come to be shown.
  layout()->activate();
  resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
}

QString RecalculationDialog::summary() const {
  const auto changes = static_cast<int>(recalculation_.changes.size());
  if (recalculation_.to_save.empty()) {
    return tr("All amounts are correct. There is nothing to save.");
  }
  QString text = changes == 0   ? tr("No amount changes.")
                 : changes == 1 ? tr("One amount changes:")
                                : tr("%L1 amounts change:").arg(changes);
  if (recalculation_.moved > 0) {
    text.prepend(tr("%1 would get the company's fiscal year. ").arg(assets(recalculation_.moved)));
  }
  return text;
}

}  // namespace depcalc::desktop
