// What stands in the body of an RTF text and is none of its letters: fields, notes, pictures, marks, lists.
#include "core/text/RtfReader.h"

#include <algorithm>

namespace {

/// Notes in notes in notes; no text made in earnest nests so deep.
constexpr size_t kMaxObjects = 16;

}  // namespace

bool RtfReader::takesWords() const {
  return group_.destination == Destination::Label || group_.destination == Destination::MarkText ||
         group_.destination == Destination::LevelText || group_.destination == Destination::Instruction ||
         group_.destination == Destination::Name;
}

void RtfReader::enterWords(Destination destination, const RtfToken& token, quint16 kind) {
  const bool isMark = destination == Destination::Name && kind != 0;
  if (isMark && inBody()) {
    came(Line::Begun);
  }
  const bool fits = group_.destination == Destination::Body ||
                    (destination == Destination::MarkText && group_.destination == Destination::Numbering) ||
                    (destination == Destination::LevelText && group_.destination == Destination::Lists);
  if (!fits || group_.isDeleted || !hasOwnGroup() || !wantsFormats_) {
    skipGroup();
    return;
  }
  words_.clear();
  name_ = QByteArray(token.first, token.length);
  kind_ = kind;
  group_.destination = destination;
}

void RtfReader::leave(const Group& closed) {
  switch (closed.destination) {
    case Destination::Label:
      return sink_.label(words_, closed.font >= 0 ? closed.font : tables_.defaultFont);
    case Destination::Numbering:
      return sink_.list(numbering_, markFont_);
    case Destination::MarkText:
      (isBehind_ ? numbering_.after : numbering_.before) = words_;
      return;
    case Destination::LevelText:
      return lists_.levelText(words_);
    case Destination::Instruction:
      return sink_.instruction(words_);
    case Destination::Name:
      return leaveName();
    default:
      return;
  }
}

void RtfReader::leaveName() {
  if (kind_ == 0) {
    const bool isInside = name_ != "atnid" && name_ != "atnauthor" && !objects_.empty() &&
                          objects_.back().object.kind == InlineObject::Kind::Comment;
    (isInside ? objects_.back().object.details : details_).append({name_, words_});
    return;
  }
  InlineObject mark;
  mark.kind = static_cast<InlineObject::Kind>(kind_);
  mark.label = words_;
  putObject(std::move(mark), {});
}

void RtfReader::numberingPart(RtfListPart part, const RtfToken& token) {
  if (group_.destination != Destination::Numbering) {
    return;
  }
  using Style = ListMark::Style;
  switch (part) {
    case RtfListPart::Body:
      numbering_.style = numbering_.style == Style::None ? Style::Decimal : numbering_.style;
      return;
    case RtfListPart::Level:
      numbering_.style = numbering_.style == Style::None ? Style::Decimal : numbering_.style;
      numbering_.level = std::clamp(token.number - 1, 0, ListMark::kLevels - 1);
      return;
    case RtfListPart::WithParents:
      numbering_.withParents = true;
      return;
    case RtfListPart::MarkFont:
      markFont_ = token.number;
      return;
    case RtfListPart::Before:
    case RtfListPart::After:
      isBehind_ = part == RtfListPart::After;
      return enterWords(Destination::MarkText, token);
    default:
      numbering_.style = static_cast<Style>(static_cast<int>(part) + static_cast<int>(Style::Bullet));
      return;
  }
}

void RtfReader::listPart(RtfListPart part, const RtfToken& token) {
  if (group_.destination != Destination::Lists) {
    return;
  }
  if (part == RtfListPart::LevelText) {
    enterWords(Destination::LevelText, token);
    return;
  }
  lists_.part(part, token.number);
}

/// The same word gives a list its number and names it in the paragraphs.
void RtfReader::listNumber(int number) {
  if (group_.destination == Destination::Lists) {
    lists_.name(number);
  } else {
    sink_.format(RtfProperty::ListNumber, number);
  }
}

void RtfReader::enterField() {
  if (!inBody()) {
    if (group_.destination == Destination::Instruction) {
      losses_ |= RtfLoss::NestedFields;
    }
    skipGroup();
    return;
  }
  if (hasOwnGroup() && group_.role == Role::None) {
    group_.role = Role::Field;
    fieldResults_.push_back(-1);
    sink_.openField();
  }
}

void RtfReader::enterFieldResult() {
  const bool isOfField = inBody() && hasOwnGroup() && outer_.back().role == Role::Field;
  if (isOfField && group_.role == Role::None && fieldResults_.back() < 0) {
    fieldResults_.back() = place_;
    sink_.fieldResult();
  }
}

bool RtfReader::beginsObject(Role role) {
  const bool counts = inBody();
  if (counts) {
    came(Line::Begun);
  }
  if (!counts || !wantsFormats_ || !hasOwnGroup() || group_.role != Role::None || objects_.size() >= kMaxObjects) {
    skipGroup();
    return false;
  }
  group_.role = role;
  objects_.push_back({});
  return true;
}

void RtfReader::enterNote(InlineObject::Kind kind, const RtfToken& token) {
  // A comment's author stands in front of it, the rest of what is known of it inside.
  QList<InlineObject::Detail> before;
  if (kind == InlineObject::Kind::Comment) {
    before.swap(details_);
  }
  if (!beginsObject(Role::Note)) {
    return;
  }
  InlineObject& object = objects_.back().object;
  object.kind = kind;
  object.details = std::move(before);
  object.isNumbered = kind == InlineObject::Kind::Footnote && numberPlace_ == place_ - 1;
  if (kind == InlineObject::Kind::Entry) {
    object.label = QString::fromLatin1(token.first, token.length);
  }
  line_ = Line::Closed;
  sink_.openText();
}

void RtfReader::noteWord(RtfAction action) {
  InlineObject* const note = objects_.empty() ? nullptr : &objects_.back().object;
  const bool isInNote =
      note != nullptr && (note->kind == InlineObject::Kind::Footnote || note->kind == InlineObject::Kind::Endnote);
  if (!isInNote) {
    numberPlace_ = action == RtfAction::OwnNumber && inBody() ? place_ : numberPlace_;
    return;
  }
  if (action == RtfAction::OwnNumber) {
    note->isNumbered = true;
  } else {
    note->kind = InlineObject::Kind::Endnote;
  }
}

void RtfReader::enterObject(const RtfToken& token) {
  if (!beginsObject(Role::Object)) {
    return;
  }
  group_.destination = Destination::Object;
  objects_.back().object.kind = InlineObject::Kind::Embedded;
  objects_.back().begin = token.first - 1;
}

void RtfReader::enterObjectResult() {
  if (group_.destination != Destination::Object) {
    return;
  }
  const bool isItsOwn = hasOwnGroup() && outer_.back().role == Role::Object && !objects_.back().end;
  if (!isItsOwn || group_.role != Role::None) {
    skipGroup();
    return;
  }
  group_.role = Role::Result;
  group_.destination = Destination::Body;
  objects_.back().end = opened_;
  line_ = Line::Closed;
  sink_.openText();
}

void RtfReader::endRole(const Group& closed) {
  if (closed.role == Role::Field) {
    const qint64 begin = fieldResults_.back();
    fieldResults_.pop_back();
    const bool isEmpty = begin < 0 || begin == place_;
    if (isEmpty) {
      came(Line::Begun);
    }
    sink_.closeField(isEmpty);
    return;
  }
  came(Line::Begun);
  if (closed.role == Role::Result) {
    objects_.back().behindResult = groupEnd_ != nullptr ? groupEnd_ + 1 : nullptr;
    return;
  }
  OpenObject ended = std::move(objects_.back());
  objects_.pop_back();
  if (ended.begin == nullptr) {
    putObject(std::move(ended.object), {});
    return;
  }
  if (groupEnd_ == nullptr) {
    return;  // what was cut off would take in all that is written behind it
  }
  const char* const end = ended.end != nullptr ? ended.end : groupEnd_;
  const bool hasTail = ended.behindResult != nullptr && ended.behindResult < groupEnd_;
  putObject(std::move(ended.object), QByteArrayView(ended.begin, end - ended.begin),
            hasTail ? QByteArrayView(ended.behindResult, groupEnd_ - ended.behindResult) : QByteArrayView());
}

QByteArrayView RtfReader::restOfGroup(const RtfToken& token) {
  const char* const begin = token.first - 1;
  const bool hasGroup = hasOwnGroup();
  skipGroup();
  return hasGroup && !lexer_.atEnd() ? QByteArrayView(begin, lexer_.position() - begin) : QByteArrayView();
}

void RtfReader::takePicture(const RtfToken& token) {
  const bool counts = inBody();
  const QByteArrayView bytes = restOfGroup(token);
  if (counts) {
    InlineObject picture;
    picture.kind = InlineObject::Kind::Picture;
    putObject(std::move(picture), bytes);
  }
}

void RtfReader::takeShape(const RtfToken& token) {
  const bool counts = inBody();
  const QByteArrayView bytes = restOfGroup(token);
  if (!counts || !wantsFormats_) {
    if (counts) {
      came(Line::Begun);
    }
    return;
  }
  const bool hasPicture = bytes.contains("\\pict");
  if (bytes.contains("\\shptxt") || bytes.contains("\\dptxbxtext")) {
    losses_ |= RtfLoss::TextBoxes;
    if (!hasPicture) {
      came(Line::Begun);
      return;
    }
  }
  InlineObject shape;
  shape.kind = hasPicture ? InlineObject::Kind::Picture : InlineObject::Kind::Embedded;
  putObject(std::move(shape), bytes);
}

void RtfReader::putObject(InlineObject object, QByteArrayView bytes, QByteArrayView tail) {
  const bool isVerbatim = object.kind == InlineObject::Kind::Picture || object.kind == InlineObject::Kind::Embedded;
  came(Line::Begun);
  if (wantsFormats_ && !(isVerbatim && bytes.isEmpty())) {
    sink_.object(std::move(object), bytes, tail);
  }
}
