#include "components/csv_reader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "shared/utf.h"

namespace tessera {
namespace {

constexpr std::size_t blockSize = std::size_t{1} << 20;
// An unclosed quote must not draw a whole file into memory.
constexpr std::size_t longestRecord = std::size_t{1} << 28;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isAscii(const char* begin, const char* end) {
  for (; end - begin >= 8; begin += 8) {
    std::uint64_t word;
    std::memcpy(&word, begin, 8);
    if ((word & 0x8080808080808080u) != 0) return false;
  }
  return std::all_of(begin, end, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// The field with each pair of quotes made one; the result lies inside the field's own bytes.
std::string_view withoutDoubledQuotes(std::string_view field, char* bytes) {
  char* out = bytes;
  for (std::size_t i = 0; i < field.size(); ++i) {
    *out++ = field[i];
    if (field[i] == '"') ++i;
  }
  return {bytes, static_cast<std::size_t>(out - bytes)};
}

std::string countText(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " field" : " fields");
}

}  // namespace

CsvReader::CsvReader(std::istream& in) : in_(in), buffer_(1) {}

bool CsvReader::fail(std::int64_t line, std::string reason) {
  line_ = line;
  fault_ = std::move(reason);
  fields_.clear();
  return false;
}

// Moves what is unread to the front and reads on behind it; false when the stream has nothing more.
bool CsvReader::refill() {
  if (atEnd_) return false;
  const std::size_t unread = end_ - position_;
  std::memmove(buffer_.data(), buffer_.data() + position_, unread);
  position_ = 0;
  end_ = unread;
  // A record longer than the buffer doubles it, so that it is scanned a bounded number of times.
  buffer_.resize(std::max(buffer_.size(), unread + std::max(unread, blockSize) + 1));
  in_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - 1 - end_));
  end_ += static_cast<std::size_t>(in_.gcount());
  bytesRead_ += in_.gcount();
  atEnd_ = in_.gcount() == 0 || !in_;
  buffer_[end_] = '\n';
  return true;
}

void CsvReader::skipMark() {
  hasMark_ = std::string_view(buffer_.data(), end_).starts_with(byteOrderMark);
  if (hasMark_) position_ = byteOrderMark.size();
}

void CsvReader::detectDelimiter() {
  constexpr std::array<char, 3> candidates = {',', ';', '\t'};
  std::array<std::size_t, 3> counts = {};
  bool quoted = false;
  for (std::size_t i = position_; i < end_; ++i) {
    const char c = buffer_[i];
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\n') break;
    const auto found = std::find(candidates.begin(), candidates.end(), c);
    if (found != candidates.end()) ++counts[static_cast<std::size_t>(found - candidates.begin())];
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  delimiter_ = candidates[static_cast<std::size_t>(most - counts.begin())];
  for (const char stop : {delimiter_, '\n', '\r', '"'}) stops_[static_cast<unsigned char>(stop)] = true;
}

bool CsvReader::readHeader() {
  // The header line decides the delimiter, so all of it must be there.
  while (end_ <= longestRecord && refill() && !std::memchr(buffer_.data(), '\n', end_)) {
  }
  if (in_.bad()) return fail(0, "it cannot be read");
  skipMark();
  if (position_ == end_) return fail(1, "it is empty, without even a header line");
  detectDelimiter();
  if (!readRecord()) return false;
  hasCarriageReturns_ = std::string_view(buffer_.data(), position_).ends_with("\r\n");
  width_ = fields_.size();
  return true;
}

bool CsvReader::next() {
  if (!fault_.empty() || !readRecord()) return false;
  if (fields_.size() == width_) return true;
  return fail(line_, countText(fields_.size()) + " instead of " + std::to_string(width_));
}

bool CsvReader::readRecord() {
  for (;;) {
    if (position_ == end_ && atEnd_) return false;
    const Scan scan = position_ == end_ ? Scan::needsMore : scanRecord();
    if (scan == Scan::complete) return true;
    if (scan == Scan::faulty) return false;
    if (end_ - position_ > longestRecord) return fail(nextLine_, "a record of more than 256 MiB");
    refill();
    if (in_.bad()) return fail(nextLine_, "it cannot be read any further");
  }
}

// Splits the record at position_ into fields_. The stop behind the buffer ends every scan; a scan that runs
// into it before the end of the file must be repeated with more bytes.
CsvReader::Scan CsvReader::scanRecord() {
  fields_.clear();
  doubled_.clear();
  char* const begin = buffer_.data() + position_;
  char* at = begin;
  std::int64_t lastLine = nextLine_;
  line_ = nextLine_;
  for (bool lastField = false; !lastField;) {
    if (*at == '"' && at != buffer_.data() + end_) {
      const Scan quoted = scanQuoted(at, lastLine);
      if (quoted != Scan::complete) return quoted;
    } else {
      const char* const field = at;
      while (!stops_[static_cast<unsigned char>(*at)]) ++at;
      fields_.emplace_back(field, static_cast<std::size_t>(at - field));
    }
    const Scan end = endOfField(at, lastField);
    if (end == Scan::faulty && fault_.empty())
      fail(lastLine, "a quote in a field that does not start with one");
    if (end != Scan::complete) return end;
  }
  const char* const behind = std::min<const char*>(at, buffer_.data() + end_);
  if (!checkBytes(begin, behind)) return Scan::faulty;
  for (const std::size_t field : doubled_)
    fields_[field] =
        withoutDoubledQuotes(fields_[field], buffer_.data() + (fields_[field].data() - buffer_.data()));
  position_ = static_cast<std::size_t>(behind - buffer_.data());
  nextLine_ = lastLine + 1;
  return Scan::complete;
}

// `at` stands on the opening quote, afterwards behind the closing one.
CsvReader::Scan CsvReader::scanQuoted(char*& at, std::int64_t& line) {
  const std::int64_t openedOn = line;
  char* const text = ++at;
  char* const end = buffer_.data() + end_;
  bool doubled = false;
  for (;; at += 2, doubled = true) {
    auto* const quote = static_cast<char*>(std::memchr(at, '"', static_cast<std::size_t>(end - at)));
    if (!quote) {
      if (!atEnd_) return Scan::needsMore;
      fail(openedOn, "a quote that is never closed");
      return Scan::faulty;
    }
    line += std::count(at, quote, '\n');
    at = quote;
    // A quote at the end of the buffer counts as closing; endOfField() asks for more bytes then.
    if (at + 1 == end || at[1] != '"') break;
  }
  if (doubled) doubled_.push_back(fields_.size());
  fields_.emplace_back(text, static_cast<std::size_t>(at - text));
  const char next = *++at;
  if (at == end || next == delimiter_ || next == '\n' || next == '\r') return Scan::complete;
  fail(line, "text behind a closing quote");
  return Scan::faulty;
}

// `at` stands on the byte that ended the field, afterwards behind it; `lastField` tells of a line's end.
CsvReader::Scan CsvReader::endOfField(char*& at, bool& lastField) {
  const char* const end = buffer_.data() + end_;
  if (at >= end && !atEnd_) return Scan::needsMore;
  if (at < end && *at == delimiter_) {
    ++at;
    return Scan::complete;
  }
  if (at < end && *at == '"') return Scan::faulty;
  if (at < end && *at == '\r') {
    if (at + 1 == end && !atEnd_) return Scan::needsMore;
    if (at + 1 == end || at[1] != '\n') {
      fail(line_, "a carriage return without a line feed");
      return Scan::faulty;
    }
    ++at;
  }
  ++at;
  lastField = true;
  return Scan::complete;
}

bool CsvReader::checkBytes(const char* begin, const char* end) {
  const auto lineOf = [&](const char* at) { return line_ + std::count(begin, at, '\n'); };
  const auto size = static_cast<std::size_t>(end - begin);
  if (const void* zero = std::memchr(begin, 0, size))
    return fail(lineOf(static_cast<const char*>(zero)), "a NUL character");
  if (isAscii(begin, end) || isUtf8({begin, size})) return true;
  for (const char* at = begin; at != end;) {
    const char* const lineEnd = std::find(at, end, '\n');
    if (!isUtf8({at, static_cast<std::size_t>(lineEnd - at)}))
      return fail(lineOf(at), "bytes that are not UTF-8");
    at = lineEnd == end ? end : lineEnd + 1;
  }
  return true;
}

}  // namespace tessera
