#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "intake/base64.h"
#include "platform/vips/decoder.h"
#include "platform/vips/loader.h"
#include "tests/platform/vips/bomb_parts.h"
#include "tests/platform/vips/drawn_pictures.h"

namespace tessarine {
namespace {

using testing::Pixel;
using testing::pixelAt;

std::optional<Picture> decode(const std::string& bytes) {
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  return decodePicture(ByteBuffer({first, bytes.size()}, nullptr)).picture;
}

std::string svg(const std::string& attributes, const std::string& inside) {
  return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )" +
         attributes + ">" + inside + "</svg>";
}

TEST(Drawing, MayCarryAPrefixInItsNames) {
  const auto picture =
      decode(R"(<svg:svg xmlns:svg="http://www.w3.org/2000/svg" width="2" height="2">)"
             R"(<svg:rect width="2" height="2" fill="#00f"/></svg:svg>)");
  ASSERT_TRUE(picture);
  EXPECT_EQ(pixelAt(required(picture->bitmap), 5, 5), (Pixel{0, 0, 255, 255}));
}

// Cut, masked and blurred as a whole, in both ways that editors write it.
TEST(Drawing, MayHoldManyElementsInAGroup) {
  std::string parts = "<filter id='f'><feOffset/></filter><mask id='m'/><clipPath id='c'>";
  for (int i = 0; i < 60; ++i) parts += "<path d='M0 0h9v9z'/>";
  parts += "</clipPath>";
  std::string elements;
  for (int i = 0; i < 12000; ++i) elements += "<path d='M0 0h1v1z'/>";
  for (const auto* attribute :
       {"clip-path='url(#c)'", "mask='url(#m)'", "filter='url(#f)'",
        "style='stroke:none;clip-path:url(#c);mask:url(#m);filter:url(#f) url(#f)'"}) {
    EXPECT_TRUE(
        decode(svg("width='9' height='9'", parts + "<g " + attribute + ">" + elements + "</g>")))
        << attribute;
  }
}

struct Shape {
  const char* name;
  double width, height;
};

class DrawingOfShape : public ::testing::TestWithParam<Shape> {};

TEST_P(DrawingOfShape, IsLargeEnoughAndKeepsItsAspect) {
  const auto [name, width, height] = GetParam();
  const auto picture = decode(
      svg("width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + "\"",
          "<rect width=\"100%\" height=\"100%\"/>"));
  ASSERT_TRUE(picture);
  const PixelSize size = picture->points;
  EXPECT_GE(size.width, 2480);
  EXPECT_GE(size.height, 1240);
  // No larger than need be.
  EXPECT_TRUE(size.width <= 2485 || size.height <= 1245) << size.width << " x " << size.height;
  const double is = static_cast<double>(size.width) / static_cast<double>(size.height);
  EXPECT_NEAR(is / (width / height), 1, 0.002);
}

INSTANTIATE_TEST_SUITE_P(Shapes, DrawingOfShape,
                         ::testing::Values(Shape{"Square", 24, 24}, Shape{"OnePixel", 1, 1},
                                           Shape{"Wide", 200, 50}, Shape{"Tall", 50, 200},
                                           Shape{"TwoToOne", 1000, 500},
                                           Shape{"Larger", 6000, 4000},
                                           Shape{"TenAndAHalf", 10.5, 10.5},
                                           Shape{"OneAndAHalf", 1.6, 1.6}),
                         [](const auto& row) { return row.param.name; });

// By their headers alone: to draw so much takes seconds.
PixelSize sizeOf(const std::string& text) {
  const ByteBuffer bytes({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                         nullptr);
  EXPECT_TRUE(startVips());
  const auto image = loadHeader(*formatOf(bytes.bytes()), bytes);
  if (image == nullptr) return {};
  return {vips_image_get_width(image.get()), vips_image_get_height(image.get())};
}

TEST(Drawing, ThatWouldBeTooLargeIsMadeAsLargeAsMayBe) {
  for (const auto* sides : {R"(width="4" height="4000")", R"(width="100000" height="1")"}) {
    const PixelSize size = sizeOf(svg(sides, "<rect width=\"4\" height=\"9\"/>"));
    ASSERT_TRUE(Bitmap::byteCount(size)) << sides;
    EXPECT_GT(size.width * size.height, maximumPixels / 100 * 95) << sides;
  }
}

TEST(Drawing, IsLargeEnoughWhateverItsUnits) {
  const PixelSize metric = sizeOf(svg(R"(width="12.7mm" height="12.7mm")", ""));
  EXPECT_GE(metric.width, 2480);
  const PixelSize page = sizeOf(
      "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
      "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
      "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 100.4 100.4]>>endobj\n"
      "trailer<</Root 1 0 R>>\n%%EOF\n");
  EXPECT_GE(page.width, 2480);
}

// What a drawing refers to by `address` is not to be drawn: nothing but the blank page is seen.
void expectNothingFrom(const std::string& inside) {
  const auto picture = decode(svg(R"(width="10" height="10")", inside));
  if (!picture) return;
  const auto pixels = required(picture->bitmap).pixels();
  EXPECT_TRUE(std::ranges::all_of(pixels, [](auto sample) { return sample == 0; })) << inside;
}

const std::string sampleFile = TESSARINE_SOURCE_DIR "/tests/platform/vips/samples/rgb.png";

TEST(Drawing, ReadsNoOtherFile) {
  for (const std::string& address :
       {sampleFile, "file://" + sampleFile, std::string("rgb.png"), "file:" + sampleFile}) {
    const std::string sized = R"(" width="9" height="9"/>)";
    expectNothingFrom("<image href=\"" + address + sized + "<image xlink:href=\"" + address +
                      sized + "<use href=\"" + address + "#a" + sized +
                      "<filter id=\"f\"><feImage href=\"" + address +
                      "\"/></filter><rect width=\"9\" height=\"9\" filter=\"url(#f)\"/>");
  }
}

// The tests' working folder holds no such drawing, but the text of a file would show as letters.
TEST(Drawing, IncludesNoTextOfAFile) {
  expectNothingFrom(
      R"(<text y="9"><xi:include xmlns:xi="http://www.w3.org/2001/XInclude" parse="text" href="file:///etc/passwd"/></text>)");
  const auto picture = decode("<!DOCTYPE svg [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>" +
                              svg(R"(width="10" height="10")", "<text y=\"9\">&x;</text>"));
  if (picture) {
    const auto pixels = required(picture->bitmap).pixels();
    EXPECT_TRUE(std::ranges::all_of(pixels, [](auto sample) { return sample == 0; }));
  }
}

TEST(Drawing, ShowsThePictureThatItCarries) {
  const std::string png = testing::sample("rgb.png");
  const auto carried =
      encodeBase64({reinterpret_cast<const std::uint8_t*>(png.data()), png.size()});
  const auto picture = decode(svg(R"(width="48" height="32")",
                                  "<image width=\"48\" height=\"32\" "
                                  "xlink:href=\"data:image/png;base64," +
                                      carried + "\"/>"));
  ASSERT_TRUE(picture);
  EXPECT_EQ(pixelAt(required(picture->bitmap), 300, 300), (Pixel{200, 30, 40, 255}));
}

// As editors write them.
TEST(Drawing, IsReadWithFontsThatItCarriesAndStyleSheetsOfOthers) {
  const auto picture = decode(
      svg(R"(width="48" height="32")",
          R"(<style>@font-face{font-family:"A";src:url("data:font/woff;base64,d09GRg==")}</style>)"
          R"(<style>@import url("https://example.org/a.css"); rect{fill:#f00}</style>)"
          R"(<rect width="48" height="32"/>)"));
  ASSERT_TRUE(picture);
  EXPECT_EQ(pixelAt(required(picture->bitmap), 300, 300), (Pixel{255, 0, 0, 255}));
}

// A circle of addresses that none of it is drawn along.
TEST(Drawing, IsReadWhenItLinksToItselfAndIsPaintedWithItsParts) {
  const auto picture = decode(
      svg(R"x(id="all" width="48" height="32" fill="url(#a)" stroke="url(#b)")x",
          R"(<linearGradient id="a"><stop stop-color="#f00"/></linearGradient>)"
          R"(<linearGradient id="b"><stop stop-color="#f00"/></linearGradient>)"
          R"x(<g clip-path="url(#c)" mask="url(#m)"><clipPath id="c"><path d="M0 0H48V32H0"/>)x"
          R"(</clipPath><mask id="m"><path d="M0 0H48V32H0"/></mask></g>)"
          R"(<a href="#all"><rect width="48" height="32"/></a>)"));
  ASSERT_TRUE(picture);
  EXPECT_EQ(pixelAt(required(picture->bitmap), 300, 300), (Pixel{255, 0, 0, 255}));
}

// A port of this machine to which nobody may connect.
class Listener {
 public:
  Listener() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    isOpen_ = ::bind(socket_, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
              ::listen(socket_, 5) == 0 &&
              ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    port_ = ntohs(address.sin_port);
  }
  ~Listener() { ::close(socket_); }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  bool isOpen() const { return isOpen_; }
  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_) + "/a"; }
  bool wasCalled() const { return ::accept(socket_, nullptr, nullptr) >= 0; }

 private:
  int socket_;
  bool isOpen_ = false;
  int port_ = 0;
};

TEST(Drawing, CallsNobody) {
  const Listener listener;
  ASSERT_TRUE(listener.isOpen());
  const std::string address = listener.address();
  decode(svg(R"(width="10" height="10")", "<image width=\"9\" height=\"9\" xlink:href=\"" +
                                              address + ".png\"/>" + "<use href=\"" + address +
                                              ".svg#a\"/><style>@import url(" + address +
                                              ".css);</style>"));
  decode("<?xml-stylesheet href=\"" + address + ".css\"?><!DOCTYPE svg SYSTEM \"" + address +
         ".dtd\">" + svg(R"(width="10" height="10")", ""));
  decode("%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R/OpenAction<</S/URI/URI(" + address +
         ")>>>>endobj\n2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
         "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]/Contents 4 0 R>>endobj\n"
         "4 0 obj<</Length 0/F<</FS/URL/F(" +
         address +
         ")>>>>stream\n\nendstream endobj\n"
         "trailer<</Root 1 0 R>>\n%%EOF\n");
  EXPECT_FALSE(listener.wasCalled());
}

}  // namespace
}  // namespace tessarine
