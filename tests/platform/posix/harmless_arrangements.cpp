#include "tests/platform/posix/arrangements.h"

namespace tessarine::testing {

namespace {

namespace fs = std::filesystem;

auto link(const std::string& name, const std::string& target) {
  return [=](const fs::path& granted) { fs::create_symlink(target, granted / name); };
}

}  // namespace

std::vector<Arrangement> namesThatStay() {
  return {
      {"plain", "x.png", ""},
      {"existing", "old.png", ""},
      {"dots", "...png", ""},
      {"subfolder", "sub/x.png", ""},
      {"intoASubfolderAndBack", "sub/../x.png", "", "x.png"},
      {"dotFolders", "./././x.png", "", "x.png"},
      {"doubledSeparators", "sub//x.png", "", "sub/x.png"},
      {"leadingSeparator", "/x.png", "", "x.png"},
      {"leadingSeparators", "////x.png", "", "x.png"},
      {"spaces", "  a b  .png", ""},
      {"newline", "a\nb\n.png", ""},
      {"quotes", "\"it's\" `x` $(x).png", ""},
      {"nonASCII", "\xe5\x9b\xbe\xc3\xa9\xf0\x9f\x8d\x8e.png", ""},
      {"notUTF8", "\xff\xfe\xc3.png", ""},
      {"controlCharacters", "\x1b[31m\x07\x7f.png", ""},
      {"option", "-rf", ""},
      {"wildcards", "*?[a].png", ""},
      {"home", "~", ""},
      {"percentEncoded", "%2e%2e%2fx.png", ""},
      {"backslashes", "..\\..\\x.png", ""},
      {"longestName", std::string(251, 'n') + ".png", ""},
  };
}

std::vector<Arrangement> linksThatStay() {
  return {
      {"file", "l1", "", "old.png", link("l1", "old.png")},
      {"notYetThere", "l1", "", "new.png", link("l1", "new.png")},
      {"folder", "l1/x.png", "", "sub/x.png", link("l1", "sub")},
      {"upWithinTheFolder", "sub/l1", "", "old.png", link("sub/l1", "../old.png")},
      {"folderWithSeparator", "l1/x.png", "", "sub/x.png", link("l1", "sub/")},
      {"throughItself", "l1/l1/old.png", "", "old.png", link("l1", ".")},
      {"fortyLinks", "l1", "", "old.png",
       [](const fs::path& granted) {
         for (int i = 1; i < 40; ++i) {
           fs::create_symlink("l" + std::to_string(i + 1), granted / ("l" + std::to_string(i)));
         }
         fs::create_symlink("old.png", granted / "l40");
       }},
  };
}

}  // namespace tessarine::testing
