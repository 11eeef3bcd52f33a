// The signals by which a system asks a program to end.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace depcalc::desktop {

/// Hands SIGTERM, SIGINT and SIGHUP to the event loop of the thread that made it; there is one in
/// a process. A signal that is ignored when the program starts stays so.
class EndSignals : public QObject {
  Q_OBJECT

 public:
  explicit EndSignals(std::function<void(int signal)> heard);
  ~EndSignals() override;

 private:
  void read();

  std::function<void(int)> heard_;
  int read_end_ = -1;
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace depcalc::desktop
