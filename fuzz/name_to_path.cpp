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

// A granted folder among others, with links that lead out of it, though not out of the house.
class House {
 public:
  House() {
    std::string pattern = (fs::temp_directory_path() / "fuzz_XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
    const fs::path floor = root_ / "stairs" / "floor";
    granted_ = floor / "granted";
    kept_ = floor / "granted2" / "kept.png";
    fs::create_directories(granted_ / "sub");
    fs::create_directory(kept_.parent_path());
    std::ofstream(kept_) << "kept";
    fs::create_symlink("..", granted_ / "up");
    fs::create_symlink("../granted2/kept.png", granted_ / "a.png");
    fs::create_symlink(root_, granted_ / "root");
  }
  ~House() { fs::remove_all(root_); }

  std::string granted() const { return granted_.string(); }

  void expectUntouched() const {
    std::string contents;
    std::ifstream(kept_) >> contents;
    fuzzing::expect(contents == "kept");
    // The granted folder, the three around it, and what is kept.
    int outside = 0;
    for (auto entry = fs::recursive_directory_iterator(root_); entry != end(entry); ++entry) {
      if (entry->path() == granted_) entry.disable_recursion_pending();
      ++outside;
    }
    fuzzing::expect(outside == 5);
  }

  void clean() const {
    for (const auto& folder : {granted_, granted_ / "sub"}) {
      for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.symlink_status().type() == fs::file_type::regular) fs::remove(entry);
      }
    }
  }

 private:
  fs::path root_;
  fs::path granted_;
  fs::path kept_;
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
