#include <stdlib.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/fuzzing.h"
#include "output/writers.h"
#include "platform/posix/granted_files.h"

using namespace tessarine;

namespace {

namespace fs = std::filesystem;

// A granted folder among others, with links that lead out of it.
class House {
 public:
  House() {
    std::string pattern = (fs::temp_directory_path() / "fuzz_XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
    fs::create_directories(root_ / "granted" / "sub");
    fs::create_directory(root_ / "granted2");
    std::ofstream(root_ / "granted2" / "kept.png") << "kept";
    fs::create_symlink("..", root_ / "granted" / "up");
    fs::create_symlink("../granted2/kept.png", root_ / "granted" / "a.png");
    fs::create_symlink("/", root_ / "granted" / "root");
  }
  ~House() { fs::remove_all(root_); }

  std::string granted() const { return (root_ / "granted").string(); }

  void expectUntouched() const {
    std::string contents;
    std::ifstream(root_ / "granted2" / "kept.png") >> contents;
    fuzzing::expect(contents == "kept");
    fuzzing::expect(count(root_) == 2 && count(root_ / "granted2") == 1);
  }

  void clean() const {
    for (const auto& folder : {root_ / "granted", root_ / "granted" / "sub"}) {
      for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.symlink_status().type() == fs::file_type::regular) fs::remove(entry);
      }
    }
  }

 private:
  static std::ptrdiff_t count(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), {});
  }

  fs::path root_;
};

}  // namespace

// Whatever the name, nothing but the granted folder changes.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const House house;
  if (size == 0) return 0;
  const auto name = fuzzing::textOf({data + 1, size - 1});
  GrantedFiles files((data[0] & 1) != 0 ? Resolution::walked : Resolution::kernel);
  files.grant(house.granted());
  const std::array<std::uint8_t, 3> bytes{1, 2, 3};
  const auto location = fileLocation(house.granted(), name, "png");
  if ((data[0] & 2) != 0) {
    files.writeAtomically(location, bytes);
  } else {
    files.writeInPlace(location, bytes);
  }
  house.expectUntouched();
  house.clean();
  return 0;
}
