#pragma once

#include <QByteArrayView>
#include <QString>

class LongWork;
class clsProject;

/// Reads a project from its file, and tells the user what could not be read.
class ProjectLoader {
 public:
  explicit ProjectLoader(clsProject& project) : project_(project) {}

  /// True on success; a failure leaves an empty project. Refused, and logged, while the project is busy.
  bool load(const QString& file, bool showProgress);

 private:
  bool loadQN4(const QString& file, bool showProgress);
  bool readFile(LongWork& work);
  bool readBlocks(LongWork& work, QByteArrayView text);
  void tellFailure() const;
  void tellIncomplete() const;
  void tellUnreadTexts() const;

  clsProject& project_;
};
