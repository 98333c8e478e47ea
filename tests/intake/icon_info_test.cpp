#include "intake/icon_info.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <map>
#include <stdexcept>

#include "tests/support/memory_limit.h"
#include "tests/support/recording_platform.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

std::string textOf(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class RecordingItem final : public PasteboardItem {
 public:
  void setData(std::span<const std::uint8_t> data, std::string_view type) override {
    given.emplace(type, textOf(data));
  }
  std::map<std::string, std::string> given;
};

IconInfo holding(std::string_view bytes) {
  IconInfo iconInfo;
  iconInfo.imageData = testing::bytesOf(bytes);
  return iconInfo;
}

std::map<std::string, std::string> provided(const IconInfo& iconInfo, std::string_view type) {
  RecordingItem item;
  iconInfo.providePasteboardData(item, type);
  return item.given;
}

// Ends with status 0 when lack of memory costs a held picture its JSON but not its TIFF.
[[noreturn]] void provideWithoutMemory() {
  class CountingItem final : public PasteboardItem {
   public:
    void setData(std::span<const std::uint8_t>, std::string_view) override { ++count; }
    int count = 0;
  };
  IconInfo iconInfo;
  iconInfo.imageData = ByteBuffer(MemoryBlock::allocate(64 << 20).value());
  testing::leaveMemory(1 << 20);
  CountingItem json;
  iconInfo.providePasteboardData(json, customPasteboardType());
  CountingItem tiff;
  iconInfo.providePasteboardData(tiff, pasteboardTypeTIFF);
  std::_Exit(json.count == 0 && tiff.count == 1 ? 0 : 1);
}

TEST(IconInfo, StartsWithoutAPicture) {
  testing::RecordingPlatform host;
  EXPECT_FALSE(IconInfo().imageData.has_value());
  EXPECT_FALSE(IconInfo().image(host.pictures).has_value());
  EXPECT_THAT(host.journal, IsEmpty());
}

TEST(IconInfo, DecodesItsPictureAfreshAtEachCall) {
  testing::RecordingPlatform host;
  host.pictures.decodable["bytes"] = testing::plainPicture({2, 3});
  const IconInfo iconInfo = holding("bytes");
  EXPECT_EQ(iconInfo.image(host.pictures)->points, (PixelSize{2, 3}));
  EXPECT_TRUE(iconInfo.image(host.pictures).has_value());
  EXPECT_THAT(host.journal, ElementsAre("decode bytes", "decode bytes"));
}

TEST(IconInfo, HasNoPictureWhenTheBytesDoNotDecode) {
  testing::RecordingPlatform host;
  EXPECT_FALSE(holding("bytes").image(host.pictures).has_value());
}

TEST(IconInfo, OffersItsOwnTypeAndTIFFOnlyWhileAPictureIsHeld) {
  EXPECT_THAT(IconInfo().writableTypesForPasteboard(), ElementsAre(customPasteboardType()));
  EXPECT_THAT(holding("x").writableTypesForPasteboard(),
              ElementsAre(customPasteboardType(), std::string(pasteboardTypeTIFF)));
}

TEST(IconInfo, HasNoPropertyListForAnyType) {
  const IconInfo iconInfo = holding("x");
  for (const std::string& type : iconInfo.writableTypesForPasteboard()) {
    EXPECT_EQ(iconInfo.pasteboardPropertyListForType(type), std::nullopt);
  }
  EXPECT_EQ(iconInfo.pasteboardPropertyListForType("text/plain"), std::nullopt);
}

TEST(IconInfo, ProvidesItsOwnTypeAsCompactJSON) {
  const std::string type = customPasteboardType();
  EXPECT_THAT(provided(IconInfo(), type), ElementsAre(Pair(type, "{}")));
  EXPECT_THAT(provided(holding("\xfb\xff\xbf"), type),
              ElementsAre(Pair(type, R"({"imageData":"+/+/"})")));
}

TEST(IconInfoMemory, LeavesTheJSONOutWhenRefused) {
  if (!testing::memoryCanBeLimited()) GTEST_SKIP() << "memory cannot be limited";
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(provideWithoutMemory(), ::testing::ExitedWithCode(0), "");
}

TEST(IconInfo, ProvidesTIFFAsTheStoredBytes) {
  const std::string type(pasteboardTypeTIFF);
  const std::string_view bytes("II*\0bytes", 9);
  EXPECT_THAT(provided(holding(bytes), type), ElementsAre(Pair(type, std::string(bytes))));
  EXPECT_THAT(provided(IconInfo(), type), IsEmpty());
}

TEST(IconInfo, ProvidesNothingForOtherTypes) {
  std::string shouted(pasteboardTypeTIFF);
  shouted.front() = 'I';
  for (const std::string& type : {std::string("image/png"), std::string(), shouted,
                                  customPasteboardType() + " ", customPasteboardType("other")}) {
    EXPECT_THAT(provided(holding("x"), type), IsEmpty()) << type;
  }
}

TEST(IconInfo, NamesItsTypeAfterTheBundle) {
  EXPECT_EQ(customPasteboardType("com.example.Icons"), "com.example.Icons.avatarInfoCustomUTI");
  EXPECT_EQ(customPasteboardType(std::nullopt), ".avatarInfoCustomUTI");
  EXPECT_EQ(customPasteboardType(), std::string(bundleIdentifier) + ".avatarInfoCustomUTI");
}

TEST(IconInfo, ComesBackFromItsCoding) {
  for (const IconInfo& original : {IconInfo(), holding(""), holding(std::string("\0\xff/", 3))}) {
    JSONEncoder encoder;
    original.encode(encoder);
    const IconInfo copy{JSONDecoder(encoder.text())};
    ASSERT_EQ(copy.imageData.has_value(), original.imageData.has_value());
    if (copy.imageData) {
      EXPECT_EQ(textOf(copy.imageData->bytes()), textOf(original.imageData->bytes()));
    }
  }
}

TEST(IconInfo, EncodesNoKeyWithoutAPicture) {
  class Recorder final : public KeyedEncoder {
   public:
    void encode(const ByteBuffer&, std::string_view key) override { keys.emplace_back(key); }
    std::vector<std::string> keys;
  } recorder;
  IconInfo().encode(recorder);
  EXPECT_THAT(recorder.keys, IsEmpty());
  holding("x").encode(recorder);
  EXPECT_THAT(recorder.keys, ElementsAre("imageData"));
}

TEST(IconInfo, PassesOnTheErrorOfItsEncoder) {
  class Refusing final : public KeyedEncoder {
   public:
    void encode(const ByteBuffer&, std::string_view) override { throw std::runtime_error("full"); }
  } refusing;
  EXPECT_THROW(holding("x").encode(refusing), std::runtime_error);
}

TEST(IconInfo, PassesOnTheErrorOfItsDecoder) {
  EXPECT_THROW(IconInfo(JSONDecoder(R"({"imageData":7})")), DecodingError);
}

}  // namespace
}  // namespace tessarine
