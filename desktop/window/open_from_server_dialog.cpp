#include "desktop/window/open_from_server_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/place.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/settings.h"
#include "desktop/window/wait_cursor.h"
#include "host/file_trouble.h"
#include "host/postgresql/server_address.h"

namespace depcalc::desktop {
namespace {

enum ItemData { address_data = Qt::UserRole, in_use_data };

/// An address may be longer than the dialog is wide; it may then break behind its marks.
QString breakable(const QString& text) {
  QString broken;
  for (const QChar character : text) {
    broken += character;
    if (QStringLiteral("/@#:").contains(character)) broken += QChar(0x200B);
  }
  return broken;
}

/// The server of an address as the recent ones show it.
QString captionOf(const QString& address) {
  QString caption = address.section(QStringLiteral("://"), 1);
  while (caption.endsWith(u'/')) caption.chop(1);
  return QUrl::fromPercentEncoding(caption.toUtf8());
}

}  // namespace

OpenFromServerDialog::OpenFromServerDialog(CompanyFiles& files, Settings& settings,
                                           QString open_here, QWidget* parent)
    : QDialog(parent),
      files_(files),
      settings_(settings),
      open_here_(std::move(open_here)),
      recent_(new QComboBox(this)),
      list_button_(new QPushButton(tr("&List Companies"), this)),
      companies_(new QListWidget(this)),
      note_(new QLabel(this)) {
  setWindowTitle(tr("Open from Server"));
  auto* const form = new QFormLayout;
  recent_->setObjectName(QStringLiteral("RecentServers"));
  for (const QString& address : settings_.servers()) {
    recent_->addItem(captionOf(address), address);
  }
  if (recent_->count() > 0) form->addRow(tr("&Recent:"), recent_);
  recent_->setVisible(recent_->count() > 0);
  server_ = addField(*form, tr("&Server:"), "Server", tr("its name, such as office"));
  port_ = addField(*form, tr("&Port:"), "Port", tr("5432, unless you were told another"));
  database_ = addField(*form, tr("&Database:"), "Database", tr("such as books"));
  user_ = addField(*form, tr("&User:"), "User", tr("as you are logged in here"));
  connect(recent_, &QComboBox::activated, this,
          [this] { showServer(recent_->currentData().toString()); });
  makeList();
  layOut(form);
  if (recent_->count() > 0) showServer(recent_->itemData(0).toString());
  forgetList();
  server_->setFocus();
}

QLineEdit* OpenFromServerDialog::addField(QFormLayout& form, const QString& label, const char* name,
                                          const QString& example) {
  auto* const field = new QLineEdit(this);
  field->setObjectName(QLatin1String(name));
  field->setPlaceholderText(example);
  field->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
  connect(field, &QLineEdit::textEdited, this, &OpenFromServerDialog::forgetList);
  form.addRow(label, field);
  return field;
}

void OpenFromServerDialog::makeList() {
  list_button_->setObjectName(QStringLiteral("ListCompanies"));
  connect(list_button_, &QPushButton::clicked, this, [this] {
    if (list() && companies_->count() > 0) companies_->setFocus();
  });
  constexpr int rows = 6;
  companies_->setObjectName(QStringLiteral("Companies"));
  companies_->setMinimumHeight(fontMetrics().lineSpacing() * rows);
  companies_->setWordWrap(true);
  connect(companies_, &QListWidget::currentRowChanged, this, &OpenFromServerDialog::enable);
  connect(companies_, &QListWidget::itemActivated, this, &OpenFromServerDialog::accept);
  note_->setObjectName(QStringLiteral("Note"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  // To be sent to whoever looks after the server.
  note_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  note_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  constexpr int lines = 4;
  note_->setMinimumHeight(fontMetrics().lineSpacing() * lines);
}

void OpenFromServerDialog::layOut(QFormLayout* form) {
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  open_ = buttons->addButton(tr("&Open"), QDialogButtonBox::AcceptRole);
  new_ = buttons->addButton(tr("&New Company…"), QDialogButtonBox::ActionRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &OpenFromServerDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(new_, &QPushButton::clicked, this, [this] {
    wants_new_ = true;
    QDialog::accept();
  });
  addGuideHelp(*this, guide::servers);
  dropButtonIcons(*this);
  auto* const heading = new QLabel(tr("&Companies:"), this);
  heading->setBuddy(companies_);
  auto* const above = new QHBoxLayout;
  above->addWidget(heading, 1, Qt::AlignBottom);
  above->addWidget(list_button_);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(form);
  column->addSpacing(fontMetrics().height() / 2);
  column->addLayout(above);
  column->addWidget(companies_, 1);
  column->addWidget(note_);
  column->addSpacing(fontMetrics().height() / 2);
  column->addWidget(buttons);
  const std::initializer_list<QWidget*> order{
      recent_,      server_,    port_, database_, user_,
      list_button_, companies_, open_, new_,      buttons->button(QDialogButtonBox::Cancel)};
  for (const auto* each = order.begin(); each + 1 != order.end(); ++each) {
    setTabOrder(each[0], each[1]);
  }
}

/// One with options, or with several hosts, stays an address.
void OpenFromServerDialog::showServer(const QString& address) {
  forgetList();
  ServerParts parts;
  try {
    const ServerAddress read = ServerAddress::of(address.toStdString());
    parts = read.parts();
    if (ServerAddress::ofParts(parts).server != read.server) parts = {.host = read.server};
  } catch (const FileTrouble&) {
    return;
  }
  server_->setText(qtText(parts.host));
  port_->setText(qtText(parts.port));
  database_->setText(qtText(parts.database));
  user_->setText(qtText(parts.user));
}

void OpenFromServerDialog::forgetList() {
  listed_.clear();
  companies_->clear();
  say(
      tr("A password is taken from your password file (~/.pgpass). It is not asked for here, and "
         "not kept."));
  enable();
}

void OpenFromServerDialog::say(const QString& text) { note_->setText(breakable(text)); }

/// Who was given an address types it in the place of the server. Throws a FileTrouble that repeats
/// no password.
QString OpenFromServerDialog::typedAddress() const {
  const std::string server = server_->text().trimmed().toStdString();
  if (isServerAddress(server)) return qtText(ServerAddress::of(server).text);
  return qtText(ServerAddress::ofParts({.user = user_->text().trimmed().toStdString(),
                                        .host = server,
                                        .port = port_->text().trimmed().toStdString(),
                                        .database = database_->text().trimmed().toStdString()})
                    .text);
}

bool OpenFromServerDialog::list() {
  const QString chosen = company();
  forgetList();
  try {
    const WaitCursor wait;
    const QString typed = typedAddress();
    const ServerAddress address = ServerAddress::of(typed.toStdString());
    const auto companies = files_.companiesOn(address.server);
    listed_ = qtText(address.server);
    settings_.addServer(listed_);
    show(companies);
    choose(chosen.isEmpty() ? typed : chosen);
  } catch (const FileTrouble& trouble) {
    say(qtText(trouble.description()));
  } catch (const CompanyFileError& error) {
    say(qtText(error.what()));
  }
  enable();
  return !listed_.isEmpty();
}

void OpenFromServerDialog::show(const std::vector<CompanyOnServer>& companies) {
  for (const CompanyOnServer& company : companies) {
    const QString address = qtText(company.address);
    const bool here = address == open_here_;
    const QString in_use = here ? QString() : qtText(company.in_use);
    QString line = qtText(company.name);
    if (here) line += tr("   ·   open here");
    if (!in_use.isEmpty()) line += tr("   ·   in use%1").arg(in_use);
    auto* const item = new QListWidgetItem(line, companies_);
    item->setData(address_data, address);
    item->setData(in_use_data, in_use);
  }
  say(companies.empty()
          ? tr("The server keeps no company that you may see. Make one with New Company, or ask "
               "whoever looks after the server for the right to one (depcalc server grant).")
          : QString());
}

/// The first one, where it is not there.
void OpenFromServerDialog::choose(const QString& address) {
  companies_->setCurrentRow(companies_->count() > 0 ? 0 : -1);
  for (int row = 0; row < companies_->count(); ++row) {
    if (companies_->item(row)->data(address_data) == address) companies_->setCurrentRow(row);
  }
}

void OpenFromServerDialog::enable() {
  const bool chosen = companies_->currentRow() >= 0;
  open_->setEnabled(chosen);
  new_->setEnabled(!listed_.isEmpty());
  (chosen ? open_ : list_button_)->setDefault(true);
}

/// Who has it may have left it since it was listed, or somebody may have come.
void OpenFromServerDialog::accept() {
  const QString chosen = company();
  if (chosen.isEmpty() || !list() || company() != chosen) return;
  const QString in_use = companies_->currentItem()->data(in_use_data).toString();
  if (in_use.isEmpty()) return QDialog::accept();
  say(tr("%1 is in use%2. Close it there and try again.")
          .arg(companies_->currentItem()->text().section(QStringLiteral("   ·   "), 0, 0), in_use));
}

QString OpenFromServerDialog::company() const {
  const QListWidgetItem* const item = companies_->currentItem();
  return item == nullptr ? QString() : item->data(address_data).toString();
}

QString OpenFromServerDialog::addressOf(const QString& name) const {
  return qtText(ServerAddress::of(listed_.toStdString()).withCompany(name.toStdString()).text);
}

}  // namespace depcalc::desktop
