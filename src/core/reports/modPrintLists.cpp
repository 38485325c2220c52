#include "core/reports/modPrintLists.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

namespace {

void printCharacter(PrintFlow& flow, const clsCharacter& character) {
  flow.PrintBold(character.Title() + u" ("_s + character.FullName + u')');
  flow.spacing();
  const std::pair<QString, const QString&> fields[] = {{translated(u"Desc: "_s), character.DescText},
                                                       {translated(u"Bio: "_s), character.Bio},
                                                       {translated(u"Goals: "_s), character.Goals},
                                                       {translated(u"Notes: "_s), character.Notes}};
  for (const auto& [label, field] : fields) {
    flow.PrintBold(label);
    flow.PrintText(field);
    flow.spacing();
  }
}

/// A line for each thing of a collection.
template <class Things>
PrintDocument printTitles(const ReportJob& job, const Things& things, const QString& title) {
  PrintFlow flow(job.measure, job.state);
  flow.newNumberedPage();
  qint32 done = 0;
  for (const auto& thing : things) {
    job.progress.step(shownText(u"Laying out line %1"_s), ++done);
    flow.PrintText(thing->Title);
    flow.spacing();
  }
  return Reports::finished(title, flow);
}

}  // namespace

PrintDocument PrintCharList(const ReportJob& job) {
  PrintFlow flow(job.measure, job.state);
  flow.newNumberedPage();
  qint32 done = 0;
  for (const auto& character : g_Project->Chars) {
    job.progress.step(shownText(u"Laying out character %1"_s), ++done);
    printCharacter(flow, *character);
  }
  return Reports::finished(Reports::titleOf(translated(u"Characters"_s)), flow);
}

PrintDocument PrintLocationList(const ReportJob& job) {
  return printTitles(job, g_Project->Locations, Reports::titleOf(translated(u"Locations"_s)));
}

PrintDocument PrintItemList(const ReportJob& job) {
  return printTitles(job, g_Project->Items, Reports::titleOf(translated(u"Items"_s)));
}

PrintDocument PrintPlainText(const ReportJob& job, const QString& text, const QString& title) {
  PrintFlow flow(job.measure, job.state);
  flow.newNumberedPage();
  flow.PrintText(text);
  return Reports::finished(title, flow);
}
