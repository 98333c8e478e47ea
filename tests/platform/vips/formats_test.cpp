#include <glib.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "platform/vips/decoder.h"
#include "platform/vips/formats.h"
#include "platform/vips/vips_pictures.h"
#include "tests/platform/vips/drawn_pictures.h"
#include "tests/platform/vips/samples.h"

namespace tessarine {
namespace {

using testing::Blocks;
using testing::Pixel;
using testing::pixelAt;
using testing::Sample;
using SixPixels = std::array<Pixel, 6>;

const std::string folder = TESSARINE_SOURCE_DIR "/tests/platform/vips/samples/";

constexpr Pixel red{200, 30, 40, 255};
constexpr Pixel green{30, 180, 60, 255};
constexpr Pixel blue{40, 60, 210, 255};
constexpr Pixel black{20, 20, 20, 255};
constexpr Pixel orange{240, 160, 30, 255};

constexpr Pixel level(std::uint8_t grey, std::uint8_t alpha = 255) {
  return {grey, grey, grey, alpha};
}

SixPixels asComputed(const std::string& name) {
  std::ifstream file(folder + "colours.txt");
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string word;
    words >> word;
    if (word != name) continue;
    SixPixels pixels{};
    for (Pixel& pixel : pixels) {
      int r = 0, g = 0, b = 0;
      words >> r >> g >> b;
      pixel = {static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g),
               static_cast<std::uint8_t>(b), 255};
    }
    EXPECT_TRUE(words) << name;
    return pixels;
  }
  ADD_FAILURE() << name;
  return {};
}

SixPixels withAlphaOf(SixPixels pixels, const SixPixels& others) {
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i].alpha = others[i].alpha;
  return pixels;
}

SixPixels expected(Blocks blocks) {
  constexpr Pixel clear = level(250, 0);
  switch (blocks) {
    case Blocks::opaque:
      return {red, green, blue, level(250), black, orange};
    case Blocks::clear:
      return {red, green, blue, clear, black, Pixel{240, 160, 30, 128}};
    case Blocks::binary:
      return {red, green, blue, clear, black, orange};
    case Blocks::grey:
      return {level(0), level(60), level(120), level(180), level(220), level(255)};
    case Blocks::greyClear:
      return {level(0), level(60), level(120), level(180), level(220, 0), level(255, 128)};
    case Blocks::blackAndWhite:
      return {level(0), level(0), level(0), level(255), level(0), level(255)};
    case Blocks::p3:
      return asComputed("p3");
    case Blocks::p3Clear:
      return withAlphaOf(asComputed("p3"), expected(Blocks::clear));
    case Blocks::adobe:
      return asComputed("adobe");
    case Blocks::greyProfile:
      return asComputed("grey");
    case Blocks::cmyk:
      return asComputed("cmyk");
  }
  return {};
}

bool areAlike(Pixel is, Pixel should, int tolerance) {
  const auto near = [tolerance](int a, int b) { return std::abs(a - b) <= tolerance; };
  if (!near(is.alpha, should.alpha)) return false;
  // The colour of what cannot be seen is nobody's concern.
  return should.alpha == 0 ||
         (near(is.red, should.red) && near(is.green, should.green) && near(is.blue, should.blue));
}

std::string printed(Pixel pixel) {
  return std::to_string(pixel.red) + " " + std::to_string(pixel.green) + " " +
         std::to_string(pixel.blue) + " " + std::to_string(pixel.alpha);
}

class DecodedSample : public ::testing::TestWithParam<Sample> {};

TEST_P(DecodedSample, LooksAsItWasDrawn) {
  const Sample& sample = GetParam();
  const Decoded decoded = decodePictureFile(folder + std::string(sample.file));
  ASSERT_TRUE(decoded.picture) << decoded.refusal;
  EXPECT_EQ(decoded.picture->points, sample.size);
  const Bitmap& bitmap = required(decoded.picture->bitmap);
  ASSERT_EQ(bitmap.size(), sample.size);

  const SixPixels blocks = expected(sample.blocks);
  constexpr std::int64_t steps = 16;
  // Away from the edges, which lossy formats blur.
  for (std::int64_t v = 4; v <= 12; v += 4) {
    for (std::int64_t u = 4; u <= 12; u += 4) {
      for (std::int64_t block = 0; block < 6; ++block) {
        const auto x = (block % 3 * steps + u) * sample.size.width / (3 * steps);
        const auto y = (block / 3 * steps + v) * sample.size.height / (2 * steps);
        const Pixel is = pixelAt(bitmap, x, y);
        const Pixel should = blocks[static_cast<std::size_t>(block)];
        EXPECT_TRUE(areAlike(is, should, sample.tolerance))
            << "at " << x << ", " << y << ": " << printed(is) << " is not " << printed(should);
      }
    }
  }
}

std::string testName(const ::testing::TestParamInfo<Sample>& row) {
  std::string name(row.param.file);
  for (char& letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) letter = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, DecodedSample, ::testing::ValuesIn(testing::samples), testName);

TEST(JPEG, MayHaveFillBytesBeforeAMarker) {
  std::stringstream file;
  file << std::ifstream(folder + "rgb.jpg", std::ios::binary).rdbuf();
  std::string bytes = file.str();
  bytes.insert(2, "\xff\xff");
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  const Decoded decoded = decodePicture(ByteBuffer({first, bytes.size()}, nullptr));
  ASSERT_TRUE(decoded.picture) << decoded.refusal;
  EXPECT_EQ(decoded.picture->points, (PixelSize{48, 32}));
}

TEST(Formats, AreAllSampled) {
  std::set<std::string_view> sampled;
  for (const Sample& sample : testing::samples) sampled.insert(sample.format);
  std::set<std::string_view> known;
  for (const Format& format : formats()) known.insert(format.name);
  EXPECT_EQ(sampled, known);
}

TEST(Formats, AreRecognisedAsWhatTheyAre) {
  for (const Sample& sample : testing::samples) {
    std::ifstream file(folder + std::string(sample.file), std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    const std::string text = contents.str().substr(0, headSize);
    const Format* format =
        formatOf({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    ASSERT_NE(format, nullptr) << sample.file;
    EXPECT_EQ(format->name, sample.format) << sample.file;
  }
}

Decoded decodeText(const std::string& text) {
  return decodePicture(
      ByteBuffer({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, nullptr));
}

TEST(Formats, IncludeDrawingsWhateverPrecedesTheirElement) {
  const std::string drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="3" height="2"/>)";
  const std::string longComment = "<!--" + std::string(60'000, 'x') + "-->";
  for (const std::string& prologue :
       {std::string("\xef\xbb\xbf<?xml version='1.0'?>\n"), longComment,
        std::string(R"(<!DOCTYPE svg SYSTEM "a]>.dtd">)"), std::string("<!DOCTYPE svg [ ]>"),
        std::string("<!DOCTYPE svg [\n<!ENTITY a 'b'>\n] >\n<!-- -->"),
        std::string(R"(<!DOCTYPE svg [<!ENTITY a "]>'"><!-- ' ]> <g -->)"
                    R"(<?b ]> <g ?><!ELEMENT svg ANY>]>)")}) {
    EXPECT_EQ(decodeText(prologue + drawing).refusal, "") << prologue.substr(0, 100);
  }
  for (const std::string& other :
       {"<!-- " + drawing, "<!DOCTYPE svg [<!ENTITY a '" + drawing + "'>]><html/>",
        "<!DOCTYPE svg [" + drawing, "<!-->" + drawing, "words " + drawing}) {
    EXPECT_EQ(decodeText(other).refusal, "not a picture of a kind that can be read") << other;
  }
}

TEST(Formats, AreReadOnlyWithLoaderAndCodec) {
  for (const Format& format : formats()) {
    EXPECT_TRUE(canBeRead(format)) << format.name;
    Format lacking = format;
    lacking.loader = "nosuchload_source";
    EXPECT_FALSE(canBeRead(lacking)) << format.name;
    if (format.sample == nullptr) continue;
    // As a codec that is missing would refuse it.
    const std::string half(format.sample, std::strlen(format.sample) / 2);
    lacking = format;
    lacking.sample = half.c_str();
    EXPECT_FALSE(canBeRead(lacking)) << format.name;
  }
}

TEST(Formats, HaveSamplesOfTheirOwnKind) {
  for (const Format& format : formats()) {
    if (format.sample == nullptr) continue;
    std::size_t size = 0;
    const std::unique_ptr<guchar, decltype(&g_free)> sample(g_base64_decode(format.sample, &size),
                                                            g_free);
    EXPECT_EQ(formatOf({sample.get(), size}), &format) << format.name;
  }
}

// Every type that the program states at a drop has a sample above that was read.
TEST(Formats, AreStatedInOrderAndOnce) {
  VipsPictures pictures;
  const auto types = pictures.imageTypes();
  std::vector<std::string> listed;
  for (const Format& format : formats()) {
    listed.insert(listed.end(), format.mimeTypes.begin(), format.mimeTypes.end());
  }
  EXPECT_EQ(types, listed);
  EXPECT_EQ(std::set(types.begin(), types.end()).size(), types.size());
}

}  // namespace
}  // namespace tessarine
