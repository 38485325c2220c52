#include "gui/toolkit/fSHAREDProxy.h"

#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedEncrypt.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSystem = 1;
constexpr int kNamed = 2;
constexpr int kNone = 3;
constexpr int kHighestPort = 65'535;

QRadioButton* makeOption(const QString& name, const QString& caption, QWidget* parent) {
  auto* const option = new QRadioButton(caption, parent);
  giveName(*option, name);
  return option;
}

}  // namespace

fSHAREDProxy::fSHAREDProxy(QWidget* parent)
    : QDialog(parent),
      optDefault(makeOption(u"optDefault"_s, u"&Use the system's settings"_s, this)),
      optNamed(makeOption(u"optNamed"_s, u"Use &this proxy:"_s, this)),
      optNoProxy(makeOption(u"optNoProxy"_s, u"&No proxy"_s, this)) {
  setObjectName(u"fSHAREDProxy"_s);
  setWindowTitle(u"Proxy Settings"_s);
  buildLayout();
  load();
  connectSignals();
}

void fSHAREDProxy::showOver(QWidget& window) {
  auto* const form = new fSHAREDProxy(&window);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->open();
}

void fSHAREDProxy::buildLayout() {
  constexpr int kIndent = 24;
  constexpr int kLetters = 28;
  auto* const column = new QVBoxLayout(this);
  column->addWidget(optDefault);
  column->addWidget(optNoProxy);
  column->addWidget(optNamed);
  auto* const fields = new QFormLayout;
  fields->setContentsMargins(kIndent, 0, 0, 0);
  txtServer = addLineEdit(*fields, u"txtServer"_s, u"&Server"_s);
  txtPort = addLineEdit(*fields, u"txtPort"_s, u"&Port"_s);
  txtUser = addLineEdit(*fields, u"txtUser"_s, u"Us&er name"_s);
  txtPwd = addLineEdit(*fields, u"txtPwd"_s, u"Pass&word"_s);
  txtPwdRepeat = addLineEdit(*fields, u"txtPwdRepeat"_s, u"&Repeat password"_s);
  txtServer->setMinimumWidth(fontMetrics().averageCharWidth() * kLetters);
  // One for whole numbers takes the signs between thousands as well.
  txtPort->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]{0,5}"_s), txtPort));
  txtPwd->setEchoMode(QLineEdit::Password);
  txtPwdRepeat->setEchoMode(QLineEdit::Password);
  column->addLayout(fields);
  column->addStretch();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, guarded("cmdOK_Click", "fSHAREDProxy", [this] { accept(); }));
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  buttons->button(QDialogButtonBox::Ok)->setDefault(true);
  column->addWidget(buttons);
  giveTabOrder({optDefault, optNoProxy, optNamed, txtServer, txtPort, txtUser, txtPwd, txtPwdRepeat});
}

void fSHAREDProxy::connectSignals() {
  for (const QRadioButton* option : {optDefault, optNamed, optNoProxy}) {
    connect(option, &QRadioButton::toggled, this, guarded("optType_Click", "fSHAREDProxy", [this] { enableFields(); }));
  }
}

void fSHAREDProxy::load() {
  const auto text = [](const QString& key) { return Settings().sGet(key).toString(); };
  const int type = Numbers::ToInt(Settings().sGet(u"ProxyType"_s, kSystem));
  QRadioButton* const chosen = type == kSystem ? optDefault : type == kNamed ? optNamed : optNoProxy;
  chosen->setChecked(true);
  chosen->setFocus();
  txtServer->setText(text(u"ProxyServer"_s));
  txtPort->setText(text(u"ProxyPort"_s));
  txtUser->setText(text(u"ProxyUser"_s));
  txtPwd->setText(cSharedDecrypt::Decrypt(text(u"ProxyPwd"_s)));
  txtPwdRepeat->setText(txtPwd->text());
  enableFields();
}

void fSHAREDProxy::enableFields() {
  for (QLineEdit* field : {txtServer, txtPort, txtUser, txtPwd, txtPwdRepeat}) {
    field->setEnabled(optNamed->isChecked());
  }
}

void fSHAREDProxy::accept() {
  partServer();
  if (!optNamed->isChecked() || mayBeKept()) {
    store();
    QDialog::accept();
  }
}

/// "proxy:3128" is what other programs take for both; several colons are an address without port.
void fSHAREDProxy::partServer() {
  static const QRegularExpression both(u"^((?:[a-z0-9]+://)?(?:[^@]*@)?[^:@/]+):([0-9]{1,5})/?$"_s);
  if (const QRegularExpressionMatch found = both.match(txtServer->text().trimmed()); found.hasMatch()) {
    txtServer->setText(found.captured(1));
    txtPort->setText(found.captured(2));
  }
}

/// Whether a named proxy can be kept as it was typed; says why not.
bool fSHAREDProxy::mayBeKept() {
  if (txtPwd->text() != txtPwdRepeat->text()) {
    toolkit().MsgBox(u"Your passwords don't match.  Please retype them."_s);
    txtPwdRepeat->setFocus();
    txtPwdRepeat->selectAll();
    return false;
  }
  if (!cSharedEncrypt::bringsBack(txtPwd->text())) {
    toolkit().MsgBox(
        u"The password has letters that can't be kept. Please use one with letters from A to Z without accents, digits "
        "and the usual signs."_s);
    txtPwd->setFocus();
    txtPwd->selectAll();
    return false;
  }
  if (txtServer->text().trimmed().isEmpty()) {
    toolkit().MsgBox(u"Please type the name of the proxy server."_s);
    txtServer->setFocus();
    return false;
  }
  const QString port = txtPort->text();
  if (!port.isEmpty() && (port.toInt() < 1 || port.toInt() > kHighestPort)) {
    toolkit().MsgBox(u"The port is a number from 1 to 65535."_s);
    txtPort->setFocus();
    txtPort->selectAll();
    return false;
  }
  return true;
}

void fSHAREDProxy::store() const {
  const int type = optDefault->isChecked() ? kSystem : optNamed->isChecked() ? kNamed : kNone;
  Settings().sSet(u"ProxyType"_s, type);
  Settings().sSet(u"ProxyServer"_s, txtServer->text().trimmed());
  Settings().sSet(u"ProxyPort"_s, txtPort->text().trimmed());
  Settings().sSet(u"ProxyUser"_s, txtUser->text().trimmed());
  // With another choice nobody has looked at it.
  if (txtPwd->text() == txtPwdRepeat->text() && cSharedEncrypt::bringsBack(txtPwd->text())) {
    Settings().sSet(u"ProxyPwd"_s, cSharedEncrypt::Encrypt(txtPwd->text()));
  }
}
