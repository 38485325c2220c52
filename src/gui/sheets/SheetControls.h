#pragma once

#include <QString>

class MemoEdit;
class QFormLayout;
class QFrame;
class QLineEdit;
class QTabWidget;
class QWidget;

// Makers of what stands on the sheets. A caption's ampersand marks its key.

/// A page of captions and fields, in which texts of several lines grow.
QFormLayout* makeFieldForm(QWidget& page);
/// A line that takes a text of any length, as the form's next row.
QLineEdit* addLine(QFormLayout& form, const QString& name, const QString& caption);
/// A text of several lines, as the form's next row.
MemoEdit* addMemo(QFormLayout& form, const QString& name, const QString& caption);
/// A text that fills a page under its caption.
MemoEdit* addPageMemo(QWidget& page, const QString& name, const QString& caption);

/// A strip of tabs that are all to be seen at any size.
QTabWidget* makeStrip(const QString& spokenName, QWidget* parent);
/// The next frame of the strip.
QWidget* addFrame(QTabWidget& strip, const QString& caption);

/// A field to read and copy from, without the frame and the ground of one to type in.
void showReadOnly(QLineEdit& field);
void showReadOnly(QFrame& field);
