#include "desktop/workspace/chart_canvas.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/printing/report_pen.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

constexpr double twips_in_an_inch = 1440;
constexpr int around = 10;  // pixels

PaperGround groundOf(const QWidget& widget) {
  return Colours(widget.palette()).dark() ? PaperGround::dark : PaperGround::white;
}

}  // namespace

ChartCanvas::ChartCanvas(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("ChartCanvas"));
  setAccessibleName(tr("Chart"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setMinimumSize(static_cast<int>(least_chart.width * pixelsPerTwip()) + 2 * around,
                 static_cast<int>(least_chart.height * pixelsPerTwip()) + 2 * around);
}

/// Letters as large as the desktop's: those of a chart are somewhat smaller at 9 points.
double ChartCanvas::pixelsPerTwip() const {
  constexpr double usual_points = 9;
  const double points = font().pointSizeF() > 0 ? font().pointSizeF() : usual_points;
  return logicalDpiX() / twips_in_an_inch * std::max(1.0, points / usual_points);
}

PaperArea ChartCanvas::area() const {
  return {(width() - 2 * around) / pixelsPerTwip(), (height() - 2 * around) / pixelsPerTwip()};
}

void ChartCanvas::follow(const InsightSubject& subject) {
  reading_.follow(subject);
  showYear();
}

void ChartCanvas::showYear() {
  setAccessibleDescription(qtText(reading_.spoken() + " " + reading_.described()));
  arrange();
}

void ChartCanvas::arrange() {
  layout_.reset();
  if (!reading_.isEmpty()) {
    const ReportPen pen(font(), groundOf(*this));
    layout_.emplace(reading_.chart(), area(), pen,
                    depcalc::ChartView{.year = reading_.year(), .titled = false});
  }
  update();
}

void ChartCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colours colours(palette());
  painter.fillRect(rect(), colours.base());
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  if (layout_) {
    painter.save();
    painter.translate(around, around);
    painter.scale(pixelsPerTwip(), pixelsPerTwip());
    ReportPen(font(), groundOf(*this)).draw(painter, layout_->page());
    painter.restore();
  } else {
    painter.setPen(colours.text());
    painter.drawText(rect().adjusted(around, around, -around, -around),
                     Qt::AlignTop | Qt::TextWordWrap, qtText(reading_.reason()));
  }
  if (!hasFocus()) return;
  painter.setPen(QPen(colours.focusRing(), 2));
  painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

void ChartCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void ChartCanvas::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) arrange();
}

/// The menu has a Copy of its own, for the page.
bool ChartCanvas::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

void ChartCanvas::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    emit copyWanted();
    return;
  }
  const auto last = static_cast<int>(reading_.chart().years());
  int years = 0;
  switch (event->key()) {
    case Qt::Key_Left:
      years = -1;
      break;
    case Qt::Key_Right:
      years = 1;
      break;
    case Qt::Key_Home:
      years = -last;
      break;
    case Qt::Key_End:
      years = last;
      break;
    default:
      return QWidget::keyPressEvent(event);
  }
  if (reading_.move(years)) showYear();
}

void ChartCanvas::pointAt(double x) {
  if (layout_ && reading_.choose(layout_->yearAt((x - around) / pixelsPerTwip()))) showYear();
}

void ChartCanvas::mouseMoveEvent(QMouseEvent* event) { pointAt(event->position().x()); }

void ChartCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pointAt(event->position().x());
  QWidget::mousePressEvent(event);
}

void ChartCanvas::contextMenuEvent(QContextMenuEvent* event) {
  emit menuWanted(event->globalPos());
}

void ChartCanvas::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ChartCanvas::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace depcalc::desktop
