#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/alert.h"
#include "platform/console.h"
#include "platform/files.h"
#include "platform/open_panel.h"
#include "platform/pictures.h"
#include "platform/platform.h"
#include "platform/workspace.h"

namespace tessarine::testing {

using Journal = std::vector<std::string>;

// Reads no bytes: answers with the pictures that the test has laid down.
class FakePictures final : public Pictures {
 public:
  explicit FakePictures(Journal& journal) : journal_(journal) {}

  std::optional<Picture> decode(const ByteBuffer& bytes) override;
  std::optional<Picture> decodeFile(const std::string& path) override;
  std::optional<ByteBuffer> tiffRepresentation(const Picture& picture) override;
  std::vector<std::string> imageTypes() override { return types; }

  // By their bytes, and by the path of a file.
  std::map<std::string, Picture> decodable;
  std::map<std::string, Picture> files;
  // After so many no bytes decode any more.
  std::size_t decodings = std::numeric_limits<std::size_t>::max();
  std::vector<std::string> types{"image/x-first", "image/x-second"};

 private:
  Journal& journal_;
};

// Keeps what is written; fails for the paths named in `failing`, or for all.
class FakeFiles final : public Files {
 public:
  explicit FakeFiles(Journal& journal) : journal_(journal) {}

  std::optional<std::string> writeInPlace(const std::string& path,
                                          std::span<const std::uint8_t> bytes) override;
  std::optional<std::string> writeAtomically(const std::string& path,
                                             std::span<const std::uint8_t> bytes) override;

  std::map<std::string, std::string> written;
  std::set<std::string> failing;
  bool allFail = false;

 private:
  std::optional<std::string> keep(const std::string& path, std::span<const std::uint8_t> bytes);

  Journal& journal_;
};

class FakePanel final : public OpenPanel {
 public:
  explicit FakePanel(Journal& journal) : journal_(journal) {}
  OpenPanelAnswer runModal(const OpenPanelSettings& settings) override;

  OpenPanelAnswer answer{PanelResponse::confirmed, "/picked"};
  std::vector<OpenPanelSettings> asked;

 private:
  Journal& journal_;
};

// Every call of every port as a line of one journal, in order.
class RecordingPlatform {
 public:
  Journal journal;
  FakePictures pictures{journal};
  FakeFiles files{journal};
  FakePanel panel{journal};

 private:
  struct Reveals final : Workspace {
    explicit Reveals(Journal& lines) : journal(lines) {}
    void showFolder(const std::string& rootPath) override {
      journal.push_back("reveal '" + rootPath + "'");
    }
    Journal& journal;
  };
  struct Lines final : Console {
    explicit Lines(Journal& lines) : journal(lines) {}
    void printLine(std::string_view text) override {
      journal.push_back("print " + std::string(text));
    }
    Journal& journal;
  };
  struct Alerts final : Alert {
    explicit Alerts(Journal& lines) : journal(lines) {}
    void runWarning(const std::string& message, const std::string& button) override {
      journal.push_back("alert " + message + " [" + button + "]");
    }
    Journal& journal;
  };

  Reveals reveals_{journal};
  Lines lines_{journal};
  Alerts alerts_{journal};

 public:
  Platform platform{pictures, files, panel, reveals_, lines_, alerts_};
};

// A picture of one colour, its pixels given as red, green, blue and alpha.
Picture plainPicture(PixelSize size, std::array<std::uint8_t, 4> pixel = {10, 20, 30, 255});

// The pixel size that a PNG file's header tells, as "WxH".
std::string sizeInHeader(std::string_view png);

ByteBuffer bytesOf(std::string_view text);

}  // namespace tessarine::testing
