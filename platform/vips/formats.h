#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

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
};

// How many bytes from a picture's start are enough to recognise it.
inline constexpr std::size_t headSize = 4096;

// In order of preference.
std::span<const Format> formats();

// Null for bytes of no kind that is read.
const Format* formatOf(Head head);

}  // namespace tessarine
