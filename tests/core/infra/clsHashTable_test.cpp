#include "core/infra/clsHashTable.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

using namespace Qt::StringLiterals;

TEST(clsHashTable, EachAreaSeesAChangeOnce) {
  clsHashTable table;
  table.MarkUpdated(7);
  for (int area = 1; area <= HashRecord::kAreas; ++area) {
    EXPECT_TRUE(table.HasChanged(7, area));
    table.ResetChanged(7, area);
    EXPECT_FALSE(table.HasChanged(7, area));
  }
  EXPECT_FALSE(table.IsLocked(5) || table.HasChanged(5, 1));
  table.UnLockRec(5);
  table.ResetChanged(5, 1);
  table.ResetCount(5);
  EXPECT_EQ(table.HighWater(), 1) << "asking makes no record";
}

TEST(clsHashTable, NamesWhatIsMarkedForAnAreaAndWhatIsLocked) {
  using IDs = std::vector<qint32>;
  clsHashTable table;
  EXPECT_EQ(table.changedIDs(1), IDs{});
  for (const qint32 id : {9, 4, 7, 2}) {
    table.AddToCount(id);
  }
  table.MarkUpdated(7);
  table.MarkDeleted(9);
  table.MarkUpdated(7);
  table.LockRec(4);
  table.LockRec(4);
  EXPECT_EQ(table.changedIDs(1), (IDs{9, 7}));
  table.ResetChanged(9, 1);
  EXPECT_EQ(table.changedIDs(ChangeArea::MainWindow), IDs{7});
  EXPECT_EQ(table.changedIDs(ChangeArea::SceneList), (IDs{9, 7})) << "each area has flags of its own";
  table.ResetChangedByArea(2);
  EXPECT_EQ(table.changedIDs(2), IDs{});
  EXPECT_EQ(table.lockedIDs(), IDs{4});
  table.ResetCount(7);
  table.ResetAllChanged(9);
  table.UnLockRec(4);
  EXPECT_EQ(table.changedIDs(4), IDs{});
  EXPECT_EQ(table.lockedIDs(), IDs{});
  EXPECT_FALSE(table.AnyLocked());
  table.MarkUpdated(2);
  table.Init();
  EXPECT_EQ(table.changedIDs(1), IDs{});
}

TEST(clsHashTable, OnlyInsertRecordBringsADeletedRecordBack) {
  clsHashTable table;
  qint32 index = 0;
  table.MarkDeleted(9);
  table.MarkUpdated(9);
  table.LockRec(9);
  table.InsertRecord(9, index);
  EXPECT_FALSE(table.Record(index).Deleted);
  EXPECT_TRUE(table.Record(index).Changed[0]);
  table.MarkDeleted(9);
  table.AddToCount(9);
  EXPECT_TRUE(table.Record(index).Deleted);
}

// Growth of records and buckets, removal and reuse of nodes: the table agrees with maps at every step, for small IDs,
// large and negative ones, and texts side by side.
TEST(clsHashTable, AgreesWithAMapThroughGrowthAndRemoval) {
  clsHashTable table;
  std::map<qint32, qint32> expected;
  std::map<QString, qint32> expectedTexts;
  std::mt19937 random(1);
  const qint32 spread[] = {1, 300'017, -7};
  for (int step = 0; step < 60000; ++step) {
    const qint32 id = (static_cast<qint32>(random() % 6000) + 1) * spread[step % 3];
    if (random() % 4 == 0) {
      table.ResetCount(id);
      expected.erase(id);
    } else {
      table.AddAmtToCount(id, id);
      expected[id] = static_cast<qint32>(static_cast<quint32>(expected[id]) + static_cast<quint32>(id));
    }
    const QString text = (step % 2 == 0 ? u"Ж"_s : u"ж"_s) + QString::number(random() % 20000);
    table.AddToValue(text);
    ++expectedTexts[text];
  }
  std::map<qint32, qint32> found;
  std::map<QString, qint32> foundTexts;
  for (qint32 i = 1; i <= table.HighWater(); ++i) {
    const HashRecord record = table.Record(i);
    if (record.ID != 0) {
      found[record.ID] = record.Count;
    } else if (record.Value != 0) {
      foundTexts[record.Text] = record.Value;
    }
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(foundTexts, expectedTexts);
  EXPECT_LE(table.HighWater(), 18000 + 40000);
}
