#include "support/OlderProjects.h"

#include "support/SampleProject.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// Lines end as those programs ended them.
void writeLines(const QString& path, QByteArray text) {
  writeFile(path, text.replace("\n", "\r\n"));
}

}  // namespace

QString writeGeneration3(const QString& folder) {
  const QDir data(folder + u"/data"_s);
  const QDir texts(folder + u"/RTF"_s);
  QDir().mkpath(data.path());
  QDir().mkpath(texts.path());
  writeLines(data.filePath(u"ChList.txt"_s), "CHAPTERS, 2 \nCHAPTERS_1,C:\\Book\\Data\\Ch1.txt\nCHAPTERS_2,Ch2.txt\n");
  writeLines(data.filePath(u"Ch1.txt"_s),
             "ID, 1 \nTITLE,One, and a comma\nDESC,Caf%E9%2C%20%22quoted%22%0D%0Aline\nSCENES_INDEX, 2 \nSCENES_1, 2 "
             "\nSCENES_2, 1 \n");
  writeLines(data.filePath(u"Ch2.txt"_s), "ID, 2 \nUNUSED,True\nSCENES, 1 \nSCENES_1, 3 \nDESCFILE,ch2_desc.txt\n");
  writeLines(data.filePath(u"Ch2_Desc.txt"_s), "Plain d\xE9j\xE0 vu");
  writeLines(data.filePath(u"Sc.txt"_s), "SCENES_INDEX, 3 \nSCENES_1,Sc1.txt\nSCENES_2,Sc2.txt\nSCENES_3,SC3.TXT\n");
  writeLines(data.filePath(u"Sc1.txt"_s),
             "ID, 1 \nTITLE,True\nRTFFILE,RTF\\RTF_00001.rtf\nVIEWPOINTID, 4 \nCHARACTERS, 3 \nCHARACTERS_1, 3 "
             "\nCHARACTERS_2, 4 \nCHARACTERS_3, 7 \nLOCATIONS, 1 \nLOCATIONS_1, 5 \nITEMS, 1 \nITEMS_1, 6 "
             "\nBELONGSTOCHAPTER, 2 \nLASTSDAYS, 2 \nHOUR, 13 \nFIELD2, 4 \nREACTIONSCENE,-1 \nSUBPLOT,1\nSTATUS, 3 "
             "\nWORDCOUNT, 3 \nLETTERCOUNT, 15 \n");
  writeLines(data.filePath(u"Sc2.txt"_s), "ID, 2 \nTITLE,Second\nRTFFILE,RTF_00002.rtf\nUNUSED,0\n");
  writeLines(data.filePath(u"sc3.txt"_s), "ID, 3 \nRTFFILE,RTF_00003.rtf\n");
  writeLines(data.filePath(u"Cast.txt"_s),
             "CHARACTERS, 3 \nCHARACTERS_1,P3.txt\nCHARACTERS_2,P4.txt\nCHARACTERS_3,P7.txt\n");
  writeLines(data.filePath(u"P3.txt"_s), "ID, 3 \nTITLE,Ann\nFULLNAME,Ann Other\nBIO,B%69o\nNOTES,%28n%29\n");
  writeLines(data.filePath(u"P4.txt"_s), "ID, 4 \nTITLE,Bob\nBIOFILE,bob_bio.txt\nGOALFILE,bob_goals.txt\n");
  writeLines(data.filePath(u"bob_bio.txt"_s), "Born.");
  writeFile(data.filePath(u"bob_goals.txt"_s), {});
  writeLines(data.filePath(u"P7.txt"_s), "ID, 7 \nTITLE,Cid\n");
  writeLines(data.filePath(u"Loc.txt"_s), "LOCATIONS, 1 \nLOCATIONS_1,L5.txt\n");
  writeLines(data.filePath(u"L5.txt"_s), "ID, 5 \nDESC,Wet\n");
  writeLines(data.filePath(u"It.txt"_s), "ITEMS, 1 \nITEMS_1,I6.txt\n");
  writeLines(data.filePath(u"I6.txt"_s), "ID, 6 \nTITLE,Lamp\n");
  writeFile(texts.filePath(u"RTF_00001.rtf"_s), simpleRtf("First old text."));
  writeFile(texts.filePath(u"rtf_00002.RTF"_s), simpleRtf("Second old text."));
  writeFile(texts.filePath(u"RTF_00003.rtf"_s), simpleRtf("Third."));
  const QString path = QDir::toNativeSeparators(folder + u"/Old book.qn3"_s);
  writeLines(path,
             "TITLE,The old book\nAUTHOR,A. Writer\nAUTHORBIO,She%20wrote%2E\nDESC,\nDESCFILE,none.txt\nWORDTARGET, "
             "50000 \nWORDTARGETSTARTDATE,2004-02-29\nDEADLINEDATE1,2005-01-31\nDEADLINEDATE2,someday\nFIELD1,Fear\n"
             "LASTFILEINDEX_4, 3 \nCHAPTERFILE,Data\\ChList.txt\nSCENEFILE,Sc.txt\nCHARACTERFILE,Cast.txt\n"
             "LOCATIONFILE,Loc.txt\nITEMFILE,It.txt\n");
  return path;
}

QString writeGeneration2(const QString& folder) {
  const QDir there(folder);
  QDir().mkpath(there.filePath(u"characters"_s));
  writeLines(there.filePath(u"one.txt"_s),
             "A header\n<@@@>[SCENE][COL:2][ACTOR:Ann/Lee][DESC:At the gate][LONGDESC:She {waits} \\ long][GOAL:In]"
             "[CONFLICT:Shut][RESULT:Out][STATUS:2][F1:1][F4:4][DAY:3][HOUR:9][MIN:30][LDAY:1][LHOUR:2][LMIN:5]\n\n"
             "Caf\xE9 {at} the \\gate.\nSecond line.\n\n[scene][actor:bob][DESC:Bob]<@@@>Bob's words [GOAL:late\n"
             "[SCENE]Nobody's words");
  writeLines(there.filePath(u"Two.txt"_s), "  No marks at all.  \n");
  writeLines(there.filePath(u"characters/Ann Lee.txt"_s),
             "fullname:Ann Marie Lee: the elder\nAlternateNames:Annie\nX\n");
  writeLines(there.filePath(u"characters/ANN LEE_bio.txt"_s), "Born {here}.\nStayed.");
  writeLines(there.filePath(u"characters/ann lee_goals.txt"_s), "To leave");
  writeLines(there.filePath(u"characters/Charlist.dat"_s), "Ann/Lee\n\nUnseen\n");
  const QString path = QDir::toNativeSeparators(there.filePath(u"Old.qnp"_s));
  writeLines(path,
             "\"My\" first, book\nauthor,\"Lee, A.\"\n\nACTOR,x,y\nFIELD2,Wit\nDEADLINE1,2001-05-04\n"
             "DeadlineStart1,2001-05-01\nWORDTARGETSTARTDATE,2001-01-01\nWORDTARGETENDDATE,never\nWORDTARGET,60000\n"
             "WORDCOUNTSTART,12x\n\"One, the first\",x,\"C:\\Books\\ONE.TXT\"\nTwo,x,two.txt\nThree,x,gone.txt\n");
  return path;
}
