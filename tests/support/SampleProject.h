#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <memory>

class clsChapter;
class clsScene;

/// Puts a fresh, empty project in place of g_Project and empties the change tables.
void newProject();

/// A fresh g_Project with two used chapters and an unused one, five scenes with text (one unused), three
/// characters, two locations, an item and a note; most planning fields are set. Nothing is saved yet.
void makeSmallProject();

/// The small project with more chapters of more scenes each, so many that the project file is written in pieces; the
/// scenes' IDs go on from 6.
void makeLargerProject(int chapters, int scenesEach);

/// The small project, saved in this folder as Small.qn4. Its path.
QString saveSmallProject(const QString& folder);

/// The scene and the chapter at a position of g_Project, from 1; the test ends when there is none.
std::shared_ptr<clsScene> sceneAt(qint32 index);
std::shared_ptr<clsChapter> chapterAt(qint32 index);

/// One paragraph of RTF with this text, which must be plain ASCII.
QByteArray simpleRtf(const QByteArray& text);

/// The bytes of every file below the folder, by relative path; without the mark of who has it open, and without what
/// comes by itself: the archives of backups, the log of progress.
QMap<QString, QByteArray> filesBelow(const QString& folder);
QByteArray fileBytes(const QString& path);
void writeFile(const QString& path, const QByteArray& bytes);
