// Preferences: how the program looks, prints and asks.
#pragma once

#include <QDialog>

#include "desktop/window/settings.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QPushButton;

namespace depcalc::desktop {

/// What is chosen counts at once, so there is nothing to confirm and nothing to cancel.
class PreferencesDialog : public QDialog {
  Q_OBJECT

 public:
  /// `settings` lives longer than this.
  PreferencesDialog(Settings& settings, QWidget* parent);

 signals:
  /// The settings have it already.
  void appearanceChosen(depcalc::desktop::Appearance appearance);
  /// In percent; 0 to fit the width.
  void zoomChosen(int percent);
  void paperChosen();
  void noticesChosen();

 private:
  QComboBox* addChoice(QGridLayout& form, const QString& caption, const char* name,
                       const QStringList& items, int current);
  void addLooks(QGridLayout& form);
  void addPaper(QGridLayout& form);
  QWidget* makeNotices();
  QCheckBox* addNotice(const QString& caption, const char* name, Notice notice);

  Settings& settings_;
  QPushButton* again_ = nullptr;
};

}  // namespace depcalc::desktop
