#pragma once

#include <QString>

class OldFolder;

/// An actor of generation 2: a file of lines "KEY:value", and two of plain text beside it, all called after the actor.
class clsQN2Actor {
 public:
  explicit clsQN2Actor(QString name = {}) : Name(std::move(name)) {}

  QString Name;
  QString FullName;
  QString AlternateNames;
  QString Bio;
  QString Goals;

  /// The actors' folder in a project's folder, with a separator behind.
  static QString ActorPath(const QString& projectFolder);
  // The names of the three files in it.
  QString ActorFilename() const;
  QString BioFilename() const;
  QString GoalsFilename() const;
  /// What isn't there leaves its fields empty.
  void LoadActorDetails(OldFolder& folder);

 private:
  QString fileName() const;
};
