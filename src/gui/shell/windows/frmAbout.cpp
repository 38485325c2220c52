#include "gui/shell/windows/frmAbout.h"

#include "core/infra/Clock.h"
#include "core/infra/Maker.h"
#include "core/infra/ProgramFacts.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmAbout"_s);
  setWindowTitle(u"About Quillane"_s);
  buildLayout();
}

void frmAbout::showOver(QWidget& window) {
  auto* about = new frmAbout(&window);
  about->setAttribute(Qt::WA_DeleteOnClose);
  about->open();
}

/// As text that can be read, walked through and copied in parts.
QWidget* frmAbout::makeFacts() {
  constexpr int kLetters = 64;
  constexpr int kLines = 9;
  auto* const facts = makeReadOnlyText(u"txtFacts"_s, u"Libraries and folders"_s, this);
  QStringList lines;
  for (const ProgramFacts::Library& library : ProgramFacts::libraries()) {
    lines += library.name + u' ' + library.version;
  }
  facts->setPlainText((lines + ProgramFacts::places()).join(u'\n'));
  facts->setMinimumWidth(fontMetrics().averageCharWidth() * kLetters);
  facts->setFixedHeight(fontMetrics().lineSpacing() * kLines);
  return facts;
}

void frmAbout::buildLayout() {
  constexpr int kPicture = 64;
  const QString maker = QString::fromLatin1(Maker::kName);
  auto* picture = new QLabel;
  picture->setPixmap(icon("quillane").pixmap(kPicture));

  auto* name = new QLabel(u"Quillane 4"_s);
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setBold(true);
  name->setFont(large);

  auto* words = new QVBoxLayout;
  words->addWidget(name);
  words->addWidget(makeLabel(u"lblVersion"_s, translated(u"Version %1"_s).arg(Subs().AppVersion())));
  words->addSpacing(8);
  words->addWidget(new QLabel(u"Plan and write a novel scene by scene."_s));
  words->addWidget(new QLabel(maker + u", "_s + QString::number(Clock::today().year())));
  words->addWidget(makeLabel(u"lblLicence"_s, ProgramFacts::licence()));

  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addLayout(words, 1);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* page = buttons->addButton(translated(u"Visit %1"_s).arg(maker), QDialogButtonBox::ActionRole);
  page->setObjectName(u"cmdWebPage"_s);
  connect(page, &QPushButton::clicked, this, guarded("cmdWebPage_Click", "frmAbout", [] {
            toolkit().openDocument(QString::fromLatin1(Maker::kWebAddress));
          }));
  QPushButton* copy = buttons->addButton(u"&Copy for a report"_s, QDialogButtonBox::ActionRole);
  copy->setObjectName(u"cmdCopy"_s);
  copy->setToolTip(u"Puts version, libraries and folders into the clipboard, and nothing of your book"_s);
  connect(copy, &QPushButton::clicked, this,
          guarded("cmdCopy_Click", "frmAbout", [] { toolkit().setClipboardText(ProgramFacts::report()); }));
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 16);
  column->setSpacing(20);
  column->addLayout(top);
  column->addWidget(makeFacts());
  column->addWidget(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
  buttons->button(QDialogButtonBox::Close)->setDefault(true);
  buttons->button(QDialogButtonBox::Close)->setFocus();
}
