// Ends the program it is linked into as soon as its main window has been painted, or what
// FIRST_PAINT_OF names: the run time of the program is what its start costs.
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <cstdlib>

namespace {

class FirstPaint : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && isAwaited(*watched)) {
      // Children are painted, and all of it shown, before the next event is.
      QMetaObject::invokeMethod(
          qApp, [] { std::_Exit(EXIT_SUCCESS); }, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  bool isAwaited(const QObject& painted) const {
    return name_.isEmpty() ? qobject_cast<const QMainWindow*>(&painted) != nullptr
                           : painted.objectName() == name_;
  }

  const QString name_ = qEnvironmentVariable("FIRST_PAINT_OF");
};

void awaitFirstPaint() { qApp->installEventFilter(new FirstPaint(qApp)); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(awaitFirstPaint)
