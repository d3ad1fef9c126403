#include "backends/native/native_locale.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <langinfo.h>
#include <locale.h>

namespace tessera {
namespace {

std::string variable(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const char* value = std::getenv(name);
    if (value && *value) return value;
  }
  return "C";
}

// Words come out as UTF-8, whatever character set the name of the locale says.
std::string withUtf8(std::string_view name) {
  const std::size_t modifier = std::min(name.find('@'), name.size());
  const std::string_view language = name.substr(0, std::min(name.find('.'), modifier));
  return std::string(language) + ".UTF-8" + std::string(name.substr(modifier));
}

// A locale of the C library for as long as it is looked at.
class OpenLocale {
 public:
  explicit OpenLocale(const std::string& name)
      : locale_(::newlocale(LC_ALL_MASK, withUtf8(name).c_str(), nullptr)) {
    if (!locale_) locale_ = ::newlocale(LC_ALL_MASK, "C", nullptr);
  }
  ~OpenLocale() {
    if (locale_) ::freelocale(locale_);
  }
  OpenLocale(const OpenLocale&) = delete;
  OpenLocale& operator=(const OpenLocale&) = delete;

  XString format(const char* pattern, const std::tm& time) const {
    char text[256];
    const std::size_t length = ::strftime_l(text, sizeof text, pattern, &time, locale_);
    return XString::fromNarrow({text, length});
  }
  std::string_view datePattern() const { return ::nl_langinfo_l(D_FMT, locale_); }
  XString decimalPoint() const { return XString::fromNarrow(::nl_langinfo_l(RADIXCHAR, locale_)); }

 private:
  locale_t locale_;
};

const char* plainPattern(DateOrder order) {
  switch (order) {
    case DateOrder::YearMonthDay:
      return "%Y-%m-%d";
    case DateOrder::DayMonthYear:
      return "%d/%m/%Y";
    default:
      return "%m/%d/%Y";
  }
}

template <class Words>
Words readWords(const OpenLocale& locale) {
  Words words;
  std::tm time{};
  time.tm_mday = 1;
  for (XString& weekday : words.weekdays) {
    weekday = locale.format("%A", time);
    ++time.tm_wday;
  }
  time.tm_wday = 0;
  for (XString& month : words.months) {
    month = locale.format("%B", time);
    ++time.tm_mon;
  }
  return words;
}

}  // namespace

NativeLocale::NativeLocale()
    : NativeLocale(variable({"LC_ALL", "LC_TIME", "LANG"}), variable({"LANG"}),
                   variable({"LC_ALL", "LC_NUMERIC", "LANG"})) {}

NativeLocale::NativeLocale(const std::string& user, const std::string& system, const std::string& numbers) {
  const OpenLocale userLocale(user);
  user_ = readWords<Words>(userLocale);
  system_ = readWords<Words>(OpenLocale(system));
  order_ = dateOrderOf(userLocale.datePattern());
  pattern_ = XString::fromNarrow(numericDatePattern(userLocale.datePattern()));
  const XString point = OpenLocale(numbers).decimalPoint();
  if (point.length() == 1) decimalPoint_ = point.charAt(0);
}

XString NativeLocale::weekdayName(LocaleOwner owner, std::int32_t weekday) const {
  return wordsOf(owner).weekdays.at(static_cast<std::size_t>(weekday));
}

XString NativeLocale::monthName(LocaleOwner owner, std::int32_t month) const {
  return wordsOf(owner).months.at(static_cast<std::size_t>(month - 1));
}

DateOrder dateOrderOf(std::string_view pattern) {
  for (const char field : pattern) {
    if (field == 'Y' || field == 'y' || field == 'F') return DateOrder::YearMonthDay;
    if (field == 'd' || field == 'e') return DateOrder::DayMonthYear;
    if (field == 'm' || field == 'D') return DateOrder::MonthDayYear;
  }
  return DateOrder::MonthDayYear;
}

std::string numericDatePattern(std::string_view pattern) {
  static constexpr std::pair<std::string_view, std::string_view> fields[] = {
      {"%y", "%Y"}, {"%Y", "%Y"}, {"%m", "%m"}, {"%d", "%d"}, {"%e", "%d"}};
  std::string numeric;
  for (std::size_t at = 0; at < pattern.size();) {
    const auto field = std::find_if(std::begin(fields), std::end(fields),
                                    [&](const auto& known) { return pattern.substr(at, 2) == known.first; });
    const bool isSeparator = std::string_view("./- ").find(pattern[at]) != std::string_view::npos;
    if (field == std::end(fields) && !isSeparator) return plainPattern(dateOrderOf(pattern));
    numeric += field == std::end(fields) ? pattern.substr(at, 1) : field->second;
    at += isSeparator ? 1 : 2;
  }
  return numeric.empty() ? plainPattern(DateOrder::MonthDayYear) : numeric;
}

}  // namespace tessera
