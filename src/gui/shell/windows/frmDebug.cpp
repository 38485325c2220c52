#include "gui/shell/windows/frmDebug.h"

#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmDebug";
constexpr QSize kLettersAndLines(60, 24);

QString sceneTitle(qint32 id) {
  return g_Project->SceneByID(id)->Title;
}

QString charTitle(qint32 id) {
  return g_Project->CharByID(id)->Title();
}

/// What is there already stays selected and scrolled as it is.
void showLocked(QPlainTextEdit& field, const clsHashTable& table, QString (*titleOf)(qint32)) {
  QStringList lines;
  for (const qint32 id : table.lockedIDs()) {
    lines.append(QString::number(id) + u'\t' + titleOf(id));
  }
  if (const QString text = lines.join(u'\n'); text != field.toPlainText()) {
    field.setPlainText(text);
  }
}

}  // namespace

frmDebug::frmDebug(QWidget* parent)
    : QDialog(parent),
      txtScenes(makeReadOnlyText(u"txtScenes"_s, u"Locked Scenes"_s, this)),
      txtChars(makeReadOnlyText(u"txtChars"_s, u"Locked Chars"_s, this)) {
  setObjectName(u"frmDebug"_s);
  setWindowTitle(u"Debug Form"_s);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(makeLabelOf(u"Locked &Scenes:"_s, *txtScenes));
  column->addWidget(txtScenes);
  column->addWidget(makeLabelOf(u"Locked &Chars:"_s, *txtChars));
  column->addWidget(txtChars);
  resize(fontMetrics().averageCharWidth() * kLettersAndLines.width(),
         fontMetrics().lineSpacing() * kLettersAndLines.height());
  Timer1.setObjectName(u"Timer1"_s);
  Timer1.setParent(this);
  Timer1.setInterval(1s);
  connect(&Timer1, &QTimer::timeout, this, guarded("Timer1_Timer", kModule, this, &frmDebug::Timer1_Timer));
}

void frmDebug::Timer1_Timer() {
  showLocked(*txtScenes, g_SceneChanges, &sceneTitle);
  showLocked(*txtChars, g_CharChanges, &charTitle);
}

void frmDebug::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Timer1_Timer();
  Timer1.start();
}

void frmDebug::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  Timer1.stop();
}
