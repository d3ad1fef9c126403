// Loads a million rows of delimited text and checks speed, memory and what was loaded.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <time.h>
#include <unistd.h>

#include "components/csv_file.h"
#include "components/memory_data_set.h"

namespace {

using namespace tessera;

constexpr std::int32_t rowCount = 1'000'000;
constexpr double leastMegabytesPerSecond = 50;
constexpr double mostMebibytes = 200;

int faults = 0;

void check(bool ok, const char* what) {
  if (ok) return;
  ++faults;
  std::printf("FAILED: %s\n", what);
}

// Time of the processor and not of the wall: what else the machine does is no fault of the loader.
struct Clock {
  using duration = std::chrono::nanoseconds;
  using time_point = std::chrono::time_point<Clock, duration>;
  static time_point now() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return time_point(std::chrono::seconds(time.tv_sec) + duration(time.tv_nsec));
  }
};

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// The memory of this process that is in RAM, in bytes.
double residentBytes() {
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

std::string customer(std::int32_t row) {
  std::string digits = std::to_string(row * std::int64_t{7919} % 10'000'000);
  return "cust-" + std::string(7 - std::min<std::size_t>(7, digits.size()), '0') + digits;
}

// What the checks expect the loaded rows to add up to.
struct Expected {
  std::int64_t quantity = 0;
  std::int64_t cents = 0;
};

Expected writeRows(const std::string& path) {
  constexpr const char* cities[] = {"Aachen-Mitte", "Bonn-Beuel  ", "K\xC3\xB6ln-Deutz ", "Essen, West "};
  std::ofstream out(path, std::ios::binary);
  Expected expected;
  out << "ID,QTY,YEAR,STAMP,AMOUNT,RATE,CUSTOMER,CITY,NOTE,CODE\n";
  for (std::int32_t row = 1; row <= rowCount; ++row) {
    const std::int64_t quantity = row * std::int64_t{31} % 997 - 100;
    const std::int64_t cents = row * std::int64_t{104729} % 10'000'000;
    expected.quantity += quantity;
    expected.cents += cents;
    char numbers[160];
    std::snprintf(numbers, sizeof numbers, "%d,%lld,%d,%lld,%lld.%02lld,0.%04d,", row,
                  static_cast<long long>(quantity), 1990 + row % 35, 1'600'000'000'000LL + row,
                  static_cast<long long>(cents / 100), static_cast<long long>(cents % 100), row % 10000);
    const char* const city = cities[row % 4];
    const bool quoted = std::string_view(city).find(',') != std::string_view::npos;
    out << numbers << customer(row) << ',' << (quoted ? "\"" : "") << city << (quoted ? "\"" : "") << ",note "
        << row % 1000 << " more,C" << 100'000'000 + row << "-X\n";
  }
  return expected;
}

void checkRows(MemoryDataSet& rows, const Expected& expected) {
  std::int32_t count = 0;
  rows.GetRowCount(count);
  check(count == rowCount, "row count");
  constexpr std::int32_t types[] = {columnInteger, columnInteger, columnInteger, columnLong, columnDecimal,
                                    columnDecimal, columnText,    columnText,    columnText, columnText};
  for (std::int32_t column = 1; column <= 10; ++column) {
    std::int32_t type = 0;
    rows.GetColumnType(column, type);
    check(type == types[column - 1], "column type");
  }
  XValue sum;
  rows.SumRange(2, 0, 0, sum);
  check(sum.asInt64() == expected.quantity, "sum of QTY");
  rows.SumRange(5, 0, 0, sum);
  check(sum == XValue::ofDouble(static_cast<double>(expected.cents) / 100), "sum of AMOUNT");
  XString text;
  for (const std::int32_t row : {1, 3, 499'999, rowCount}) {
    rows.GetText(row, 7, text);
    check(text.toUtf8() == customer(row), "CUSTOMER");
    rows.GetText(row, 10, text);
    check(text.toUtf8() == "C" + std::to_string(100'000'000 + row) + "-X", "CODE");
  }
  rows.GetText(3, 8, text);
  check(text == u"Essen, West ", "CITY in quotes");
}

void measureTexts(MemoryDataSet& rows) {
  const auto start = Clock::now();
  XString text;
  std::int64_t units = 0;
  for (std::int32_t row = 1; row <= rowCount; ++row) {
    rows.GetText(row, 5, text);
    units += text.length();
    rows.GetText(row, 7, text);
    units += text.length();
  }
  std::printf("text of a cell               %8.1f ns\n", secondsSince(start) * 1e9 / (2.0 * rowCount));
  check(units > 15 * std::int64_t{rowCount}, "lengths of texts");
}

void measureUse(MemoryDataSet& rows) {
  auto start = Clock::now();
  rows.SetSortExpr(XString(u"+CITY,-AMOUNT"));
  rows.ApplySort();
  std::printf("sort by text and decimal     %8.1f ms\n", secondsSince(start) * 1e3);
  XValue above;
  XValue below;
  bool ordered = true;
  int cityChanges = 0;
  for (std::int32_t row = 1; ordered && row < rowCount; ++row) {
    rows.GetValue(row, 8, above);
    rows.GetValue(row + 1, 8, below);
    if (!(above == below)) {
      ++cityChanges;
      continue;
    }
    rows.GetValue(row, 5, above);
    rows.GetValue(row + 1, 5, below);
    ordered = above.asDouble() >= below.asDouble();
  }
  check(ordered && cityChanges == 3, "order after the sort");

  start = Clock::now();
  std::int32_t found = 0;
  rows.FindRow(XString(u"CODE"), XString(u"C100777777-X"), found);
  std::printf("first find (builds an index) %8.1f ms\n", secondsSince(start) * 1e3);
  XValue id;
  rows.GetValue(found, 1, id);
  check(id == XValue::ofInt(777'777), "found row");

  start = Clock::now();
  rows.setSubsumExpr("2:CITY,1:YEAR");
  std::printf("subtotal rows of two groups  %8.1f ms\n", secondsSince(start) * 1e3);
}

int run(const std::filesystem::path& folder) {
  const std::string path = (folder / "rows.csv").string();
  const Expected expected = writeRows(path);
  const auto fileBytes = static_cast<double>(std::filesystem::file_size(path));
  const double before = residentBytes();
  const auto wallStart = std::chrono::steady_clock::now();
  auto start = Clock::now();
  auto loaded = loadCsvFile(path);
  const double seconds = secondsSince(start);
  const double wallSeconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - wallStart).count();
  if (!loaded) {
    std::printf("FAILED: %s\n", loaded.error().message().c_str());
    return 1;
  }
  MemoryDataSet rows(std::move(loaded->store));
  const double mebibytes = (residentBytes() - before) / (1 << 20);
  const double speed = fileBytes / 1e6 / seconds;
  std::printf("file                         %8.1f MB\n", fileBytes / 1e6);
  std::printf(
      "load                         %8.1f MB/s of processor time (at least %.0f), %.1f MB/s by the wall\n",
      speed, leastMegabytesPerSecond, fileBytes / 1e6 / wallSeconds);
  std::printf("resident for a million rows  %8.1f MiB (at most %.0f), cells alone %.1f MiB\n", mebibytes,
              mostMebibytes, static_cast<double>(rows.store().memoryBytes()) / (1 << 20));
  check(speed >= leastMegabytesPerSecond, "speed of loading");
  check(mebibytes <= mostMebibytes, "resident memory");
  checkRows(rows, expected);

  start = Clock::now();
  check(!writeCsvFile(rows, (folder / "copy.csv").string()), "writing");
  std::printf("write                        %8.1f MB/s\n", fileBytes / 1e6 / secondsSince(start));
  check(static_cast<double>(std::filesystem::file_size(folder / "copy.csv")) == fileBytes,
        "size of the copy");
  measureTexts(rows);
  measureUse(rows);
  return faults == 0 ? 0 : 1;
}

}  // namespace

int main() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tessera-bench-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) return 1;
  const int result = run(pattern);
  std::filesystem::remove_all(pattern);
  return result;
}
