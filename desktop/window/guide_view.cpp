#include "desktop/window/guide_view.h"

#include <QRegularExpression>
#include <QScrollBar>
#include <QTextDocument>
#include <algorithm>

#include "desktop/widgets/colours.h"

namespace depcalc::desktop {
namespace {

constexpr int line_characters = 88;
constexpr int picture_width = 580;  // as the pages have it, for all that are larger
constexpr double text_size = 1.08;  // of the program's own

const QString light_mark = QStringLiteral("-light.");
const QString dark_mark = QStringLiteral("-dark.");

}  // namespace

GuideView::GuideView(QWidget* parent) : QTextBrowser(parent) {
  setObjectName(QStringLiteral("GuideView"));
  setAccessibleName(tr("Page of the guide"));
  setFrameShape(QFrame::NoFrame);
  setOpenExternalLinks(false);
  // Beside the lines as behind them.
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  QFont text = font();
  text.setPointSizeF(text.pointSizeF() * text_size);
  setFont(text);
  document()->setDocumentMargin(fontMetrics().height());
}

QVariant GuideView::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::StyleSheetResource) return styleSheetOfPages();
  if (type == QTextDocument::ImageResource) return picture(name);
  return QTextBrowser::loadResource(type, name);
}

/// Drawn into its place the toolkit would leave out pixels; so it comes in that size.
QImage GuideView::picture(const QUrl& name) {
  QUrl shown = name;
  if (Colours(palette()).dark()) shown.setPath(name.path().replace(light_mark, dark_mark));
  QImage image = QImage::fromData(
      QTextBrowser::loadResource(QTextDocument::ImageResource, shown).toByteArray());
  const int pixels = static_cast<int>(picture_width * devicePixelRatioF());
  if (image.width() <= pixels) return image;
  return image.convertToFormat(QImage::Format_RGB32)
      .scaledToWidth(pixels, Qt::SmoothTransformation);
}

QString GuideView::styleSheetOfPages() const {
  const Colours colours(palette());
  return QStringLiteral(
             "h1 { font-size: x-large; color: %1; margin-bottom: 10px; }"
             "h2 { font-size: large; color: %1; margin-top: 26px; margin-bottom: 6px; }"
             "h3 { font-size: medium; margin-top: 18px; margin-bottom: 4px; }"
             "p, ul, ol, dl { margin-top: 6px; margin-bottom: 8px; }"
             "li { margin-bottom: 4px; }"
             "a { color: %1; text-decoration: underline; }"
             "table { margin-top: 8px; margin-bottom: 12px; }"
             "th { background-color: %2; padding: 4px 9px; text-align: left; }"
             "td { padding: 4px 9px; }"
             "code { font-family: monospace; }"
             ".n { text-align: right; }"
             ".lead { font-size: large; }"
             ".formula { background-color: %3; margin: 8px 18px; }"
             ".note { background-color: %3; }"
             ".caption { font-size: small; }"
             ".total td { font-weight: bold; }")
      .arg(colours.accent().name(), palette().color(QPalette::Window).name(),
           colours.paper().name());
}

void GuideView::recolour() {
  const int at = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(at);
}

void GuideView::mark(const QString& words) {
  const QString first = words.simplified().section(u' ', 0, 0);
  if (first.isEmpty()) return;
  moveCursor(QTextCursor::Start);
  find(QRegularExpression(QStringLiteral("\\b") + QRegularExpression::escape(first),
                          QRegularExpression::CaseInsensitiveOption));
}

void GuideView::resizeEvent(QResizeEvent* event) {
  const int text = fontMetrics().averageCharWidth() * line_characters;
  const int around = std::max(0, (width() - verticalScrollBar()->sizeHint().width() - text) / 2);
  setViewportMargins(around, 0, around, 0);
  QTextBrowser::resizeEvent(event);
}

}  // namespace depcalc::desktop
