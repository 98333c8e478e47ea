#pragma once

#include "platform/picture.h"

namespace tessarine::benchmarks {

// Drawn pictures whose scaled copies show one fault each.
// 1024 x 1024, opaque, grey 64 left and 192 right of a steep line through the middle, which meets
// the scaled pixels in every position.
Bitmap drawEdge();
Bitmap drawDisc();  // 1024 x 1024, an opaque disc with a hard edge on transparent ground
Bitmap drawBlob();  // 64 x 64, opaque, black with a soft white blob in the very middle

// How far the scaled edge leaves the range of its two greys, in percent of their distance.
double overshoot(const Bitmap& edge);
// The pixels of the scaled disc that lie wholly outside it and yet have an alpha of 1 to 7.
int ringPixels(const Bitmap& disc);
// How far the scaled blob's centre lies from the middle of the picture, in its pixels.
double shift(const Bitmap& blob);

}  // namespace tessarine::benchmarks
