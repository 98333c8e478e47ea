#pragma once

#include <string_view>

namespace tessarine {

inline constexpr const char* programName = "tessarine-headless";

inline constexpr std::string_view usage =
    R"(Usage: tessarine-headless SET PICTURE FOLDER
       tessarine-headless custom PICTURE FOLDER NAME WIDTH HEIGHT [NAME WIDTH HEIGHT ...]

Cuts a picture into application icons and writes them into a folder, which is
created when it is missing. Files of the same names are replaced.

SET is one of:
  ios          23 icons and Contents.json
  macos        10 icons and Contents.json
  apple-watch  11 icons and Contents.json
  windows10    56 tiles and icons
  all          each of these, in a folder of its name below FOLDER

custom writes NAME.png at WIDTH x HEIGHT pixels, for 1 to 8 names. A name, width
or height of one character yields no file, nor does a size that is not above 0.

  --help       show this text
  --version    show the version

Exit status: 0 when every file was written; 1 when some file was not, and each
write that failed is told on standard output; 2 when the usage is wrong or the
picture cannot be read, which is told on standard error, with nothing written.)";

}  // namespace tessarine
