#include "intake/base64.h"
#include "tests/platform/vips/bomb_parts.h"
#include "tests/platform/vips/bombs.h"

namespace tessarine::testing {

namespace {

std::string tag(std::uint32_t number, std::uint32_t type, std::uint64_t count,
                std::uint64_t value) {
  return little(number, 2) + little(type, 2) + little(count, 4) + little(value, 4);
}

// One directory at offset 8; `next` is the place of the following one.
std::string tiff(const std::vector<std::string>& tags, std::uint32_t next = 0) {
  std::string bytes = std::string("II*\0", 4) + little(8, 4) + little(tags.size(), 2);
  for (const auto& one : tags) bytes += one;
  return bytes + little(next, 4) + std::string(64, '\0');
}

std::vector<std::string> grey(std::uint64_t width, std::uint64_t height) {
  return {tag(256, 4, 1, width), tag(257, 4, 1, height), tag(258, 3, 1, 8),
          tag(259, 3, 1, 1),     tag(262, 3, 1, 1),      tag(273, 4, 1, 8),
          tag(277, 3, 1, 1),     tag(278, 4, 1, height), tag(279, 4, 1, width * height)};
}

std::vector<std::string> with(std::vector<std::string> tags, const std::string& last) {
  tags.push_back(last);
  return tags;
}

std::vector<std::string> tiled(std::uint64_t side) {
  return {tag(256, 4, 1, 100), tag(257, 4, 1, 100), tag(258, 3, 1, 8),    tag(259, 3, 1, 8),
          tag(262, 3, 1, 1),   tag(277, 3, 1, 1),   tag(322, 4, 1, side), tag(323, 4, 1, side),
          tag(324, 4, 1, 8),   tag(325, 4, 1, 64)};
}

std::string svg(const std::string& inside, const std::string& before = {}) {
  return before + R"(<svg xmlns="http://www.w3.org/2000/svg" width="10" height="10">)" + inside +
         "</svg>";
}

std::string base64(const std::string& bytes) {
  return encodeBase64({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

std::string percent(const std::string& bytes) {
  static constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {'%', digits[value / 16U], digits[value % 16U]};
  }
  return text;
}

std::string picture(const std::string& address) {
  return R"(<image width="9" height="9" href=")" + address + R"("/>)";
}

// A drawing as an address, whose element "a" shows a huge picture.
std::string hugeDrawing() {
  return "data:image/svg+xml;base64," +
         base64(svg(R"(<image id="a" width="9" height="9" href="data:;base64,)" +
                    base64(png(30000, 30000, "")) + "\"/>"));
}

std::string repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

std::string styled(const std::string& css) {
  return svg("<style>" + css + "</style><rect width=\"9\" height=\"9\"/>");
}

std::string billionLaughs() {
  std::string entities = "<!ENTITY a0 \"ha\">";
  for (int i = 1; i < 40; ++i) {
    const std::string last = "&a" + std::to_string(i - 1) + ";";
    entities += "<!ENTITY a" + std::to_string(i) + " \"" + last + last + last + last + "\">";
  }
  return svg("<text>&a39;</text>", "<!DOCTYPE svg [" + entities + "]>");
}

// Forty elements, each holding `inside` twice, where "@" is the element before it and "^" the one
// behind it. They are named a second time in a way that means nothing.
std::string doubling(const std::string& begin, const std::string& inside, const std::string& end) {
  std::string elements = R"(<rect id="e0" width="1" height="1"/>)";
  for (int i = 1; i < 40; ++i) {
    for (const char letter : begin + " id=\"*\" xml:id=\"x\">" + inside + inside + end) {
      switch (letter) {
        case '@':
          elements += "#e" + std::to_string(i - 1);
          break;
        case '^':
          elements += "#e" + std::to_string(i + 1);
          break;
        case '*':
          elements += "e" + std::to_string(i);
          break;
        default:
          elements += letter;
      }
    }
  }
  return svg(elements + R"x(<rect width="9" height="9" fill="url(#e39)"/>)x");
}

// `attributes` stand in the pattern, `painted` in the rectangles that it consists of.
std::string doublingPatterns(const std::string& attributes, const std::string& painted) {
  return doubling(R"(<pattern width="1" height="1" )" + attributes,
                  R"(<rect width="2" height="2" )" + painted + "/>", "</pattern>");
}

std::string pdf(const std::string& mediaBox, const std::string& objects,
                const std::string& content) {
  return "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
         "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
         "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[" +
         mediaBox +
         "]/Contents 4 0 R/Resources<</XObject<</A 5 0 R>>>>>>endobj\n"
         "4 0 obj<</Length " +
         std::to_string(content.size()) + ">>stream\n" + content + "\nendstream endobj\n" +
         objects + "trailer<</Root 1 0 R>>\n%%EOF\n";
}

std::string icns(const std::string& type, std::uint32_t declared, const std::string& data) {
  const std::string element = type + big(declared, 4) + data;
  return "icns" + big(8 + element.size(), 4) + element;
}

std::string ico(const std::string& picture) {
  return std::string("\0\0\1\0\1\0\0\0\0\0\1\0\x20\0", 14) + little(picture.size(), 4) +
         little(22, 4) + picture;
}

}  // namespace

std::vector<Bomb> tiffBombs() {
  return {
      {"TIFFOfFourExapixels", tiff(grey(0x7fffffff, 0x7fffffff))},
      {"TIFFWithoutItsPixels", tiff(grey(16000, 16000))},
      {"TIFFWhoseDirectoryFollowsItself", tiff(grey(4, 4), 8), false},
      {"TIFFWithGiantProfile", tiff(with(grey(4, 4), tag(34675, 7, 0xf0000000, 8))), false},
      {"TIFFWithGiantTile", tiff(tiled(0x20000000))},
      {"TIFFWithFourGigatags", tiff(with(grey(4, 4), tag(330, 4, 0xffffffff, 8))), false},
  };
}

std::vector<Bomb> drawingBombs() {
  return {
      {"SVGOfABillionLaughs", billionLaughs()},
      {"SVGOfDoublingUses", doubling("<g", R"(<use href="@"/>)", "</g>")},
      {"SVGOfDoublingPatterns", doublingPatterns("", R"x(style="fill: url( '@' )")x")},
      {"SVGOfDoublingPatternsInCapitals", doublingPatterns("", R"x(fill="URL(@)")x")},
      {"SVGOfDoublingPatternsOfStrokes", doublingPatterns(R"x(stroke="url(@)")x", "")},
      {"SVGOfDoublingPatternsInACircle",
       doublingPatterns(R"x(mask="url(^)")x", R"x(fill="url(@)")x")},
      {"SVGOfOpenAddresses", svg("<rect fill=\"" + repeated("url(", 300'000) + "\"/>"), false},
      {"SVGOfClosedAddresses", svg("<rect fill=\"" + repeated("url(#)", 300'000) + "\"/>"), false},
      {"SVGWithAHugePicture",
       svg(picture("data:image/png;base64," + base64(png(30000, 30000, ""))))},
      {"SVGWithAHugePictureInTwoEntities",
       svg(picture("&a;&b;"), "<!DOCTYPE svg [<!ENTITY a \"dat\"><!ENTITY b \"a:;base64," +
                                  base64(png(30000, 30000, "")) + "\">]>")},
      {"SVGWithAHugePictureInAnEntity",
       svg("&a;", "<!DOCTYPE svg [<!ENTITY a '" +
                      picture("data:;base64," + base64(png(30000, 30000, ""))) + "'>]>")},
      {"SVGWithAHugePictureInASVG",
       svg(picture("data:image/svg+xml;base64," +
                   base64(svg(picture("data:;base64," + base64(png(30000, 30000, "")))))))},
      {"SVGWithAHugePictureByPath", svg(R"(<image width="9" height="9" path="data:;base64,)" +
                                        base64(png(30000, 30000, "")) + "\"/>")},
      {"SVGThatUsesAPartOfData", svg("<use href=\" DA&#9;TA" + hugeDrawing().substr(4) + "#a\"/>")},
      {"SVGPaintedWithAPartOfData",
       svg("<rect width=\"9\" height=\"9\" fill=\"url(" + hugeDrawing() + "#a)\"/>")},
      {"SVGStyledWithAPartOfData", styled("rect{fill:url('" + hugeDrawing() + "#a')}")},
      {"SVGThatImportsAStyleSheet", styled("<![CDATA[@import 'data:,rect{fill:red}';]]>")},
      {"SVGThatImportsAfterATab", styled("@import 'da&#9;ta:,rect{fill:red}';")},
      {"SVGPaintedWithManyStops",
       svg("<linearGradient id='a'>" + repeated("<stop/>", 3000) + "</linearGradient>" +
           "<g fill='url(#a)'>" + repeated("<path d='M0 0h9v9z'/>", 2000) + "</g>")},
      {"SVGWithASheetOfTwoParts", styled("@im<g>-</g>port 'data:,rect{fill:red}';")},
      {"SVGWithAStyleSheetBeside",
       svg("", "<?xml-stylesheet href='&#100;ata:text/css,rect{fill:red}'?>")},
      {"SVGThatIncludesAnother",
       svg(R"(<include xmlns="http://www.w3.org/2001/XInclude" href="data:image/svg+xml,x"/>)")},
      {"SVGWithAHugePictureInPercent", svg(picture("data:," + percent(png(30000, 30000, ""))))},
      {"SVGWithAHugePictureAfterATab",
       svg(picture("da&#9;ta:;base64," + base64(png(30000, 30000, ""))))},
      {"SVGWithAPictureThatWeCannotRead",
       svg(picture("data:;base64," + base64(png(0x7fffffff, 0x7fffffff, ""))))},
      {"SVGWithAPictureOfAnotherKind", svg(picture("data:image/gif;base64,R0lGODlh//////8="))},
      {"SVGOfDeepGroups", svg(repeated("<g>", 100'000))},
      {"SVGZOfAGigabyte", packed(svg(std::string(100'000'000, ' ')), true)},
      {"SVGZInsideSVGZ", packed(packed(svg(std::string(100'000'000, ' ')), true), true)},
      {"SVGOfEndlessSize",
       R"(<svg xmlns="http://www.w3.org/2000/svg" width="1e30" height="1e30"/>)", false},
      {"PDFOfAnEndlessPage", pdf("0 0 1e12 1e12", "", ""), false},
      {"PDFThatDrawsItself",
       pdf("0 0 10 10",
           "5 0 obj<</Type/XObject/Subtype/Form/BBox[0 0 9 9]/Resources<</XObject<</A 5 0 "
           "R>>>>"
           "/Length 5>>stream\n/A Do\nendstream endobj\n",
           "/A Do"),
       false},
  };
}

std::vector<Bomb> containerBombs() {
  return {
      {"ICOWithAHugePNG", ico(png(0x7fffffff, 0x7fffffff, ""))},
      {"ICOWithAHugeBitmap",
       ico(little(40, 4) + little(60000, 4) + little(120000, 4) + std::string(100, '\0'))},
      {"ICNSWithAHugePNG",
       icns("ic10", 8 + static_cast<std::uint32_t>(png(30000, 30000, "").size()),
            png(30000, 30000, ""))},
      {"ICNSWhoseElementReachesOut", icns("ic10", 0xfffffff0, "x")},
      {"ICNSWhoseElementIsEmpty", icns("ic10", 0, "x")},
  };
}

}  // namespace tessarine::testing
