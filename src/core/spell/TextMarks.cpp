#include "core/spell/TextMarks.h"

#include "core/infra/Blanks.h"

#include <algorithm>
#include <array>

namespace {

/// The names by the low half of their first unit, so that most places of a text are passed by at a glance.
class NameIndex {
 public:
  explicit NameIndex(const QStringList& names) {
    for (const QString& name : names) {
      const QStringView trimmed = Blanks::trimmed(name);
      if (!trimmed.isEmpty()) {
        byFirst_[slotOf(trimmed.front())].push_back(trimmed);
      }
    }
  }

  /// The length of the longest name that the text begins with; 0 for none.
  qsizetype lengthAt(QStringView text) const {
    qsizetype longest = 0;
    for (const QStringView name : byFirst_[slotOf(text.front())]) {
      if (name.size() > longest && text.startsWith(name)) {
        longest = name.size();
      }
    }
    return longest;
  }

 private:
  static size_t slotOf(QChar first) { return first.unicode() & 0xFFU; }

  std::array<std::vector<QStringView>, 256> byFirst_;
};

/// Where the "'s" begins that ends here; -1 where none does.
qsizetype possessiveAt(QStringView text, qsizetype end) {
  const qsizetype start = end - 2;
  const bool isOne = start >= 0 && (text[start] == u'\'' || text[start] == u'\u2019') && text[start + 1] == u's';
  return isOne ? start : -1;
}

bool endsWithAny(QStringView text, const QStringList& names) {
  return std::any_of(names.begin(), names.end(), [text](const QString& name) {
    const QStringView trimmed = Blanks::trimmed(name);
    return !trimmed.isEmpty() && text.endsWith(trimmed);
  });
}

}  // namespace

QStringList namesToMark(const QString& title, const QString& fullName, const QString& alternateNames) {
  constexpr qsizetype kShortestTitle = 3;
  if (title.size() < kShortestTitle) {
    return {};
  }
  return QStringList{title, fullName} + alternateNames.split(u';');
}

TextMarks findNames(QStringView text, const QStringList& names) {
  const NameIndex index(names);
  TextMarks marks;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const qsizetype length = index.lengthAt(text.sliced(at));
    if (length == 0) {
      continue;
    }
    if (!marks.empty() && marks.back().end() >= at) {
      marks.back().length = std::max(marks.back().end(), at + length) - marks.back().start;
    } else {
      marks.push_back({at, length, TextMark::Kind::Name});
    }
  }
  return marks;
}

// A name that ends in anything but letters is no word: the "s" behind it was checked as one of its own.
TextMarks withoutPossessives(const TextMarks& misspellings, const QStringList& names, QStringView text) {
  TextMarks marks;
  marks.reserve(misspellings.size());
  for (TextMark mark : misspellings) {
    const qsizetype name = possessiveAt(text, mark.end());
    if (name >= 0 && endsWithAny(text.first(name), names)) {
      mark.length = name - mark.start;
    }
    if (mark.length > 0) {
      marks.push_back(mark);
    }
  }
  return marks;
}

TextMarks laidOver(const TextMarks& misspellings, const TextMarks& names) {
  TextMarks marks;
  marks.reserve(misspellings.size() + names.size());
  auto name = names.begin();
  for (const TextMark& wrong : misspellings) {
    while (name != names.end() && name->end() <= wrong.start) {
      marks.push_back(*name++);
    }
    qsizetype at = wrong.start;
    // A name that reaches beyond this word is looked at again for the next.
    for (; name != names.end() && name->start < wrong.end(); ++name) {
      if (name->start > at) {
        marks.push_back({at, name->start - at, wrong.kind});
      }
      at = name->end();
      if (at >= wrong.end()) {
        break;
      }
      marks.push_back(*name);
    }
    if (at < wrong.end()) {
      marks.push_back({at, wrong.end() - at, wrong.kind});
    }
  }
  marks.insert(marks.end(), name, names.end());
  return marks;
}
