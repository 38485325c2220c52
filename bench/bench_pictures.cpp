// A scene full of pictures, opened in a text control of the editor's size and painted off the screen, beside decoding
// the pictures that come into view and nothing else. The counter "ratio" is how many times that it takes; the goal is
// 2. "heap" and "resident" are what the opened scene takes beyond its file's bytes, as a part of them: the pictures'
// bytes are held once.
#include "Paired.h"
#include "core/text/Rtf.h"
#include "gui/toolkit/InlineObjectView.h"
#include "gui/toolkit/PictureImage.h"
#include "gui/toolkit/RichTextBox.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QRandomGenerator>

#include <algorithm>
#include <malloc.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 200;
constexpr QSize kEditor(900, 700);
constexpr QSize kPixels(1024, 768);

enum Form { Hex, Binary };

/// A photograph of nothing: coarse noise, about 100 KB of it.
QByteArray photograph(QRandomGenerator& random) {
  QImage noise(kPixels / 8, QImage::Format_RGB32);
  for (int y = 0; y < noise.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(noise.scanLine(y));
    std::generate(line, line + noise.width(), [&] { return 0xFF000000 | random.generate(); });
  }
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  noise.scaled(kPixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).save(&buffer, "JPEG", 65);
  return file;
}

/// As word processors write it: digits in lines, or the bytes themselves.
QByteArray written(const QByteArray& file, Form form) {
  if (form == Binary) {
    return "\\bin" + QByteArray::number(file.size()) + " " + file;
  }
  constexpr qsizetype line = 128;
  const QByteArray digits = file.toHex();
  QByteArray out;
  for (qsizetype at = 0; at < digits.size(); at += line) {
    out += "\r\n" + digits.mid(at, line);
  }
  return out;
}

QByteArray sceneWithPictures(Form form) {
  QRandomGenerator random(5);
  QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\pard\\f0\\fs24 ";
  for (int i = 0; i < kPictures; ++i) {
    rtf += "The letter of that evening lay on the table before her.\\par\r\n{\\*\\shppict{\\pict\\jpegblip\\picw" +
           QByteArray::number(kPixels.width()) + "\\pich" + QByteArray::number(kPixels.height()) + "\\picwgoal" +
           QByteArray::number(kPixels.width() * 15) + "\\pichgoal" + QByteArray::number(kPixels.height() * 15) +
           written(photograph(random), form) + "}}\\par\r\n";
  }
  return rtf + "}";
}

std::vector<QByteArrayView> picturesOf(const RichText& text) {
  std::vector<QByteArrayView> pictures;
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    if (text.run(i).format->object) {
      pictures.push_back(text.run(i).format->object->bytes.view());
    }
  }
  return pictures;
}

bool areHeldOnce(const std::vector<QByteArrayView>& pictures, const QByteArray& rtf) {
  return pictures.size() == kPictures && std::all_of(pictures.begin(), pictures.end(), [&](QByteArrayView bytes) {
           return bytes.begin() >= rtf.cbegin() && bytes.end() <= rtf.cend();
         });
}

double heapInUse() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

double residentBytes() {
  QFile statm(u"/proc/self/statm"_s);
  const bool isOpen = statm.open(QIODevice::ReadOnly);
  return isOpen ? statm.readAll().split(' ').value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) : 0;
}

void show(RichTextBox& box, const QByteArray& rtf) {
  box.setTextRTF(rtf);
  QCoreApplication::processEvents();
}

void open(benchmark::State& state, Form form) {
  const QByteArray rtf = sceneWithPictures(form);
  RichTextBox box;
  box.resize(kEditor);
  box.show();
  show(box, "{\\rtf1 Something to lay out.}");
  malloc_trim(0);
  const double heap = heapInUse();
  const double resident = residentBytes();
  show(box, rtf);
  malloc_trim(0);
  const double size = static_cast<double>(rtf.size());
  state.counters["heap"] = (heapInUse() - heap) / size;
  state.counters["resident"] = (residentBytes() - resident) / size;
  const std::vector<QByteArrayView> pictures = picturesOf(box.richText());
  const auto inView = static_cast<size_t>(box.findChild<InlineObjectView*>()->decoded());
  if (!areHeldOnce(pictures, rtf) || inView == 0 || inView > pictures.size()) {
    state.SkipWithError("The pictures are copied, or not shown.");
    return;
  }
  const auto decode = [&] {
    for (size_t i = 0; i < inView; ++i) {
      benchmark::DoNotOptimize(pictureImage(*findRtfPicture(pictures[i])));
    }
  };
  comparePaired(
      state, [] {}, decode, [&] { show(box, {}); }, [&] { show(box, rtf); });
  state.counters["in_view"] = static_cast<double>(inView);
  state.counters["MB"] = size / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  for (const auto& [name, form] : {std::pair("OpenPictures/hex", Hex), std::pair("OpenPictures/bin", Binary)}) {
    benchmark::RegisterBenchmark(name, [form = form](benchmark::State& state) { open(state, form); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
