#include "platform/vips/vips_library.h"

#include <gtest/gtest.h>

#include <string>

namespace tessarine {
namespace {

// Whether the loader reads a grey picture of one pixel as PPM has it.
bool reads(const char* loader) {
  const std::string ppm = "P5 1 1 255\nx";
  const Owned<VipsSource> source(vips_source_new_from_memory(ppm.data(), ppm.size()));
  VipsImage* image = nullptr;
  const bool read = vips_call(loader, source.get(), &image, nullptr) == 0;
  const Owned<VipsImage> owned(image);
  vips_error_clear();
  return read;
}

TEST(VipsLibrary, KeepsNoLoaderButThoseOfTheFormats) {
  ASSERT_TRUE(startVips());
  ASSERT_TRUE(hasLoader("ppmload_source"));
  EXPECT_FALSE(reads("ppmload_source"));
  vips_operation_block_set("VipsForeignLoadPpm", FALSE);
  EXPECT_TRUE(reads("ppmload_source"));
  vips_operation_block_set("VipsForeignLoadPpm", TRUE);
}

}  // namespace
}  // namespace tessarine
