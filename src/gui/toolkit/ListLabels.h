#pragma once

class QPainter;
class QTextEdit;

/// Draws the marks of the list items that are in view in front of their text: bullets and numbers.
void drawListLabels(QPainter& painter, const QTextEdit& control);
