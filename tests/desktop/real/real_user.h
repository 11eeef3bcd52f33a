// A user at a real display: keys and clicks by xdotool, eyes on the window's thread.
#pragma once

#include <QApplication>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <type_traits>

namespace depcalc::testing {

/// Runs `look` on the window's thread and returns what it returns, also while a dialog is open.
/// What opens a dialog itself would not return: let the user's keys and clicks do that.
template <typename Look>
auto gui(Look look) {
  using Result = decltype(look());
  if constexpr (std::is_void_v<Result>) {
    QMetaObject::invokeMethod(qApp, look, Qt::BlockingQueuedConnection);
  } else {
    Result result{};
    QMetaObject::invokeMethod(
        qApp, [&] { result = look(); }, Qt::BlockingQueuedConnection);
    return result;
  }
}

/// A box or dialog as the user sees it.
struct SeenDialog {
  QString title;
  QString text;         ///< a message box's; "" for another dialog
  QString kind;         ///< the class of the widget: "QMessageBox", "QFileDialog", …
  QStringList buttons;  ///< their captions, without mnemonics
};

/// Every operation waits until the window has dealt with what was done. None fails by itself;
/// `sees` is the one to expect things with.
class RealUser {
 public:
  /// Presses keys by their X names, one after the other: "ctrl+o", "Tab", "Return".
  void keys(const QStringList& names);
  void key(const char* name) { keys({QString::fromUtf8(name)}); }
  void types(const QString& text);
  /// Types in the place of what the field holds, and goes on to the next one.
  void fills(const QString& text);
  /// So field after field; a null text leaves one as it is.
  void fillsAll(const QStringList& texts);

  /// Clicks into the middle of a widget, or at a place in it.
  void clicks(QWidget* widget);
  void clicks(QWidget* widget, const QPoint& place, int times = 1);

  /// Waits until it is so; false when it is not after 20 seconds.
  bool sees(const std::function<bool()>& it);
  /// Waits for a dialog and tells what it says; empty when none comes.
  SeenDialog dialog();
  bool seesNoDialog();
  /// Clicks the dialog's button of that caption; false when there is none.
  bool answers(const QString& caption);
  /// Types a path into the file dialog that is open, and presses Return.
  void choosesFile(const QString& path);

  /// Lets the window deal with all that has reached it.
  void settles();
  /// Keeps a picture of the whole screen.
  void photographs(const QString& path);

  /// Runs a program of the system to its end; its exit status.
  static int runs(const QString& program, const QStringList& arguments, QString* output = nullptr);
};

}  // namespace depcalc::testing
