#include "platform/qt/mime_pasteboard.h"

#include <gmock/gmock.h>

#include <QColor>
#include <QUrl>
#include <filesystem>
#include <functional>

#include "tests/support/qt_drags.h"
#include "tests/support/recording_platform.h"
#include "tests/support/temporary_folder.h"

namespace tessarine {
namespace {

using testing::setFiles;
using Kinds = std::vector<std::string>;

constexpr std::array allClasses{ReadableClass::image, ReadableClass::color, ReadableClass::string,
                                ReadableClass::url};

// A folder with one file of each kind that is dragged.
class DraggedFiles {
 public:
  DraggedFiles() {
    write("a picture.png", "\x89PNG\r\n\x1a\n and so on");
    write("second.png", "\x89PNG\r\n\x1a\n and so on");
    write("broken.png", "no picture at all");
    write("words.txt", "words");
    write("packed.zip", "PK\x03\x04 and so on");
    write("odd \xff name.png", "\x89PNG\r\n\x1a\n and so on");
    std::filesystem::create_directory(path("folder.png"));
  }
  std::string path(const std::string& name) const { return (folder_.path() / name).string(); }

 private:
  void write(const std::string& name, std::string_view text) const {
    testing::writeFile(path(name), text);
  }

  testing::TemporaryFolder folder_;
};

// An item in words; files by their names.
std::string inWords(const DragItem& item) {
  if (const auto* file = std::get_if<FileItem>(&item)) {
    return "file " + std::filesystem::path(file->path).filename().string();
  }
  if (const auto* text = std::get_if<TextItem>(&item)) return "text " + text->text;
  return std::holds_alternative<Picture>(item) ? "picture" : "colour";
}

struct Row {
  std::string name;
  std::function<void(QMimeData&, const DraggedFiles&)> fill;
  Kinds items;
  // Where the pasteboard can be read, but reading gives nothing after all.
  bool readableAtFirst = false;
};

class MimePasteboardRows : public ::testing::TestWithParam<Row> {};

TEST_P(MimePasteboardRows, GiveTheirItems) {
  const DraggedFiles files;
  testing::RecordingPlatform host;
  host.pictures.types = {"image/png", "image/tiff"};
  host.pictures.decodable["a picture"] = testing::plainPicture({2, 2});
  QMimeData data;
  GetParam().fill(data, files);
  MimePasteboard pasteboard(data, host.pictures);
  const ReadingOptions options{{"image/png", "image/tiff", "text/plain"}};

  const auto items = pasteboard.readObjects(allClasses, options);

  Kinds kinds;
  for (const DragItem& item : items.value()) kinds.push_back(inWords(item));
  EXPECT_EQ(kinds, GetParam().items);
  EXPECT_EQ(pasteboard.canReadObjects(allClasses, options),
            !kinds.empty() || GetParam().readableAtFirst);
}

void fillBytes(QMimeData& data, const char* type, const char* bytes = "a picture") {
  data.setData(QString::fromLatin1(type), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Drags, MimePasteboardRows,
    ::testing::Values(
        Row{"Nothing", [](auto&, auto&) {}, {}},
        Row{"PictureFile",
            [](auto& d, auto& f) { setFiles(d, {f.path("a picture.png")}); },
            {"file a picture.png"}},
        Row{"TwoFilesInOrder",
            [](auto& d, auto& f) {
              setFiles(d, {f.path("second.png"), f.path("a picture.png")});
            },
            {"file second.png", "file a picture.png"}},
        Row{"NameThatIsNoText",
            [](auto& d, auto& f) { setFiles(d, {f.path("odd \xff name.png")}); },
            {"file odd \xff name.png"}},
        Row{"BrokenPicture",
            [](auto& d, auto& f) { setFiles(d, {f.path("broken.png")}); },
            {"file broken.png"}},
        Row{"TextFile",
            [](auto& d, auto& f) { setFiles(d, {f.path("words.txt")}); },
            {"file words.txt"}},
        Row{"Folder", [](auto& d, auto& f) { setFiles(d, {f.path("folder.png")}); }, {}},
        Row{"Archive", [](auto& d, auto& f) { setFiles(d, {f.path("packed.zip")}); }, {}},
        Row{"VanishedFile", [](auto& d, auto& f) { setFiles(d, {f.path("gone.png")}); }, {}},
        Row{"UnreadableAmongOthers",
            [](auto& d, auto& f) {
              setFiles(d, {f.path("packed.zip"), f.path("second.png"), f.path("folder.png")});
            },
            {"file second.png"}},
        Row{"FileOfAnotherMachine",
            [](auto& d, auto&) { d.setUrls({QUrl("file://elsewhere/etc/hostname")}); },
            {}},
        Row{"FileOfAnotherMachineWithItsPicture",
            [](auto& d, auto&) {
              d.setUrls({QUrl("file://elsewhere/a.png")});
              fillBytes(d, "image/png");
            },
            {}},
        Row{"WebLink",
            [](auto& d, auto&) { d.setUrls({QUrl("http://example.org/a.png")}); },
            {"text http://example.org/a.png"}},
        Row{"WebLinkWithItsPicture",
            [](auto& d, auto&) {
              d.setUrls({QUrl("http://example.org/a.png")});
              fillBytes(d, "image/png");
            },
            {"picture"}},
        Row{"WebLinkBesideAFile",
            [](auto& d, auto& f) {
              d.setUrls({QUrl("http://example.org/"),
                         QUrl::fromLocalFile(QString::fromStdString(f.path("second.png")))});
            },
            {"text http://example.org/", "file second.png"}},
        Row{"FileWithItsPicture",
            [](auto& d, auto& f) {
              setFiles(d, {f.path("a picture.png")});
              fillBytes(d, "image/png");
            },
            {"file a picture.png"}},
        Row{"PictureBytes", [](auto& d, auto&) { fillBytes(d, "image/tiff"); }, {"picture"}},
        Row{"BrokenPictureBytes",
            [](auto& d, auto&) { fillBytes(d, "image/png", "no picture"); },
            {},
            true},
        Row{"PictureOfAnotherKind", [](auto& d, auto&) { fillBytes(d, "image/x-unheard-of"); }, {}},
        Row{"PictureBeforeColourAndText",
            [](auto& d, auto&) {
              fillBytes(d, "image/png");
              d.setColorData(QColor(Qt::red));
              d.setText("red");
            },
            {"picture"}},
        Row{"ColourBeforeText",
            [](auto& d, auto&) {
              d.setColorData(QColor(Qt::red));
              d.setText("red");
            },
            {"colour"}},
        Row{"Text", [](auto& d, auto&) { d.setText("words"); }, {"text words"}},
        Row{"MarkupAlone", [](auto& d, auto&) { d.setHtml("<b>words</b>"); }, {}},
        Row{"UnknownData", [](auto& d, auto&) { fillBytes(d, "application/x-unheard-of"); }, {}}),
    [](const auto& row) { return row.param.name; });

TEST(MimePasteboard, GivesOnlyTheClassesAskedFor) {
  const DraggedFiles files;
  testing::RecordingPlatform host;
  host.pictures.types = {"image/png"};
  QMimeData data;
  setFiles(data, {files.path("a picture.png")});
  MimePasteboard pasteboard(data, host.pictures);
  constexpr std::array withoutFiles{ReadableClass::image, ReadableClass::color,
                                    ReadableClass::string};
  EXPECT_FALSE(pasteboard.canReadObjects(withoutFiles, {{"image/png"}}));
  EXPECT_TRUE(pasteboard.readObjects(withoutFiles, {{"image/png"}})->empty());
  EXPECT_FALSE(pasteboard.canReadObjects(allClasses, {{"image/tiff"}}));
}

}  // namespace
}  // namespace tessarine
