#include "desktop/workspace/chart_page.h"

#include <QAction>
#include <QGridLayout>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/widgets/text_block.h"
#include "desktop/workspace/chart_picture.h"

namespace depcalc::desktop {

ChartPage::ChartPage(QWidget* parent) : InsightPage(parent), canvas_(new ChartCanvas) {
  auto* const scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(canvas_);
  addButton(tr("Copy &Graphic"), "CopyPicture", &ChartPage::copyPicture);
  addButton(tr("Copy Tab&le"), "CopyTable", &ChartPage::copyTable);
  addButton(tr("E&xport SVG Drawing…"), "SaveSvg", &ChartPage::saveSvg);
  addButton(tr("Export PNG &Bitmap…"), "SavePng", &ChartPage::savePng);
  auto* const row = new QGridLayout;
  for (int i = 0; i < buttons_.size(); ++i) row->addWidget(buttons_[i], i / 2, i % 2);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 8);
  column->addWidget(scroll, 1);
  column->addLayout(row);
  row->setContentsMargins(8, 0, 8, 0);
  connect(canvas_, &ChartCanvas::copyWanted, this, [this] {
    if (!canvas_->reading().isEmpty()) copyChart(canvas_->reading().chart());
  });
  connect(canvas_, &ChartCanvas::menuWanted, this,
          [this](const QPoint& place) { QMenu::exec(actions_, place, nullptr, canvas_); });
  enable();
}

void ChartPage::addButton(const QString& text, const char* name, void (ChartPage::*act)()) {
  auto* const button = new QPushButton(text, this);
  button->setObjectName(QLatin1String(name));
  connect(button, &QPushButton::clicked, this, act);
  auto* const action = new QAction(text, this);
  connect(action, &QAction::triggered, this, act);
  buttons_ << button;
  actions_ << action;
}

void ChartPage::follow(const InsightSubject& subject) {
  canvas_->follow(subject);
  enable();
}

void ChartPage::enable() {
  const bool any = !canvas_->reading().isEmpty();
  for (QPushButton* button : buttons_) button->setEnabled(any);
  for (QAction* action : actions_) action->setEnabled(any);
}

void ChartPage::copyPicture() { copyChartPicture(canvas_->reading().chart()); }

void ChartPage::copyTable() { copyChartTable(canvas_->reading().chart()); }

void ChartPage::saveSvg() {
  const QString name = qtText(canvas_->reading().fileName());
  emit saveWanted({name + QStringLiteral(".svg"), tr("SVG drawings (*.svg)"),
                   QStringLiteral(".svg"), chartAsSvg(canvas_->reading().chart())});
}

void ChartPage::savePng() {
  const QString name = qtText(canvas_->reading().fileName());
  emit saveWanted({name + QStringLiteral(".png"), tr("PNG pictures (*.png)"),
                   QStringLiteral(".png"), chartAsPng(canvas_->reading().chart())});
}

}  // namespace depcalc::desktop
