#include "tests/support/recording_platform.h"

#include <algorithm>

namespace tessarine::testing {

namespace {

std::string textOf(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string sizeText(PixelSize size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

std::optional<Picture> pictureIn(const std::map<std::string, Picture>& pictures,
                                 const std::string& key) {
  const auto picture = pictures.find(key);
  return picture == pictures.end() ? std::nullopt : std::optional(picture->second);
}

}  // namespace

std::optional<Picture> FakePictures::decode(const ByteBuffer& bytes) {
  const std::string key = textOf(bytes.bytes());
  journal_.push_back("decode " + key);
  if (decodings == 0) return std::nullopt;
  --decodings;
  return pictureIn(decodable, key);
}

std::optional<Picture> FakePictures::decodeFile(const std::string& path) {
  journal_.push_back("decode file " + path);
  return pictureIn(files, path);
}

std::optional<ByteBuffer> FakePictures::tiffRepresentation(const Picture& picture) {
  journal_.push_back("tiff " + sizeText(picture.points));
  if (!picture.bitmap) return std::nullopt;
  return bytesOf("tiff of " + sizeText(picture.points));
}

std::optional<std::string> FakeFiles::writeInPlace(const std::string& path,
                                                   std::span<const std::uint8_t> bytes) {
  journal_.push_back("write " + path + " " + sizeInHeader(textOf(bytes)));
  return keep(path, bytes);
}

std::optional<std::string> FakeFiles::writeAtomically(const std::string& path,
                                                      std::span<const std::uint8_t> bytes) {
  journal_.push_back("replace " + path);
  return keep(path, bytes);
}

std::optional<std::string> FakeFiles::keep(const std::string& path,
                                           std::span<const std::uint8_t> bytes) {
  if (allFail || failing.contains(path)) return path + ": refused";
  written[path] = textOf(bytes);
  return std::nullopt;
}

OpenPanelAnswer FakePanel::runModal(const OpenPanelSettings& settings) {
  journal_.push_back("ask");
  asked.push_back(settings);
  return answer;
}

Picture plainPicture(PixelSize size, std::array<std::uint8_t, 4> pixel) {
  auto block = MemoryBlock::allocate(Bitmap::byteCount(size).value()).value();
  for (std::size_t i = 0; i < block.bytes().size(); ++i) block.bytes()[i] = pixel[i % 4];
  return {size, Bitmap(size, ByteBuffer(std::move(block)))};
}

std::string sizeInHeader(std::string_view png) {
  const auto number = [png](std::size_t at) {
    std::uint32_t value = 0;
    for (const char c : png.substr(at, 4)) value = value << 8 | static_cast<std::uint8_t>(c);
    return std::to_string(value);
  };
  constexpr std::size_t widthAt = 16;
  constexpr std::size_t heightAt = 20;
  if (!png.starts_with("\x89PNG\r\n\x1a\n") || png.size() < 33) return "not a PNG file";
  return number(widthAt) + "x" + number(heightAt);
}

ByteBuffer bytesOf(std::string_view text) {
  return ByteBuffer::copyOf({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()})
      .value();
}

}  // namespace tessarine::testing
