// What a user does in the dialogs that come up, one after the other.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace depcalc::testing {

/// Each dialog is dealt with by the next step; one for which there is none fails the test and is
/// cancelled.
class ModalSteps {
 public:
  using Step = std::function<void(QDialog&)>;

  ModalSteps() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(5);
  }

  void then(Step step) { steps_.push_back(std::move(step)); }
  void thenCancel() {
    then([](QDialog& dialog) { dialog.reject(); });
  }
  void thenChooseFile(const QString& path) {
    then([path](QDialog& dialog) {
      auto* const files = qobject_cast<QFileDialog*>(&dialog);
      ASSERT_NE(files, nullptr);
      auto* const name = files->findChild<QLineEdit*>("fileNameEdit");
      ASSERT_NE(name, nullptr);
      // A folder is listed on another thread, and then the name proposed is selected in it.
      auto* const list = files->findChild<QAbstractItemView*>("listView");
      ASSERT_NE(list, nullptr);
      QTest::qWait(100);
      list->clearSelection();
      name->setText(path);
      QMetaObject::invokeMethod(files, "accept");
    });
  }
  /// By the button's caption, without its mnemonic.
  void thenPress(const QString& caption) {
    then([caption](QDialog& dialog) {
      for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove(u'&') == caption) return button->click();
      }
      ADD_FAILURE() << "no button " << caption.toStdString();
      dialog.reject();
    });
  }
  [[nodiscard]] bool done() const { return steps_.empty(); }

  /// "TITLE | TEXT" of the boxes so far, which are then forgotten.
  std::vector<std::string> takeBoxes() { return std::exchange(boxes_, {}); }

 private:
  void look() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (at_work_ || dialog == nullptr || !dialog->isVisible()) return;
    if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      boxes_.push_back((box->windowTitle() + " | " + box->text()).toStdString());
    }
    if (steps_.empty()) {
      ADD_FAILURE() << "unexpected: " << dialog->windowTitle().toStdString();
      dialog->reject();
      return;
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    at_work_ = true;
    step(*dialog);
    at_work_ = false;
  }

  QTimer timer_;
  bool at_work_ = false;
  std::deque<Step> steps_;
  std::vector<std::string> boxes_;
};

}  // namespace depcalc::testing
