#include "gui/shell/windows/BackupTree.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/BackupsView.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QHeaderView>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmBackupViewer";

constexpr int kFolder = Qt::UserRole;
constexpr int kArchive = Qt::UserRole + 1;
/// Its archives have been looked for.
constexpr int kSearched = Qt::UserRole + 2;

}  // namespace

BackupTree::BackupTree(QWidget* parent) : QTreeWidget(parent) {
  giveName(*this, u"TreeView1"_s, u"Days of backups"_s);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setStretchLastSection(false);
  connect(this, &QTreeWidget::itemExpanded, this,
          guarded("TreeView1_Expand", kModule, this, &BackupTree::findArchives));
}

void BackupTree::fill() {
  const QSignalBlocker quiet(this);
  clear();
  QStringList folders = backupFolders(*g_Project);
  if (folders.isEmpty()) {
    return;
  }
  folders.sort();
  auto* root = new QTreeWidgetItem(this, {translated(u"AutoBackups"_s)});
  for (const QString& folder : folders) {
    auto* day = new QTreeWidgetItem(root, {folder});
    day->setData(0, kFolder, folder);
    // There may be years of them: what is in a folder is looked at when it is opened.
    day->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  }
  findArchives(root);
  root->setExpanded(true);
  choose(folders.last());
}

void BackupTree::findArchives(QTreeWidgetItem* item) {
  if (item->data(0, kSearched).toBool() || item->data(0, kArchive).isValid()) {
    return;
  }
  item->setData(0, kSearched, true);
  item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
  const QString folder = item->data(0, kFolder).toString();
  for (const FileObject& archive : backupArchives(*g_Project, folder)) {
    auto* child = new QTreeWidgetItem(item, {archive.Name});
    child->setData(0, kFolder, folder);
    child->setData(0, kArchive, archive.Path);
  }
}

bool BackupTree::choose(const QString& folder) {
  QTreeWidgetItem* const root = topLevelItem(0);
  for (int i = 0; root != nullptr && i < root->childCount(); ++i) {
    if (root->child(i)->data(0, kFolder).toString() == folder) {
      setCurrentItem(root->child(i));
      scrollToItem(root->child(i));
      return true;
    }
  }
  return false;
}

QString BackupTree::folder() const {
  const QTreeWidgetItem* const chosen = currentItem();
  return chosen == nullptr ? QString() : chosen->data(0, kFolder).toString();
}

QString BackupTree::archive() const {
  const QTreeWidgetItem* const chosen = currentItem();
  return chosen == nullptr ? QString() : chosen->data(0, kArchive).toString();
}
