#pragma once

#include "core/exchange/ExportStep.h"

#include <QByteArray>
#include <QStringList>

/// What of the book becomes a page, and how.
struct HtmlExport {
  /// Places of chapters in the book, from 1; both belong to the range.
  qint32 first = 1;
  qint32 last = 0;
  /// For a reader that knows "[pb]" as a new page.
  bool hasPageMarks = false;

  /// A name that ends so is for such a reader.
  static bool isForPages(const QString& name);
  /// With an extension, where it has none that a page has.
  static QString withExtension(const QString& path);
};

/// The used chapters and scenes of the range as one page to read, in ASCII.
QByteArray ExportToHTML(const HtmlExport& what, const ExportStep& step);

/// Titles of its scenes whose texts could not be read when the book was opened.
QStringList unreadTexts(const HtmlExport& what);
