// Prints the files of the four sets, one a line: path, width and height, separated by tabs. The
// benchmarks cut the same files with every tool.
#include <cstdio>
#include <string>

#include "headless/named_sets.h"
#include "platform/fatal_stop.h"

int main() {
  using namespace tessarine;
  for (const NamedSet& named : namedSets) {
    for (const std::string_view name : named.set.names) {
      const PixelSize size = required(sizeOf(named.set, name));
      const std::string path = std::string(named.name) + "/" + std::string(name);
      std::printf("%s\t%lld\t%lld\n", path.c_str(), static_cast<long long>(size.width),
                  static_cast<long long>(size.height));
    }
  }
}
