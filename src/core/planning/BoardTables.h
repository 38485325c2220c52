#pragma once

#include "core/planning/BoardGrid.h"

#include <QHash>

#include <vector>

class clsProject;

/// Which scene stands in which column of the storyboard, in the order of the story, and which viewpoint has which row,
/// in the order in which the list of scenes first uses them. Both count from 1.
class BoardTables {
 public:
  /// As the book stands now. A row that nobody narrates any more keeps its place, unless its character has gone: so
  /// what was moved out of a row can be moved back.
  void fill(const clsProject& project);
  void clear();
  /// The same scenes still stand in the same chapters.
  bool isInStep(const clsProject& project) const;

  qint32 columns() const { return static_cast<qint32>(columns_.size()); }
  qint32 rows() const { return static_cast<qint32>(viewpoints_.size()); }
  /// 0 for a column that there isn't.
  qint32 sceneAt(qint32 column) const { return isColumn(column) ? at(column).scene : 0; }
  /// The position of the scene's chapter in the book.
  qint32 chapterAt(qint32 column) const { return isColumn(column) ? at(column).chapter : 0; }
  /// 0 outside.
  qint32 rowAt(qint32 column) const { return isColumn(column) ? rowOf_.value(at(column).viewpoint) : 0; }
  qint32 columnOf(qint32 scene) const;
  bool isRow(qint32 row) const { return row >= 1 && row <= rows(); }
  /// The ID of a row that there is.
  qint32 viewpointAt(qint32 row) const { return viewpoints_.at(static_cast<size_t>(row) - 1); }
  /// The nearest card in the nearest row above (-1) or below (1) that has any; the same column where there is none.
  qint32 columnBeside(qint32 column, int step) const;

 private:
  struct Column {
    qint32 scene;
    qint32 viewpoint;
    qint32 chapter;
  };

  bool isColumn(qint32 column) const { return column >= 1 && column <= columns(); }
  const Column& at(qint32 column) const { return columns_[static_cast<size_t>(column) - 1]; }
  void fillRows(const clsProject& project);

  std::vector<Column> columns_;
  std::vector<qint32> viewpoints_;
  QHash<qint32, qint32> rowOf_;
};
