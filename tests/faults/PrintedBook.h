#pragma once

#include "core/layout/PrintFlow.h"
#include "core/layout/PrintTarget.h"
#include "gui/toolkit/PdfFile.h"

/// Nobody waits, and nobody stops it.
struct PatientProgress : PrintProgress {
  void step(const QString&, qint32) override {}
};

/// Some pages of a book, laid out.
inline PrintDocument printedBook() {
  const QtTextMeasure measure;
  PrintFlow flow(measure, {false, false, 12, QStringLiteral("Liberation Serif")});
  flow.newNumberedPage();
  flow.PrintText(QStringLiteral("The tide was out, and the boats lay on the sand.\n").repeated(300));
  return {QStringLiteral("A book"), QStringLiteral("N. Body"), flow.paper(), flow.takePages()};
}
