#include "intake/keyed_coding.h"

#include <gtest/gtest.h>

#include "tests/support/recording_platform.h"

namespace tessarine {
namespace {

std::optional<std::string> decoded(std::string_view json) {
  const auto bytes = JSONDecoder(json).decodeIfPresent("imageData");
  if (!bytes) return std::nullopt;
  return std::string(reinterpret_cast<const char*>(bytes->bytes().data()), bytes->bytes().size());
}

TEST(JSONEncoder, WritesCompactMembersInTheOrderOfEncoding) {
  JSONEncoder encoder;
  EXPECT_EQ(encoder.text(), "{}");
  encoder.encode(testing::bytesOf("fo"), "z");
  encoder.encode(testing::bytesOf(""), "a\"");
  EXPECT_EQ(encoder.text(), R"({"z":"Zm8=","a\"":""})");
}

TEST(JSONDecoder, FindsTheValueOfAKey) {
  EXPECT_EQ(decoded(R"({"imageData":"Zm8="})"), "fo");
  EXPECT_EQ(decoded(" { \"imageData\" : \"\" } "), "");
}

TEST(JSONDecoder, PassesOverKeysThatNobodyAsksFor) {
  EXPECT_EQ(decoded(R"({"imagedata":"Zm8=","ImageData":[1],"x":{"imageData":"Zm8="}})"),
            std::nullopt);
  EXPECT_EQ(decoded(R"({"other":[{}],"imageData":"Zm8="})"), "fo");
}

TEST(JSONDecoder, TakesNullAsAbsent) {
  EXPECT_EQ(decoded(R"({"imageData":null})"), std::nullopt);
}

TEST(JSONDecoder, ReadsAnEscapedSlash) {
  EXPECT_EQ(decoded(R"({"imageData":"\/\/\/\/"})"), "\xff\xff\xff");
  EXPECT_EQ(decoded(R"({"imageData":"\u005am8="})"), "fo");
}

struct BadText {
  const char* name;
  std::string json;
};

class BadJSON : public ::testing::TestWithParam<BadText> {};

TEST_P(BadJSON, IsTheDecodersError) {
  EXPECT_THROW(decoded(GetParam().json), DecodingError);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BadJSON,
    ::testing::Values(
        BadText{"empty", ""}, BadText{"noObject", "[]"}, BadText{"text", R"("imageData")"},
        BadText{"null", "null"}, BadText{"unclosed", R"({"imageData":"Zm8=")"},
        BadText{"trailing", "{} x"}, BadText{"number", R"({"imageData":1})"},
        BadText{"boolean", R"({"imageData":true})"}, BadText{"list", R"({"imageData":[90]})"},
        BadText{"object", R"({"imageData":{}})"}, BadText{"alphabet", R"({"imageData":"Zm-="})"},
        BadText{"space", R"({"imageData":"Zm 8"})"}, BadText{"noPadding", R"({"imageData":"Zm8"})"},
        BadText{"onlyPadding", R"({"imageData":"===="})"},
        BadText{"threePads", R"({"imageData":"Z==="})"},
        BadText{"padInside", R"({"imageData":"Zg==Zg=="})"},
        BadText{"strayBits", R"({"imageData":"Zm9="})"},
        BadText{"invalidUTF8", "{\"imageData\":\"\xff\"}"},
        BadText{"deep", std::string(100'000, '[')}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
