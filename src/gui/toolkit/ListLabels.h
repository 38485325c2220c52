#pragma once

class QPainter;
class QTextBlock;
class QTextEdit;

/// Draws the marks of the list items that are in view in front of their text: bullets and numbers.
void drawListLabels(QPainter& painter, const QTextEdit& control);

/// The number of a paragraph in its list; 0 where it has none.
int numberOfItem(const QTextBlock& paragraph);
