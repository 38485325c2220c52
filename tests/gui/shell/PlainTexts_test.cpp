// What a writer has named is shown as it stands: never as markup, a mark of a window's title or a key of a menu.

#include "core/infra/ErrorReport.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/toolkit/cSharedProgress.h"
#include "gui/toolkit/fSHAREDErrorRpt.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

const QString kText = u"<b>x</b><img src=\"none.png\"> &c [*]"_s;

/// Labels that would guess at markup, and tool tips that hold the text as it is.
QStringList takenForMarkup() {
  QStringList found;
  for (const QWidget* const widget : QApplication::allWidgets()) {
    const auto* const label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && !label->text().isEmpty() && label->textFormat() != Qt::PlainText &&
        !label->inherits("QTipLabel")) {
      found += u"label: "_s + label->text();
    }
    if (widget->toolTip().contains(u"<b>x")) {
      found += u"tool tip of "_s + widget->objectName();
    }
    const auto* const list = qobject_cast<const ListView*>(widget);
    for (int row = 0; list != nullptr && row < list->rowCount(); ++row) {
      if (list->model()->index(row, 0).data(Qt::ToolTipRole).toString().contains(u"<b>x")) {
        found += u"tool tip in "_s + list->objectName();
      }
    }
  }
  return found;
}

class PlainTextsTest : public ShellTest {
 protected:
  /// What hovering shows, as it is read.
  static QString toolTipAt(QWidget& widget, QPoint place) {
    QHelpEvent hover(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &hover);
    const QString tip = QToolTip::text();
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
  }
};

}  // namespace

TEST_F(PlainTextsTest, AProjectThatLooksLikeMarkupIsShownAsItStands) {
  startWith(smallProject(u"<b>S &mall"_s));
  g_Project->Title = kText;
  chapterAt(1)->Title = kText;
  for (const auto& character : g_Project->Chars) {
    character->FullName = kText;
  }
  const auto scene = sceneAt(1);
  scene->Title = kText;
  window().RefreshAll();
  click(list("ListScenes"), 0);
  EXPECT_TRUE(window().windowTitle().startsWith(u"<b>x</b><img src=\"none.png\"> &c [*][*]"_s));
  EXPECT_EQ(control<QAction>("mnuRecent(1)").text().remove(u'&'), u"Small \\<b>S mall"_s);
  const ListView& characters = list("ListChar(0)");
  ASSERT_GT(characters.rowCount(), 0);
  EXPECT_EQ(QTextDocumentFragment::fromHtml(item("ListChar(0)", 0).data(Qt::ToolTipRole).toString()).toPlainText(),
            kText);
  window().showMessage(kText.repeated(20));
  EXPECT_EQ(toolTipAt(control<QLabel>("numberfiles"), {2, 2}), kText.repeated(20));
  scene->Edit();
  EXPECT_TRUE(openEditor().windowTitle().contains(u" &c [*][*]"_s));
  cSharedProgress progress;
  progress.setCaption(kText);
  progress.Show();
  const fSHAREDErrorRpt report(ErrorReport::about(kText), {});
  EXPECT_EQ(takenForMarkup(), QStringList());
}

TEST_F(PlainTextsTest, BoxesTakeNothingForMarkup) {
  QtToolkit screen;
  const auto look = [](QWidget& box) {
    EXPECT_EQ(takenForMarkup(), QStringList());
    box.close();
  };
  {
    const WhenModal shown(look);
    screen.MsgBox(kText, Buttons::Ok);
  }
  const WhenModal shown(look);
  screen.InputBox(kText, kText, kText);
}
