// The system asks the program to end: by a signal, or because the desktop's session ends.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>

class QSessionManager;
class QWidget;

namespace depcalc::desktop {

class MainWindow;

/// A dialog whose user would lose something if it were closed, such as one about a change that
/// could not be saved, is left for the user to answer.
void keepAtSystemEnd(QWidget& dialog);

/// Closes the window as its user would, so that what is unsaved is asked about.
class SystemEnd : public QObject {
  Q_OBJECT

 public:
  /// How long a question waits for an answer; keys and clicks begin it anew.
  static constexpr std::chrono::seconds usual_patience{30};

  /// `end_now` ends the process at once.
  SystemEnd(MainWindow& window, std::chrono::milliseconds patience, std::function<void()> end_now);

  /// A signal came. Dialogs are cancelled and the window is closed. Where the user is asked and
  /// gives no answer, and where a second signal that `insists` comes before there is one, the
  /// program ends without saving. Cancelled, the program stays.
  void hear(bool insists);
  /// Whether the desktop's session may end: the user has been asked.
  bool sessionMayEnd();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void tryToEnd();
  void endWithoutSaving();
  void commit(QSessionManager& session);

  MainWindow& window_;
  std::function<void()> end_now_;
  QTimer patience_;
  bool ending_ = false;
  bool insisted_ = false;  ///< a signal that insists was heard
};

}  // namespace depcalc::desktop
