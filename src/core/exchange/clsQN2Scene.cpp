#include "core/exchange/clsQN2Scene.h"

#include "core/infra/CodePage.h"
#include "core/infra/Numbers.h"
#include "core/text/Rtf.h"

#include <QStringView>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

qint16 numberOf(const QString& text) {
  using Limits = std::numeric_limits<qint16>;
  return static_cast<qint16>(std::clamp<double>(Numbers::Val(text), Limits::min(), Limits::max()));
}

QString onOneLine(const QString& text) {
  return text.contains(u'\n') || text.contains(u'\r') ? text.simplified() : text.trimmed();
}

/// The tags of a scene are sought one behind the other.
class TagCutter {
 public:
  explicit TagCutter(QString& text) : text_(text) {}

  /// The value of "[NAME:value]" from the place of the tag that was cut last; null where there is none.
  QString take(const QString& name) {
    const QString open = u'[' + name + u':';
    const qsizetype at = text_.indexOf(open, from_, Qt::CaseInsensitive);
    const qsizetype end = at < 0 ? -1 : text_.indexOf(u']', at);
    if (end < 0) {
      return {};
    }
    const qsizetype value = at + open.size();
    QString taken = text_.sliced(value, end - value);
    text_.remove(at, end + 1 - at);
    from_ = at;
    return taken;
  }
  QString takeFromStart(const QString& name) {
    from_ = 0;
    return take(name);
  }

 private:
  QString& text_;
  qsizetype from_ = 0;
};

QString withoutOuterLineEnds(const QString& text) {
  const auto isLineEnd = [](QChar unit) { return unit == u'\r' || unit == u'\n'; };
  const auto first = std::find_if_not(text.begin(), text.end(), isLineEnd);
  const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isLineEnd).base();
  return QString(first, last - first);
}

}  // namespace

clsQN2Scene::clsQN2Scene(QString span) {
  TagCutter tags(span);
  Column = numberOf(tags.take(u"COL"_s));
  Actor = tags.take(u"ACTOR"_s).trimmed().toUpper();
  Title = onOneLine(tags.take(u"DESC"_s));
  DescText = tags.take(u"LONGDESC"_s);
  Goal = tags.take(u"GOAL"_s);
  Conflict = tags.take(u"CONFLICT"_s);
  Outcome = tags.take(u"RESULT"_s);
  Status = numberOf(tags.take(u"STATUS"_s));
  for (size_t i = 0; i < Field.size(); ++i) {
    Field[i] = numberOf(tags.takeFromStart(u'F' + QString::number(i + 1)));
  }
  Day = numberOf(tags.takeFromStart(u"DAY"_s));
  Hour = numberOf(tags.takeFromStart(u"HOUR"_s));
  Minute = numberOf(tags.takeFromStart(u"MIN"_s));
  LastsDays = numberOf(tags.takeFromStart(u"LDAY"_s));
  LastsHours = numberOf(tags.takeFromStart(u"LHOUR"_s));
  LastsMinutes = numberOf(tags.takeFromStart(u"LMIN"_s));
  Text = withoutOuterLineEnds(span);
}

clsQN2Scene clsQN2Scene::ofWholeText(const QString& text) {
  clsQN2Scene scene;
  scene.Actor = u"NONE"_s;
  scene.Title = u"N/A"_s;
  scene.DescText = u"N/A"_s;
  scene.Text = text.trimmed();
  return scene;
}

QByteArray clsQN2Scene::TextRTF() const {
  // RTF has no letters beyond the code page: a text with such is a plain one, and keeps them.
  const bool mayBeRtf = Text.startsWith(u'{') && CodePage::canEncode(Text);
  if (const QByteArray bytes = mayBeRtf ? CodePage::toBytes(Text) : QByteArray(); isRtf(bytes)) {
    return bytes;
  }
  return writeRtf(RichText::fromPlain(Text));
}
