#include "desktop/window/preferences_dialog.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/view_menu.h"

namespace depcalc::desktop {
namespace {

QStringList zoomNames() {
  QStringList names{QObject::tr("Fit the width")};
  for (const int percent : ViewMenu::steps()) names << QObject::tr("%1 %").arg(percent);
  return names;
}

/// By its place in the list; -1 where the keys have left it between two steps.
int zoomPlace(const Settings& settings) {
  if (settings.fitWidth()) return 0;
  const auto steps = ViewMenu::steps();
  const auto found = std::find(steps.begin(), steps.end(), settings.zoom());
  return found == steps.end() ? -1 : 1 + static_cast<int>(found - steps.begin());
}

}  // namespace

PreferencesDialog::PreferencesDialog(Settings& settings, QWidget* parent)
    : QDialog(parent), settings_(settings) {
  setObjectName(QStringLiteral("Preferences"));
  setWindowTitle(tr("Preferences"));
  auto* const form = new QGridLayout;
  form->setColumnStretch(1, 1);
  form->setHorizontalSpacing(fontMetrics().averageCharWidth() * 2);
  addLooks(*form);
  addPaper(*form);
  QWidget* const notices = makeNotices();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QVBoxLayout(this);
  const int room = fontMetrics().height();
  layout->setContentsMargins(room, room, room, room);
  layout->setSpacing(room);
  layout->addLayout(form);
  layout->addWidget(notices);
  layout->addStretch();
  layout->addWidget(buttons);
  constexpr int characters = 72;
  setMinimumWidth(fontMetrics().averageCharWidth() * characters);
  addGuideHelp(*this, guide::preferences);
  dropButtonIcons(*this);
}

QComboBox* PreferencesDialog::addChoice(QGridLayout& form, const QString& caption, const char* name,
                                        const QStringList& items, int current) {
  auto* const label = new QLabel(caption, this);
  auto* const box = new QComboBox(this);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
  box->view()->setAccessibleName(box->accessibleName());
  box->addItems(items);
  box->setCurrentIndex(current);
  label->setBuddy(box);
  const int row = form.rowCount();
  form.addWidget(label, row, 0);
  form.addWidget(box, row, 1);
  return box;
}

void PreferencesDialog::addLooks(QGridLayout& form) {
  const auto* const appearance = addChoice(form, tr("&Appearance:"), "Appearance",
                                           {tr("As the desktop"), tr("Light"), tr("Dark")},
                                           static_cast<int>(settings_.appearance()));
  connect(appearance, &QComboBox::currentIndexChanged, this, [this](int index) {
    settings_.setAppearance(static_cast<Appearance>(index));
    emit appearanceChosen(settings_.appearance());
  });
  const auto* const zoom = addChoice(form, tr("&Zoom:"), "Zoom", zoomNames(), zoomPlace(settings_));
  connect(zoom, &QComboBox::currentIndexChanged, this, [this](int index) {
    emit zoomChosen(index < 1 ? 0 : ViewMenu::steps()[static_cast<std::size_t>(index - 1)]);
  });
}

void PreferencesDialog::addPaper(QGridLayout& form) {
  const auto* const size =
      addChoice(form, tr("&Paper:"), "PaperSize", {tr("A4"), tr("Letter")},
                static_cast<int>(settings_.paperSize().value_or(PaperSize::a4)));
  connect(size, &QComboBox::activated, this, [this](int index) {
    settings_.setPaperSize(static_cast<PaperSize>(index));
    emit paperChosen();
  });
  const auto* const lies =
      addChoice(form, tr("&Reports lie:"), "ReportsLie", {tr("In landscape"), tr("In portrait")},
                settings_.reportsLandscape() ? 0 : 1);
  connect(lies, &QComboBox::activated, this, [this](int index) {
    settings_.setReportsLandscape(index == 0);
    emit paperChosen();
  });
}

QWidget* PreferencesDialog::makeNotices() {
  auto* const group = new QGroupBox(tr("Hints and questions"), this);
  auto* const column = new QVBoxLayout(group);
  column->addWidget(addNotice(tr("&Show hints about what to do next"), "Hints", Notice::hints));
  again_ = new QPushButton(tr("Show &Dismissed Hints Again"), this);
  again_->setObjectName(QStringLiteral("HintsAgain"));
  again_->setEnabled(settings_.hasDismissed());
  again_->setAutoDefault(false);
  connect(again_, &QPushButton::clicked, this, [this] {
    settings_.forgetDismissed();
    again_->setEnabled(false);
    emit noticesChosen();
  });
  auto* const indented = new QHBoxLayout;
  indented->addSpacing(fontMetrics().height() * 3 / 2);
  indented->addWidget(again_);
  indented->addStretch();
  column->addLayout(indented);
  column->addWidget(addNotice(tr("&Offer to recalculate when the fiscal year changes"),
                              "OfferRecalculation", Notice::recalculation));
  column->addWidget(
      addNotice(tr("As&k before a disposal is undone"), "AskUndoDisposal", Notice::undo_disposal));
  auto* const note =
      new QLabel(tr("Where something could be lost, the program always asks."), group);
  note->setWordWrap(true);
  column->addWidget(note);
  return group;
}

QCheckBox* PreferencesDialog::addNotice(const QString& caption, const char* name, Notice notice) {
  auto* const box = new QCheckBox(caption, this);
  box->setObjectName(QLatin1String(name));
  box->setChecked(settings_.gives(notice));
  connect(box, &QCheckBox::toggled, this, [this, notice](bool on) {
    settings_.setGives(notice, on);
    emit noticesChosen();
  });
  return box;
}

}  // namespace depcalc::desktop
