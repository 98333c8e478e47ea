#pragma once

#include <array>
#include <string_view>

#include "iconsets/apple_watch.h"
#include "iconsets/icon_set.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"

namespace tessarine {

// A fixed set with the word that asks for it, which is also its folder's name among all sets.
struct NamedSet {
  std::string_view name;
  const IconSet& set;
};

inline constexpr std::array namedSets{
    NamedSet{"ios", iOSIconSet},
    NamedSet{"macos", macOSIconSet},
    NamedSet{"apple-watch", appleWatchIconSet},
    NamedSet{"windows10", windows10IconSet},
};

}  // namespace tessarine
