#include "core/exchange/RtfExport.h"

#include "core/model/clsChapter.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "core/text/RtfCodePages.h"
#include "core/text/frmRTFHidden.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kLine = u"\r\n"_s;
const QString kInstructions =
    u"   Formatting instructions (delete these lines)\r\n"
    "--------------------------------------------------\r\n"
    "Replace [PB] with ^m\r\n"
    "Autoformat to set *bold* and _italic_ text\r\n"
    "--------------------------------------------------\r\n"
    "\r\n\r\n"_s;

/// What isn't of the scenes looks the same all over the book, however the text in front of it ends: in italics, hidden,
/// or in a list.
class Frame {
 public:
  Frame() = default;
  explicit Frame(const RichText& scene) : defaultTab_(scene.defaultTab()) {
    qsizetype longest = 0;
    for (qsizetype i = 0; i < scene.runCount(); ++i) {
      const RichText::Run run = scene.run(i);
      if (run.length > longest && !isSymbolFont(run.format->fontName)) {
        longest = run.length;
        takeFont(*run.format);
        paragraph_.rightToLeft = scene.paragraphFormatAt(run.start).rightToLeft;
      }
    }
  }

  /// The end of a paragraph in the format that it has, and an empty one behind it.
  RichText lineEnd(const CharFormat& format, const ParagraphFormat& paragraph) const {
    RichText::Builder builder;
    builder.endParagraph(builder.charFormat(format), builder.paragraphFormat(paragraph));
    return builder.take(builder.charFormat(character_), builder.paragraphFormat(paragraph_));
  }
  /// How a whole document begins. The distance of tabs is the document's, and the scenes are written to theirs.
  RichText document(QStringView text) const {
    RichText begun = RichText::fromPlain(text, character_, paragraph_);
    begun.setDefaultTab(defaultTab_);
    return begun;
  }

 private:
  void takeFont(const CharFormat& format) {
    character_.fontName = format.fontName;
    character_.halfPoints = format.halfPoints;
    character_.associatedFont = format.associatedFont;
    character_.associated.halfPoints = format.associated.halfPoints;
  }

  CharFormat character_;
  ParagraphFormat paragraph_;
  int defaultTab_ = 0;
};

class Document {
 public:
  explicit Document(const Frame& frame) : frame_(frame) { worker_.SetText(frame_.document(kInstructions)); }

  void append(const QString& text) { worker_.AppendText(leaveScene(text)); }
  void appendCentered(const QString& text) { worker_.AppendTextCentered(leaveScene(text)); }
  void append(const RichText& scene) {
    if (scene.isEmpty()) {
      return;
    }
    worker_.AppendText(leaveScene({}));
    worker_.AppendText(scene);
    inScene_ = true;
  }
  QByteArray rtf() const { return worker_.GetRTF(); }

 private:
  /// A scene's text ends without a line end. The one that what follows begins with becomes the frame's; where it has
  /// none, there is one all the same: two words never become one.
  QString leaveScene(const QString& text) {
    if (!std::exchange(inScene_, false)) {
      return text;
    }
    const RichText& all = worker_.Text();
    worker_.AppendText(frame_.lineEnd(all.charFormatAt(all.size()), all.paragraphFormatAt(all.size())));
    return text.startsWith(kLine) ? text.sliced(kLine.size()) : text;
  }

  frmRTFHidden worker_;
  Frame frame_;
  bool inScene_ = false;
};

/// The first text that goes in, which tells how the frame looks; it is read but once.
class FirstText {
 public:
  explicit FirstText(bool withUnused) {
    BookWalk walk([](qint32) {}, withUnused);
    walk.eachChapter([&](const auto& chapter, qint32) {
      walk.eachScene(chapter, [this](clsScene& scene, qint32) {
        if (text_.isEmpty() && !scene.TextRTF().isEmpty()) {
          text_ = readRtf(scene.TextRTF());
          scene_ = &scene;
        }
      });
    });
  }

  Frame frame() const { return text_.isEmpty() ? Frame() : Frame(text_); }
  RichText textOf(const clsScene& scene) const { return scene_ == &scene ? text_ : readRtf(scene.TextRTF()); }

 private:
  RichText text_;
  const clsScene* scene_ = nullptr;
};

}  // namespace

QByteArray ExportToRTF(const ManuscriptOptions& options, const ExportStep& step) {
  const FirstText first(options.unused);
  Document document(first.frame());
  BookWalk walk(step, options.unused);
  walk.eachChapter([&](const auto& chapter, qint32) {
    document.append(u"\r\n\r\n[PB]\r\n\r\n\r\n\r\n\r\n\r\n"_s);
    document.appendCentered(chapter->Title);
    document.append(u"\r\n\r\n\r\n"_s);
    walk.eachScene(chapter, [&](const clsScene& scene, qint32 index) {
      if (options.summaries) {
        document.append(scene.Title);
        document.append(kLine + scene.DescText + kLine + kLine);
      }
      document.append(first.textOf(scene));
      if (isParted(*chapter, index)) {
        document.appendCentered(u"\r\n* * *\r\n"_s);
      }
    });
  });
  return document.rtf();
}
