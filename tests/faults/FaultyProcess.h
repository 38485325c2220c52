#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// How a fault gets into a process: from outside, at any call of the system; or by a library in it, at the calls by
/// which it changes files below a folder.
enum class Means { Traced, Preloaded };

/// "kill", or the errno with which a call fails, and which call that is; 0 for none, so that they are counted.
struct Fault {
  QString how;
  int at = 0;
};

struct FaultyRun {
  bool killed = false;
  int status = -1;
  QString said;
  int calls = 0;
};

/// Runs save_a_book, or the program of this name. The fault strikes below `folder` where the means looks at that;
/// `home` is a folder for settings and counts.
FaultyRun saveWithFault(Means means, const Fault& fault, const QString& folder, const QString& home,
                        const QStringList& arguments, const QString& name = QStringLiteral("save_a_book"));

/// Empty where the system lets us trace processes and bring this fault in, else why not.
QString whyNotTraced(const QString& how, const QString& home);

/// Every number from 1 to `all` with QUILLANE_ALL_FAULTS set, else the first, the last and so many of
/// the others, the same ones each time.
std::vector<int> faultPoints(int all, int sample);

/// Where files are kept in memory, on a machine that has such a place: thousands of saves needn't wait for a disk.
QString quickFolder();
