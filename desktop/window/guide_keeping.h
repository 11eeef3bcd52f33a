// The guide beside the program, while the user has it open.
#pragma once

#include <QPointer>
#include <QString>
#include <functional>

class QWidget;

namespace depcalc::desktop {

class GuideWindow;

/// One window of it, which can be read while a dialog waits for its answer.
class GuideKeeping {
 public:
  /// The guide is in `folder`; its window belongs to `window`. `tell` says what went wrong.
  GuideKeeping(QString folder, QWidget& window, std::function<void(const QString&)> tell);
  ~GuideKeeping();

  [[nodiscard]] bool isInstalled() const;
  /// At a file of the guide, with the place on it; "" is where it begins.
  void open(const QString& page);
  void end();

 private:
  QString folder_;
  QWidget& window_;
  std::function<void(const QString&)> tell_;
  QPointer<GuideWindow> guide_;
};

}  // namespace depcalc::desktop
