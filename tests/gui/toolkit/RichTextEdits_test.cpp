#include "core/text/Rtf.h"
#include "core/text/RtfSamples.h"
#include "gui/toolkit/RichMimeData.h"
#include "gui/toolkit/RichTextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QTextDocument>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Object = std::shared_ptr<const InlineObject>;

constexpr int kTexts = 10'000;
constexpr int kStepsEach = 4;

/// The roads of a drop, which the control keeps to itself.
class OpenBox : public RichTextBox {
 public:
  using RichTextBox::createMimeDataFromSelection;
  using RichTextBox::insertFromMimeData;
};

int below(QRandomGenerator& random, qsizetype limit) {
  return random.bounded(static_cast<int>(limit));
}

/// One that no other equals: its number stands in what its kind is told apart by, and goes through a file.
Object numbered(const InlineObject& like, int number) {
  InlineObject object = like;
  const QString mark = u"no%1"_s.arg(number);
  if (!object.bytes.view().isEmpty()) {
    object.bytes = SharedBytes(object.bytes.view().toByteArray() + "{\\*\\" + mark.toLatin1() + "}");
  } else if (object.content) {
    RichText content = *object.content;
    content.append(mark);
    object.content = std::make_shared<const RichText>(content);
  } else {
    object.label += mark;
  }
  return std::make_shared<const InlineObject>(object);
}

/// Loading fonts takes longer than all else, and with hundreds of them Qt throws away some that it still draws with.
RichText withFewFonts(RichText text) {
  text.formatCharacters(0, -1, [](CharFormat& format) {
    format.halfPoints = format.halfPoints % 2 == 0 ? 0 : 24;
    format.fontName = format.fontName.isEmpty() ? QString() : u"Arial"_s;
  });
  return text;
}

struct NumberedTexts {
  QRandomGenerator random{20};
  int last = 0;

  /// Small, with at least one object.
  RichText next() {
    RichText text;
    do {
      text = withFewFonts(randomRichText(random, 1));
    } while (!text.text().contains(QChar::ObjectReplacementCharacter));
    for (qsizetype at = 0; at < text.size(); ++at) {
      CharFormat format = text.charFormatAt(at);
      if (const Object object = std::exchange(format.object, nullptr)) {
        text.replace(at, 1, RichText::fromObject(numbered(*object, ++last), format));
      }
    }
    return text;
  }
};

/// What must not be lost: letters, and objects in their places.
struct Held {
  QString text;
  std::vector<Object> objects;

  friend bool operator==(const Held& a, const Held& b) {
    const auto same = [](const Object& one, const Object& other) { return one && other && *one == *other; };
    return a.text == b.text && std::equal(a.objects.begin(), a.objects.end(), b.objects.begin(), b.objects.end(), same);
  }
};

std::ostream& operator<<(std::ostream& out, const Held& held) {
  out << '"' << held.text.toStdString() << '"';
  for (const Object& object : held.objects) {
    out << "\n  " << (object ? describe(*object).toStdString() : "none");
  }
  return out;
}

Held held(const RichText& text) {
  Held result{text.text(), {}};
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text.text()[at] == QChar::ObjectReplacementCharacter) {
      result.objects.push_back(text.charFormatAt(at).object);
    }
  }
  return result;
}

/// A box that is edited, and what must stand in it.
struct Edited {
  OpenBox box;
  RichText model;

  void load(const RichText& text) {
    box.setRichText(text);
    model = text;
  }
  void selectAny(QRandomGenerator& random) {
    const int from = below(random, box.Text().size() + 1);
    box.select(from, random.bounded(2) == 0 ? random.bounded(4) : below(random, box.Text().size() + 1));
  }
  void caretAnywhere(QRandomGenerator& random) { box.setSelStart(below(random, box.Text().size() + 1)); }
  /// The same happens to the model.
  template <class With>
  void replaced(const With& with) {
    model.replace(box.SelStart(), box.SelLength(), with);
  }
};

void typeUnit(RichTextBox& box, const QString& unit) {
  QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, unit, Qt::NoModifier);
}

void typeWord(Edited& edited, QRandomGenerator& random) {
  static const QStringList words{u"a"_s, u"ab "_s, u"ж"_s, u"שלום"_s, u"1)"_s, u"\t"_s};
  const QString& word = words[below(random, words.size())];
  edited.replaced(QStringView(word));
  for (const QChar unit : word) {
    typeUnit(edited.box, QString(unit));
  }
}

/// Return and Backspace first end a list; what Backspace and Delete take is theirs to know, one character.
void pressKey(Edited& edited, QRandomGenerator& random) {
  struct Key {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    QStringView inserts;
  };
  static constexpr auto kShift = Qt::KeyboardModifiers(Qt::ShiftModifier);
  static const Key keys[] = {{Qt::Key_Return, {}, u"\n"},
                             {Qt::Key_Return, kShift, u"\u2028"},
                             {Qt::Key_Tab, {}, u"\t"},
                             {Qt::Key_Backspace, {}, {}},
                             {Qt::Key_Delete, {}, {}}};
  const Key& key = keys[random.bounded(5)];
  const bool takes = key.inserts.isEmpty();
  const QString before = edited.box.Text();
  const qsizetype start = edited.box.SelStart();
  const bool selects = edited.box.SelLength() > 0;
  RichText after = edited.model;
  after.replace(start, edited.box.SelLength(), key.inserts);
  QTest::keyClick(&edited.box, key.key, key.modifiers);
  if (selects || (!takes && edited.box.Text() != before)) {
    edited.model = after;
  } else if (takes) {
    const qsizetype taken = before.size() - edited.box.Text().size();
    ASSERT_TRUE(taken >= 0 && taken <= 2) << taken;
    edited.model.remove(key.key == Qt::Key_Delete ? start : start - taken, taken);
  } else {
    ASSERT_EQ(key.key, Qt::Key_Return);
    ASSERT_NE(edited.model.paragraphFormatAt(start).list.style, ListMark::Style::None) << "an item ends instead";
  }
}

void cutAndPaste(Edited& from, Edited& into, QRandomGenerator& random) {
  const RichText piece = from.box.SelRichText();
  from.replaced(QStringView());
  from.box.cut();
  if (piece.isEmpty()) {
    return;
  }
  for (int times = 1 + random.bounded(2); times > 0; --times) {
    into.selectAny(random);
    into.replaced(piece);
    into.box.paste();
  }
}

/// As a control moves a selection that is dropped in it: one edit, in which the old place goes first.
void dragMove(Edited& edited, QRandomGenerator& random) {
  OpenBox& box = edited.box;
  const std::unique_ptr<QMimeData> data(box.createMimeDataFromSelection());
  const RichText piece = box.SelRichText();
  const qsizetype start = box.SelStart();
  const qsizetype end = start + box.SelLength();
  QTextCursor from = box.textCursor();
  edited.replaced(QStringView());
  edited.caretAnywhere(random);
  const qsizetype target = box.SelStart();
  edited.model.insert(target > start ? qMax(start, target - (end - start)) : target, piece);
  QTextCursor to = box.textCursor();
  to.beginEditBlock();
  from.removeSelectedText();
  box.setTextCursor(to);
  box.insertFromMimeData(data.get());
  to.endEditBlock();
}

void format(RichTextBox& box, QRandomGenerator& random) {
  switch (random.bounded(6)) {
    case 0:
      return box.setSelBold(!box.SelBold());
    case 1:
      return box.setSelFontName(u"Arial"_s);
    case 2:
      return box.setSelFontSize(12);
    case 3:
      return box.setSelUnderline(!box.SelUnderline());
    case 4:
      return box.setSelColor(random.bounded(2) == 0 ? RichTextBox::Colour() : 0x0000C0);
    default:
      return box.setSelIndent(random.bounded(1000));
  }
}

void exchangeObject(Edited& edited, NumberedTexts& texts) {
  const qsizetype at = edited.box.Text().indexOf(QChar::ObjectReplacementCharacter);
  const Object old = edited.box.objectAt(at);
  if (!old) {
    return;
  }
  const Object fresh = numbered(*old, ++texts.last);
  edited.model.replace(at, 1, RichText::fromObject(fresh));
  edited.box.replaceObject(at, fresh);
  EXPECT_EQ(edited.box.objectAt(at), fresh);
}

/// Two boxes, as two scenes are open beside each other.
struct Desk {
  Edited boxes[2];
  NumberedTexts texts;

  void step() {
    QRandomGenerator& random = texts.random;
    const int which = random.bounded(2);
    Edited& edited = boxes[which];
    Edited& other = boxes[1 - which];
    random.bounded(2) == 0 ? edited.selectAny(random) : edited.caretAnywhere(random);
    switch (random.bounded(9)) {
      case 0:
      case 1:
        return typeWord(edited, random);
      case 2:
      case 3:
        return pressKey(edited, random);
      case 4:
        return cutAndPaste(edited, edited, random);
      case 5:
        return cutAndPaste(edited, other, random);
      case 6:
        return dragMove(edited, random);
      case 7:
        return exchangeObject(edited, texts);
      default:
        return setText(edited, random);
    }
  }

  static void setText(Edited& edited, QRandomGenerator& random) {
    if (random.bounded(2) == 0) {
      return format(edited.box, random);
    }
    edited.replaced(QStringView(u"x\r\ny"));
    edited.box.setSelText(u"x\r\ny"_s);
  }
};

/// The model takes on the formats that the box has given what was typed.
void compare(Edited& edited) {
  const RichText shown = edited.box.richText();
  ASSERT_EQ(held(shown), held(edited.model));
  ASSERT_EQ(edited.box.Text(), shown.text());
  edited.model = shown;
}

}  // namespace

TEST(RichTextEdits, LoseNoObjectAndDoubleNone) {
  Desk desk;
  for (int i = 0; i < kTexts; ++i) {
    Edited& loaded = desk.boxes[i % 2];
    loaded.load(desk.texts.next());
    const RichText snapshot = loaded.model;
    for (int step = 0; step < kStepsEach; ++step) {
      ASSERT_NO_FATAL_FAILURE(desk.step()) << i;
      for (Edited& edited : desk.boxes) {
        ASSERT_NO_FATAL_FAILURE(compare(edited)) << i;
      }
    }
    ASSERT_EQ(readRtf(writeRtf(loaded.model)), loaded.model) << i;
    if (i % 4 == 0) {
      loaded.load(snapshot);  // the window takes back
      ASSERT_EQ(loaded.box.richText(), snapshot);
    }
  }
}
TEST(RichTextEdits, PuttingARichTextInIsWhatTheValueDoes) {
  QRandomGenerator random(7);
  RichTextBox box;
  for (int i = 0; i < 1000; ++i) {
    RichText text = withFewFonts(randomRichText(random, i % 2));
    const RichText piece = withFewFonts(randomRichText(random, 1));
    box.setRichText(text);
    box.select(below(random, text.size() + 1), random.bounded(3) == 0 ? 0 : below(random, text.size() + 1));
    const qsizetype start = box.SelStart();
    text.replace(start, box.SelLength(), piece);
    box.setSelRichText(piece);
    ASSERT_EQ(box.richText(), text) << i;
    ASSERT_EQ(box.SelStart(), start + piece.size());
  }
}
