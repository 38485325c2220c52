#pragma once

#include "core/text/RichText.h"

#include <QMimeData>

/// A text on its way over the clipboard or in a drag: other programs get it as plain text, and this program with its
/// formats and objects, which are written out when they are asked for.
class RichMimeData : public QMimeData {
  Q_OBJECT

 public:
  explicit RichMimeData(const RichText& text);

  static bool isIn(const QMimeData& data);
  static RichText textIn(const QMimeData& data);

  QStringList formats() const override;

 protected:
  QVariant retrieveData(const QString& mimeType, QMetaType preferredType) const override;

 private:
  RichText text_;
};
