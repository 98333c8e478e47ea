#pragma once

namespace tessarine {

// The only argument of a program that is started to decode one picture.
inline constexpr const char* decodingArgument = "--decode-picture";

// To be called after `setUpProcess` and before anything else. A program that was started to decode
// does so and ends here: the picture is the regular file that is its standard input, and the answer
// leaves by its standard output. The answer is a `PixelSize` and the pixels of a bitmap of this
// size; or one that no bitmap can have, and the reason why there is no picture.
void decodeIfAsked(int argc, char** argv);

// Takes from this process, for good, what decoding does not need: files but those of the picture
// libraries, more than 4 GiB of memory, and a life beyond that of its parent.
void confineDecoding();

}  // namespace tessarine
