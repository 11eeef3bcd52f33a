#include "desktop/workspace/why_page.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "desktop/widgets/colours.h"
#include "desktop/widgets/text_block.h"
#include "values/html_text.h"

namespace depcalc::desktop {
namespace {

QString escaped(const std::string& text) { return qtText(htmlText(text)); }

QString paragraph(const std::string& text, const QString& style) {
  if (text.empty()) return {};
  return QStringLiteral("<p style=\"%1\">%2</p>").arg(style, escaped(text));
}

/// A line of an expression ends before a sign rather than behind one.
QString breakable(const std::string& figures) {
  QString text = escaped(figures);
  for (const char* sign : {"+", "−", "×", "÷", "="}) {
    const QString written = QString::fromUtf8(sign);
    text.replace(' ' + written + ' ', ' ' + written + QChar(QChar::Nbsp));
  }
  return text;
}

QString tableRow(const WhyRow& row, const Colours& colours) {
  const QString line =
      QStringLiteral("border-bottom: 1px dotted %1; ").arg(colours.gridLine().name());
  const QString weight =
      row.total ? QStringLiteral("font-weight: bold; color: %1; ").arg(colours.accent().name())
                : QString();
  return QStringLiteral(
             "<tr><td style=\"%1%2padding: 4px 8px 4px 0;\">%3</td>"
             "<td align=\"right\" style=\"%1%2padding: 4px 0;\">%4</td></tr>")
      .arg(line, weight, escaped(row.words), breakable(row.figures));
}

QString htmlOf(const WhyThisAmount& why, const QPalette& palette) {
  const Colours colours(palette);
  QString html =
      paragraph(why.heading, QStringLiteral("font-weight: bold; color: %1; margin: 0 0 8px 0")
                                 .arg(colours.accent().name()));
  html += paragraph(why.warning,
                    QStringLiteral("margin: 4px 0; color: %1").arg(colours.focusRing().name()));
  if (!why.rows.empty()) {
    html += QStringLiteral(
        "<table width=\"100%\" cellspacing=\"0\" style=\"border-collapse: collapse\">");
    for (const WhyRow& row : why.rows) html += tableRow(row, colours);
    html += QStringLiteral("</table>");
  }
  return html + paragraph(why.note, QStringLiteral("margin: 8px 0"));
}

}  // namespace

WhyPage::WhyPage(QWidget* parent) : InsightPage(parent), text_(new QTextBrowser(this)) {
  text_->setObjectName(QStringLiteral("WhyText"));
  text_->setAccessibleName(title());
  text_->setFrameShape(QFrame::NoFrame);
  text_->setOpenLinks(false);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setFocusPolicy(Qt::StrongFocus);
  text_->setTabChangesFocus(true);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addWidget(text_);
  WhyPage::follow({});
}

void WhyPage::follow(const InsightSubject& subject) {
  why_ = whyThisAmount(subject);
  showText();
}

/// Colours come from the desktop.
void WhyPage::changeEvent(QEvent* event) {
  InsightPage::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) showText();
}

void WhyPage::showText() {
  text_->setHtml(htmlOf(why_, palette()));
  text_->setAccessibleDescription(qtText(why_.heading.empty() ? why_.note : why_.heading));
}

}  // namespace depcalc::desktop
