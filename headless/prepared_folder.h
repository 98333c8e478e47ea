#pragma once

#include <filesystem>
#include <vector>

namespace tessarine {

// The folder to write into, created when missing. It must exist before the picture is read, since
// only then can the program be confined to it; so what was created is removed again unless kept.
class PreparedFolder {
 public:
  explicit PreparedFolder(const std::filesystem::path& folder);
  ~PreparedFolder();
  PreparedFolder(const PreparedFolder&) = delete;
  PreparedFolder& operator=(const PreparedFolder&) = delete;

  void keep() { created_.clear(); }
  // The folder in which the first one was created; empty when none was.
  std::filesystem::path parentOfCreated() const;

 private:
  // Outermost first.
  std::vector<std::filesystem::path> created_;
};

}  // namespace tessarine
