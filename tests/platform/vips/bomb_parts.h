#pragma once

#include <libdeflate.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

// What hostile files are put together from.
namespace tessarine::testing {

inline std::string little(std::uint64_t value, int count) {
  std::string bytes;
  for (; count > 0; --count, value >>= 8) bytes.push_back(static_cast<char>(value & 0xff));
  return bytes;
}

inline std::string big(std::uint64_t value, int count) {
  const std::string bytes = little(value, count);
  return {bytes.rbegin(), bytes.rend()};
}

inline std::string packed(std::string_view plain, bool asGzip) {
  libdeflate_compressor* compressor = libdeflate_alloc_compressor(9);
  std::string out(plain.size() / 100 + 1000, '\0');
  out.resize(asGzip ? libdeflate_gzip_compress(compressor, plain.data(), plain.size(), out.data(),
                                               out.size())
                    : libdeflate_zlib_compress(compressor, plain.data(), plain.size(), out.data(),
                                               out.size()));
  libdeflate_free_compressor(compressor);
  return out;
}

inline std::string pngChunk(std::string_view type, std::string_view data) {
  const std::string body = std::string(type) + std::string(data);
  return big(data.size(), 4) + body + big(libdeflate_crc32(0, body.data(), body.size()), 4);
}

// `extra` goes between the header and the pixels.
inline std::string png(std::uint32_t width, std::uint32_t height, const std::string& pixels,
                       const std::string& extra = {}) {
  return "\x89PNG\r\n\x1a\n" +
         pngChunk("IHDR", big(width, 4) + big(height, 4) + std::string("\x08\0\0\0\0", 5)) + extra +
         pngChunk("IDAT", packed(pixels, false)) + pngChunk("IEND", "");
}

inline std::string sample(std::string_view name) {
  std::ifstream file(TESSARINE_SOURCE_DIR "/tests/platform/vips/samples/" + std::string(name),
                     std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

// The bytes behind the `skip` bytes that follow `mark` replaced.
inline std::string patched(std::string bytes, std::string_view mark, std::size_t skip,
                           const std::string& with) {
  return bytes.replace(bytes.find(mark) + mark.size() + skip, with.size(), with);
}

}  // namespace tessarine::testing
