#include "tests/desktop/real/real_user.h"

#include <QAbstractButton>
#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QProcess>
#include <QThread>

namespace depcalc::testing {
namespace {

constexpr int patience_ms = 20'000;
constexpr int glance_ms = 15;

QString captionOf(const QAbstractButton& button) { return button.text().remove(u'&'); }

QDialog* openDialog() {
  auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
}

QList<QAbstractButton*> buttonsOf(const QDialog& dialog) {
  QList<QAbstractButton*> shown;
  for (auto* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->isVisible() && !button->text().isEmpty()) shown << button;
  }
  return shown;
}

SeenDialog seen(const QDialog& dialog) {
  SeenDialog what{
      dialog.windowTitle(), {}, QString::fromUtf8(dialog.metaObject()->className()), {}};
  if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) what.text = box->text();
  for (const QAbstractButton* button : buttonsOf(dialog)) what.buttons << captionOf(*button);
  return what;
}

}  // namespace

int RealUser::runs(const QString& program, const QStringList& arguments, QString* output) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, arguments);
  process.waitForFinished(60'000);
  if (output != nullptr) *output = QString::fromUtf8(process.readAll());
  return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

void RealUser::settles() {
  for (int i = 0; i < 3; ++i) {
    QThread::msleep(glance_ms);
    gui([] {});
  }
}

void RealUser::keys(const QStringList& names) {
  runs("xdotool", QStringList{"key", "--delay", "8"} + names);
  settles();
}

void RealUser::types(const QString& text) {
  if (!text.isEmpty()) runs("xdotool", {"type", "--delay", "4", "--", text});
  settles();
}

void RealUser::fills(const QString& text) { fillsAll({text}); }

void RealUser::fillsAll(const QStringList& texts) {
  QStringList words;
  for (const QString& text : texts) {
    if (text.isNull()) {
      words << QStringList{"key", "Tab"};
      continue;
    }
    words << QStringList{"key", "--delay", "8", "ctrl+a"};
    words << (text.isEmpty() ? QStringList{"key", "Delete"}
                             : QStringList{"type", "--delay", "4", "--args", "1", "--", text});
    words << QStringList{"key", "--delay", "8", "Tab"};
  }
  runs("xdotool", words);
  settles();
}

void RealUser::clicks(QWidget* widget) {
  clicks(widget, gui([widget] { return widget->rect().center(); }));
}

void RealUser::clicks(QWidget* widget, const QPoint& place, int times) {
  const QPoint at = gui([&] {
    return (QPointF(widget->mapToGlobal(place)) * widget->devicePixelRatioF()).toPoint();
  });
  // Not --sync, which waits for the pointer to move and so for long where it is there already.
  runs("xdotool", {"mousemove", QString::number(at.x()), QString::number(at.y()), "click",
                   "--repeat", QString::number(times), "--delay", "60", "1"});
  settles();
}

bool RealUser::sees(const std::function<bool()>& it) {
  QElapsedTimer waited;
  waited.start();
  while (!gui(it)) {
    if (waited.elapsed() > patience_ms) return false;
    QThread::msleep(glance_ms);
  }
  return true;
}

SeenDialog RealUser::dialog() {
  if (!sees([] { return openDialog() != nullptr && openDialog()->isActiveWindow(); })) return {};
  settles();
  return gui([] { return openDialog() == nullptr ? SeenDialog{} : seen(*openDialog()); });
}

bool RealUser::seesNoDialog() {
  const bool none = sees([] { return openDialog() == nullptr; });
  settles();
  return none;
}

bool RealUser::answers(const QString& caption) {
  if (dialog().kind.isEmpty()) return false;
  QAbstractButton* const button = gui([&]() -> QAbstractButton* {
    if (openDialog() == nullptr) return nullptr;
    for (QAbstractButton* shown : buttonsOf(*openDialog())) {
      if (captionOf(*shown) == caption) return shown;
    }
    return nullptr;
  });
  if (button == nullptr) return false;
  clicks(button);
  return true;
}

void RealUser::choosesFile(const QString& path) {
  dialog();
  key("ctrl+a");
  types(path);
  key("Return");
}

void RealUser::photographs(const QString& path) { runs("import", {"-window", "root", path}); }

}  // namespace depcalc::testing
