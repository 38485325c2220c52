#pragma once

#include "core/infra/cSharedLang.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

/// A language of a few entries ("English||translated", one a line), for as long as it lives.
class TestLanguage {
 public:
  explicit TestLanguage(const QString& entries) {
    QDir().mkpath(folder_.path(QStringLiteral("Languages")));
    writeFile(folder_.path(QStringLiteral("Languages/x.txt")), (QStringLiteral("Probe\n") + entries).toUtf8());
    Lang().OverrideLanguagePath(folder_.path());
    Lang().LoadAllLanguages();
    Lang().LoadLanguage(1);
  }
  ~TestLanguage() { Lang().LoadLanguage(0); }
  TestLanguage(const TestLanguage&) = delete;
  TestLanguage& operator=(const TestLanguage&) = delete;

 private:
  ScratchFolder folder_;
};
