#include <algorithm>
#include <cstring>
#include <fmt/printf.h>

#include <tessera/xstring.h>

#include "shared/utf.h"

namespace tessera {
namespace {

using Buffer = fmt::basic_memory_buffer<char16_t, 256>;

// The most characters that one conversion may ask for, so that a damaged pattern cannot take all memory.
constexpr int maxField = 4095;

struct Conversion {
  char flags[6] = {};  // of "-+ #0", each once
  int width = 0;
  int precision = -1;  // negative: not given
  char type = 0;

  bool has(char flag) const { return std::strchr(flags, flag) != nullptr; }
  void add(char flag) {
    if (!has(flag)) flags[std::strlen(flags)] = flag;
  }
};

void appendText(Buffer& out, const Conversion& conversion, std::u16string_view text) {
  if (conversion.precision >= 0) text = text.substr(0, static_cast<std::size_t>(conversion.precision));
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::u16string padding(width > text.size() ? width - text.size() : 0, u' ');
  if (!conversion.has('-')) out.append(padding.data(), padding.data() + padding.size());
  out.append(text.data(), text.data() + text.size());
  if (conversion.has('-')) out.append(padding.data(), padding.data() + padding.size());
}

template <class Number>
void appendNumber(Buffer& out, const Conversion& conversion, Number number) {
  fmt::basic_memory_buffer<char, 32> pattern;
  fmt::format_to(std::back_inserter(pattern), "%{}", conversion.flags);
  if (conversion.width > 0) fmt::format_to(std::back_inserter(pattern), "{}", conversion.width);
  if (conversion.precision >= 0) fmt::format_to(std::back_inserter(pattern), ".{}", conversion.precision);
  pattern.push_back(conversion.type);
  for (char c : fmt::sprintf(fmt::string_view(pattern.data(), pattern.size()), number)) out.push_back(c);
}

// The code unit of a number; a fraction goes, and what no unit can hold shows as the replacement character.
template <class Number>
char16_t codeUnitOf(Number number) {
  if constexpr (std::is_floating_point_v<Number>) {
    return number > -1 && number < 0x10000 ? static_cast<char16_t>(number) : u'\uFFFD';
  } else {
    return static_cast<char16_t>(number);
  }
}

// Prints one argument; a number becomes what the conversion expects.
struct Printer {
  Buffer& out;
  Conversion conversion;

  void operator()(std::u16string_view text) const { appendText(out, conversion, text); }
  void operator()(std::string_view text) const { appendText(out, conversion, utf16FromUtf8(text)); }
  template <class Number>
  void operator()(Number number) const {
    if (std::strchr("fFeEgGaA", conversion.type)) {
      appendNumber(out, conversion, static_cast<double>(number));
    } else if (conversion.type == 'c') {
      const char16_t unit = codeUnitOf(number);
      appendText(out, conversion, {&unit, 1});
    } else if (conversion.type == 's') {
      appendText(out, conversion, utf16FromUtf8(fmt::format("{}", number)));
    } else if constexpr (std::is_floating_point_v<Number>) {
      constexpr double limit = 9223372036854774784.0;  // the last double within 64 bits
      const double kept = number == number ? std::clamp(number, -limit, limit) : 0;
      appendNumber(out, conversion, static_cast<long long>(kept));
    } else {
      appendNumber(out, conversion, number);
    }
  }
};

template <class Argument>
class PatternReader {
 public:
  PatternReader(std::string_view pattern, const Argument* begin, const Argument* end)
      : pattern_(pattern), argument_(begin), end_(end) {}

  void write(Buffer& out) {
    while (!pattern_.empty()) {
      const std::size_t literal = std::min(pattern_.find('%'), pattern_.size());
      const std::u16string text = utf16FromUtf8(pattern_.substr(0, literal));
      out.append(text.data(), text.data() + text.size());
      pattern_.remove_prefix(literal);
      if (pattern_.empty()) return;
      pattern_.remove_prefix(1);
      writeConversion(out);
    }
  }

 private:
  void writeConversion(Buffer& out) {
    const Conversion conversion = readConversion();
    if (conversion.type == '%') return out.push_back(u'%');
    if (!conversion.type || !std::strchr("diouxXfFeEgGaAcs", conversion.type)) return;
    if (argument_ != end_) std::visit(Printer{out, conversion}, *argument_++);
  }

  Conversion readConversion() {
    Conversion conversion;
    while (!pattern_.empty() && std::strchr("-+ #0", pattern_.front())) conversion.add(take());
    conversion.width = readCount();
    if (conversion.width < 0) conversion.add('-');
    conversion.width = std::min(conversion.width < 0 ? -conversion.width : conversion.width, maxField);
    if (!pattern_.empty() && pattern_.front() == '.') {
      take();
      conversion.precision = readCount();
    }
    while (!pattern_.empty() && std::strchr("hlLqjzt", pattern_.front())) take();
    if (!pattern_.empty()) conversion.type = take();
    return conversion;
  }

  // Digits, or a '*' that takes the next argument.
  int readCount() {
    if (!pattern_.empty() && pattern_.front() == '*') {
      take();
      return argument_ == end_ ? 0 : std::visit(CountOf{}, *argument_++);
    }
    int count = 0;
    while (!pattern_.empty() && pattern_.front() >= '0' && pattern_.front() <= '9') {
      count = std::min(count * 10 + (take() - '0'), maxField);
    }
    return count;
  }

  struct CountOf {
    int operator()(std::string_view) const { return 0; }
    int operator()(std::u16string_view) const { return 0; }
    template <class Number>
    int operator()(Number number) const {
      const auto value = static_cast<double>(number);
      return value == value ? static_cast<int>(std::clamp(value, -double{maxField}, double{maxField})) : 0;
    }
  };

  char take() {
    const char c = pattern_.front();
    pattern_.remove_prefix(1);
    return c;
  }

  std::string_view pattern_;
  const Argument* argument_;
  const Argument* end_;
};

}  // namespace

void XString::formatList(const char* pattern, std::initializer_list<FormatArgument> arguments) {
  Buffer out;
  PatternReader<FormatArgument>(pattern, arguments.begin(), arguments.end()).write(out);
  assign({out.data(), out.size()});
}

}  // namespace tessera
