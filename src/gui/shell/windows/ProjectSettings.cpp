#include "gui/shell/windows/ProjectSettings.h"

#include "core/model/clsProject.h"

#include <algorithm>

ProjectSettings ProjectSettings::of(const clsProject& project) {
  ProjectSettings settings{project.Title, project.DescText, project.AuthorName, project.AuthorBio, {}, {}};
  int index = 0;
  for (QString& name : settings.FieldTitles) {
    name = project.FieldTitle(++index);
  }
  settings.deadlines = Deadlines::of(project);
  return settings;
}

void ProjectSettings::storeIn(clsProject& project) const {
  std::for_each(FieldTitles.begin(), FieldTitles.end(), &clsProject::checkFieldTitle);
  int index = 0;
  for (const QString& name : FieldTitles) {
    project.setFieldTitle(++index, name);
  }
  deadlines.storeIn(project);
  project.AuthorBio = AuthorBio;
  project.AuthorName = AuthorName;
  project.Title = Title;
  project.DescText = DescText;
}
