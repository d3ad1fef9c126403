#include "hosting/persistence.h"

#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "hosting/variant_stream.h"
#include "shared/change_type.h"
#include "shared/utf.h"

namespace tessera {
namespace {

class MemoryStream : public ByteStream {
 public:
  bool read(std::span<std::byte> bytes) override {
    if (data.size() - position < bytes.size()) return false;
    std::memcpy(bytes.data(), data.data() + position, bytes.size());
    position += bytes.size();
    return true;
  }
  bool write(std::span<const std::byte> bytes) override {
    if (data.size() + bytes.size() > room) return false;
    data.insert(data.end(), bytes.begin(), bytes.end());
    return true;
  }
  std::string hex() const {
    std::string text;
    for (std::byte byte : data) {
      constexpr const char* digits = "0123456789abcdef";
      const auto value = std::to_integer<unsigned>(byte);
      text += {digits[value / 16], digits[value % 16]};
    }
    return text;
  }

  std::vector<std::byte> data;
  std::size_t position = 0;
  std::size_t room = SIZE_MAX;
};

// Keeps properties by name and remembers the order of the puts.
class FakeControl : public PropertyTarget {
 public:
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

class MapBag : public PropertyBag {
 public:
  bool read(const XString& name, XValue& value) override {
    const auto found = entries.find(std::u16string(name.view()));
    if (found == entries.end()) return false;
    value = found->second;
    return true;
  }
  std::map<std::u16string, XValue> entries;
};

class OneStreamStorage : public Storage {
 public:
  std::unique_ptr<ByteStream> createStream(const XString& name) override {
    created = name;
    return nullptr;
  }
  std::unique_ptr<ByteStream> openStream(const XString& name) override {
    opened = name;
    return nullptr;
  }
  XString created, opened;
};

constexpr const char* mapOrder =
    "DataID Draw ColumnInfo IndicatorInfo BackgroundInfo ViewSummary SelectedColor SelectedColorRate IME "
    "ImageDataID MenuInfo Enable Sort DragDrop Resize FixVScroll FixHScroll FocusRect ViewHeader ";

TEST(VariantStream, WritesTypesAsTheFormatSays) {
  struct Case {
    XValue value;
    const char* bytes;
  };
  const Case cases[] = {
      {XValue::ofInt(-2), "0300feffffff"},
      {XValue::ofBool(true), "0b00ffff"},
      {XValue::ofDouble(1.5), "0500000000000000f83f"},
      {XValue::ofInt64(258), "14000201000000000000"},
      {XValue::ofText(u"Ab"), "0800060000004100620000 00"},
      {XValue::ofText(u""), "0800020000000000"},
      {XValue::ofDate(2.25), "07000000000000000240"},
      {XValue::ofError(hresult(0x80070057)), "0a0057000780"},
      {XValue(), "0000020000000000"},
  };
  for (const Case& c : cases) {
    std::string expected = c.bytes;
    std::erase(expected, ' ');
    MemoryStream stream;
    ASSERT_EQ(writeVariant(stream, c.value), S_OK);
    EXPECT_EQ(stream.hex(), expected);
    XValue back;
    ASSERT_EQ(readVariant(stream, back), S_OK) << expected;
    EXPECT_TRUE(back == c.value) << expected;
    EXPECT_EQ(stream.position, stream.data.size());
  }
}

TEST(VariantStream, DamagedTextsFail) {
  struct Case {
    const char* what;
    std::vector<unsigned char> bytes;
  };
  const Case cases[] = {
      {"nothing", {}},
      {"type alone", {8, 0}},
      {"text longer than the stream", {8, 0, 0xF0, 0xFF, 0, 0, 65, 0}},
      {"odd byte count", {8, 0, 3, 0, 0, 0, 65, 0, 0}},
      {"huge byte count", {8, 0, 0xFE, 0xFF, 0xFF, 0xFF}},
      {"object", {9, 0, 1, 2, 3, 4}},
  };
  for (const Case& c : cases) {
    MemoryStream stream;
    for (unsigned char byte : c.bytes) stream.data.push_back(static_cast<std::byte>(byte));
    XValue value;
    EXPECT_FALSE(succeeded(readVariant(stream, value))) << c.what;
  }
}

// A stream that is cut anywhere fails, after the puts that it had whole, in the order of the map.
TEST(Persistence, StreamsThatAreCut) {
  FakeControl saved;
  saved.size = {1234, -5};
  MemoryStream stream;
  ASSERT_EQ(saveToStream(saved, stream), S_OK);
  EXPECT_EQ(stream.hex().substr(0, 24), "00030000d2040000fbffffff");
  for (std::size_t length = 0; length <= stream.data.size(); ++length) {
    MemoryStream cut;
    cut.data.assign(stream.data.begin(), stream.data.begin() + static_cast<std::ptrdiff_t>(length));
    FakeControl loaded;
    const bool whole = length == stream.data.size();
    EXPECT_EQ(loadFromStream(loaded, cut), whole ? S_OK : E_FAIL) << length;
    EXPECT_TRUE(whole ? loaded.puts == mapOrder : std::string(mapOrder).starts_with(loaded.puts)) << length;
    EXPECT_TRUE(!whole || loaded.size == saved.size);
  }
  MemoryStream full;
  full.room = 40;
  EXPECT_EQ(saveToStream(saved, full), E_FAIL);
}

TEST(Persistence, BagSkipsWhatItLacksAndConverts) {
  FakeControl control;
  MapBag bag;
  bag.entries[u"_cy"] = XValue::ofText(u"77");
  bag.entries[u"ViewHeader"] = XValue::ofText(u"true");
  bag.entries[u"IME"] = XValue::ofText(u"2");
  bag.entries[u"DragDrop"] = XValue::ofText(u"no number");
  bag.entries[u"Temp"] = XValue::ofInt(1);
  EXPECT_EQ(loadFromBag(control, bag), S_OK);
  EXPECT_EQ(control.puts, "IME ViewHeader ");
  EXPECT_EQ(control.size, (Size{100, 77}));
  EXPECT_TRUE(control.values[u"IME"] == XValue::ofInt(2));
  EXPECT_TRUE(control.values[u"ViewHeader"] == XValue::ofBool(true));
}

TEST(VariantStream, ReadsTypesOfOtherWriters) {
  struct Case {
    std::vector<unsigned char> bytes;
    XValue value;
  };
  XValue four;
  four.setInteger(VT_UI4, 4'000'000'000);
  const Case cases[] = {
      {{22, 0, 0xFE, 0xFF, 0xFF, 0xFF}, XValue::ofInt(-2)},
      {{23, 0, 0x00, 0x28, 0x6B, 0xEE}, four},
      {{6, 0, 0x88, 0x77, 0, 0, 0, 0, 0, 0}, XValue::ofDouble(3.06)},
  };
  for (const Case& c : cases) {
    MemoryStream stream;
    for (unsigned char byte : c.bytes) stream.data.push_back(static_cast<std::byte>(byte));
    XValue value;
    ASSERT_EQ(readVariant(stream, value), S_OK);
    EXPECT_TRUE(value == c.value) << textOf(value).toUtf8();
    EXPECT_EQ(stream.position, stream.data.size());
  }
}

TEST(Persistence, StorageNamesTheStream) {
  FakeControl control;
  OneStreamStorage storage;
  EXPECT_EQ(saveToStorage(control, storage), E_FAIL);
  EXPECT_EQ(loadFromStorage(control, storage), E_FAIL);
  EXPECT_EQ(storage.created, u"Contents");
  EXPECT_EQ(storage.opened, u"Contents");
}

}  // namespace
}  // namespace tessera
