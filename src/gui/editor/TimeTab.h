#pragma once

#include "gui/editor/EditorTab.h"

class EditorCombo;
class QGroupBox;
class QLineEdit;

/// The tab "Time": when the scene begins in the story, and how long it lasts. Taken up by the next save, which it
/// doesn't ask for itself.
class TimeTab : public EditorTab {
  Q_OBJECT

 public:
  explicit TimeTab(QWidget* parent = nullptr);

  void DataToForm(clsScene& scene) override;
  void FormToData(clsScene& scene) const override;
  void refresh(clsScene& scene) override;

 private:
  /// Days, hours and minutes in a frame of their own.
  struct Span {
    QGroupBox* frame = nullptr;
    QLineEdit* days = nullptr;
    EditorCombo* hours = nullptr;
    EditorCombo* minutes = nullptr;
    QString caption;
  };
  struct SpanNames {
    QString frame, caption, days, hours, minutes;
  };

  Span makeSpan(const SpanNames& names);
  static void speakOf(const Span& span);
  static void show(const Span& span, qint16 days, qint16 hours, qint16 minutes);
  static void read(const Span& span, qint16& days, qint16& hours, qint16& minutes);

  /// fraDHM with txtDay, cmbHour and cmbMinute; fraLasts with txtLastsDays, cmbLastsHours and cmbLastsMinutes.
  Span starts_;
  Span lasts_;
};
