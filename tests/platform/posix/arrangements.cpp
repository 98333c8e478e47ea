#include "tests/platform/posix/arrangements.h"

#include <unistd.h>

#include <stdexcept>

#include "tests/support/in_child.h"

namespace tessarine::testing {

namespace fs = std::filesystem;

Neighbourhood::Neighbourhood() {
  for (const char* folder : {"granted/sub", "granted-sibling", "outside"}) {
    fs::create_directories(root() / folder);
  }
  writeFile(granted() / "old.png", "old");
  writeFile(root() / "outside/secret", "secret");
}

void Neighbourhood::giveAway() const {
  const auto give = [](const fs::path& path) {
    if (::lchown(path.c_str(), ordinaryUser, ordinaryUser) != 0) {
      throw std::runtime_error("cannot give " + path.string() + " away");
    }
  };
  give(root());
  for (const auto& entry : fs::recursive_directory_iterator(root())) give(entry.path());
}

std::string write(Operation operation, Resolution resolution, const std::string& folder,
                  const std::string& path, const std::string& text) {
  GrantedFiles files(resolution);
  files.grant(folder);
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  const auto failure = operation == Operation::inPlace ? files.writeInPlace(path, bytes)
                                                       : files.writeAtomically(path, bytes);
  return failure.value_or("");
}

std::string labelOf(const ::testing::TestParamInfo<Combination>& info) {
  const auto& [arrangement, resolution, operation, writer] = info.param;
  return arrangement.label + (resolution == Resolution::kernel ? "_kernel" : "_walked") +
         (operation == Operation::inPlace ? "_inPlace" : "_atomic") +
         (writer == Writer::asStarted ? "" : "_ordinaryUser");
}

}  // namespace tessarine::testing
