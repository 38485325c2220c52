// The project file: what is written, what is read back, and how far an error reaches.

#include "core/infra/RuntimeError.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/Elements.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray xmlOf(auto& entity) {
  QByteArray xml;
  entity.DataAsXML(xml);
  return xml;
}

QByteArray xmlOf(clsScene& scene) {
  QByteArray xml;
  scene.DataAsXML(xml, false);
  return xml;
}

// The texts of an entity that its element holds, besides the names of files and ratings.

QList<QString*> textsOf(clsScene& scene) {
  return {&scene.Title, &scene.Outcome, &scene.Goal, &scene.Conflict, &scene.DescText, &scene.Tags, &scene.Notes};
}

QList<QString*> textsOf(clsCharacter& person) {
  return {&person.AlternateNames, &person.FullName, &person.ImageFile, &person.Tags, &person.Bio,
          &person.DescText,       &person.Goals,    &person.Notes};
}

QList<QString*> textsOf(clsProject& project) {
  return {&project.Title, &project.AuthorBio, &project.AuthorName, &project.DescText};
}

QList<QString*> textsOf(auto& entity) {
  return {&entity.Title, &entity.DescText, &entity.Tags};
}

/// Gives every text of the entity a value of its own that is hard to store; these values.
QStringList fill(auto& entity) {
  const QString tricky = u"“Zoë”\r\n<b> & 100% \t Пётр 🙂 %u0041 \u0081"_s;
  QStringList values;
  for (QString* text : textsOf(entity)) {
    *text = tricky + QString::number(values.size());
    values += *text;
  }
  return values;
}

QStringList valuesOf(auto& entity) {
  QStringList values;
  for (const QString* text : textsOf(entity)) {
    values += *text;
  }
  return values;
}

/// Fills the texts of an entity and reads it back from its element.
template <class Entity>
std::shared_ptr<Entity> comesBack(Entity& entity) {
  const QStringList texts = fill(entity);
  auto back = std::make_shared<Entity>();
  readFrom(*back, xmlOf(entity));
  EXPECT_EQ(xmlOf(*back), xmlOf(entity));
  EXPECT_EQ(valuesOf(*back), texts);
  return back;
}

/// A project element with every strict field in order.
QByteArray projectElement() {
  newProject();
  return xmlOf(*g_Project);
}

class ProjectFile : public ::testing::Test {
 protected:
  void SetUp() override { newProject(); }
};

}  // namespace

TEST_F(ProjectFile, AnElementIsWrittenLineByLineInItsDialect) {
  clsScene scene;
  readFrom(scene, "<ID>12</ID><RTFFile>RTF_00012.rtf</RTFFile>");
  scene.Title = u"<A & B> 100%"_s;
  scene.BelongsToChID = 3;
  scene.Hour = 7;
  scene.setField(1, 0);
  scene.setField(2, 9);
  scene.SubPlot = true;
  scene.AddCharByID(5);
  scene.AddCharByID(2);
  EXPECT_EQ(
      xmlOf(scene),
      "\t<SCENE>\r\n\t\t<ID>12</ID>\r\n\t\t<Title>%3CA%20%26%20B%3E%20100%25</Title>\r\n\t\t<Unused>0</Unused>\r\n"
      "\t\t<BelongsToChID>3</BelongsToChID>\r\n\t\t<Outcome></Outcome>\r\n\t\t<Goal></Goal>\r\n"
      "\t\t<Conflict></Conflict>\r\n\t\t<Hour>7</Hour>\r\n\t\t<RTFFile>RTF_00012.rtf</RTFFile>\r\n"
      "\t\t<Desc></Desc>\r\n\t\t<Notes></Notes>\r\n\t\t<Field1>1</Field1>\r\n\t\t<Field2>9</Field2>\r\n"
      "\t\t<Field3>1</Field3>\r\n\t\t<Field4>1</Field4>\r\n\t\t<SubPlot>-1</SubPlot>\r\n\t\t<Status>0</Status>\r\n"
      "\t\t<Characters>\r\n\t\t\t<CharID>5</CharID>\r\n\t\t\t<CharID>2</CharID>\r\n\t\t</Characters>\r\n\t</SCENE>");
  EXPECT_EQ(scene.Field(1), 1);
}

TEST_F(ProjectFile, EveryFieldOfEveryKindComesBack) {
  clsScene scene;
  readFrom(scene, "<ID>4</ID><RTFFile>RTF_00004.rtf</RTFFile>");
  scene.BelongsToChID = 2;
  scene.Unused = scene.ReactionScene = scene.SubPlot = true;
  scene.Minute = 59;
  scene.Hour = 23;
  scene.Day = -4;
  scene.LastsMinutes = 1;
  scene.LastsHours = 2;
  scene.LastsDays = 32767;
  scene.Status = 5;
  for (int i = 1; i <= 4; ++i) {
    scene.setField(i, static_cast<qint16>(i * 2));
  }
  for (const qint32 id : {9, 3, 7}) {
    scene.AddCharByID(id);
    scene.AddLocationByID(id + 1);
    scene.AddItemByID(id + 2);
  }
  const auto back = comesBack(scene);
  EXPECT_EQ(back->ViewPointID(), 9);
  EXPECT_EQ(back->ItemID(3), 9);
  EXPECT_EQ(back->Day, -4);
  EXPECT_EQ(back->LastsDays, 32767);

  clsCharacter person;
  readFrom(person, "<ID>6</ID>");
  person.setTitle(scene.Title);
  person.major = person.Unused = true;
  person.SortOrder = 12;
  const auto samePerson = comesBack(person);
  EXPECT_EQ(samePerson->Title(), scene.Title);
  EXPECT_EQ(samePerson->SortOrder, 12);

  clsNote note;
  readFrom(note, "<ID>2</ID>");
  comesBack(note);
  clsLocation place;
  readFrom(place, "<ID>3</ID>");
  place.Unused = true;
  EXPECT_TRUE(comesBack(place)->Unused);
  clsChapter chapter;
  readFrom(chapter, "<ID>8</ID>");
  chapter.Unused = true;
  comesBack(chapter);
}

TEST_F(ProjectFile, EveryFieldOfTheProjectComesBack) {
  const QStringList texts = fill(*g_Project);
  // Each number and day stands once, so that none can be taken for another.
  int number = 1000;
  const auto eachNumber = [](const auto& use) {
    for (qint32* value : {&g_Project->WordTarget, &g_Project->EndMiddleChID, &g_Project->EndBeginningChID,
                          &g_Project->WordCountStart, &g_Project->WordTargetStartDate, &g_Project->WordTargetEndDate}) {
      use(*value);
    }
  };
  eachNumber([&](qint32& value) { value = number++; });
  for (int i = 1; i <= 7; ++i) {
    g_Project->setLastFileIndex(i, number++);
  }
  for (int i = 1; i <= 5; ++i) {
    g_Project->setDeadlineDate(i, number++);
    g_Project->setDeadlineStartDate(i, number++);
  }
  for (int i = 1; i <= 4; ++i) {
    g_Project->setFieldTitle(i, u"Rating %1"_s.arg(i));
  }
  const QByteArray xml = xmlOf(*g_Project);

  newProject();
  ASSERT_TRUE(readFrom(*g_Project, xml));
  EXPECT_EQ(valuesOf(*g_Project), texts);
  number = 1000;
  eachNumber([&](qint32 value) { EXPECT_EQ(value, number++); });
  for (int i = 1; i <= 7; ++i) {
    EXPECT_EQ(g_Project->LastFileIndex(i), number++);
  }
  for (int i = 1; i <= 5; ++i) {
    EXPECT_EQ(g_Project->DeadlineDate(i), number++);
    EXPECT_EQ(g_Project->DeadlineStartDate(i), number++);
  }
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(g_Project->FieldTitle(i), u"Rating %1"_s.arg(i));
  }
}

TEST_F(ProjectFile, OddValuesReadAsTheDialectSays) {
  const std::pair<const char*, std::function<bool(clsScene&)>> cases[] = {
      {"<field1>7</FIELD1>", [](clsScene& s) { return s.Field(1) == 7; }},
      {"<Field1>0</Field1>", [](clsScene& s) { return s.Field(1) == 1; }},
      {"<Unused>1</Unused>", [](clsScene& s) { return !s.Unused; }},
      {"<Hour>70000</Hour>", [](clsScene& s) { return s.Hour == 4464; }},
      {"<Hour>\r\n 12 x</Hour>", [](clsScene& s) { return s.Hour == 12; }},
      {"<Title>a<Title>b<title>c", [](clsScene& s) { return s.Title == u"abc\r\n"_s; }},
      {"<Title>%zz%4</Title>", [](clsScene& s) { return s.Title == QString(QChar(u'\0')) + u"%4"_s; }},
      {"<CHARACTERS><CharID>4</charid><CHARID>x</CHARID><charid>4</charid><CharID>8</CharID></characters>",
       [](clsScene& s) { return s.CharCount() == 2 && s.CharID(1) == 4 && s.CharID(2) == 8; }},
      {"<WordCount>0</WordCount>", [](clsScene& s) { return s.WordsStale(); }},
      {"<WordCount>77</WordCount>", [](clsScene& s) { return !s.WordsStale() && s.Wordcount() == 77; }},
  };
  for (const auto& [field, holds] : cases) {
    clsScene scene;
    readFrom(scene, "\t<SCENE>\r\n" + QByteArray(field) + "\r\n");
    EXPECT_TRUE(holds(scene)) << field;
  }
}

TEST_F(ProjectFile, ABadIDLosesOnlyItself) {
  clsScene scene;
  readFrom(scene, "<SCENE><ID>none</ID><Title>Kept</Title><BelongsToChID></BelongsToChID><Goal>Too</Goal></SCENE>");
  EXPECT_EQ(scene.Goal, u"Too"_s);
  EXPECT_EQ(scene.Title, u"Kept"_s);
}

// The project element, in contrast, is lost as a whole at the first field that can't be read.
TEST_F(ProjectFile, AProjectElementFailsAtAnyStrictFieldAndNoOther) {
  const QByteArray whole = projectElement();
  EXPECT_TRUE(readFrom(*g_Project, whole));
  const QList<QByteArray> strict{"LastFileIndex1", "LastFileIndex7", "WordTargetStartDate", "DeadlineDate5",
                                 "DeadlineStartDate1"};
  for (const QByteArray& tag : strict) {
    EXPECT_FALSE(readFrom(*g_Project, QByteArray(whole).replace("<" + tag + ">", "<x>"))) << tag.constData();
  }
  const QList<QByteArray> lenient{"Title", "WordTarget", "FieldTitle2", "EndMiddleChID", "XMLFileVersion"};
  for (const QByteArray& tag : lenient) {
    EXPECT_TRUE(readFrom(*g_Project, QByteArray(whole).replace("<" + tag + ">", "<x>"))) << tag.constData();
  }
  EXPECT_FALSE(readFrom(*g_Project, ""));
  EXPECT_FALSE(
      readFrom(*g_Project, QByteArray(whole).replace("<DeadlineDate1>1899-12-30", "<DeadlineDate1>2026-02-30")));
}

TEST_F(ProjectFile, DatesAreStoredAsDaysAndAnUnsetOneStaysUnset) {
  g_Project->setDeadlineDate(2, 46000);
  const QByteArray xml = xmlOf(*g_Project);
  EXPECT_TRUE(xml.contains("<DeadlineDate1>1899-12-30</DeadlineDate1>"));
  EXPECT_TRUE(xml.contains("<DeadlineDate2>2025-12-09</DeadlineDate2>"));
  g_Project->setDeadlineDate(2, 1);
  ASSERT_TRUE(readFrom(*g_Project, QByteArray(xml).replace("2025-12-09", "2025/12/09 14:30")));
  EXPECT_EQ(g_Project->DeadlineDate(2), 46000);
  EXPECT_EQ(g_Project->DeadlineDate(1), 0);
}

// A rating's name stands in the file as it is, so what would not come back is refused with a text for the writer.
TEST_F(ProjectFile, ARatingNameThatTheFileCannotHoldIsRefusedAndAnyOtherKept) {
  const QStringList names{u"love < hate & 100%"_s, u"<b>Größe</b> <<"_s, u"</FieldTitle1"_s, u"<Title <x"_s};
  for (int i = 0; i < names.size(); ++i) {
    g_Project->setFieldTitle(i + 1, names.at(i));
  }
  for (const QString& name : {u"Темп"_s, u"a</FieldTitle1>b"_s, u"<x<scenes>"_s}) {
    try {
      g_Project->setFieldTitle(1, name);
      ADD_FAILURE() << name;
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.description().contains(name));
    }
  }
  const QByteArray xml = xmlOf(*g_Project);
  ASSERT_TRUE(readFrom(*g_Project, xml));
  for (int i = 0; i < names.size(); ++i) {
    EXPECT_EQ(g_Project->FieldTitle(i + 1), names.at(i));
  }
  EXPECT_EQ(xmlOf(*g_Project), xml);
}

// Every tag that a whole book is written with; the list of them must not fall behind.
TEST_F(ProjectFile, ARatingNameMustNotHoldATagOfTheFile) {
  const ScratchFolder scratch;
  const QByteArray book = fileBytes(saveSmallProject(scratch.path())) + xmlOf(*g_Project);
  QSet<QByteArray> tags;
  static const QRegularExpression anyTag(u"</?\\w+>"_s);
  for (auto tag = anyTag.globalMatch(QString::fromLatin1(book)); tag.hasNext();) {
    const QString text = tag.next().captured();
    EXPECT_THROW(g_Project->setFieldTitle(1, u"a < b "_s + text.toUpper()), RuntimeError) << text;
    tags.insert(text.toLatin1());
  }
  EXPECT_GT(tags.size(), 100);
}

TEST_F(ProjectFile, ARawValueIsCutWhereItsClosingTagIsMissingOrAnotherFieldBegins) {
  const QByteArray xml = xmlOf(*g_Project);
  const std::pair<QByteArray, QString> cases[] = {{"<FieldTitle1>a < b", u"a"_s},
                                                  {"<FieldTitle1>a < b</FieldTitle1>", u"a < b"_s},
                                                  {"<FieldTitle1>a<Bio>b</FieldTitle1>", u"a"_s}};
  for (const auto& [field, expected] : cases) {
    ASSERT_TRUE(readFrom(*g_Project, QByteArray(xml).replace("<FieldTitle1></FieldTitle1>", field))) << field;
    EXPECT_EQ(g_Project->FieldTitle(1), expected) << field;
  }
}
