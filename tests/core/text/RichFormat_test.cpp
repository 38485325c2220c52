#include "core/text/RichFormat.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(RichFormat, ALinkTellsWhereItLeads) {
  for (const auto& [field, address] : {
           std::pair{u"HYPERLINK \"https://example.org/a b\""_s, u"https://example.org/a b"_s},
           {u" hyperlink  https://example.org/ "_s, u"https://example.org/"_s},
           {u"HYPERLINK \\l \"chapter 1\""_s, u"#chapter 1"_s},
           {u"HYPERLINK \"https://example.org/\" \\l \"part\""_s, u"https://example.org/#part"_s},
           {u"HYPERLINK \\o \"A tip\" \\t \"_blank\" \\n \"https://example.org/\""_s, u"https://example.org/"_s},
           {u"HYPERLINK \\l \"x\" \\o \"say \\\"no\\\" now\""_s, u"#x"_s},
           {u"HYPERLINK \"C:\\\\Books\\\\one.doc\""_s, u"C:\\Books\\one.doc"_s},
           {u"HYPERLINK \"https://example.org"_s, u"https://example.org"_s},
           {u"HYPERLINK"_s, QString()},
           {u"HYPERLINKS \"https://example.org\""_s, QString()},
           {u"REF chapter_1"_s, QString()},
           {QString(), QString()},
       }) {
    EXPECT_EQ(linkAddress(field), address) << field;
  }
}
