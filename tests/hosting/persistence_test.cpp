#include "hosting/persistence.h"

#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "hosting/variant_stream.h"
#include "shared/change_type.h"
#include "shared/utf.h"

namespace tessera {
namespace {

using namespace std::string_literals;

struct MemoryStream : ByteStream {
  explicit MemoryStream(std::string bytes = {}, std::size_t most = SIZE_MAX)
      : data(std::move(bytes)), room(most) {}
  bool read(std::span<std::byte> bytes) override {
    if (data.size() - position < bytes.size()) return false;
    std::memcpy(bytes.data(), data.data() + position, bytes.size());
    position += bytes.size();
    return true;
  }
  bool write(std::span<const std::byte> bytes) override {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return data.size() + text.size() <= room && (data += text, true);
  }

  std::string data;
  std::size_t position = 0;
  std::size_t room;
};

// Keeps properties by name and remembers the order of the puts.
struct FakeControl : PropertyTarget {
  FakeControl() {
    for (const PersistedProperty& property : propertyMap) {
      changeType(XValue(), property.type, values[std::u16string(property.name)]);
    }
  }
  Size& extent() override { return size; }
  HResult getProperty(std::u16string_view name, XValue& value) override {
    value = values.at(std::u16string(name));
    return S_OK;
  }
  HResult putProperty(std::u16string_view name, const XValue& value) override {
    values[std::u16string(name)] = value;
    puts += utf8FromUtf16(name) + " ";
    return S_OK;
  }

  Size size{100, 50};
  std::map<std::u16string, XValue> values;
  std::string puts;
};

struct MapBag : PropertyBag {
  bool read(const XString& name, XValue& value) override {
    const auto found = entries.find(std::u16string(name.view()));
    if (found != entries.end()) value = found->second;
    return found != entries.end();
  }
  std::map<std::u16string, XValue> entries;
};

struct OneStreamStorage : Storage {
  std::unique_ptr<ByteStream> createStream(const XString& name) override {
    return names += name.toUtf8(), nullptr;
  }
  std::unique_ptr<ByteStream> openStream(const XString& name) override {
    return names += name.toUtf8(), nullptr;
  }
  std::string names;
};

constexpr const char* mapOrder =
    "DataID Draw ColumnInfo IndicatorInfo BackgroundInfo ViewSummary SelectedColor SelectedColorRate IME "
    "ImageDataID MenuInfo Enable Sort DragDrop Resize FixVScroll FixHScroll FocusRect ViewHeader ";

TEST(VariantStream, BytesOfEveryType) {
  struct Case {
    std::string bytes;
    XValue value;
    bool writes = true;  // this program; others may
  };
  XValue four;
  four.setInteger(VT_UI4, 4'000'000'000);
  const Case cases[] = {
      {"\3\0\xFE\xFF\xFF\xFF"s, XValue::ofInt(-2)},
      {"\x0B\0\xFF\xFF"s, XValue::ofBool(true)},
      {"\5\0\0\0\0\0\0\0\xF8\x3F"s, XValue::ofDouble(1.5)},
      {"\x14\0\2\1\0\0\0\0\0\0"s, XValue::ofInt64(258)},
      {"\x08\0\6\0\0\0A\0b\0\0\0"s, XValue::ofText(u"Ab")},
      {"\x08\0\2\0\0\0\0\0"s, XValue::ofText(u"")},
      {"\7\0\0\0\0\0\0\0\2\x40"s, XValue::ofDate(2.25)},
      {"\x0A\0\x57\0\7\x80"s, XValue::ofError(hresult(0x80070057))},
      {"\0\0\2\0\0\0\0\0"s, XValue()},
      {"\x16\0\xFE\xFF\xFF\xFF"s, XValue::ofInt(-2), false},
      {"\x17\0\0\x28\x6B\xEE"s, four, false},
      {"\6\0\x88\x77\0\0\0\0\0\0"s, XValue::ofDouble(3.06), false},
  };
  for (const Case& c : cases) {
    MemoryStream stream;
    EXPECT_TRUE(!c.writes || (writeVariant(stream, c.value) == S_OK && stream.data == c.bytes));
    stream.data = c.bytes;
    XValue back;
    ASSERT_EQ(readVariant(stream, back), S_OK);
    EXPECT_TRUE(back == c.value) << textOf(back).toUtf8();
    EXPECT_EQ(stream.position, stream.data.size());
  }
  // Nothing, a type alone, texts longer than the stream, of an odd count and of a huge one, an object.
  for (const std::string& bytes : {""s, "\x08\0"s, "\x08\0\xF0\xFF\0\0A\0"s, "\x08\0\3\0\0\0A\0\0"s,
                                   "\x08\0\xFE\xFF\xFF\xFF"s, "\x09\0\1\2\3\4"s}) {
    MemoryStream stream(bytes);
    XValue value;
    EXPECT_FALSE(succeeded(readVariant(stream, value))) << ::testing::PrintToString(bytes);
  }
}

// A stream that is cut anywhere fails, after the puts that it had whole, in the order of the map.
TEST(Persistence, StreamsThatAreCut) {
  FakeControl saved;
  saved.size = {1234, -5};
  MemoryStream stream;
  ASSERT_EQ(saveToStream(saved, stream), S_OK);
  EXPECT_EQ(stream.data.substr(0, 12), "\0\3\0\0\xD2\4\0\0\xFB\xFF\xFF\xFF"s);
  for (std::size_t length = 0; length <= stream.data.size(); ++length) {
    MemoryStream cut(stream.data.substr(0, length));
    FakeControl loaded;
    const bool whole = length == stream.data.size();
    EXPECT_EQ(loadFromStream(loaded, cut), whole ? S_OK : E_FAIL) << length;
    EXPECT_TRUE(whole ? loaded.puts == mapOrder : std::string(mapOrder).starts_with(loaded.puts)) << length;
    EXPECT_TRUE(!whole || loaded.size == saved.size);
  }
  MemoryStream full({}, 40);
  EXPECT_EQ(saveToStream(saved, full), E_FAIL);
}

TEST(Persistence, BagSkipsWhatItLacksAndConverts) {
  FakeControl control;
  MapBag bag;
  bag.entries = {{u"_cy", XValue::ofText(u"77")},
                 {u"ViewHeader", XValue::ofText(u"true")},
                 {u"IME", XValue::ofText(u"2")},
                 {u"DragDrop", XValue::ofText(u"no number")},
                 {u"Temp", XValue::ofInt(1)}};
  EXPECT_EQ(loadFromBag(control, bag), S_OK);
  EXPECT_EQ(control.puts, "IME ViewHeader ");
  EXPECT_EQ(control.size, (Size{100, 77}));
  EXPECT_TRUE(control.values[u"IME"] == XValue::ofInt(2) &&
              control.values[u"ViewHeader"] == XValue::ofBool(true));
}

TEST(Persistence, StorageNamesTheStream) {
  FakeControl control;
  OneStreamStorage storage;
  EXPECT_EQ(saveToStorage(control, storage), E_FAIL);
  EXPECT_EQ(loadFromStorage(control, storage), E_FAIL);
  EXPECT_EQ(storage.names, "ContentsContents");
}

}  // namespace
}  // namespace tessera
