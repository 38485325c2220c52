#pragma once

#include "core/model/StoryMoves.h"

#include <QString>

/// What the list window is in one of its kinds.
struct ListKind {
  qint16 type;
  CastKind kind;
  QString caption;
  const char* icon;
  /// In the chooser.
  QString button;
  QString buttonCaption;
  /// About one of this kind.
  QString choose;
  QString addTip;
  QString editTip;
  QString deleteTip;
  QString emptyText;
};
