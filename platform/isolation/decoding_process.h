#pragma once

#include <chrono>
#include <string>

#include "platform/vips/decoder.h"

namespace tessarine {

// The reasons that are not the decoder's own.
inline constexpr const char* decoderCrashed = "its decoder crashed";
inline constexpr const char* decoderTookTooLong = "its decoder took too long and was stopped";

// Starts `program`, a file whose `main` calls `decodeIfAsked`, to decode the regular file that is
// open for reading at `picture`, and waits for its answer. The process is gone afterwards.
Decoded decodeInProcess(const std::string& program, int picture,
                        std::chrono::milliseconds patience);

}  // namespace tessarine
