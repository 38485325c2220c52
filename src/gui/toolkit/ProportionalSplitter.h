#pragma once

#include <QSplitter>

/// A splitter of two sides that keeps their proportion whatever size it is given, until the user moves it: then it
/// keeps that one. The proportion is remembered as it was set and not read off whole pixels, so that it is the same
/// after any number of times that it was stored and set again.
class ProportionalSplitter : public QSplitter {
  Q_OBJECT

 public:
  explicit ProportionalSplitter(Qt::Orientation orientation, QWidget* parent = nullptr);

  /// The left or upper side as a part of the whole, between 0 and 1. The sides' own smallest sizes come before it.
  double fraction() const { return fraction_; }
  /// What isn't between 0 and 1 is ignored.
  void setFraction(double fraction);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  int length() const;
  void apply();

  double fraction_ = 0.5;
};
