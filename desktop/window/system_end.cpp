#include "desktop/window/system_end.h"

#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QThread>
#include <utility>

#include "desktop/window/main_window.h"

namespace depcalc::desktop {
namespace {

constexpr const char* kept_property = "keptAtSystemEnd";
constexpr std::chrono::milliseconds glance{20};

/// Cancels what the user has open, but for what must be answered. Returns whether something was or
/// still is.
bool cancelDialogs() {
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  QWidget* const dialog = QApplication::activeModalWidget();
  if (dialog != nullptr && !dialog->property(kept_property).toBool()) dialog->close();
  // A dialog that has closed may not have returned yet to where it was opened.
  return dialog != nullptr || QThread::currentThread()->loopLevel() > 1;
}

}  // namespace

void keepAtSystemEnd(QWidget& dialog) { dialog.setProperty(kept_property, true); }

SystemEnd::SystemEnd(MainWindow& window, std::chrono::milliseconds patience,
                     std::function<void()> end_now)
    : window_(window), end_now_(std::move(end_now)) {
  patience_.setInterval(patience);
  patience_.setSingleShot(true);
  patience_.setTimerType(Qt::PreciseTimer);  // a coarse one may cut the user's time short
  connect(&patience_, &QTimer::timeout, this, &SystemEnd::endWithoutSaving);
  // The answer is due when the signal returns.
  connect(qApp, &QGuiApplication::commitDataRequest, this, &SystemEnd::commit,
          Qt::DirectConnection);
}

void SystemEnd::hear(bool insists) {
  const bool insisted = std::exchange(insisted_, insisted_ || insists);
  if (ending_) {
    if (insists && insisted) endWithoutSaving();
    return;
  }
  ending_ = true;
  patience_.start();
  qApp->installEventFilter(this);
  window_.showToUser();
  tryToEnd();
}

void SystemEnd::tryToEnd() {
  if (cancelDialogs()) {
    QTimer::singleShot(glance, this, &SystemEnd::tryToEnd);
    return;
  }
  if (window_.closeForSystem(patience_.interval() / 1000)) return;
  ending_ = insisted_ = false;
  patience_.stop();
  qApp->removeEventFilter(this);
}

bool SystemEnd::eventFilter(QObject* watched, QEvent* event) {
  const bool by_user = event->spontaneous() && (event->type() == QEvent::KeyPress ||
                                                event->type() == QEvent::MouseButtonPress);
  if (by_user && patience_.isActive()) patience_.start();
  return QObject::eventFilter(watched, event);
}

void SystemEnd::endWithoutSaving() {
  window_.giveUp();
  end_now_();
}

bool SystemEnd::sessionMayEnd() {
  const bool busy = QApplication::activeModalWidget() != nullptr;
  if (busy && !window_.hasUnsavedEntry()) return true;
  window_.showToUser();
  return !busy && window_.mayLeave();
}

/// Some ends of a session leave no time for questions.
void SystemEnd::commit(QSessionManager& session) {
  if (!session.allowsInteraction()) return;
  const bool may_end = sessionMayEnd();
  session.release();
  if (!may_end) session.cancel();
}

}  // namespace depcalc::desktop
