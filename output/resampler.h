#pragma once

#include <cstdint>
#include <optional>

#include "platform/picture.h"

namespace tessarine {

// The whole source stretched to exactly width x height pixels, one point per pixel. Each axis is
// scaled by itself and alpha is kept; a source without a bitmap draws nothing.
// Colours are kept to a hundredth of a level multiplied by alpha: one colour stays exactly as it is
// from alpha 3 on, and within one level below.
// A bitmap that cannot be made (see `Bitmap::byteCount`, or memory does not give it) leaves a
// picture of that size without one. Nothing at all when the working memory is refused.
std::optional<Picture> resizedImage(const Picture& source, std::int64_t width, std::int64_t height);

}  // namespace tessarine
