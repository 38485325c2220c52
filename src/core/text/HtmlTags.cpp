#include "core/text/HtmlTags.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Where the opening tag is empty there is none without facts in it.
struct UsualTags {
  QLatin1StringView open;
  QLatin1StringView close;
};

constexpr std::array kTags{
    UsualTags{"<b>"_L1, "</b>"_L1}, UsualTags{"<i>"_L1, "</i>"_L1},     UsualTags{"<u>"_L1, "</u>"_L1},
    UsualTags{"<s>"_L1, "</s>"_L1}, UsualTags{"<sub>"_L1, "</sub>"_L1}, UsualTags{"<sup>"_L1, "</sup>"_L1},
    UsualTags{""_L1, "</font>"_L1}, UsualTags{"<li>"_L1, "</li>"_L1},   UsualTags{""_L1, "</td></tr></table>"_L1}};

const UsualTags& tagsOf(HtmlCode code) {
  return kTags[static_cast<size_t>(code)];
}

}  // namespace

QString alignmentTag(QLatin1StringView where) {
  return "<table width=100%><tr><td align=\""_L1 + where + "\">"_L1;
}

QString HtmlFont::tag() const {
  if (CurrentFace.isEmpty() && CurrentColor.isEmpty() && CurrentSize.isEmpty()) {
    return {};
  }
  QString tag = u"<font"_s;
  if (!CurrentFace.isEmpty()) {
    tag += " face=\""_L1 + CurrentFace + u'"';
  }
  if (!CurrentColor.isEmpty()) {
    tag += " color=\""_L1 + CurrentColor + u'"';
  }
  if (!CurrentSize.isEmpty()) {
    tag += " size="_L1 + CurrentSize;
  }
  return tag + u'>';
}

int HtmlFont::sizeOf(int halfPoints) {
  return std::clamp(halfPoints / 7, 1, 8);
}

HtmlTags::HtmlTags(QString lineEnd, qsizetype sizeHint) : LineEnd(std::move(lineEnd)) {
  Output.reserve(sizeHint);
}

bool HtmlTags::isOpen(HtmlCode code) const {
  return std::any_of(Codes.begin(), Codes.end(),
                     [=](const Pair& pair) { return pair.code == code && pair.status != Status::Closing; });
}

bool HtmlTags::isAsked(HtmlCode code) const {
  return std::any_of(NextCodes.begin(), NextCodes.end(), [=](const Pair& pair) { return pair.code == code; });
}

void HtmlTags::open(HtmlCode code) {
  open(code, tagsOf(code).open);
}

void HtmlTags::open(HtmlCode code, const QString& begCode, bool isTied) {
  if (!isOpenOrAsked(code)) {
    NextCodes.push_back({code, isTied ? Status::PendingInGroup : Status::Pending, begCode});
  }
}

void HtmlTags::dropAsked(HtmlCode code) {
  std::erase_if(NextCodes, [=](const Pair& pair) { return pair.code == code; });
}

void HtmlTags::close(HtmlCode code) {
  dropAsked(code);
  const auto found = std::find_if(Codes.begin(), Codes.end(), [=](const Pair& pair) {
    return pair.code == code && pair.status != Status::Closing;
  });
  if (found != Codes.end()) {
    const auto first = static_cast<size_t>(found - Codes.begin());
    found->status = Status::Closing;
    closeFrom(first + 1, true);
  }
}

// Those that are closing already were asked for again when they were closed.
void HtmlTags::closeFrom(size_t first, bool keepsTied) {
  for (size_t i = first; i < Codes.size(); ++i) {
    Pair& pair = Codes[i];
    const bool isTied = pair.status == Status::OpenInGroup;
    if (pair.status != Status::Closing && (keepsTied || !isTied)) {
      NextCodes.push_back({pair.code, isTied ? Status::PendingInGroup : Status::Pending, pair.begCode});
    }
    pair.status = Status::Closing;
  }
}

void HtmlTags::setFont(const QString& tag) {
  if (tag == CurrentFontTag) {
    return;
  }
  CurrentFontTag = tag;
  const auto asked =
      std::find_if(NextCodes.begin(), NextCodes.end(), [](const Pair& pair) { return pair.code == HtmlCode::Font; });
  if (asked != NextCodes.end() && !tag.isEmpty()) {
    asked->begCode = tag;
    return;
  }
  close(HtmlCode::Font);
  if (!tag.isEmpty()) {
    open(HtmlCode::Font, tag);
  }
}

void HtmlTags::tieAll() {
  for (Pair& pair : Codes) {
    pair.status = pair.status == Status::Active ? Status::OpenInGroup : pair.status;
  }
  for (Pair& pair : NextCodes) {
    pair.status = Status::PendingInGroup;
  }
}

void HtmlTags::closeTied() {
  std::erase_if(NextCodes, [](const Pair& pair) { return pair.status == Status::PendingInGroup; });
  const auto found =
      std::find_if(Codes.begin(), Codes.end(), [](const Pair& pair) { return pair.status == Status::OpenInGroup; });
  closeFrom(static_cast<size_t>(found - Codes.begin()), false);
}

void HtmlTags::closeAll() {
  closeFrom(0, false);
  NextCodes.clear();
  forgetFont();
}

void HtmlTags::breakLine() {
  PendingBreak += kBreak;
  PendingBreak += LineEnd;
  startLine();
}

void HtmlTags::text(QStringView html) {
  const auto* const stop = std::find_if(html.begin(), html.end(), [](QChar unit) { return unit != u' '; });
  const bool isBlank = stop == html.end();
  if (isBlank) {
    writeBreak();
  } else {
    writeTags();
  }
  if (AtLineStart) {
    const qsizetype blanks = stop - html.begin();
    for (qsizetype i = 0; i < blanks; ++i) {
      Output += "&nbsp;"_L1;
    }
    html = html.sliced(blanks);
    AtLineStart = isBlank;
  }
  Output += html;
}

void HtmlTags::writeBreak() {
  Output += PendingBreak;
  PendingBreak.clear();
}

void HtmlTags::writeTags() {
  writeClosed();
  writeBreak();
  for (Pair& pair : NextCodes) {
    Output += pair.begCode;
    pair.status = pair.status == Status::PendingInGroup ? Status::OpenInGroup : Status::Active;
    Codes.push_back(std::move(pair));
  }
  NextCodes.clear();
}

void HtmlTags::writeClosed() {
  while (!Codes.empty() && Codes.back().status == Status::Closing) {
    Output += tagsOf(Codes.back().code).close;
    Codes.pop_back();
  }
}

QString HtmlTags::finish() {
  closeAll();
  writeClosed();
  PendingBreak.clear();
  return std::exchange(Output, QString());
}

QString HtmlTags::dump() const {
  QString open = u"BegCodes: "_s;
  QString nextOpen = u"NextBegCodes: "_s;
  QString nextClose = u"NextCodes: "_s;
  for (const Pair& pair : Codes) {
    open += pair.begCode + u' ';
  }
  for (const Pair& pair : NextCodes) {
    nextOpen += pair.begCode + u' ';
    nextClose += tagsOf(pair.code).close + u' ';
  }
  return open + u'\n' + nextOpen + u'\n' + nextClose;
}
