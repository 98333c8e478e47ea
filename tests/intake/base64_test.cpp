#include "intake/base64.h"

#include <gtest/gtest.h>

namespace tessarine {
namespace {

struct Vector {
  std::string_view plain;
  std::string_view base64;
};

// The test vectors of RFC 4648.
constexpr Vector vectors[] = {{"", ""},
                              {"f", "Zg=="},
                              {"fo", "Zm8="},
                              {"foo", "Zm9v"},
                              {"foob", "Zm9vYg=="},
                              {"fooba", "Zm9vYmE="},
                              {"foobar", "Zm9vYmFy"}};

TEST(Base64, MatchesThePublishedVectors) {
  for (const auto& [plain, base64] : vectors) {
    const std::vector<std::uint8_t> bytes(plain.begin(), plain.end());
    EXPECT_EQ(encodeBase64(bytes), base64);
    EXPECT_EQ(decodeBase64(base64), bytes);
  }
}

TEST(Base64, ComesBackForEveryByteAtEveryPlace) {
  for (int value = 0; value < 256; ++value) {
    for (std::size_t length = 1; length <= 3; ++length) {
      std::vector<std::uint8_t> bytes(length, 0x5a);
      bytes[length - 1] = static_cast<std::uint8_t>(value);
      EXPECT_EQ(decodeBase64(encodeBase64(bytes)), bytes);
    }
  }
}

TEST(Base64, RejectsWhatItCouldNotHaveMade) {
  for (const char* text :
       {"Z", "Zg", "Zg=", "=", "====", "Zg==Zg==", "Zh==", "Zm9=", "Zm9\n", "Z-9v"}) {
    EXPECT_EQ(decodeBase64(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tessarine
