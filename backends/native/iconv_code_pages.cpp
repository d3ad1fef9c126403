#include "backends/native/iconv_code_pages.h"

#include <array>
#include <cerrno>
#include <iconv.h>

#include "shared/utf.h"

namespace tessera {
namespace {

constexpr std::int32_t utf8CodePage = 65001;

class Converter {
 public:
  explicit Converter(const std::string& target) : handle_(iconv_open(target.c_str(), "UTF-8")) {}
  ~Converter() {
    if (good()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool good() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  std::string convert(std::string text) {
    std::string narrow;
    char* in = text.data();
    std::size_t left = text.size();
    while (left > 0) {
      std::array<char, 256> piece;
      char* out = piece.data();
      std::size_t room = piece.size();
      const std::size_t status = iconv(handle_, &in, &left, &out, &room);
      narrow.append(piece.data(), piece.size() - room);
      if (status != static_cast<std::size_t>(-1) || errno == E2BIG) continue;
      narrow += '?';
      skipCharacter(in, left);
    }
    return narrow;
  }

 private:
  // One character of UTF-8: its first byte and the bytes that continue it.
  static void skipCharacter(char*& in, std::size_t& left) {
    do {
      ++in;
      --left;
    } while (left > 0 && (static_cast<unsigned char>(*in) & 0xC0) == 0x80);
  }

  iconv_t handle_;
};

}  // namespace

std::string IconvCodePages::toNarrow(std::int32_t codePage, std::u16string_view text) {
  std::string utf8 = utf8FromUtf16(text);
  if (codePage == 0 || codePage == utf8CodePage) return utf8;
  Converter converter("CP" + std::to_string(codePage));
  return converter.good() ? converter.convert(std::move(utf8)) : utf8;
}

}  // namespace tessera
