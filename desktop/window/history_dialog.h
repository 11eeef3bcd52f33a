// Edit > History: what was done to the company, and what each step changed.
#pragma once

#include <QDialog>
#include <functional>

#include "changes/step_lines.h"
#include "host/history/recorder.h"

class QLabel;
class QPushButton;
class QTableView;
class QTreeWidget;

namespace depcalc::desktop {

/// Lists the steps, the newest first; those that were undone stand above the one that the company
/// is at. Below the list are the values that the chosen step changed.
class HistoryDialog : public QDialog {
  Q_OBJECT

 public:
  struct Doors {
    std::function<void()> undo;
    std::function<void()> redo;
  };

  /// `recorder` answers the open company's, null where none is; asked anew after every step.
  HistoryDialog(std::function<Recorder*()> recorder, Doors doors, QWidget* parent);

 private:
  void build();
  void fill();
  void fillSteps(const Recorder& recorder);
  void showChosen();
  [[nodiscard]] QString noteOf(const Recorder* recorder) const;
  [[nodiscard]] std::size_t stepInRow(int row) const;

  std::function<Recorder*()> recorder_;
  Doors doors_;
  StepLines shown_;
  QTreeWidget* steps_;
  QLabel* changes_label_;
  QTableView* changes_;
  QLabel* note_;
  QPushButton* undo_ = nullptr;
  QPushButton* redo_ = nullptr;
};

}  // namespace depcalc::desktop
