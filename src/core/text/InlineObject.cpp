#include "core/text/InlineObject.h"

#include "core/infra/cSharedLang.h"
#include "core/text/RichText.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = InlineObject::Kind;

bool sameContent(const std::shared_ptr<const RichText>& a, const std::shared_ptr<const RichText>& b) {
  return a == b || (a && b && *a == *b);
}

QString withText(const QString& what, const QString& text) {
  return text.isEmpty() ? what : what + u": "_s + text;
}

QString authorOf(const InlineObject& object) {
  for (const InlineObject::Detail& detail : object.details) {
    if (detail.word == "atnauthor") {
      return detail.text.trimmed();
    }
  }
  return {};
}

}  // namespace

bool operator==(const InlineObject& a, const InlineObject& b) {
  return a.kind == b.kind && a.isNumbered == b.isNumbered && a.label == b.label && a.details == b.details &&
         a.bytes == b.bytes && a.tail == b.tail && sameContent(a.content, b.content);
}

/// Pictures of one program begin and end alike, and many are blank somewhere: stretches from all over tell them apart.
size_t hashOf(const InlineObject& object) noexcept {
  constexpr qsizetype kStretches = 32;
  constexpr qsizetype kStretch = 64;
  const QByteArrayView bytes = object.bytes.view();
  size_t hash =
      qHashMulti(0, int(object.kind), object.label, bytes.size(), object.content ? object.content->text() : QString());
  const qsizetype step = qMax(kStretch, bytes.size() / kStretches);
  for (qsizetype at = 0; at < bytes.size(); at += step) {
    hash = qHash(bytes.sliced(at, qMin(kStretch, bytes.size() - at)), hash);
  }
  return hash;
}

bool isNote(Kind kind) {
  return kind == Kind::Footnote || kind == Kind::Endnote || kind == Kind::Comment;
}

QString describe(const InlineObject& object) {
  const QString text = object.content ? object.content->plainText().trimmed() : QString();
  switch (object.kind) {
    case Kind::Picture:
      return translated(u"Picture"_s);
    case Kind::Embedded:
      return withText(translated(u"Object of another program"_s), text);
    case Kind::Footnote:
      return withText(translated(u"Footnote"_s), text);
    case Kind::Endnote:
      return withText(translated(u"Endnote"_s), text);
    case Kind::Comment: {
      const QString author = authorOf(object);
      return withText(author.isEmpty() ? translated(u"Comment"_s) : translated(u"Comment by %1"_s).arg(author), text);
    }
    case Kind::BookmarkStart:
      return withText(translated(u"Start of bookmark"_s), object.label);
    case Kind::BookmarkEnd:
      return withText(translated(u"End of bookmark"_s), object.label);
    case Kind::CommentStart:
      return translated(u"Start of the words commented on"_s);
    case Kind::CommentEnd:
      return translated(u"End of the words commented on"_s);
    case Kind::Field:
      return withText(translated(u"Field"_s), object.label);
    case Kind::Entry:
      return withText(object.label == u"xe" ? translated(u"Index entry"_s) : translated(u"Entry of the contents"_s),
                      text);
  }
  return {};
}
