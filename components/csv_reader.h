// Reads delimited text record by record.

#pragma once

#include <cstdint>
#include <istream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessera {

// Strict: every record has as many fields as the header line, a quoted field ends where its quotes end, a
// quote in a field without quotes is a fault, and so are a NUL, a lone carriage return and bytes that are no
// UTF-8. The delimiter is the one of comma, semicolon and tab that the header line has most of. Memory is one
// block of the file, or as much as the longest record needs.
class CsvReader {
 public:
  // `in` is borrowed, positioned at the start.
  explicit CsvReader(std::istream& in);

  // Reads the header line; false on a fault.
  bool readHeader();
  // Reads the next record; false at the end and on a fault.
  bool next();

  // Of the present record; valid until the next call.
  std::span<const std::string_view> fields() const { return fields_; }
  // The line on which the present record starts, or that of the fault, from 1.
  std::int64_t line() const { return line_; }
  char delimiter() const { return delimiter_; }
  // Of the start of the file and of the header line's end.
  bool hasByteOrderMark() const { return hasMark_; }
  bool hasCarriageReturns() const { return hasCarriageReturns_; }
  // Bytes that came from the stream so far.
  std::int64_t bytesRead() const { return bytesRead_; }
  // Empty: no fault.
  const std::string& fault() const { return fault_; }

 private:
  enum class Scan { complete, needsMore, faulty };

  bool refill();
  void skipMark();
  void detectDelimiter();
  bool readRecord();
  Scan scanRecord();
  Scan scanQuoted(char*& at, std::int64_t& line);
  Scan endOfField(char*& at, bool& lastField);
  bool checkBytes(const char* begin, const char* end);
  bool fail(std::int64_t line, std::string reason);

  std::istream& in_;
  std::vector<char> buffer_;  // [position_, end_) is not yet read; a line feed follows as a stop
  std::size_t position_ = 0;
  std::size_t end_ = 0;
  bool atEnd_ = false;  // the stream has nothing more
  char delimiter_ = ',';
  bool hasMark_ = false;
  bool hasCarriageReturns_ = false;
  bool stops_[256] = {};  // bytes that end the scan of a field without quotes
  std::vector<std::string_view> fields_;
  std::vector<std::size_t> doubled_;  // fields with doubled quotes
  std::size_t width_ = 0;             // fields of the header line
  std::int64_t line_ = 0;
  std::int64_t nextLine_ = 1;
  std::int64_t bytesRead_ = 0;
  std::string fault_;
};

}  // namespace tessera
