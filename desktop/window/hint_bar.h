// The line that says what a user may want to do next.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace depcalc::desktop {

struct NextStep;

/// Stands beside the page and takes neither focus nor keys from it.
class HintBar : public QFrame {
  Q_OBJECT

 public:
  explicit HintBar(QWidget* parent);

  /// Null hides it.
  void show(const NextStep* step);

 signals:
  void moreWanted(const QString& page);
  void dismissed(const QString& key);
  /// It has come or gone, and takes another height of the window.
  void reshaped();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void colour();

  QLabel* text_;
  QPushButton* more_;
  QPushButton* dismiss_;
  const NextStep* step_ = nullptr;
};

}  // namespace depcalc::desktop
