#include "tests/platform/vips/bombs.h"

#include "tests/platform/vips/bomb_parts.h"

namespace tessarine::testing {

namespace {

// A code stream whose header declares 2^30 pixels in both directions.
std::string hugeJPEGXL() {
  std::string bits =
      "0"
      "11" +
      std::string(30, '1') +
      "000"
      "11" +
      std::string(30, '1') + "1";
  bits.resize((bits.size() + 7) / 8 * 8, '0');
  std::string bytes = "\xff\x0a";
  for (std::size_t at = 0; at < bits.size(); at += 8) {
    int byte = 0;
    for (std::size_t bit = 0; bit < 8; ++bit) byte |= (bits[at + bit] - '0') << bit;
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes + std::string(100, '\0');
}

std::string manyTexts() {
  const std::string text =
      pngChunk("zTXt", std::string("a\0\0", 3) + packed(std::string(7'000'000, '\0'), false));
  std::string texts;
  for (int i = 0; i < 1000; ++i) texts += text;
  return texts;
}

// Every scan of a progressive JPEG is a walk over the whole picture, however short it is.
// `between` stands before each scan.
std::string manyScans(const std::string& between) {
  std::string bytes = sample("progressive.jpg");
  const auto frame = bytes.find("\xff\xc2");
  bytes.replace(frame + 5, 4, big(16000, 2) + big(16000, 2));
  const auto scan = bytes.find("\xff\xda");
  const auto end = bytes.find("\xff", scan + 2);
  const std::string first = bytes.substr(scan, end - scan);
  bytes.resize(scan);
  for (int i = 0; i < 20000; ++i) bytes += between + first;
  return bytes + "\xff\xd9";
}

std::string webpCanvas() {
  const std::string body = "WEBPVP8X" + little(10, 4) + std::string("\x10\0\0\0", 4) +
                           little(0xffffff, 3) + little(0xffffff, 3);
  return "RIFF" + little(body.size(), 4) + body;
}

std::string bmp(std::uint32_t width, std::uint32_t height, std::uint32_t compression) {
  return "BM" + little(200, 4) + little(0, 4) + little(54, 4) + little(40, 4) + little(width, 4) +
         little(height, 4) + little(1, 2) + little(compression == 1 ? 8 : 24, 2) +
         little(compression, 4) + std::string(20, '\0') + std::string(200, '\1');
}

std::string tgaWith(std::size_t place, const std::string& mark) {
  const std::string head = std::string("\0\0\2\0\0\0\0\0\0\0\0\0", 12) + little(40, 2) +
                           little(40, 2) + std::string("\x18\0", 2);
  return (head + std::string(4800, '\1')).replace(place, mark.size(), mark);
}

}  // namespace

std::vector<Bomb> rasterBombs() {
  const std::string blank = png(1, 1, std::string(2, '\0'));
  const std::string hundredMegabytes(100'000'000, '\0');
  return {
      {"PNGOfFourExapixels", png(0x7fffffff, 0x7fffffff, "")},
      {"PNGOneRowBeyondTheLimit", png(16383, 16384, "")},
      {"PNGWithGiantText",
       png(1, 1, std::string(2, '\0'),
           pngChunk("zTXt", std::string("a\0\0", 3) + packed(hundredMegabytes, false))),
       false},
      {"PNGWithGiantProfile",
       png(1, 1, std::string(2, '\0'),
           pngChunk("iCCP", std::string("a\0\0", 3) + packed(hundredMegabytes, false))),
       false},
      {"PNGWithManyTexts", png(1, 1, std::string(2, '\0'), manyTexts()), false},
      {"PNGWithEndlessChunk", blank.substr(0, 33) + big(0x7fffffff, 4) + "IDAT"},
      {"GIFOfFourGigapixels", patched(patched(sample("rgb.gif"), "GIF8", 2, "\xff\xff\xff\xff"),
                                      std::string_view("\x2c\0\0\0\0", 5), 0, "\xff\xff\xff\xff")},
      {"JPEGOfFourGigapixels", patched(sample("rgb.jpg"), "\xff\xc0", 3, "\xff\xdc\xff\xdc")},
      {"JPEGOfManyScans", manyScans("")},
      {"JPEGOfManyScansBehindRestarts", manyScans("\xff\xd0")},
      {"JPEGOfManyScansBehindZeroes", manyScans(std::string("\xff\0", 2))},
      {"WebPOfAnEndlessCanvas", webpCanvas()},
      {"AVIFOfAnEndlessCanvas",
       patched(sample("rgba.avif"), "ispe", 4, big(0x7fffffff, 4) + big(0x7fffffff, 4))},
      {"HEICOfAnEndlessCanvas",
       patched(sample("rgb.heic"), "ispe", 4, big(0x7fffffff, 4) + big(0x7fffffff, 4))},
      {"JPEGXLOfAnExapixel", hugeJPEGXL()},
      {"JPEG2000OfFourExapixels",
       patched(sample("rgb.j2k"), "\xff\x51", 4, big(0x7fffffff, 4) + big(0x7fffffff, 4))},
      {"BMPOfFourExapixels", bmp(0x7fffffff, 0x7fffffff, 0)},
      {"BMPOfRuns", bmp(16000, 16000, 1)},
      {"PSDOfNineGigapixels", std::string("8BPS\0\1\0\0\0\0\0\0\0\3", 14) + big(300000, 4) +
                                  big(30000, 4) + big(8, 2) + big(3, 2) + std::string(200, '\0')},
      {"TGAThatIsAlsoDICOM", tgaWith(128, "DICM")},
      {"TGAThatIsAlsoPhotoCD", tgaWith(2048, "PCD_")},
      {"TGAThatIsAlsoCALS", tgaWith(21, "version: MIL-STD-1840")},
      {"TGAOfRuns", std::string("\0\0\x0a\0\0\0\0\0\0\0\0\0", 12) + little(16000, 2) +
                        little(16000, 2) + std::string("\x18\0", 2) + std::string(200, '\xff')},
  };
}

}  // namespace tessarine::testing
