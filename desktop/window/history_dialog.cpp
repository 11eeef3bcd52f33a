#include "desktop/window/history_dialog.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>

#include "common/trapped.h"
#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/step_names.h"

namespace depcalc::desktop {
namespace {

constexpr int lines_in_sight = 10;

enum Column : int { column_time, column_step, column_state };

class LinesModel final : public QAbstractTableModel {
 public:
  LinesModel(const std::vector<StepLine>& lines, QObject* parent)
      : QAbstractTableModel(parent), lines_(lines) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
  }
  [[nodiscard]] int columnCount(const QModelIndex& /*parent*/) const override { return 4; }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const StepLine& line = lines_[static_cast<std::size_t>(index.row())];
    const std::array<const std::string*, 4> texts{&line.about, &line.field, &line.before,
                                                  &line.after};
    const QString text = qtText(*texts.at(static_cast<std::size_t>(index.column())));
    return role == Qt::ToolTipRole ? toolTipText(text) : text.simplified();
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    const std::array<QString, 4> titles{QObject::tr("Asset"), QObject::tr("Field"),
                                        QObject::tr("Before"), QObject::tr("After")};
    return role == Qt::DisplayRole ? titles.at(static_cast<std::size_t>(section)) : QVariant();
  }

 private:
  const std::vector<StepLine>& lines_;
};

}  // namespace

HistoryDialog::HistoryDialog(std::function<Recorder*()> recorder, Doors doors, QWidget* parent)
    : QDialog(parent),
      recorder_(std::move(recorder)),
      doors_(std::move(doors)),
      steps_(new QTreeWidget(this)),
      changes_label_(new QLabel(tr("C&hanged values:"), this)),
      changes_(new QTableView(this)),
      note_(new QLabel(this)) {
  setWindowTitle(tr("History"));
  build();
  addGuideHelp(*this, guide::history);
  connect(steps_, &QTreeWidget::currentItemChanged, this, &HistoryDialog::showChosen);
  connect(undo_, &QPushButton::clicked, this, [this] {
    doors_.undo();
    fill();
  });
  connect(redo_, &QPushButton::clicked, this, [this] {
    doors_.redo();
    fill();
  });
  fill();
}

void HistoryDialog::build() {
  steps_->setObjectName(QStringLiteral("Steps"));
  steps_->setAccessibleName(tr("Steps, the newest first"));
  steps_->setHeaderLabels({tr("Time"), tr("Change"), tr("State")});
  steps_->setRootIsDecorated(false);
  steps_->setUniformRowHeights(true);
  steps_->setAllColumnsShowFocus(true);
  steps_->header()->setStretchLastSection(false);
  steps_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  steps_->header()->setSectionResizeMode(column_step, QHeaderView::Stretch);
  changes_->setObjectName(QStringLiteral("Values"));
  changes_->setAccessibleName(tr("Values before and after the chosen step"));
  changes_->setSelectionBehavior(QAbstractItemView::SelectRows);
  changes_->setTabKeyNavigation(false);
  changes_->verticalHeader()->hide();
  changes_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  changes_->horizontalHeader()->setHighlightSections(false);
  changes_->setMinimumHeight(fontMetrics().height() * 3 / 2 * lines_in_sight);
  changes_label_->setBuddy(changes_);
  note_->setObjectName(QStringLiteral("Note"));
  note_->setWordWrap(true);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  undo_ = buttons->addButton(tr("&Undo"), QDialogButtonBox::ActionRole);
  redo_ = buttons->addButton(tr("&Redo"), QDialogButtonBox::ActionRole);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  dropButtonIcons(*this);
  auto* const layout = new QVBoxLayout(this);
  for (QWidget* part :
       std::initializer_list<QWidget*>{steps_, changes_label_, changes_, note_, buttons}) {
    layout->addWidget(part);
  }
  layout->setStretchFactor(changes_, 1);
  resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 36);
}

void HistoryDialog::fill() {
  const Recorder* const recorder = recorder_();
  {
    const QSignalBlocker quiet(steps_);
    steps_->clear();
    if (recorder != nullptr) fillSteps(*recorder);
  }
  undo_->setEnabled(recorder != nullptr && recorder->canUndo());
  redo_->setEnabled(recorder != nullptr && recorder->canRedo());
  note_->setText(noteOf(recorder));
  note_->setVisible(!note_->text().isEmpty());
  showChosen();
  steps_->setFocus();
}

void HistoryDialog::fillSteps(const Recorder& recorder) {
  const auto& steps = recorder.history().steps();
  const std::size_t position = recorder.history().position();
  for (std::size_t i = steps.size(); i-- > 0;) {
    const bool undone = i >= position;
    const QString state = undone ? tr("undone") : i + 1 == position ? tr("◀ current") : QString();
    auto* const item = new QTreeWidgetItem({stepTime(steps[i]), stepName(steps[i].title), state});
    // The width of this column is what is left.
    item->setSizeHint(column_step, QSize(0, fontMetrics().height() * 3 / 2));
    if (undone) {
      QColor grey = palette().color(QPalette::Text);
      grey.setAlphaF(0.6F);
      for (const int column : {column_time, column_step, column_state}) {
        item->setForeground(column, grey);
      }
    }
    steps_->addTopLevelItem(item);
  }
  if (steps.empty()) return;
  const std::size_t current = position == 0 ? 0 : position - 1;
  steps_->setCurrentItem(steps_->topLevelItem(static_cast<int>(steps.size() - 1 - current)));
}

QString HistoryDialog::noteOf(const Recorder* recorder) const {
  if (recorder == nullptr) return {};
  if (!recorder->isKept()) {
    return tr(
        "The history could not be written. What was done can be undone until the company is "
        "closed.");
  }
  if (!recorder->history().steps().empty()) return {};
  if (recorder->found() == StepLog::Found::other) {
    return tr(
        "The company was changed elsewhere since it was last open here. What was done before "
        "cannot be undone.");
  }
  if (recorder->found() == StepLog::Found::damaged) {
    return tr("The history file cannot be read. What was done before cannot be undone.");
  }
  return tr("Nothing has been changed yet.");
}

std::size_t HistoryDialog::stepInRow(int row) const {
  return static_cast<std::size_t>(steps_->topLevelItemCount() - 1 - row);
}

void HistoryDialog::showChosen() {
  QAbstractItemModel* const before = changes_->model();
  changes_->setModel(nullptr);
  delete before;
  shown_ = {};
  Recorder* const recorder = recorder_();
  const int row = steps_->indexOfTopLevelItem(steps_->currentItem());
  if (recorder != nullptr && row >= 0) {
    // An old step of a large register takes its time.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    trapped("DepCalcDesktop::History",
            [&] { shown_ = stepLines(recorder->changesOf(stepInRow(row))); });
    QApplication::restoreOverrideCursor();
  }
  changes_->setModel(new LinesModel(shown_.lines, changes_));
  for (int column = 0; column < 4; ++column) {
    changes_->horizontalHeader()->setSectionResizeMode(
        column, column < 2 ? QHeaderView::ResizeToContents : QHeaderView::Stretch);
  }
  changes_label_->setText(
      shown_.left_out == 0
          ? tr("C&hanged values:")
          : tr("C&hanged values (%L1 more assets not shown):").arg(shown_.left_out));
}

}  // namespace depcalc::desktop
