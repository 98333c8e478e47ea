#pragma once

#include <vips/vips.h>

#include <memory>

namespace tessarine {

struct ReleaseObject {
  void operator()(void* object) const noexcept { g_object_unref(object); }
};
// One reference, given up at the end.
template <class Object>
using Owned = std::unique_ptr<Object, ReleaseObject>;

// Starts libvips at the first call: one worker, no cache, no messages, and no loader but those of
// the formats that are read. False when it cannot be started.
bool startVips();

// Whether the installed library has this loader.
bool hasLoader(const char* nickname);

}  // namespace tessarine
