#include "desktop/window/report_preview.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/printing/pdf_setup.h"
#include "desktop/printing/twip_font.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

constexpr int around = 18;  // pixels
constexpr int shadow = 3;   // pixels
constexpr double largest_zoom = 1.3;
constexpr double nearly_whole = 0.85;
constexpr int twips_in_an_inch = 1440;

constexpr QColor desk(142, 138, 133);
constexpr QColor dark_desk(58, 56, 54);

QRectF printable(PdfPaper paper) {
  const QRectF points = pageLayout(paper).paintRect(QPageLayout::Point);
  return {points.topLeft() * twips_per_point, points.size() * twips_per_point};
}

/// Line by line, for who hears the page.
QString spoken(const PaperPage& page) {
  std::vector<const PaperText*> texts;
  for (const PaperText& text : page.texts) texts.push_back(&text);
  std::stable_sort(texts.begin(), texts.end(), [](const PaperText* a, const PaperText* b) {
    return std::pair(a->y, a->x) < std::pair(b->y, b->x);
  });
  QString said;
  double y = 0;
  for (const PaperText* text : texts) {
    if (!said.isEmpty()) said += text->y > y ? u'\n' : u' ';
    said += qtText(text->text);
    y = text->y;
  }
  return said;
}

}  // namespace

ReportPreview::ReportPreview(QWidget* parent)
    : QAbstractScrollArea(parent), pen_(QGuiApplication::font()) {
  setObjectName(QStringLiteral("ReportPreview"));
  setAccessibleName(tr("Preview"));
  viewport()->setAccessibleName(tr("Page"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
}

void ReportPreview::showReport(const Report* report, PdfPaper paper, Date today,
                               const QString& trouble) {
  pages_.reset();
  paper_ = paper;
  trouble_ = trouble;
  page_ = 0;
  if (report != nullptr) {
    report_ = *report;
    const QSizeF area = printable(paper).size();
    pages_ =
        std::make_unique<ReportPages>(report_, PaperArea{area.width(), area.height()}, pen_, today);
  }
  verticalScrollBar()->setValue(0);
  arrange();
  describe();
  emit pageShown();
}

int ReportPreview::count() const {
  return pages_ == nullptr ? 0 : static_cast<int>(pages_->count());
}

void ReportPreview::showPage(int page) {
  const int wanted = std::clamp(page, 0, std::max(0, count() - 1));
  if (wanted == page_) return;
  page_ = wanted;
  verticalScrollBar()->setValue(0);
  viewport()->update();
  describe();
  emit pageShown();
}

void ReportPreview::describe() {
  viewport()->setAccessibleDescription(
      pages_ == nullptr ? trouble_ : spoken(pages_->page(static_cast<std::size_t>(page_))));
}

/// Of the whole sheet, in twips.
QSizeF ReportPreview::paperSize() const {
  return pageLayout(paper_).fullRect(QPageLayout::Point).size() * twips_per_point;
}

/// Pixels of a twip: the paper is as wide as there is room for, up to somewhat above its own size,
/// and smaller where little is missing to see all of it.
double ReportPreview::scale() const {
  const double room = std::max(100, viewport()->width() - 2 * around);
  const double natural = static_cast<double>(logicalDpiX()) / twips_in_an_inch;
  const double wide = std::min(room / paperSize().width(), natural * largest_zoom);
  const double high = std::max(100, viewport()->height() - 2 * around) / paperSize().height();
  return high < wide && high > wide * nearly_whole ? high : wide;
}

void ReportPreview::arrange() {
  const int height = static_cast<int>(paperSize().height() * scale()) + 2 * around;
  verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(fontMetrics().height() * 3);
  viewport()->update();
}

void ReportPreview::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const Colours colours(palette());
  painter.fillRect(viewport()->rect(), colours.dark() ? dark_desk : desk);
  drawPaper(painter);
  if (!hasFocus()) return;
  painter.setPen(QPen(colours.focusRing(), 2));
  painter.drawRect(QRectF(viewport()->rect()).adjusted(1, 1, -1, -1));
}

/// Of the whole sheet, in the viewport.
QPointF ReportPreview::paperCorner() const {
  const double room = viewport()->width() - paperSize().width() * scale();
  return {std::max<double>(around, room / 2),
          static_cast<double>(around - verticalScrollBar()->value())};
}

void ReportPreview::mousePressEvent(QMouseEvent* event) {
  QAbstractScrollArea::mousePressEvent(event);
  if (pages_ == nullptr) return;
  const QPointF place = (event->position() - paperCorner()) / scale() - printable(paper_).topLeft();
  const auto cell = pages_->cellAt(static_cast<std::size_t>(page_), place.x(), place.y());
  if (cell) emit cellPointed(cell->table, cell->row, cell->column);
}

void ReportPreview::drawPaper(QPainter& painter) const {
  if (pages_ == nullptr) {
    painter.setPen(Qt::white);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, trouble_);
    return;
  }
  const QSizeF size = paperSize() * scale();
  const QPointF corner = paperCorner();
  painter.fillRect(QRectF(corner + QPointF(shadow, shadow), size), QColor(0, 0, 0, 70));
  painter.fillRect(QRectF(corner, size), Qt::white);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(corner);
  painter.scale(scale(), scale());
  painter.translate(printable(paper_).topLeft());
  pen_.draw(painter, pages_->page(static_cast<std::size_t>(page_)));
  painter.restore();
}

void ReportPreview::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  arrange();
}

void ReportPreview::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      return showPage(page_ + 1);
    case Qt::Key_PageUp:
      return showPage(page_ - 1);
    case Qt::Key_Home:
      return showPage(0);
    case Qt::Key_End:
      return showPage(count() - 1);
    case Qt::Key_Down:
      return verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_Up:
      return verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void ReportPreview::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void ReportPreview::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace depcalc::desktop
