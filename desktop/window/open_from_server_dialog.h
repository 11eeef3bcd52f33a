// File > Open from Server.
#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "desktop/host/company_files.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace depcalc::desktop {

class Settings;

/// Which company, of which server. What stands in the way stands in the dialog. Servers are
/// remembered once they have been listed, never with a password: none is asked for here.
class OpenFromServerDialog : public QDialog {
  Q_OBJECT

 public:
  /// `open_here` is the place of the company that this program has open.
  OpenFromServerDialog(CompanyFiles& files, Settings& settings, QString open_here, QWidget* parent);

  /// The address of the one that was chosen.
  [[nodiscard]] QString company() const;
  /// Whether a new one is to be made on the server, and its address by its name.
  [[nodiscard]] bool wantsNew() const { return wants_new_; }
  [[nodiscard]] QString addressOf(const QString& name) const;

  void accept() override;

 private:
  QLineEdit* addField(QFormLayout& form, const QString& label, const char* name,
                      const QString& example);
  void makeList();
  void layOut(QFormLayout* form);

  void showServer(const QString& address);
  void forgetList();
  [[nodiscard]] QString typedAddress() const;
  bool list();
  void show(const std::vector<CompanyOnServer>& companies);
  void say(const QString& text);
  void choose(const QString& address);
  void enable();

  CompanyFiles& files_;
  Settings& settings_;
  QString open_here_;
  QString listed_;  ///< the server whose companies are in the list; "" for none
  bool wants_new_ = false;

  QComboBox* recent_;
  QLineEdit* server_ = nullptr;
  QLineEdit* port_ = nullptr;
  QLineEdit* database_ = nullptr;
  QLineEdit* user_ = nullptr;
  QPushButton* list_button_;
  QListWidget* companies_;
  QLabel* note_;
  QPushButton* open_ = nullptr;
  QPushButton* new_ = nullptr;
};

}  // namespace depcalc::desktop
