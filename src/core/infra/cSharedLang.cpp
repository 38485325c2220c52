#include "core/infra/cSharedLang.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kEnglish = u"English"_s;
const QString kBar = u"||"_s;
const QString kTemplate = u"template.txt"_s;
/// A file that is larger is no list of a program's texts.
constexpr qint64 kMostBytes = 1024 * 1024;
/// What a menu has room for.
constexpr qsizetype kMostLetters = 60;

bool bySource(const QString& a, const QString& b) {
  return QStringView(a).compare(QStringView(b), Qt::CaseSensitive) < 0;
}

QStringList linesOf(const QString& text) {
  static const QRegularExpression ends(u"\r\n|\r|\n"_s);
  return text.split(ends);
}

QString cleanLine(const QString& line) {
  return QString(line).remove(u'\t').trimmed();
}

// A file has an entry a line; what is shown in lines has their ends written out.
QString toFile(const QString& text) {
  return QString(text).replace(u'\n', u"\\n"_s);
}

QString fromFile(QStringView text) {
  return text.trimmed().toString().replace(u"\\n"_s, u"\n"_s);
}

/// Files and windows end lines in different ways.
QString evenLines(const QString& text) {
  return QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

/// An ampersand in front of a letter marks a key, a doubled one and one between blanks are shown.
QString withoutMarks(const QString& text) {
  QString bare;
  bare.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar next = i + 1 < text.size() ? text[i + 1] : QChar(u' ');
    i += text[i] == u'&' && !next.isSpace() ? 1 : 0;
    bare += text[i];
  }
  return bare;
}

/// A text parted into what is translated and what stands around it.
struct Pieces {
  QString before;
  QString core;
  QString behind;
};

Pieces piecesOf(const QString& text) {
  const auto isTail = [](QChar letter) {
    return letter.isSpace() || letter == u'.' || letter == u'\u2026' || letter == u':';
  };
  qsizetype begin = 0;
  while (begin < text.size() && text[begin].isSpace()) {
    ++begin;
  }
  // Behind a tab stands the key of an entry.
  const qsizetype tab = text.indexOf(u'\t', begin);
  qsizetype end = tab < 0 ? text.size() : tab;
  while (end > begin && isTail(text[end - 1])) {
    --end;
  }
  // The full stop of a sentence belongs to it.
  if (end < text.size() && text[end] == u'.' && !QStringView(text).mid(end).startsWith(u"..."_s)) {
    ++end;
  }
  return {text.first(begin), text.sliced(begin, end - begin), text.sliced(end)};
}

QStringList placesOf(const QString& text) {
  static const QRegularExpression place(u"%L?[0-9]+"_s);
  QStringList places;
  for (auto found = place.globalMatch(text); found.hasNext();) {
    places.append(found.next().captured());
  }
  places.sort();
  return places;
}

/// Also of a text that was told in English: an ampersand in that marks nothing, unless a menu has marked a key in it.
QString captionIn(const cSharedLang& language, const QString& text) {
  const QString found = language.TranslationOf(text);
  if (found != text) {
    return found;
  }
  for (const QString& english : {text, withoutMarks(text)}) {
    if (const QString told = retold(english); told != english) {
      return QString(told).replace(u'&', u"&&"_s);
    }
  }
  return found;
}

/// The toolkit's texts may have a blank in front of their colon already.
QString withColonOf(const QString& behind, const QString& former, const QString& colon) {
  const qsizetype at = behind.indexOf(former);
  const bool isParted = at > 0 && behind[at - 1].isSpace();
  return isParted ? behind : QString(behind).replace(former, colon);
}

/// The first line that is no remark.
QString titleIn(const QByteArray& bytes) {
  for (const QString& raw : linesOf(WholeText::fromBytes(bytes))) {
    const QString line = cleanLine(raw);
    if (!line.isEmpty() && !line.startsWith(u'#')) {
      return line.first(std::min(line.size(), kMostLetters)).trimmed();
    }
  }
  return {};
}

/// All languages are asked for their titles at once: of each no more is read than that takes.
QString titleOf(const QString& path) {
  constexpr qint64 kHead = 2048;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return {};
  }
  QByteArray head = file.read(kHead);
  if (!file.atEnd()) {
    // No letter is cut in two.
    head.truncate(head.lastIndexOf('\n') + 1);
  }
  const QString title = titleIn(head);
  return title.isEmpty() && file.seek(0) ? titleIn(file.readAll()) : title;
}

}  // namespace

cSharedLang& Lang() {
  static cSharedLang language;
  return language;
}

QString translated(const QString& text) {
  const QString found = Lang().IsEnglish() ? text : Lang().WordsOf(text);
  return found == text ? retold(text) : found;
}

QString translatedCaption(const QString& text) {
  return Lang().IsEnglish() ? text : captionIn(Lang(), text);
}

QString withColon(const QString& title) {
  return title + Lang().Colon();
}

QString translatedLines(const QString& text) {
  const QString whole = translated(text);
  if (Lang().IsEnglish() || whole != text || !text.contains(u'\n')) {
    return whole;
  }
  QStringList lines = text.split(u'\n');
  std::transform(lines.begin(), lines.end(), lines.begin(), translated);
  return lines.join(u'\n');
}

void cSharedLang::OverrideLanguagePath(const QString& folder) {
  if (Files().FolderExists(folder)) {
    path_ = Files().RemoveSlashFromEnd(folder);
  }
}

QStringList cSharedLang::LanguageFolders() const {
  return path_.isEmpty() ? Paths::allInstalled(u"Languages"_s) : QStringList{Files().Combine(path_, u"Languages"_s)};
}

QString cSharedLang::LanguageTitle(int index) const {
  return index == 0 ? kEnglish : titles_.value(index - 1);
}

int cSharedLang::LanguageIndex(const QString& title) const {
  return title == kEnglish ? 0 : titles_.contains(title) ? static_cast<int>(titles_.indexOf(title)) + 1 : -1;
}

bool cSharedLang::IsEnglish() const {
  return current_ == kEnglish;
}

void cSharedLang::LoadAllLanguages() {
  files_.clear();
  titles_.clear();
  for (const QString& folder : LanguageFolders()) {
    listFolder(folder);
  }
}

void cSharedLang::listFolder(const QString& folder) {
  QStringList names;
  Files().FillFiles(folder, u"txt"_s, names);
  const QStringList former = titles_;
  for (const QString& name : std::as_const(names)) {
    const QString path = Files().Combine(folder, name);
    if (name.compare(kTemplate, Qt::CaseInsensitive) == 0 || QFileInfo(path).size() > kMostBytes) {
      continue;
    }
    const QString title = titleOf(path);
    if (!former.contains(title)) {
      files_.append(path);
      titles_.append(title.isEmpty() ? u"Language "_s + QString::number(titles_.size() + 1) : title);
    }
  }
}

auto cSharedLang::read(const QString& text) -> Language {
  static const QRegularExpression remark(u"^#\\s*(font|colon):(.+)$"_s, QRegularExpression::CaseInsensitiveOption);
  Language language;
  bool hasTitle = false;
  for (const QString& raw : linesOf(text)) {
    const QString line = cleanLine(raw);
    if (line.startsWith(u'#')) {
      const QRegularExpressionMatch found = remark.match(line);
      const bool isColon = found.captured(1).startsWith(u'c', Qt::CaseInsensitive);
      if (found.hasMatch()) {
        // A blank in front of a colon is part of it.
        (isColon ? language.colon : language.font) = isColon ? found.captured(2) : found.captured(2).trimmed();
      }
    } else if (!line.isEmpty() && !hasTitle) {
      hasTitle = true;
    } else if (const qsizetype bar = line.indexOf(kBar); bar > 0) {
      const Entry entry{fromFile(QStringView(line).first(bar)), fromFile(QStringView(line).sliced(bar + kBar.size()))};
      // An entry that nobody has filled in yet would show nothing.
      if (!entry.english.isEmpty() && !entry.translated.isEmpty()) {
        language.entries.push_back(entry);
      }
    }
  }
  sort(language.entries);
  return language;
}

// Of two lines with one text the first stays the first.
void cSharedLang::sort(std::vector<Entry>& entries) {
  std::stable_sort(entries.begin(), entries.end(),
                   [](const Entry& a, const Entry& b) { return bySource(a.english, b.english); });
}

void cSharedLang::LoadLanguage(int index) {
  const QString title = LanguageTitle(index);
  if (title.isEmpty() || title == current_) {
    return;
  }
  if (index == 0) {
    RevertToEnglish();
    return;
  }
  QByteArray bytes;
  if (!Files().LoadTextFile(files_.at(index - 1), bytes)) {
    return;
  }
  Language language = read(WholeText::fromBytes(bytes));
  current_ = title;
  font_ = language.font;
  colon_ = {u":"_s, language.colon};
  strings_ = std::move(language.entries);
  english_.clear();
}

void cSharedLang::RevertToEnglish() {
  if (IsEnglish()) {
    return;
  }
  current_ = kEnglish;
  font_.clear();
  std::swap(colon_.english, colon_.translated);
  for (Entry& entry : strings_) {
    english_.insert(entry.english);
    std::swap(entry.english, entry.translated);
  }
  sort(strings_);
}

void cSharedLang::FillLanguageList(LanguageList& list) {
  list.clear();
  list.add(kEnglish);
  LoadAllLanguages();
  for (const QString& title : std::as_const(titles_)) {
    list.add(title);
  }
}

void cSharedLang::SetListToSelected(LanguageList& list) const {
  list.select(current_);
}

auto cSharedLang::find(const QString& text) const -> const Entry* {
  const auto found =
      std::lower_bound(strings_.begin(), strings_.end(), text,
                       [](const Entry& entry, const QString& key) { return bySource(entry.english, key); });
  return found == strings_.end() || found->english != text ? nullptr : &*found;
}

QString cSharedLang::GetTranslation(const QString& text) const {
  const Entry* const entry = find(text);
  return entry == nullptr ? text : entry->translated;
}

// A translation may be another text's English: "Desc" is French for "Description", which is its own.
bool cSharedLang::isEnglishText(const QString& text) const {
  const QString bare = withoutMarks(evenLines(text));
  return IsEnglish() &&
         (english_.contains(text) || english_.contains(bare.trimmed()) || english_.contains(piecesOf(bare).core));
}

QString cSharedLang::KeyOf(const QString& text) {
  return piecesOf(withoutMarks(evenLines(text))).core;
}

QString cSharedLang::TranslationOf(const QString& text) const {
  if (text.isEmpty() || strings_.empty()) {
    return text;
  }
  const QString bare = withoutMarks(evenLines(text));
  Pieces pieces = piecesOf(bare);
  for (const QString& whole : {text, bare, bare.trimmed()}) {
    if (find(whole) != nullptr) {
      // Blanks around it stay.
      const bool isTrimmed = whole == bare.trimmed();
      pieces = {isTrimmed ? pieces.before : QString(), whole,
                isTrimmed ? bare.sliced(pieces.before.size() + whole.size()) : QString()};
      break;
    }
  }
  const Entry* const entry = find(pieces.core);
  if (entry == nullptr || placesOf(entry->english) != placesOf(entry->translated)) {
    return text;
  }
  return pieces.before + entry->translated + withColonOf(pieces.behind, colon_.english, colon_.translated);
}

QString cSharedLang::WordsOf(const QString& text) const {
  const QString found = TranslationOf(text);
  return found == text ? text : withoutMarks(found);
}

void cSharedLang::ChangeFont(TranslatableForm& form) {
  const QString family = font_.trimmed();
  const bool isMissing = !family.isEmpty() && !form.fontExists(family);
  // The former language's doesn't stay either.
  form.setFontFamily(isMissing ? QString() : family);
  if (isMissing && !missingFonts_.contains(family)) {
    missingFonts_.append(family);
    Logging().LogEvent(u"Cannot set font to "_s + family + u". Not present."_s);
  }
}

void cSharedLang::TranslateForm(TranslatableForm& form) {
  if (titles_.isEmpty()) {
    return;
  }
  ChangeFont(form);
  form.eachText([this](const FormText& text) {
    if (text.english.isNull()) {
      return isEnglishText(text.shown) ? text.shown : captionIn(*this, text.shown);
    }
    return IsEnglish() ? text.english : captionIn(*this, text.english);
  });
}

void cSharedLang::Localise(TranslatableForm& form, int index) {
  LoadLanguage(0);
  TranslateForm(form);
  LoadLanguage(index);
  TranslateForm(form);
}

void cSharedLang::WriteStrings(TranslatableForm& form, QStringList& lines) {
  QSet<QString> present(lines.begin(), lines.end());
  form.eachText([&](const FormText& text) {
    const QString key = toFile(KeyOf(text.english.isNull() ? text.shown : text.english));
    const QString line = key + kBar + key;
    if (!key.isEmpty() && !present.contains(line)) {
      present.insert(line);
      lines.append(line);
    }
    return text.shown;
  });
  lines.append(u"-||-"_s);
}

bool cSharedLang::GenerateLanguageTemplate(const QList<TranslatableForm*>& forms) const {
  QStringList lines;
  for (auto form = forms.crbegin(); form != forms.crend(); ++form) {
    WriteStrings(**form, lines);
  }
  lines.append(QString());
  const QString folder = path_.isEmpty() ? Paths::programFolder() : path_;
  return Guard("GenerateLanguageTemplate", "cSharedLang")(
      [&] { WholeText::replaceFile(Files().Combine(folder, u"FormsText.txt"_s), lines.join(u"\r\n"_s)); });
}

void cSharedLang::UpdateTemplates(const QString& folder) {
  const BusyPointer pointer;
  QByteArray bytes;
  if (!Files().LoadTextFile(Files().Combine(folder, kTemplate), bytes)) {
    return;
  }
  QStringList wanted;
  for (const QString& raw : linesOf(WholeText::fromBytes(bytes))) {
    const QString line = cleanLine(raw);
    if (line.contains(kBar) && !line.startsWith(u'#')) {
      wanted.append(line.section(kBar, 0, 0).trimmed());
    }
  }
  QStringList files;
  Files().FillFiles(folder, u"txt"_s, files);
  for (const QString& name : std::as_const(files)) {
    if (name.compare(kTemplate, Qt::CaseInsensitive) != 0) {
      Guard("UpdateTemplates", "cSharedLang")([&] { updateTemplate(Files().Combine(folder, name), wanted); });
    }
  }
}

void cSharedLang::updateTemplate(const QString& path, const QStringList& wanted) {
  QByteArray bytes;
  if (!Files().LoadTextFile(path, bytes)) {
    return;
  }
  const QString text = WholeText::fromBytes(bytes);
  QSet<QString> present;
  for (const QString& line : linesOf(text)) {
    present.insert(cleanLine(line).section(kBar, 0, 0).trimmed());
  }
  const QString end = u"\r\n"_s;
  QString added;
  for (const QString& english : wanted) {
    if (!english.isEmpty() && !present.contains(english)) {
      present.insert(english);
      added += english + kBar + english + end;
    }
  }
  if (!added.isEmpty()) {
    added.prepend(text.isEmpty() || text.endsWith(u'\n') ? QString() : end);
    // A translator finds his file in the encoding that he gave it.
    const std::optional<QByteArray> behind = WholeText::encodedAs(bytes, added);
    Files().ReplaceFile(path, behind ? bytes + *behind : WholeText::toBytes(text + added));
  }
}
