#include "components/csv_loader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <streambuf>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "components/csv_reader.h"

namespace tessera {
namespace {

// What the first reading finds out.
struct Survey {
  std::vector<std::string> names;
  std::vector<TypeGuess> guesses;
  std::int32_t records = 0;
  CsvForm form;
};

// Keeps every name that is given; makes up the missing ones around them.
std::vector<std::string> columnNames(const std::vector<std::string>& header) {
  const std::unordered_set<std::string> given(header.begin(), header.end());
  std::unordered_set<std::string> taken;
  std::unordered_map<std::string, int> numbers;  // by stem: the next one that may be free
  std::vector<std::string> names;
  for (const std::string& cell : header) {
    const std::string column = "COLUMN" + std::to_string(names.size() + 1);
    std::string name = cell.empty() && !given.contains(column) ? column : cell;
    const std::string stem = (name.empty() ? column : name) + "_";
    while (name.empty() || taken.contains(name)) {
      int& number = numbers.try_emplace(stem, 2).first->second;
      name = stem + std::to_string(number++);
      if (given.contains(name)) name.clear();
    }
    names.push_back(*taken.insert(std::move(name)).first);
  }
  return names;
}

// Bytes of somebody else as the buffer of a stream that can go to any place of them.
class BytesBuffer : public std::streambuf {
 public:
  // A stream buffer that is only read from writes nothing.
  explicit BytesBuffer(std::string_view bytes) : begin_(const_cast<char*>(bytes.data())) {
    setg(begin_, begin_, begin_ + bytes.size());
  }

 protected:
  pos_type seekoff(off_type offset, std::ios::seekdir from, std::ios::openmode) override {
    const char* const base = from == std::ios::beg ? begin_ : from == std::ios::cur ? gptr() : egptr();
    return seekpos(base - begin_ + offset, std::ios::in);
  }
  pos_type seekpos(pos_type place, std::ios::openmode) override {
    if (off_type(place) < 0 || off_type(place) > egptr() - begin_) return pos_type(off_type(-1));
    setg(begin_, begin_ + off_type(place), egptr());
    return place;
  }

 private:
  char* begin_;
};

class CsvText {
 public:
  CsvText(std::istream& in, const std::string& name, std::span<const FieldSpec> fields,
          const LoadProgress& progress)
      : in_(in), name_(name), fields_(fields), progress_(progress), start_(in.tellg()) {
    in_.seekg(0, std::ios::end);
    if (in_) size_ = in_.tellg() - start_;
  }

  // Nothing: no fault.
  std::optional<LoadError> survey(Survey& survey);
  std::optional<LoadError> fill(const Survey& survey, ColumnStore& store);

 private:
  LoadError error(std::int64_t line, std::string reason) const { return {name_, line, std::move(reason)}; }
  std::optional<LoadError> goBack();
  std::optional<LoadError> faultOf(const CsvReader& reader) const;
  std::optional<LoadError> checkNames(const Survey& survey) const;
  const FieldSpec* fieldOf(const std::string& name) const;
  LoadError wrongCell(const CsvReader& reader, std::size_t column, const std::string& name) const;
  // Once for each block of the text; `before` are the bytes of the readings that are over.
  bool goesOn(const CsvReader& reader, std::int64_t before);

  std::istream& in_;
  const std::string& name_;
  std::span<const FieldSpec> fields_;
  const LoadProgress& progress_;
  std::istream::pos_type start_;
  std::int64_t size_ = 0;  // bytes; 0: not known
  std::int64_t told_ = 0;  // bytes that the progress was told of last
};

std::optional<LoadError> CsvText::goBack() {
  in_.clear();
  in_.seekg(start_);
  if (!in_) return error(0, "it cannot be read twice");
  return std::nullopt;
}

std::optional<LoadError> CsvText::faultOf(const CsvReader& reader) const {
  if (reader.fault().empty()) return std::nullopt;
  return error(reader.line(), reader.fault());
}

const FieldSpec* CsvText::fieldOf(const std::string& name) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&](const FieldSpec& field) { return field.name == name; });
  return found == fields_.end() ? nullptr : &*found;
}

std::optional<LoadError> CsvText::checkNames(const Survey& survey) const {
  for (const FieldSpec& field : fields_) {
    if (std::find(survey.names.begin(), survey.names.end(), field.name) == survey.names.end())
      return error(1, "there is no column " + field.name);
  }
  return std::nullopt;
}

LoadError CsvText::wrongCell(const CsvReader& reader, std::size_t column, const std::string& name) const {
  const FieldSpec* field = fieldOf(name);
  const std::string_view wanted = columnTypeName(field ? field->type : 0);
  return error(reader.line(), "\"" + std::string(reader.fields()[column]) + "\" in column " + name +
                                  " is not " + std::string(wanted));
}

bool CsvText::goesOn(const CsvReader& reader, std::int64_t before) {
  const std::int64_t done = before + reader.bytesRead();
  if (!progress_ || done == told_) return true;
  told_ = done;
  return progress_(done, 2 * size_);
}

std::optional<LoadError> CsvText::survey(Survey& survey) {
  if (auto fault = goBack()) return fault;
  CsvReader reader(in_);
  if (!reader.readHeader()) return faultOf(reader);
  survey.form = {.delimiter = reader.delimiter(),
                 .byteOrderMark = reader.hasByteOrderMark(),
                 .carriageReturns = reader.hasCarriageReturns(),
                 .names = {reader.fields().begin(), reader.fields().end()}};
  survey.names = columnNames(survey.form.names);
  if (auto fault = checkNames(survey)) return fault;
  for (const std::string& name : survey.names) {
    const FieldSpec* field = fieldOf(name);
    survey.guesses.push_back(field ? TypeGuess(*field) : TypeGuess());
  }
  while (reader.next()) {
    if (survey.records == std::numeric_limits<std::int32_t>::max())
      return error(reader.line(), "too many rows");
    if (!goesOn(reader, 0)) return error(0, cancelledReason);
    ++survey.records;
    for (std::size_t i = 0; i < survey.guesses.size(); ++i)
      if (!survey.guesses[i].add(reader.fields()[i])) return wrongCell(reader, i, survey.names[i]);
  }
  return faultOf(reader);
}

std::optional<LoadError> CsvText::fill(const Survey& survey, ColumnStore& store) {
  for (std::size_t i = 0; i < survey.names.size(); ++i) {
    store.addColumn(survey.guesses[i].format(XString::fromNarrow(survey.names[i])));
    store.column(static_cast<std::int32_t>(i))
        .reserve(static_cast<std::size_t>(survey.records), survey.guesses[i].textBytes());
  }
  if (auto fault = goBack()) return fault;
  CsvReader reader(in_);
  reader.readHeader();
  const auto width = static_cast<std::size_t>(store.columnCount());
  bool same = reader.fault().empty() && reader.fields().size() == width;
  while (same && reader.next()) {
    if (!goesOn(reader, size_)) return error(0, cancelledReason);
    for (std::size_t i = 0; same && i < width; ++i)
      same = appendCell(store.column(static_cast<std::int32_t>(i)), reader.fields()[i]);
    if (same) store.finishRecord();
  }
  if (!same || !reader.fault().empty() || store.recordCount() != survey.records)
    return error(reader.line(), "it changed while it was read");
  return std::nullopt;
}

}  // namespace

Loaded<CsvRows> loadCsv(std::istream& in, const std::string& name, std::span<const FieldSpec> fields,
                        const LoadProgress& progress) {
  CsvText text(in, name, fields, progress);
  Survey survey;
  if (auto fault = text.survey(survey)) return *std::move(fault);
  CsvRows rows;
  rows.form = std::move(survey.form);
  if (auto fault = text.fill(survey, rows.store)) return *std::move(fault);
  return Loaded<CsvRows>(std::move(rows));
}

Loaded<CsvRows> loadCsv(std::string_view bytes, const std::string& name, std::span<const FieldSpec> fields,
                        const LoadProgress& progress) {
  BytesBuffer buffer(bytes);
  std::istream in(&buffer);
  return loadCsv(in, name, fields, progress);
}

}  // namespace tessera
