// Prints to a file: the process that the tests of a killed print let die.
//
//   print_a_pdf HOME FILE   prints some pages of text to a PDF file
//
// HOME is the folder for settings and log.
#include "core/infra/Paths.h"
#include "faults/ChangedBook.h"
#include "faults/PrintedBook.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
  std::signal(SIGUSR1, SIG_IGN);
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3) {
    std::puts("print_a_pdf HOME FILE");
    return 2;
  }
  Paths::overrideFolders(arguments[1]);
  const PrintDocument document = printedBook();
  const CountedCalls counted;
  PatientProgress progress;
  PdfFile(arguments[2]).print(document, progress);
  return 0;
}
