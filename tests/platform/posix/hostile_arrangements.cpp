#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>

#include "tests/platform/posix/arrangements.h"

namespace tessarine::testing {

namespace {

namespace fs = std::filesystem;

const std::string outside = "not permitted outside the chosen folder";
const std::string tooManyLinks = "Too many levels of symbolic links";

auto link(const std::string& name, const std::string& target) {
  return [=](const fs::path& granted) { fs::create_symlink(target, granted / name); };
}

// By the whole path of what lies beside the granted folder.
auto absoluteLink(const std::string& name, const std::string& place) {
  return [=](const fs::path& granted) {
    fs::create_symlink(granted.parent_path() / place, granted / name);
  };
}

// A chain of links l1 -> l2 -> ... whose last leads to `target`.
auto chain(int links, const std::string& target) {
  return [=](const fs::path& granted) {
    for (int i = 1; i <= links; ++i) {
      const std::string next = i == links ? target : "l" + std::to_string(i + 1);
      fs::create_symlink(next, granted / ("l" + std::to_string(i)));
    }
  };
}

void require(bool made) {
  if (!made) throw std::runtime_error("the arrangement cannot be made");
}

void makeFifo(const fs::path& granted) {
  require(::mkfifo((granted / "x.png").c_str(), 0666) == 0);
}

void makeSocket(const fs::path& granted) {
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = granted / "x.png";
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  require(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0);
  ::close(socket);
}

auto device(mode_t kind, unsigned major, unsigned minor) {
  return [=](const fs::path& granted) {
    require(::mknod((granted / "x.png").c_str(), kind | 0666, makedev(major, minor)) == 0);
  };
}

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

}  // namespace

std::vector<Arrangement> namesThatLeadOut() {
  return {
      {"parent", "../x.png", outside},
      {"grandparent", "../../x.png", outside},
      {"hundredParents", repeated("../", 100) + "tmp/x.png", outside},
      {"parentAfterDot", "./../x.png", outside},
      {"parentAfterSlashes", "///../x.png", outside},
      {"throughASubfolder", "sub/../../x.png", outside},
      {"throughASubfolderTwice", "sub/../sub/../../outside/x.png", outside},
      {"existingFileOutside", "../outside/secret", outside},
      {"sibling", "../granted-sibling/x.png", outside},
      {"outAndBackAgain", "../granted/x.png", outside},
      {"parentItself", "..", outside},
      {"absoluteIntoMissingFolder", "/etc/x.png", "No such file or directory"},
      {"absoluteProc", "/proc/self/root/tmp/x.png", "No such file or directory"},
      {"nul", std::string("a\0/../../x.png", 14), "Invalid argument"},
      {"nulAtTheEnd", std::string("x.png\0", 6), "Invalid argument"},
      {"parentWithNewline", "../\n.png", outside},
  };
}

std::vector<Arrangement> linksThatLeadOut() {
  return {
      {"absoluteFile", "x.png", outside, {}, absoluteLink("x.png", "outside/secret")},
      {"relativeFile", "x.png", outside, {}, link("x.png", "../outside/secret")},
      {"danglingAbsolute", "x.png", outside, {}, absoluteLink("x.png", "outside/new")},
      {"danglingRelative", "x.png", outside, {}, link("x.png", "../outside/new")},
      {"absoluteFolder", "out/x.png", outside, {}, absoluteLink("out", "outside")},
      {"relativeFolder", "out/secret", outside, {}, link("out", "../outside")},
      {"siblingFolder", "out/x.png", outside, {}, link("out", "../granted-sibling")},
      {"rootFolder", "out/tmp/x.png", outside, {}, link("out", "/")},
      {"parentFolder", "out/outside/secret", outside, {}, link("out", "..")},
      {"climbsFromASubfolder", "sub/up/x.png", outside, {}, link("sub/up", "../..")},
      {"outAndBackAgain", "x.png", outside, {}, link("x.png", "../granted/old.png")},
      {"chainThatEndsOutside", "l1", outside, {}, chain(5, "../outside/secret")},
      {"procRoot", "out/tmp/x.png", outside, {}, link("out", "/proc/self/root")},
      {"procFolder", "out/x.png", outside, {}, link("out", "/proc/self/cwd")},
      {"procDescriptor", "x.png", outside, {}, link("x.png", "/proc/self/fd/1")},
      {"standardOutput", "x.png", outside, {}, link("x.png", "/dev/stdout")},
      {"device", "x.png", outside, {}, link("x.png", "/dev/full")},
      {"absoluteToTheFolderItself", "x.png", outside, {}, absoluteLink("x.png", "granted/old.png")},
      {"replacedSubfolder",
       "sub/x.png",
       outside,
       {},
       [](const fs::path& granted) {
         fs::remove(granted / "sub");
         fs::create_symlink("../outside", granted / "sub");
       }},
  };
}

std::vector<Arrangement> thingsInTheWay() {
  return {
      {"missingFolder", "missing/b.png", "No such file or directory"},
      {"fileForAFolder", "old.png/x.png", "Not a directory"},
      // "Is" or "Not", by the system call.
      {"separatorAfterAFile", "old.png/", "a directory"},
      {"folder", "sub", "Is a directory"},
      {"folderWithSeparator", "sub/", "Is a directory"},
      {"folderItself", ".", "Is a directory"},
      {"folderByParent", "sub/..", "Is a directory"},
      {"nothing", "", "Is a directory"},
      {"linkToAFolder", "x.png", "Is a directory", {}, link("x.png", "sub")},
      {"linkToItself", "l1", tooManyLinks, {}, chain(1, "l1")},
      {"linksToEachOther", "l1", tooManyLinks, {}, chain(2, "l1")},
      {"tooManyLinks", "l1", tooManyLinks, {}, chain(41, "old.png")},
      {"longName", std::string(300, 'n') + ".png", "File name too long"},
      {"longPath", repeated("./", 2500) + "x.png", "File name too long"},
      {"fifo", "x.png", "not a plain file", {}, makeFifo},
      {"linkToAFifo",
       "l1",
       "not a plain file",
       {},
       [](const fs::path& granted) {
         makeFifo(granted);
         fs::create_symlink("x.png", granted / "l1");
       }},
      {"socket", "x.png", "not a plain file", {}, makeSocket},
      {"characterDevice", "x.png", "not a plain file", {}, device(S_IFCHR, 1, 3), true},
      {"fullDevice", "x.png", "not a plain file", {}, device(S_IFCHR, 1, 7), true},
  };
}

}  // namespace tessarine::testing
