#pragma once

#include "platform/vips/formats.h"

// How each kind of picture begins.
namespace tessarine::magic {

bool png(Head head);
bool jpeg(Head head);
bool tiff(Head head);
bool gif(Head head);
bool webp(Head head);
bool svg(Head head);
// Gzip; what is inside is not looked at.
bool svgz(Head head);
bool pdf(Head head);
bool heic(Head head);
bool avif(Head head);
bool jpegXL(Head head);
bool jpeg2000(Head head);
bool bmp(Head head);
bool ico(Head head);
bool icns(Head head);
bool psd(Head head);
// The format has no magic number: every field of its header must be plausible.
bool tga(Head head);

// Whether ImageMagick, which looks for marks of its own, may take the file for another kind.
bool looksLikeAnother(Head head);

// The size that the head declares. For the kinds whose library takes memory for the pixels before
// it tells the size.
PixelSize sizeOfBMP(Head head);
PixelSize sizeOfPSD(Head head);
PixelSize sizeOfTGA(Head head);

}  // namespace tessarine::magic
