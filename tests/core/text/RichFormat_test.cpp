#include "core/text/RichFormat.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(RichFormat, ALinkTellsWhereItLeads) {
  struct Case {
    QString field;
    QString address;
  };
  for (const Case& c : {
           Case{u"HYPERLINK \"https://example.org/a b\""_s, u"https://example.org/a b"_s},
           Case{u" hyperlink  https://example.org/ "_s, u"https://example.org/"_s},
           Case{u"HYPERLINK \\l \"chapter 1\""_s, u"#chapter 1"_s},
           Case{u"HYPERLINK \"https://example.org/\" \\l \"part\""_s, u"https://example.org/#part"_s},
           Case{u"HYPERLINK \\o \"A tip\" \\t \"_blank\" \\n \"https://example.org/\""_s, u"https://example.org/"_s},
           Case{u"HYPERLINK \\l \"x\" \\o \"say \\\"no\\\" now\""_s, u"#x"_s},
           Case{u"HYPERLINK \"C:\\\\Books\\\\one.doc\""_s, u"C:\\Books\\one.doc"_s},
           Case{u"HYPERLINK \"https://example.org"_s, u"https://example.org"_s},
           Case{u"HYPERLINK"_s, QString()},
           Case{u"HYPERLINKS \"https://example.org\""_s, QString()},
           Case{u"REF chapter_1"_s, QString()},
           Case{QString(), QString()},
       }) {
    EXPECT_EQ(linkAddress(c.field), c.address) << c.field;
  }
}
