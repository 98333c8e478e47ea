#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/posix/descriptor.h"

namespace tessarine {

// Puts a new file with these bytes in the place of `name`, a plain name in `folder`, in one step;
// `mode` as given, or as any new file gets. On failure the old file stays and nothing is added.
// The error, or 0.
int replaceFile(const Descriptor& folder, const std::string& name,
                std::span<const std::uint8_t> bytes, std::optional<mode_t> mode);

}  // namespace tessarine
