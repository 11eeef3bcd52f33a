#include "desktop/preview/step_pictures.h"

#include <QFile>
#include <QFileInfo>
#include <string>

#include "compare/dep_calc_display_ctl.h"
#include "desktop/preview/modal_picture.h"
#include "desktop/workspace/what_if_typing.h"

namespace depcalc::desktop {
namespace {

/// As another program may have written it: two rows have to be put right first.
constexpr const char* list_to_correct =
    "Nr;Bezeichnung;Abteilung;Zugang;Nutzungsdauer;Anschaffungswert;Restwert;FY2025\n"
    "PL-020;Planer;Shop;15.03.2025;7;12.480,00;480,00;1.714,29\n"
    "DC-021;Dust collector;Shop;31.02.2025;5;3.150,00;150,00;600,00\n"
    "VN-022;Panel van;Delivery;01.07.2025;5;41.900,00;3.900,00;7.600,00\n"
    "SC-023;Scanner;Office;20.10.2025;3;890,00;950,00;0,00\n";

constexpr const char* list =
    "id,name,department,placed_in_service,life,method,basis,salvage\n"
    "PL-020,Planer,Shop,03/15/2025,7,SL,12480,480\n"
    "VN-022,Panel van,Delivery,07/01/2025,5,DDB,41900,3900\n";

class Steps {
 public:
  Steps(MainWindow& window, QString directory)
      : window_(window), directory_(std::move(directory)) {}

  QStringList draw() {
    if (window_.calculator() == nullptr) return paths_;
    saveComparison();
    drawImport("import", list_to_correct, [](QDialog& dialog) { dialog.reject(); });
    drawImport("import-ready", list, [](QDialog& dialog) { dialog.accept(); });
    correctFirstAsset();
    rename();
    window_.undo();
    paths_ << drawModal(path("history"), [this] { window_.showHistory(); });
    return paths_;
  }

 private:
  [[nodiscard]] QString path(const char* name) const {
    return directory_ + u'/' + QLatin1String(name) + QStringLiteral(".png");
  }

  /// A file of that name beside the company.
  [[nodiscard]] QString written(const char* text) const {
    const QString folder = QFileInfo(QString::fromStdString(window_.company()->path())).path();
    QFile file(folder + QStringLiteral("/Equipment.csv"));
    if (file.open(QIODevice::WriteOnly)) file.write(text);
    return file.fileName();
  }

  void drawImport(const char* name, const char* text, const std::function<void(QDialog&)>& answer) {
    const QString file = written(text);
    paths_ << drawModal(
        path(name), [this, &file] { window_.importFile(file); }, answer);
    settle();
  }

  template <typename Action>
  void user(Action action) {
    window_.calculator()->surface().act(action);
    settle();
  }

  /// Another life, which any asset can have, as typed, calculated and saved.
  void correctFirstAsset() {
    window_.editAsset(1);
    settle();
    DepCalcCtl* const form = window_.calculator()->entryForm();
    if (form == nullptr) return;
    user([form](User& user) {
      const int years = QString::fromStdString(form->DRecoveryText.text()).toInt();
      WhatIfRow life;
      life.changed = WhatIfField::life;
      life.text = std::to_string(years > 1 ? years - 1 : years + 1);
      typeIntoForm(user, *form, life);
      user.click(form->CalcButton.normal);
    });
    saveComparison();
  }

  /// Where it shows.
  void saveComparison() {
    auto* const comparison = dynamic_cast<DepCalcDisplayCtl*>(
        window_.calculator()->container().child("DepCalcDisplayCtl1"));
    if (comparison == nullptr || !comparison->isShown()) return;
    user([comparison](User& user) { user.click(comparison->SaveButton.normal); });
  }

  void rename() {
    CompanyInfo info = window_.company()->info();
    info.name += " Ltd.";
    window_.setCompanyInfo(info);
    settle();
  }

  MainWindow& window_;
  QString directory_;
  QStringList paths_;
};

}  // namespace

QStringList drawSteps(MainWindow& window, const QString& directory) {
  return Steps(window, directory).draw();
}

}  // namespace depcalc::desktop
