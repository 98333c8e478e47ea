#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/bytes.h"
#include "platform/picture.h"

namespace tessarine {

using Head = std::span<const std::uint8_t>;

// A kind of picture: how it is recognised and which loader of libvips reads it. Nothing is ever
// guessed by a library: the loader is called by its name.
struct Format {
  std::string_view name;
  std::span<const std::string_view> mimeTypes;
  bool (*recognises)(Head head);
  const char* loader;
  // Whether it has no pixels of its own and is drawn at the size that we ask for.
  bool isVector = false;
  // What is done to the file first; see `preparation.h`.
  std::optional<ByteBuffer> (*prepare)(const ByteBuffer& file) = nullptr;
  // Where the loader takes memory for the pixels before it tells their size.
  PixelSize (*declaredSize)(Head head) = nullptr;
  // A picture of `samples.h`, where the loader alone does not show that it can be read.
  const char* sample = nullptr;
};

// How many bytes from a picture's start are enough to recognise it. Comments and declarations may
// precede a drawing's element.
inline constexpr std::size_t headSize = 65536;

inline Head headOf(const ByteBuffer& bytes) {
  return bytes.bytes().first(std::min(headSize, bytes.bytes().size()));
}

// In order of preference.
std::span<const Format> formats();

// Null for bytes of no kind that is read.
const Format* formatOf(Head head);

}  // namespace tessarine
