#include "desktop/window/missing_assets.h"

#include <QMessageBox>
#include <QPushButton>

#include "common/trapped.h"
#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "register/print_pages.h"

namespace depcalc::desktop {
namespace {

struct Missing {
  int assets = 0;
  int of = 0;
  bool none_if_turned = false;
  bool wide_paper = false;
};

/// A printer that fails here fails in the job as well, which says so.
Missing missingAssets(const Grid& register_table, Printer& printer) {
  Missing missing;
  trapped("DepCalcDesktop::missingAssets", [&] {
    const int heading = measureScheduleHeading(printer);
    missing.of = register_table.columns() - 1;
    missing.wide_paper = printer.printableWidth() > printer.printableHeight();
    missing.assets = assetsOnNoPage(register_table, pageRoomBelow(heading, printer));
    if (missing.assets == 0) return;
    missing.none_if_turned =
        assetsOnNoPage(register_table, turnedPageRoomBelow(heading, printer)) == 0;
  });
  return missing;
}

QString whatIsMissing(const Missing& missing) {
  if (missing.assets == missing.of) {
    return QObject::tr("This paper is too narrow to print any assets.");
  }
  if (missing.assets == 1) {
    return QObject::tr("On this paper, the last of the %1 assets would not be printed.")
        .arg(missing.of);
  }
  return QObject::tr("On this paper, the last %1 of the %2 assets would not be printed.")
      .arg(missing.assets)
      .arg(missing.of);
}

QString whatMayHelp(const Missing& missing) {
  if (!missing.none_if_turned) {
    return QObject::tr("All of them may fit on paper of another size.");
  }
  return missing.wide_paper ? QObject::tr("All of them fit in portrait.")
                            : QObject::tr("All of them fit in landscape.");
}

}  // namespace

QString missingAssetsNote(const Grid& register_table, Printer& printer) {
  const Missing missing = missingAssets(register_table, printer);
  if (missing.assets == 0) return {};
  return whatIsMissing(missing) + u' ' + whatMayHelp(missing);
}

std::size_t assetsMissing(const Grid& register_table, Printer& printer) {
  return static_cast<std::size_t>(missingAssets(register_table, printer).assets);
}

AboutMissing askAboutMissing(const QString& note, const QString& otherwise, QWidget* window) {
  if (note.isEmpty()) return AboutMissing::print;
  QMessageBox box(QMessageBox::Warning, QObject::tr("Print"), note, QMessageBox::NoButton, window);
  box.setTextFormat(Qt::PlainText);
  box.setObjectName(QStringLiteral("MissingAssets"));
  const auto* const print = box.addButton(QObject::tr("&Print Anyway"), QMessageBox::AcceptRole);
  const auto* const report =
      box.addButton(QObject::tr("&All Fiscal Years…"), QMessageBox::AcceptRole);
  QPushButton* const back = box.addButton(otherwise, QMessageBox::RejectRole);
  box.setDefaultButton(back);
  box.setEscapeButton(back);
  addGuideKey(box, guide::printing);
  tidyBox(box);
  box.exec();
  if (box.clickedButton() == print) return AboutMissing::print;
  return box.clickedButton() == report ? AboutMissing::report : AboutMissing::back;
}

}  // namespace depcalc::desktop
