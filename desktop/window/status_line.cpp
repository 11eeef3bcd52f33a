#include "desktop/window/status_line.h"

#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

#include "desktop/widgets/text_block.h"
#include "host/history/recorder.h"
#include "values/en_us.h"

namespace depcalc::desktop {

StatusLine::StatusLine(QMainWindow& window)
    : QObject(&window),
      company_(new QLabel(&window)),
      note_(new QLabel(&window)),
      figures_(new QLabel(&window)),
      saved_(new QLabel(&window)) {
  // A company may be called anything.
  for (QLabel* label : {company_, note_, figures_, saved_}) label->setTextFormat(Qt::PlainText);
  const int character = window.fontMetrics().averageCharWidth();
  company_->setIndent(character / 2);
  note_->setContentsMargins(0, 0, character * 2, 0);
  QStatusBar& bar = *window.statusBar();
  bar.addWidget(company_);
  bar.addPermanentWidget(note_);
  bar.addPermanentWidget(figures_);
  constexpr int before_figures = 2;
  bar.insertPermanentWidget(before_figures, saved_);
}

void StatusLine::showOpening(const QString& title) {
  company_->setText(tr("Opening %1…").arg(title));
}

void StatusLine::showNoCompany() {
  company_->setText(tr("No company open"));
  figures_->clear();
  saved_->clear();
}

void StatusLine::showCompany(const QString& title, bool multi_user, const Figures& figures,
                             const Recorder& recorder) {
  const QString mode = multi_user ? tr("multi-user mode") : tr("single-user mode");
  company_->setText(tr("%1 — %2").arg(title, mode));
  const auto month = static_cast<std::size_t>(figures.first_month - 1);
  QString text = tr("Fiscal year starts in %1").arg(qtText(en_us::month_names.at(month)));
  if (const std::optional<int>& assets = figures.assets) {
    text += tr("   ·   ") + (*assets == 1 ? tr("1 asset") : tr("%1 assets").arg(*assets));
  }
  figures_->setText(text);
  showSaved(recorder);
}

void StatusLine::showSaved(const Recorder& recorder) {
  const auto steps = static_cast<int>(recorder.stepsDone());
  QStringList parts;
  if (steps > 0) parts << (steps == 1 ? tr("Saved 1 change") : tr("Saved %1 changes").arg(steps));
  if (recorder.canUndo()) parts << tr("Undo available");
  if (!recorder.isKept()) parts << tr("Undo ends when the company is closed");
  for (QString& part : parts) part += tr("   ·   ");
  saved_->setText(parts.join(QString()));
}

void StatusLine::note(const QString& text) { note_->setText(text); }

void StatusLine::clearNote() { note_->clear(); }

}  // namespace depcalc::desktop
