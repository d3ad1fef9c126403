// Paints small forms and compares every pixel with the pictures in the folder expected. A form that looks
// different leaves its picture and the difference in the build folder; scripts/compare-pictures lays them
// side by side. With TESSERA_REWRITE=1 in the environment the pictures are rewritten, to be looked at before
// they are kept.

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

#include "backends/native/files.h"
#include "backends/raster/png_writer.h"
#include "pictures/picture_compare.h"
#include "tests/support/source_path.h"
#include "tools/tessera/commands.h"

namespace tessera {
namespace {

namespace fs = std::filesystem;

constexpr Size largest{200, 120};

struct PictureCase {
  const char* picture;
  const char* form;
  std::vector<const char*> commands = {};  // of the console, before the form is painted
};

const PictureCase cases[] = {
    {"alignment", "alignment"},
    {"borders", "borders"},
    {"fonts", "fonts"},
    {"check_radio", "check_radio"},
    {"check_radio_disabled", "check_radio", {"put Enable false"}},
    {"bars", "bars"},
    {"images", "images"},
    {"header", "header"},
    {"header_disabled", "header", {"mouse down 90 10", "mouse up 90 10", "put Enable false"}},
    {"tree", "tree", {"call Collapse 6", "put RowPosition 4"}},
    {"scrolled", "scrolled", {"message 276 1 0", "mouse down 8 30", "mouse up 8 30", "mouse down 8 70 ctrl"}},
    {"scrolled_top", "scrolled", {"message 276 1 0", "message 276 1 0", "put ViewSummary 2"}},
    {"unscrolled", "scrolled"},
    {"template", "template"},
    {"password_popup", "password_popup"},
    {"drop_down", "drop_down"},
    {"summary_bottom", "summary"},
    {"summary_top", "summary", {"put ViewSummary 2", "put IndicatorInfo \"<I indexnumber='true'/>\""}},
    {"indicator",
     "indicator",
     {"data stock SetTextByName 2 COUNT 8", "data stock InsertRow 3", "data stock SetTextByName 3 ITEM Ink",
      "data stock DeleteRow 5", "data stock SetCurrentRow 2"}},
    {"merged_groups", "merged_groups"},
    {"korean", "korean"},
    {"stronger_tint", "korean", {"put SelectedColor red", "put SelectedColorRate 100"}},
};

void PrintTo(const PictureCase& row, std::ostream* out) { *out << row.picture; }

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && std::string_view(value) == "1";
}

std::string expectedPath(const PictureCase& row) {
  return sourcePath("tests/pictures/expected/") + row.picture + ".png";
}

std::string outputPath(const PictureCase& row, const char* kind) {
  return std::string(TESSERA_PICTURE_OUTPUT "/") + row.picture + "." + kind + ".png";
}

BitmapRef load(const std::string& path) {
  const FileResult bytes = readFile(path);
  const auto* content = std::get_if<FileBytes>(&bytes);
  return content ? decodePicture(*content) : nullptr;
}

void runCommands(FormHost& host, const PictureCase& row) {
  std::ostringstream told;
  Transcript transcript(told, false);
  EventHandlers handlers(transcript, [](const std::string&) {});
  CommandContext context{host, handlers};
  for (const char* command : row.commands) {
    const Reply reply = runCommandLine(context, command);
    EXPECT_FALSE(reply.isError) << command;
  }
}

std::optional<Bitmap> paint(const PictureCase& row) {
  auto opened = openForm(sourcePath("tests/pictures/forms/") + row.form + ".xml");
  if (!opened) {
    ADD_FAILURE() << opened.error().message();
    return std::nullopt;
  }
  FormHost host(std::move(*opened));
  runCommands(host, row);
  host.window()->paint();
  return host.window()->canvas().snapshot();
}

void keepDifference(const PictureCase& row, const Bitmap& expected, const Bitmap& actual,
                    const Bitmap& difference) {
  fs::create_directories(TESSERA_PICTURE_OUTPUT);
  writePng(outputPath(row, "actual"), actual);
  writePng(outputPath(row, "difference"), difference);
  if (isSet("TESSERA_COMPARE")) {
    writePng(outputPath(row, "compare"), sideBySide(expected, actual, difference));
  }
}

void forgetDifference(const PictureCase& row) {
  for (const char* kind : {"actual", "difference", "compare"}) {
    std::error_code error;
    fs::remove(outputPath(row, kind), error);
  }
}

class PicturesTest : public testing::TestWithParam<PictureCase> {};

TEST_P(PicturesTest, LooksTheSameAgain) {
  const PictureCase& row = GetParam();
  const auto actual = paint(row);
  ASSERT_TRUE(actual);
  ASSERT_LE(actual->width, largest.width);
  ASSERT_LE(actual->height, largest.height);
  forgetDifference(row);
  if (isSet("TESSERA_REWRITE")) {
    ASSERT_TRUE(writePng(expectedPath(row), *actual));
    GTEST_SKIP() << "rewritten";
  }
  const BitmapRef expected = load(expectedPath(row));
  ASSERT_TRUE(expected) << expectedPath(row) << " is no picture";
  const PictureDifference difference = differenceOf(*expected, *actual);
  if (difference.count == 0) return;
  keepDifference(row, *expected, *actual, difference.picture);
  ADD_FAILURE() << difference.count << " pixels differ; see " << outputPath(row, "difference")
                << " or run scripts/compare-pictures";
}

INSTANTIATE_TEST_SUITE_P(All, PicturesTest, testing::ValuesIn(cases),
                         [](const auto& row) { return std::string(row.param.picture); });

// Every committed picture is the picture of a row.
TEST(PictureFolderTest, HoldsNothingElse) {
  std::size_t count = 0;
  for (const auto& file : fs::directory_iterator(sourcePath("tests/pictures/expected"))) {
    ++count;
    const auto* row = std::find_if(std::begin(cases), std::end(cases), [&file](const PictureCase& each) {
      return file.path() == expectedPath(each);
    });
    EXPECT_NE(row, std::end(cases)) << file.path();
  }
  EXPECT_EQ(count, std::size(cases));
}

TEST(PictureCompareTest, CountsAndMarksWhatDiffers) {
  const Bitmap expected(3, 2, 0xFF112233);
  Bitmap actual(3, 2, 0x00112233);
  EXPECT_EQ(differenceOf(expected, actual).count, 0);

  actual.pixels[4] = 0xFF112234;
  const PictureDifference one = differenceOf(expected, actual);
  EXPECT_EQ(one.count, 1);
  EXPECT_NE(one.picture.at(1, 1), one.picture.at(0, 0));

  const PictureDifference wider = differenceOf(expected, Bitmap(4, 3, 0xFF112233));
  EXPECT_EQ(wider.count, 4 * 3 - 3 * 2);
  EXPECT_EQ(wider.picture.at(3, 0), wider.picture.at(0, 2));
}

}  // namespace
}  // namespace tessera
