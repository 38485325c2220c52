// What stands in the body of an RTF text and is none of its letters: fields, notes, pictures, marks.
#include "core/text/RtfWriter.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = InlineObject::Kind;

/// Details that stand in front of the comment; all others stand in it.
bool standsInFront(const InlineObject::Detail& detail) {
  return detail.word == "atnid" || detail.word == "atnauthor";
}

}  // namespace

/// The formats inside end with the field's group, and those of its paragraphs too.
void RtfWriter::openField(const QString& instruction) {
  if (instruction.isEmpty()) {
    return;
  }
  part_.field = instruction;
  part_.styleBehind = part_.style;
  part_.paragraphBehind = part_.paragraphFormat;
  part_.listBehind = part_.list;
  out_.put("{\\field{\\*\\fldinst ");
  putInstruction(instruction);
  out_.put("}{\\fldrslt");
  needsBlank_ = true;
}

void RtfWriter::closeField() {
  if (part_.field.isEmpty()) {
    return;
  }
  part_.field.clear();
  out_.put("}}");
  needsBlank_ = false;
  part_.style = part_.styleBehind;
  part_.charFormat = nullptr;
  if (part_.paragraphFormat != part_.paragraphBehind || part_.list != part_.listBehind) {
    word("\\pard");
    putFormat(*part_.paragraphFormat);
  }
}

void RtfWriter::putInstruction(QStringView instruction) {
  needsBlank_ = false;
  units(instruction);
}

void RtfWriter::object(const CharFormat& format) {
  setFormat(format);
  putObject(*format.object);
}

void RtfWriter::putObject(const InlineObject& object) {
  switch (object.kind) {
    case Kind::Picture:
    case Kind::Embedded: {
      const QByteArrayView bytes = object.bytes.view();
      if (bytes.startsWith("\\nonshppict")) {
        out_.put("{}");  // else it would be taken for another form of the picture in front
      }
      out_.put(bytes.startsWith("\\shppict") || bytes.startsWith("\\do") ? "{\\*" : "{");
      out_.put(bytes);
      if (object.content) {
        out_.put("{\\result");
        putContent(object);
        out_.put("}");
      }
      out_.put(object.tail.view());
      out_.put("}");
      break;
    }
    case Kind::Footnote:
    case Kind::Endnote:
    case Kind::Comment:
      putNote(object);
      break;
    case Kind::Entry:
      out_.put("{\\");
      out_.put(object.label.toLatin1());
      putContent(object);
      out_.put("}");
      break;
    case Kind::BookmarkStart:
      putNamed("bkmkstart", object.label);
      break;
    case Kind::BookmarkEnd:
      putNamed("bkmkend", object.label);
      break;
    case Kind::CommentStart:
      putNamed("atrfstart", object.label);
      break;
    case Kind::CommentEnd:
      putNamed("atrfend", object.label);
      break;
    case Kind::Field:
      out_.put("{\\field{\\*\\fldinst ");
      putInstruction(object.label);
      out_.put("}{\\fldrslt }}");
      break;
  }
  needsBlank_ = false;
}

void RtfWriter::putNote(const InlineObject& note) {
  if (note.kind != Kind::Comment) {
    if (note.isNumbered && part_.kind == PartKind::Whole) {  // in a note it would be taken for that one's own number
      out_.put("{\\super\\chftn}");
    }
    out_.put(note.kind == Kind::Endnote ? "{\\footnote\\ftnalt" : "{\\footnote");
    putContent(note);
    out_.put("}");
    return;
  }
  for (const InlineObject::Detail& detail : note.details) {
    if (standsInFront(detail)) {
      putNamed(detail.word, detail.text);
    }
  }
  out_.put("{\\chatn}{\\*\\annotation");
  for (const InlineObject::Detail& detail : note.details) {
    if (!standsInFront(detail)) {
      putNamed(detail.word, detail.text);
    }
  }
  putContent(note);
  out_.put("}");
}

void RtfWriter::putContent(const InlineObject& object) {
  needsBlank_ = true;
  if (!object.content) {
    return;
  }
  const bool hasNumber = object.isNumbered && object.kind != Kind::Comment;
  writePart(*object.content, hasNumber ? PartKind::NumberedNote : PartKind::Note);
}

void RtfWriter::putNamed(QByteArrayView word, QStringView name) {
  out_.put("{\\*\\");
  out_.put(word);
  needsBlank_ = true;
  units(name);
  out_.put("}");
  needsBlank_ = false;
}
