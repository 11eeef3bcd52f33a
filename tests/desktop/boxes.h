// Answers message boxes as they come up.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>
#include <deque>
#include <string>
#include <vector>

namespace depcalc::testing {

/// A box with a single button is answered with it; a question with the next answer queued. One
/// without an answer fails the test and is answered with its last button.
class Boxes {
 public:
  Boxes() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(5);
  }

  std::deque<QMessageBox::StandardButton> answers;

  /// False: boxes stay, for a test that looks at them itself.
  bool answering = true;

  /// What a file dialog is answered with.
  QString file;

  /// "TITLE | TEXT" of the boxes so far, which are then forgotten.
  std::vector<std::string> take() { return std::exchange(shown_, {}); }

 private:
  void look() {
    if (!answering) return;
    if (auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
      dialog->selectFile(file);
      QMetaObject::invokeMethod(dialog, "accept");
      return;
    }
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    shown_.push_back((box->windowTitle() + " | " + box->text()).toStdString());
    QAbstractButton* button = box->buttons().last();
    if (box->buttons().size() > 1) {
      if (answers.empty()) {
        ADD_FAILURE() << "no answer to: " << shown_.back();
      } else {
        button = box->button(answers.front());
        answers.pop_front();
      }
    }
    QTest::mouseClick(button, Qt::LeftButton);
  }

  QTimer timer_;
  std::vector<std::string> shown_;
};

}  // namespace depcalc::testing
