#include "gui/shell/EveryWindow.h"

#include "core/infra/ErrorReport.h"
#include "core/layout/PrintedPage.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/editor/frmEditor.h"
#include "gui/editor/frmEditorSettings.h"
#include "gui/exchange/frmImportWIP.h"
#include "gui/planning/frmChart.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/planning/frmWordTarget.h"
#include "gui/sheets/frmEditChapter.h"
#include "gui/sheets/frmEditCharacter.h"
#include "gui/sheets/frmEditThing.h"
#include "gui/sheets/frmList.h"
#include "gui/shell/windows/fSHAREDUpdater.h"
#include "gui/shell/windows/frmAbout.h"
#include "gui/shell/windows/frmBackupViewer.h"
#include "gui/shell/windows/frmDebug.h"
#include "gui/shell/windows/frmEditProject.h"
#include "gui/shell/windows/frmGlobalReplace.h"
#include "gui/shell/windows/frmHelp.h"
#include "gui/shell/windows/frmLostAndFound.h"
#include "gui/shell/windows/frmOverview.h"
#include "gui/shell/windows/frmProblemWords.h"
#include "gui/shell/windows/frmProjectWizard.h"
#include "gui/shell/windows/frmSceneList.h"
#include "gui/shell/windows/frmSplash.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/cSharedProgress.h"
#include "gui/toolkit/fSHAREDErrorRpt.h"
#include "gui/toolkit/fSHAREDGetDate.h"
#include "gui/toolkit/fSHAREDLogViewer.h"
#include "gui/toolkit/fSHAREDProxy.h"
#include "gui/views/NoteWindow.h"
#include "gui/views/frmFind.h"
#include "gui/views/frmPickChapters.h"
#include "gui/views/frmPickFont.h"
#include "gui/views/frmPrintPreview.h"
#include "gui/views/frmPrinterSetup.h"
#include "gui/views/frmWordCount.h"

#include <QApplication>

using namespace Qt::StringLiterals;

template <class Window, class... Arguments>
Window& EveryWindow::make(Arguments&&... arguments) {
  auto window = std::make_unique<Window>(std::forward<Arguments>(arguments)...);
  Window& made = *window;
  all_.append(&made);
  own_.push_back(std::move(window));
  return made;
}

EveryWindow::EveryWindow(QWidget& main) : progress_(std::make_unique<cSharedProgress>()) {
  all_.append(&main);
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (qobject_cast<frmEditor*>(window) != nullptr) {
      all_.append(window);
    }
  }
  make<frmWordCount>().FillForm(noWords_);
  auto& printer = make<frmPrinterSetup>(&main);
  printer.OfferPreview({});
  printer.OfferDetails();
  make<fSHAREDGetDate>(entry_, u"~"_s);
  make<fSHAREDErrorRpt>(ErrorReport::about(u"~"_s), QString());
  make<fSHAREDLogViewer>();
  make<fSHAREDUpdater>(&main);
  make<fSHAREDProxy>(&main);
  make<frmAbout>(&main);
  make<frmDebug>(&main);
  make<frmLostAndFound>(&main);
  make<frmBackupViewer>(&main);
  make<frmEditProject>(ProjectSettings::of(*g_Project), &main);
  make<frmProblemWords>(&main);
  make<frmGlobalReplace>(&main);
  make<frmProjectWizard>(&main);
  make<frmImportWIP>(&main);
  make<frmSceneList>(&main);
  make<frmStoryboard>(&main);
  make<frmChart>(&main);
  make<frmWordTarget>(WordTarget{}, 0, &main);
  make<frmPickChapters>(&main);
  make<frmPrintPreview>(std::make_shared<const PrintDocument>(), &main);
  make<frmOverview>(&main);
  make<frmHelp>(&main);
  make<frmFind>(&main);
  make<frmPickFont>(&main);
  make<frmEditorSettings>(EditorSettings{}, &main);
  const SheetSubject subject{EntityKind::Item, 1, nullptr};
  make<frmEditChapter>(subject);
  make<frmEditCharacter>(subject);
  make<frmEditThing>(subject);
  for (const int kind : {kListCharacters, kListLocations, kListItems}) {
    make<frmList>().SetupFor(kind, true);
  }
  make<frmSplash>();
  const RichTextBox text;
  for (const auto kind : {InlineObject::Kind::Footnote, InlineObject::Kind::Endnote, InlineObject::Kind::Comment}) {
    make<NoteWindow>(InlineObject{.kind = kind}, text, &main);
  }
  progress_->offerStop([] {});
  progress_->Show();
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == u"cSharedProgress") {
      all_.append(window);
    }
  }
  progress_->Hide();
}

EveryWindow::~EveryWindow() = default;
