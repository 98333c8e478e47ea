#pragma once

#include <optional>

#include "platform/bytes.h"

// What is done to a file before its loader sees it. Each gives the bytes of a picture for the
// ordinary decoder, which may be the file itself; nothing for a file that is damaged, that holds no
// picture, or that would take the loader too long.
namespace tessarine::preparation {

// The elements of a drawing take many times their text in memory.
inline constexpr std::size_t maximumDrawingBytes = std::size_t{32} << 20;

// A PNG without its compressed texts, which nobody reads and libpng would inflate one by one.
std::optional<ByteBuffer> withoutTexts(const ByteBuffer& file);

// A JPEG of so few scans that going over the picture once for each is bearable.
std::optional<ByteBuffer> ofFewScans(const ByteBuffer& file);

// The largest picture of a Windows icon: PNG, or an icon of one picture.
std::optional<ByteBuffer> largestOfICO(const ByteBuffer& file);

// The largest picture of a macOS icon: PNG, JPEG 2000, or the held TIFF of a picture that the icon
// keeps in runs.
std::optional<ByteBuffer> largestOfICNS(const ByteBuffer& file);

// A drawing of at most `maximumDrawingBytes`, in which the pictures are not too large.
std::optional<ByteBuffer> withBearablePictures(const ByteBuffer& file);

// The drawing of a gzip file, at most `maximumDrawingBytes` of it.
std::optional<ByteBuffer> inflatedSVG(const ByteBuffer& file);

}  // namespace tessarine::preparation
