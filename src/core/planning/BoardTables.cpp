#include "core/planning/BoardTables.h"

#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QSet>

#include <algorithm>
#include <cstdlib>
#include <utility>

void BoardTables::clear() {
  columns_.clear();
  viewpoints_.clear();
  rowOf_.clear();
}

void BoardTables::fill(const clsProject& project) {
  fillRows(project);
  columns_.clear();
  columns_.reserve(static_cast<size_t>(project.SceneCount()));
  qint32 position = 0;
  for (const auto& chapter : project.Chapters) {
    ++position;
    for (const qint32 id : chapter->SceneIDs()) {
      const qint32 viewpoint = project.SceneByID(id)->ViewPointID();
      columns_.push_back({id, viewpoint, position});
    }
  }
}

void BoardTables::fillRows(const clsProject& project) {
  QSet<qint32> known{0};
  for (const auto& character : project.Chars) {
    known.insert(character->ID());
  }
  std::vector<qint32> used;
  QSet<qint32> seen;
  const auto use = [&](qint32 id) {
    if (!seen.contains(id)) {
      seen.insert(id);
      used.push_back(id);
    }
  };
  for (const auto& scene : project.Scenes) {
    use(scene->ViewPointID());
  }
  std::erase_if(viewpoints_, [&](qint32 id) { return !known.contains(id) && !seen.contains(id); });
  for (const qint32 id : used) {
    if (std::find(viewpoints_.begin(), viewpoints_.end(), id) == viewpoints_.end()) {
      viewpoints_.push_back(id);
    }
  }
  rowOf_.clear();
  for (const qint32 id : viewpoints_) {
    rowOf_.insert(id, static_cast<qint32>(rowOf_.size()) + 1);
  }
}

bool BoardTables::isInStep(const clsProject& project) const {
  auto column = columns_.begin();
  qint32 position = 0;
  for (const auto& chapter : project.Chapters) {
    ++position;
    for (const qint32 id : chapter->SceneIDs()) {
      if (column == columns_.end() || column->scene != id || column->chapter != position) {
        return false;
      }
      ++column;
    }
  }
  return column == columns_.end();
}

qint32 BoardTables::columnOf(qint32 scene) const {
  const auto found =
      std::find_if(columns_.begin(), columns_.end(), [scene](const Column& column) { return column.scene == scene; });
  return found == columns_.end() ? 0 : static_cast<qint32>(found - columns_.begin()) + 1;
}

qint32 BoardTables::columnBeside(qint32 column, int step) const {
  const qint32 row = rowAt(column);
  qint32 nearest = column;
  std::pair best(rows() + 1, columns() + 1);
  for (qint32 other = 1; other <= columns(); ++other) {
    const qint32 away = (rowAt(other) - row) * step;
    const std::pair distance(away, std::abs(other - column));
    if (away > 0 && distance < best) {
      best = distance;
      nearest = other;
    }
  }
  return nearest;
}
