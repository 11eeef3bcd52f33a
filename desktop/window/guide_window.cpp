#include "desktop/window/guide_window.h"

#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTextDocument>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/guide_view.h"

namespace depcalc::desktop {
namespace {

constexpr QSize first_size(1080, 760);
constexpr int side_characters = 34;

QString fileOf(const QString& page) { return page.section(u'#', 0, 0); }

/// What it says, for the search.
QString textOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QTextDocument page;
  page.setHtml(QString::fromUtf8(file.readAll()));
  return page.toPlainText();
}

}  // namespace

GuideWindow::GuideWindow(const QString& folder, QWidget* parent)
    : QWidget(parent, Qt::Window), folder_(folder), view_(new GuideView(this)) {
  setObjectName(QStringLiteral("GuideWindow"));
  setWindowTitle(tr("Guide"));
  // One that was hidden and comes back is no news to window managers, which leave it behind.
  setAttribute(Qt::WA_DeleteOnClose);
  view_->setSearchPaths({folder_});
  auto* const parts = new QSplitter(this);
  parts->addWidget(makeSide());
  parts->addWidget(view_);
  parts->setStretchFactor(1, 1);
  parts->setChildrenCollapsible(false);
  parts->setHandleWidth(1);
  for (int i = 1; i < parts->count(); ++i) {
    parts->handle(i)->setAccessibleName(tr("Width of the contents"));
  }
  parts->setAccessibleName(tr("Guide"));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(makeBar());
  layout->addWidget(parts, 1);
  readPages();
  listContents();
  connect(view_, &QTextBrowser::sourceChanged, this, &GuideWindow::followPage);
  connect(view_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
  connect(view_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);
  resize(first_size);
  create();
}

QToolButton* GuideWindow::addButton(QHBoxLayout& row, const QString& caption, const QString& tip,
                                    const char* name) {
  auto* const button = new QToolButton(this);
  button->setObjectName(QLatin1String(name));
  button->setText(caption);
  button->setAutoRaise(true);
  button->setToolTip(tip);
  button->setFocusPolicy(Qt::TabFocus);
  row.addWidget(button);
  return button;
}

QWidget* GuideWindow::makeBar() {
  auto* const bar = new QWidget(this);
  auto* const row = new QHBoxLayout(bar);
  const int room = fontMetrics().height() / 3;
  row->setContentsMargins(room, room, room, room);
  back_ = addButton(*row, tr("&Back"), tr("Alt+Left"), "GuideBack");
  forward_ = addButton(*row, tr("&Forward"), tr("Alt+Right"), "GuideForward");
  auto* const home = addButton(*row, tr("&Contents"), tr("The first page"), "GuideHome");
  row->addStretch();
  auto* const browser =
      addButton(*row, tr("Open in Bro&wser"),
                tr("Shows this page where it can be printed and bookmarked"), "GuideBrowser");
  back_->setEnabled(false);
  forward_->setEnabled(false);
  connect(back_, &QToolButton::clicked, view_, &QTextBrowser::backward);
  connect(forward_, &QToolButton::clicked, view_, &QTextBrowser::forward);
  connect(home, &QToolButton::clicked, this, [this] { openPage(qtText(guide::contents)); });
  connect(browser, &QToolButton::clicked, this, [this] {
    QUrl url = QUrl::fromLocalFile(folder_ + u'/' + fileOf(page()));
    url.setFragment(view_->source().fragment());
    QDesktopServices::openUrl(url);
  });
  connect(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this), &QShortcut::activated, view_,
          &QTextBrowser::backward);
  connect(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Right), this), &QShortcut::activated, view_,
          &QTextBrowser::forward);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { openPage(qtText(guide::contents)); });
  return bar;
}

QWidget* GuideWindow::makeSide() {
  auto* const side = new QWidget(this);
  auto* const column = new QVBoxLayout(side);
  const int room = fontMetrics().height() / 2;
  column->setContentsMargins(room, room, room, room);
  words_ = new QLineEdit(side);
  words_->setObjectName(QStringLiteral("GuideWords"));
  words_->setPlaceholderText(tr("Search the guide"));
  words_->setAccessibleName(words_->placeholderText());
  words_->setClearButtonEnabled(true);
  for (auto* clear : words_->findChildren<QToolButton*>()) clear->setAccessibleName(tr("Clear"));
  list_ = new QListWidget(side);
  list_->setObjectName(QStringLiteral("GuideContents"));
  list_->setAccessibleName(tr("Pages of the guide"));
  list_->setFrameShape(QFrame::NoFrame);
  list_->setWordWrap(true);
  list_->setSpacing(2);
  column->addWidget(words_);
  column->addWidget(list_, 1);
  side->setBackgroundRole(QPalette::AlternateBase);
  side->setAutoFillBackground(true);
  list_->setBackgroundRole(QPalette::AlternateBase);
  list_->viewport()->setBackgroundRole(QPalette::AlternateBase);
  side->setMinimumWidth(fontMetrics().averageCharWidth() * side_characters);
  connect(words_, &QLineEdit::textChanged, this, &GuideWindow::search);
  connect(words_, &QLineEdit::returnPressed, this, [this] { openRow(0); });
  connect(list_, &QListWidget::currentRowChanged, this, &GuideWindow::openRow);
  connect(list_, &QListWidget::itemClicked, this, [this] { openRow(list_->currentRow()); });
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    words_->setFocus();
    words_->selectAll();
  });
  return side;
}

void GuideWindow::readPages() {
  for (const GuidePage& page : guidePages()) {
    const QString file = qtText(page.file);
    search_.addPage(page.title, textOf(folder_ + u'/' + file).toStdString());
  }
}

void GuideWindow::listContents() {
  const QSignalBlocker silent(list_);
  list_->clear();
  files_.clear();
  for (const GuidePage& page : guidePages()) {
    list_->addItem(qtText(page.title));
    files_.push_back(qtText(page.file));
  }
  followPage();
}

void GuideWindow::search(const QString& words) {
  if (words.trimmed().isEmpty()) return listContents();
  const QSignalBlocker silent(list_);
  list_->clear();
  files_.clear();
  for (const FoundPage& found : search_.find(words.toStdString())) {
    const GuidePage& page = guidePages()[found.page];
    list_->addItem(qtText(page.title) + u'\n' + qtText(found.line));
    files_.push_back(qtText(page.file));
  }
  if (!files_.empty()) return;
  list_->addItem(tr("No page has these words."));
  list_->item(0)->setFlags(Qt::NoItemFlags);
}

void GuideWindow::openRow(int row) {
  if (row < 0 || row >= std::ssize(files_)) return;
  const QString file = files_[static_cast<std::size_t>(row)];
  if (fileOf(page()) != file) openPage(file);
  view_->mark(words_->text());
}

void GuideWindow::openPage(const QString& page) {
  view_->setSource(QUrl(page));
  followPage();
}

QString GuideWindow::page() const { return view_->source().toString(); }

/// The list has the page that is shown, while it is the contents.
void GuideWindow::followPage() {
  if (!words_->text().trimmed().isEmpty()) return;
  const QSignalBlocker silent(list_);
  const QString file = fileOf(page());
  for (int row = 0; row < list_->count(); ++row) {
    if (files_[static_cast<std::size_t>(row)] == file) list_->setCurrentRow(row);
  }
}

/// A dialog that waits takes all input but that of windows before it.
void GuideWindow::standBefore(const QWidget* dialog) {
  windowHandle()->setTransientParent(dialog == nullptr ? nullptr : dialog->windowHandle());
}

void GuideWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

void GuideWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && !page().isEmpty()) view_->recolour();
  QWidget::changeEvent(event);
}

}  // namespace depcalc::desktop
