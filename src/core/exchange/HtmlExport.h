#pragma once

#include "core/exchange/BookWalk.h"
#include "core/exchange/ExportStep.h"

#include <QByteArray>
#include <QString>

/// What of the book becomes a page, and how.
struct HtmlExport {
  ChapterSpan chapters{};
  /// For a reader that knows "[pb]" as a new page.
  bool hasPageMarks = false;

  /// A name that ends so is for such a reader.
  static bool isForPages(const QString& name);
  /// With an extension, where it has none that a page has.
  static QString withExtension(const QString& path);
};

/// The used chapters and scenes of the range as one page to read, in ASCII.
QByteArray ExportToHTML(const HtmlExport& what, const ExportStep& step);
