// Word counting, HTML tools, word usage, the hash table and spelling, each beside the plain work that is its yardstick
// in the same run. Takes the novel where the shared test material is present, else text of our own making.
#include "Paired.h"
#include "Yardsticks.h"
#include "core/infra/cSharedLogging.h"
#include "core/infra/clsHashTable.h"
#include "core/model/clsScene.h"
#include "core/spell/cSharedSpell.h"
#include "core/text/Rtf.h"
#include "core/text/cSharedHTML.h"
#include "core/text/modWordcount.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString& novel() {
  static const QString text = [] {
    const QString shared = sharedNovel();
    return shared.isEmpty()
               ? u"“Well,” said he—it was July—“don’t wait for the well-known prince.” Zoë, of course, waited.\n"_s
                     .repeated(35000)
               : shared;
  }();
  return text;
}

/// Prose as a page of the web: a paragraph a line, entities for what is no ASCII, some emphasis.
const QString& page() {
  static const QString html = [] {
    QString text = u"<html><head><title>x</title></head><body>\r\n"_s;
    for (const QString& line : novel().split(u'\n')) {
      text += u"<p>"_s + line + u"</p>\r\n"_s;
    }
    text.replace(u"“"_s, u"&ldquo;"_s).replace(u"”"_s, u"&rdquo;"_s).replace(u"—"_s, u"&mdash;"_s);
    text.replace(u"’"_s, u"&#8217;"_s).replace(u" prince "_s, u" <i>prince</i> "_s);
    return text + u"</body></html>"_s;
  }();
  return html;
}

void nothing() {}

void calcWordCount(benchmark::State& state) {
  const QString text = novel();
  const QByteArray bytes = text.toLatin1();
  comparePaired(
      state, nothing, [&] { benchmark::DoNotOptimize(byteWalk(bytes)); }, nothing,
      [&] { benchmark::DoNotOptimize(Html().CalcWordCount(text)); });
}

/// A copy made as the byte walk makes its own, each unit looked at by itself.
template <class Output>
Output walkingCopy(const Output& output) {
  using Unit = std::conditional_t<std::is_same_v<Output, QString>, char16_t, uchar>;
  static const auto table = [] {
    std::array<Unit, 256> units{};
    std::iota(units.begin(), units.end(), Unit{0});
    return units;
  }();
  Output copy(output.size(), Qt::Uninitialized);
  const auto* from = reinterpret_cast<const Unit*>(output.constData());
  std::transform(from, from + output.size(), reinterpret_cast<Unit*>(copy.data()),
                 [](Unit unit) { return static_cast<Unit>(table[unit & 0xFF] | (unit & ~0xFF)); });
  return copy;
}

/// The work beside a walking copy of what it gives; "memcpy" is the same beside the fastest copy that there is.
template <class Work>
void besideCopy(benchmark::State& state, Work work) {
  const auto output = work();
  using Output = std::decay_t<decltype(output)>;
  double copied = 0;
  double worked = 0;
  comparePaired(
      state, nothing, [&] { benchmark::DoNotOptimize(walkingCopy(output)); },
      [&] { copied += secondsOf([&] { benchmark::DoNotOptimize(Output(output.constData(), output.size())); }); },
      [&] { worked += secondsOf([&] { benchmark::DoNotOptimize(work()); }); });
  state.counters["MB"] = static_cast<double>(output.size() * qsizetype{sizeof(*output.constData())}) / 1e6;
  state.counters["memcpy"] = worked / copied;
}

void htmlEncode(benchmark::State& state) {
  besideCopy(state, [] { return Html().HtmlEncode(novel()); });
}
void htmlDecode(benchmark::State& state) {
  const QByteArray encoded = Html().HtmlEncode(novel());
  besideCopy(state, [&] { return Html().HtmlDecode(encoded); });
}
void base64Encode(benchmark::State& state) {
  const QByteArray bytes = novel().toUtf8();
  besideCopy(state, [&] { return Html().EncodeMime64String(bytes); });
}
void base64Decode(benchmark::State& state) {
  const QByteArray encoded = novel().toUtf8().toBase64();
  besideCopy(state, [&] { return Html().DecodeMime64(encoded); });
}
void stripHtml(benchmark::State& state) {
  const QString& html = page();
  besideCopy(state, [&] { return Html().StripHtml(html); });
}
void htmlToPlainText(benchmark::State& state) {
  const QString& html = page();
  besideCopy(state, [&] { return Html().HtmlToPlainText(html); });
}
void removeExtraSpaces(benchmark::State& state) {
  const QString text = QString(novel()).replace(u". "_s, u".  "_s);
  besideCopy(state, [&] { return Html().RemoveExtraSpaces(text); });
}

void breakAndHash(benchmark::State& state) {
  const QString text = novel();
  const QStringList words = text.simplified().split(u' ');
  comparePaired(
      state, nothing,
      [&] {
        benchmark::DoNotOptimize(Html().CalcWordCount(text));
        std::unordered_map<QString, qint32> counts;
        for (const QString& word : words) {
          ++counts[word];
        }
        benchmark::DoNotOptimize(counts.size());
      },
      nothing,
      [&] {
        clsHashTable table;
        BreakAndHash(table, text);
        benchmark::DoNotOptimize(table.HighWater());
      });
}

constexpr qint32 kRecords = 100'000;

std::vector<qint32> shuffledIDs(unsigned seed = 1) {
  std::vector<qint32> ids(kRecords);
  std::iota(ids.begin(), ids.end(), 1);
  std::shuffle(ids.begin(), ids.end(), std::mt19937(seed));
  return ids;
}

void lookUpByID(benchmark::State& state) {
  const std::vector<qint32> ids = shuffledIDs();
  clsHashTable table;
  std::unordered_map<qint32, HashRecord> map;
  for (const qint32 id : ids) {
    table.LockRec(id);
    map[id].Locked = true;
  }
  const std::vector<qint32> asked = shuffledIDs(3);
  qint32 found = 0;
  comparePaired(
      state, nothing,
      [&] {
        for (const qint32 id : asked) {
          const auto record = map.find(id);
          found += record != map.end() && record->second.Locked ? 1 : 0;
        }
      },
      nothing,
      [&] {
        for (const qint32 id : asked) {
          found += table.IsLocked(id) ? 1 : 0;
        }
      });
  benchmark::DoNotOptimize(found);
}

void countByText(benchmark::State& state) {
  clsHashTable table;
  std::unordered_map<QString, HashRecord> map;
  std::vector<QString> words;
  for (const qint32 id : shuffledIDs()) {
    words.push_back(u"Word"_s + QString::number(id));
    table.AddToValue(words.back());
    map[words.back()].Text = words.back();
  }
  std::shuffle(words.begin(), words.end(), std::mt19937(2));
  comparePaired(
      state, nothing,
      [&] {
        for (const QString& word : words) {
          ++map[word].Value;
        }
      },
      nothing,
      [&] {
        for (const QString& word : words) {
          table.AddToValue(word);
        }
      });
}

void insertByText(benchmark::State& state) {
  std::vector<QString> words;
  for (const qint32 id : shuffledIDs()) {
    words.push_back(u"Word"_s + QString::number(id));
  }
  std::unordered_map<QString, HashRecord> map;
  clsHashTable table;
  comparePaired(
      state, [&] { map = {}; },
      [&] {
        for (const QString& word : words) {
          HashRecord& record = map[word];
          record.Text = word;
          ++record.Value;
        }
      },
      [&] { table = {}; },
      [&] {
        for (const QString& word : words) {
          table.AddToValue(word);
        }
      });
}

/// The RTF of every scene of the novel, as a rich-text control writes it.
std::vector<QByteArray> scenes() {
  constexpr size_t kScenes = 913;
  std::vector<QByteArray> rtf;
  QString scene;
  qsizetype taken = 0;
  for (const QString& paragraph : novel().split(u'\n')) {
    scene += paragraph + u"\r\n"_s;
    taken += paragraph.size() + 1;
    if (static_cast<size_t>(taken) * kScenes >= static_cast<size_t>(novel().size()) * (rtf.size() + 1)) {
      rtf.push_back(writeRtf(RichText::fromPlain(scene)));
      scene.clear();
    }
  }
  return rtf;
}

void forceWordcount(benchmark::State& state) {
  const std::vector<QByteArray> texts = scenes();
  std::vector<QString> plain(texts.size());
  std::vector<std::unique_ptr<clsScene>> made;
  comparePaired(
      state, nothing,
      [&] {
        for (size_t i = 0; i < texts.size(); ++i) {
          plain[i] = rtfToPlainText(texts[i]);
        }
        for (const QString& text : plain) {
          benchmark::DoNotOptimize(Html().CalcWordCount(text));
        }
      },
      [&] {
        plain.assign(texts.size(), {});
        made.clear();
        for (const QByteArray& rtf : texts) {
          made.push_back(std::make_unique<clsScene>());
          made.back()->setTextRTF(rtf);
        }
      },
      [&] {
        for (const auto& scene : made) {
          scene->ForceWordcount();
        }
      });
  state.counters["scenes"] = static_cast<double>(texts.size());
}

/// The lists' words, read as plainly as can be.
std::unordered_set<std::string> plainLists() {
  std::unordered_set<std::string> words;
  for (size_t list = 0; list < WordLists::kCount; ++list) {
    std::ifstream file(WordLists::pathOf(list).toStdString());
    for (std::string word; std::getline(file, word);) {
      words.insert(word);
    }
  }
  return words;
}

/// All lists that stand beside the program, beside reading them into a set.
void loadLists(benchmark::State& state) {
  comparePaired(
      state, nothing, [] { benchmark::DoNotOptimize(plainLists()); }, nothing,
      [] {
        cSharedSpell spell;
        spell.InitDict();
        benchmark::DoNotOptimize(spell.Available());
      });
  state.counters["words"] = static_cast<double>(plainLists().size());
}

/// So many words of the novel with forty names, beside looking each word up in the set.
void checkSpelling(benchmark::State& state, qsizetype words) {
  const QStringList split = novel().simplified().split(u' ').first(words);
  const QString text = split.join(u' ');
  QStringList names;
  for (const QString& word : split) {
    if (names.size() < 40 && word.size() > 3 && word.front().isUpper() && !names.contains(word)) {
      names.append(word);
    }
  }
  const std::unordered_set<std::string> set = plainLists();
  cSharedSpell spell;
  spell.InitDict();
  size_t marks = 0;
  comparePaired(
      state, nothing,
      [&] {
        size_t unknown = 0;
        for (const QString& word : text.split(u' ')) {
          unknown += set.contains(word.toLower().toStdString()) ? 0 : 1;
        }
        benchmark::DoNotOptimize(unknown);
      },
      nothing, [&] { marks = laidOver(spell.Misspellings(text), findNames(text, names)).size(); });
  state.counters["marks"] = static_cast<double>(marks);
}
void checkScene(benchmark::State& state) {
  constexpr qsizetype kWords = 5000;
  checkSpelling(state, kWords);
}
void checkLongScene(benchmark::State& state) {
  constexpr qsizetype kWords = 50'000;
  checkSpelling(state, kWords);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  Logging().NOLOGGING = true;
  const std::pair<const char*, void (*)(benchmark::State&)> all[] = {
      {"CalcWordCount", calcWordCount},     {"HtmlEncode", htmlEncode},
      {"HtmlDecode", htmlDecode},           {"EncodeMime64", base64Encode},
      {"DecodeMime64", base64Decode},       {"StripHtml", stripHtml},
      {"HtmlToPlainText", htmlToPlainText}, {"RemoveExtraSpaces", removeExtraSpaces},
      {"BreakAndHash", breakAndHash},       {"HashLookUpByID", lookUpByID},
      {"HashCountByText", countByText},     {"HashInsertByText", insertByText},
      {"ForceWordcount", forceWordcount},   {"LoadLists", loadLists},
      {"CheckScene", checkScene},           {"CheckLongScene", checkLongScene}};
  for (const auto& [name, measured] : all) {
    benchmark::RegisterBenchmark(name, measured)->UseManualTime()->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
