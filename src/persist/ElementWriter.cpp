#include "persist/ElementWriter.h"

#include "infra/CodePage.h"
#include "infra/Numbers.h"

#include <array>
#include <charconv>

ElementWriter::ElementWriter(QByteArray& out, const Tag& element) : out_(out), element_(element) {
  out_.append('\t').append(element.open).append("\r\n");
}

ElementWriter::~ElementWriter() { out_.append('\t').append(element_.close); }

void ElementWriter::line(QByteArrayView content) { out_.append("\t\t").append(content).append("\r\n"); }

void ElementWriter::open(const Tag& tag) { out_.append("\t\t").append(tag.open); }

void ElementWriter::close(const Tag& tag) { out_.append(tag.close).append("\r\n"); }

void ElementWriter::text(const Tag& tag, QStringView value) {
  open(tag);
  Tags::appendHtmlEncoded(out_, value);
  close(tag);
}

void ElementWriter::textUnlessEmpty(const Tag& tag, QStringView value) {
  if (!value.isEmpty()) {
    text(tag, value);
  }
}

void ElementWriter::raw(const Tag& tag, QStringView value) {
  open(tag);
  out_.append(CodePage::toBytes(value));
  close(tag);
}

void ElementWriter::integer(const Tag& tag, qint32 value) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  open(tag);
  out_.append(digits.data(), end - digits.data());
  close(tag);
}

void ElementWriter::integerUnlessZero(const Tag& tag, qint32 value) {
  if (value != 0) {
    integer(tag, value);
  }
}

void ElementWriter::boolean(const Tag& tag, bool value) { integer(tag, value ? -1 : 0); }

void ElementWriter::booleanIfTrue(const Tag& tag, bool value) {
  if (value) {
    boolean(tag, value);
  }
}

void ElementWriter::date(const Tag& tag, qint32 dayNumber) {
  open(tag);
  out_.append(Numbers::IsoDate(dayNumber));
  close(tag);
}

void ElementWriter::base64(const Tag& tag, const Tag& data, QByteArrayView encoded) {
  line(tag.open);
  out_.append("\t\t\t").append(data.open).append(encoded).append(data.close).append("\r\n");
  line(tag.close);
}
