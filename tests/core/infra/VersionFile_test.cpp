#include "core/infra/VersionFile.h"

#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedEncrypt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(VersionFile, OneVersionIsNewerThanAnotherByItsFirstFieldThatDiffers) {
  const QStringList rising = {u"3.9.99z"_s, u"4.0.9"_s,   u"4.0.90"_s, u"4.0.90a"_s,
                              u"4.0.90b"_s, u"4.0.100"_s, u"4.1.0"_s,  u"5.0.0"_s};
  for (qsizetype older = 0; older < rising.size(); ++older) {
    for (qsizetype newer = 0; newer < rising.size(); ++newer) {
      EXPECT_EQ(ProgramVersion::read(rising[newer])->isNewerThan(*ProgramVersion::read(rising[older])), newer > older)
          << rising[newer].toStdString() << " and " << rising[older].toStdString();
    }
  }
  EXPECT_FALSE(ProgramVersion::read(u"4.0.90A")->isNewerThan(*ProgramVersion::read(u"4.0.90a")));
}

TEST(VersionFile, ItsLinesAreReadOrTheVersionIsNot) {
  struct Case {
    const char16_t* text;
    const char16_t* joined;
    const char16_t* download;
  };
  for (const Case& c : std::initializer_list<Case>{{u"4.0.90\r\nquillane@@@.exe\r\n", u"4090", u"quillane4090.exe"},
                                                   {u" 04.00.090a \n@@@/@@@", u"4090a", u"4090a/4090a"},
                                                   {u"4.0.90", u"4090", u""},
                                                   {u"4.0\nx@@@", nullptr, u"x@@@"},
                                                   {u"4.0.90ab\nx", nullptr, u"x"},
                                                   {u"-4.0.90\nx", nullptr, u"x"},
                                                   {u"4.0.99999999999\nx", nullptr, u"x"},
                                                   {u"", nullptr, u""}}) {
    const VersionFile file = VersionFile::read(QString::fromUtf16(c.text));
    EXPECT_EQ(file.numbers.has_value(), c.joined != nullptr) << file.version.toStdString();
    EXPECT_EQ(file.download, QString::fromUtf16(c.download));
    if (file.numbers && c.joined != nullptr) {
      EXPECT_EQ(file.numbers->joined(), QString::fromUtf16(c.joined));
    }
  }
}

TEST(VersionFile, ALineThatIsTooLongForAnAddressIsNone) {
  for (const auto& [length, is] : {std::pair{400, true}, {600, false}, {900'000, false}}) {
    EXPECT_EQ(VersionFile::read(u"4.0.90\n"_s + QString(length, u'x')).download.isEmpty(), !is) << length;
  }
}

TEST(VersionFile, AnInstallerComesSafelyFromTheHostOfTheVersionFileOnly) {
  const QString from = u"https://maker.example/versions/current.txt"_s;
  EXPECT_EQ(UpdateAddress::installer(from, u"get.exe"_s), u"https://maker.example/versions/get.exe"_s);
  EXPECT_EQ(UpdateAddress::installer(from, u"/get.exe"_s), u"https://maker.example/get.exe"_s);
  EXPECT_EQ(UpdateAddress::installer(from, u"HTTPS://MAKER.example:443/g"_s), u"https://maker.example:443/g"_s);
  for (const QString& other :
       {u"http://maker.example/g"_s, u"https://other.example/g"_s, u"//other.example/g"_s, u"ftp://maker.example/g"_s,
        u"file:///etc/passwd"_s, u"https://maker.example:4443/g"_s, u"https://maker.example@other.example/g"_s,
        u"https://maker.example.other.example/g"_s, u"https:///g"_s}) {
    EXPECT_EQ(UpdateAddress::installer(from, other), QString()) << other.toStdString();
  }
  EXPECT_EQ(UpdateAddress::installer(u"http://maker.example/v.txt"_s, u"https://maker.example/g"_s), QString());
}

TEST(VersionFile, TheSettingSaysWhereToLook) {
  Settings().sSet(u"UpdateAddress"_s, u" https://maker.example/ "_s);
  EXPECT_EQ(UpdateAddress::versionFile(), u"https://maker.example/versions/Quillane4_current.txt"_s);
  EXPECT_EQ(UpdateAddress::detailsFile(), u"https://maker.example/versions/Quillane4_details.txt"_s);
  Settings().DeleteAllSettings();
}

TEST(Encrypt, BringsBackWhatItSaysItDoes) {
  for (char16_t code = 1; code <= 300; ++code) {
    const QString text(QChar{code});
    // Alone a character above 155 comes back in memory, but is no single byte in the settings.
    const bool comesBack = code > 28 && code <= 155;
    EXPECT_EQ(cSharedEncrypt::bringsBack(text), comesBack) << int{code};
    if (comesBack) {
      EXPECT_EQ(cSharedDecrypt::Decrypt(cSharedEncrypt::Encrypt(text)), text) << int{code};
    }
  }
  EXPECT_EQ(cSharedEncrypt::Encrypt(u"Ab"_s), QString::fromUtf16(u"\u00A5\u00C6"));
  EXPECT_EQ(cSharedDecrypt::Decrypt(u"plain"_s), u"plain"_s);
  EXPECT_EQ(cSharedDecrypt::Decrypt(QString::fromUtf16(u"\u00A5 b")), u"A b"_s);
}

}  // namespace
