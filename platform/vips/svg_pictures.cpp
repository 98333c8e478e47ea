#include <glib.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/vips/loader.h"
#include "platform/vips/magic.h"
#include "platform/vips/preparation.h"
#include "platform/vips/svg_addresses.h"
#include "platform/vips/svg_references.h"

namespace tessarine::preparation {

namespace {

// All pictures inside a drawing together. The library that reads them has no limit of its own.
constexpr std::int64_t maximumPixelsInside = 64'000'000;
// The texts of one PNG inside.
constexpr std::size_t maximumTextBytes = 65536;
constexpr int maximumDepth = 4;
// librsvg draws so many of the smallest in about ten seconds, which is as long as it is given.
constexpr std::int64_t maximumReferenced = 500'000;

struct Inspection {
  SVGReferences references;
  // The text of the style sheet whose element is open.
  std::optional<std::string> styleSheet;
  std::int64_t pixels = 0;
  int depth = 0;
  bool isBearable = true;
};

void inspect(Head drawing, Inspection& inspection);

// Nothing for a picture that we cannot read; the library of the drawing may.
std::optional<std::int64_t> pixelsOf(const Format& format, const ByteBuffer& bytes) {
  const auto image = loadHeader(format, bytes);
  if (image == nullptr) return std::nullopt;
  return std::int64_t{vips_image_get_width(image.get())} * vips_image_get_height(image.get());
}

void inspectPicture(Head bytes, Inspection& inspection) {
  const auto head = bytes.first(std::min(headSize, bytes.size()));
  const Format* format = formatOf(head);
  const ByteBuffer view(bytes, nullptr);
  if (magic::svg(head)) {
    Inspection inside;
    inside.pixels = inspection.pixels;
    inside.depth = inspection.depth + 1;
    inside.isBearable = inside.depth <= maximumDepth;
    if (inside.isBearable) inspect(bytes, inside);
    inspection.pixels = inside.pixels;
    inspection.isBearable = inside.isBearable;
  } else if (magic::png(head) || magic::jpeg(head)) {
    const auto prepared = format->prepare(view);
    const auto pixels = pixelsOf(*format, view);
    inspection.pixels += pixels.value_or(0);
    inspection.isBearable = prepared && pixels &&
                            bytes.size() - prepared->bytes().size() <= maximumTextBytes &&
                            inspection.pixels <= maximumPixelsInside;
  } else {
    inspection.isBearable = false;
  }
}

struct FreeMemory {
  void operator()(void* memory) const noexcept { g_free(memory); }
};
struct FreeBytes {
  void operator()(GBytes* bytes) const noexcept { g_bytes_unref(bytes); }
};

// The address of a picture: nothing, a part of the drawing, or the picture itself. Whatever else it
// may be would have to be read as the library reads addresses, down to the last blank.
void inspectAddress(std::string_view address, Inspection& inspection) {
  static constexpr std::string_view carried = "data:";
  static constexpr std::string_view base64 = ";base64";
  const auto first = address.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos || address[first] == '#') return;
  address.remove_prefix(first);
  const auto comma = address.find(',');
  inspection.isBearable = address.starts_with(carried) && comma != std::string_view::npos;
  if (!inspection.isBearable) return;
  const std::string data(address.substr(comma + 1));
  const std::unique_ptr<GBytes, FreeBytes> plain(
      g_uri_unescape_bytes(data.c_str(), static_cast<gssize>(data.size()), nullptr, nullptr));
  inspection.isBearable = plain != nullptr;
  if (!inspection.isBearable) return;
  gsize size = 0;
  const auto* begin = static_cast<const std::uint8_t*>(g_bytes_get_data(plain.get(), &size));
  if (!address.substr(0, comma).ends_with(base64)) {
    inspectPicture({begin, size}, inspection);
    return;
  }
  const std::string letters(reinterpret_cast<const char*>(begin), size);
  const std::unique_ptr<guchar, FreeMemory> bytes(g_base64_decode(letters.c_str(), &size));
  inspectPicture({bytes.get(), size}, inspection);
}

Inspection& inspectionOf(void* context) {
  return *static_cast<Inspection*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

std::string_view text(const xmlChar* begin) {
  return reinterpret_cast<const char*>(begin);
}

// What applies to an element as a whole, and not to each of those inside.
bool isOfGroups(std::string_view property) {
  return property == "clip-path" || property == "mask" || property == "filter";
}

// The value of an attribute, which may be a style of several properties.
void inspectStyle(std::string_view attribute, std::string_view value, Inspection& inspection) {
  std::string_view property = attribute;
  while (const auto found = takeAddress(value)) {
    if (!found->property.empty()) property = found->property;
    if (refersIntoData(found->address)) inspection.isBearable = false;
    if (!found->address.starts_with('#')) continue;
    const auto id = found->address.substr(1);
    if (isOfGroups(property)) {
      inspection.references.refersTo(id);
    } else {
      inspection.references.isPaintedWith(id);
    }
  }
}

void inspectStyleSheet(std::string_view text, Inspection& inspection) {
  if (importsData(text)) inspection.isBearable = false;
  while (const auto found = takeAddress(text)) {
    if (refersIntoData(found->address)) inspection.isBearable = false;
  }
}

void startElement(void* context, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                  const xmlChar**, int count, int, const xmlChar** attributes) {
  Inspection& inspection = inspectionOf(context);
  // Five pointers each: name, prefix, namespace, begin and end of the value.
  const auto attribute = [attributes](std::ptrdiff_t i) { return text(attributes[5 * i]); };
  const auto value = [attributes](std::ptrdiff_t i) {
    return std::string(reinterpret_cast<const char*>(attributes[5 * i + 3]),
                       reinterpret_cast<const char*>(attributes[5 * i + 4]));
  };
  std::string id;
  for (int i = 0; i < count; ++i) {
    // Others have ids of their own, which nothing in the drawing refers to.
    const bool isPlain = attributes[5 * i + 1] == nullptr;
    if (isPlain && attribute(i) == "id") id = value(i);
  }
  inspection.references.open(text(name), id);
  // A style sheet is its text alone.
  if (inspection.styleSheet) inspection.isBearable = false;
  if (text(name) == "style") inspection.styleSheet.emplace();
  // Texts and drawings from elsewhere.
  if (text(name) == "include") inspection.isBearable = false;
  const bool showsPicture = text(name) == "image" || text(name) == "feImage";
  for (int i = 0; i < count && inspection.isBearable; ++i) {
    const std::string address = value(i);
    inspectStyle(attribute(i), address, inspection);
    if (refersIntoData(address)) inspection.isBearable = false;
    // An older name for the address of a picture is "path".
    if (showsPicture && attribute(i) == "path") inspectAddress(address, inspection);
    if (attribute(i) != "href") continue;
    // A link is followed by readers, not when it is drawn.
    const bool isDrawn = text(name) != "a" && address.starts_with('#');
    if (isDrawn) inspection.references.refersTo(address.substr(1));
    if (showsPicture) inspectAddress(address, inspection);
  }
}

void characters(void* context, const xmlChar* begin, int size) {
  auto& sheet = inspectionOf(context).styleSheet;
  if (sheet) sheet->append(reinterpret_cast<const char*>(begin), static_cast<std::size_t>(size));
}

void endElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  Inspection& inspection = inspectionOf(context);
  if (inspection.styleSheet) {
    inspectStyleSheet(*inspection.styleSheet, inspection);
    inspection.styleSheet.reset();
  }
  inspection.references.close();
}

// A style sheet beside the drawing.
void processingInstruction(void* context, const xmlChar* target, const xmlChar*) {
  if (text(target) == "xml-stylesheet") inspectionOf(context).isBearable = false;
}

// Elements in an entity's text would appear where the drawing refers to it, unseen by us, and an
// entity of another file is none of ours.
void declareEntity(void* context, const xmlChar* name, int type, const xmlChar* publicId,
                   const xmlChar* systemId, xmlChar* content) {
  if (type != XML_INTERNAL_GENERAL_ENTITY || xmlStrchr(content, '<') != nullptr) {
    inspectionOf(context).isBearable = false;
    xmlStopParser(static_cast<xmlParserCtxtPtr>(context));
    return;
  }
  xmlSAX2EntityDecl(context, name, type, publicId, systemId, content);
}

void inspect(Head drawing, Inspection& inspection) {
  xmlSAXHandler handler{};
  xmlSAXVersion(&handler, 2);
  handler.startElementNs = startElement;
  handler.endElementNs = endElement;
  handler.characters = handler.cdataBlock = handler.ignorableWhitespace = characters;
  handler.comment = nullptr;
  handler.processingInstruction = processingInstruction;
  handler.reference = nullptr;
  handler.externalSubset = nullptr;
  handler.entityDecl = declareEntity;
  handler.warning = handler.error = handler.fatalError = nullptr;
  handler.serror = nullptr;
  xmlParserCtxtPtr context = xmlCreatePushParserCtxt(&handler, nullptr, nullptr, 0, nullptr);
  if (context == nullptr) {
    inspection.isBearable = false;
    return;
  }
  context->_private = &inspection;
  // NOENT has the entities in addresses replaced by their texts.
  xmlCtxtUseOptions(context,
                    XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  xmlParseChunk(context, reinterpret_cast<const char*>(drawing.data()),
                static_cast<int>(drawing.size()), 1);
  // What we could not follow to its end may go on for the library.
  if (context->wellFormed == 0 || inspection.references.count() > maximumReferenced) {
    inspection.isBearable = false;
  }
  xmlDocPtr document = context->myDoc;
  xmlFreeParserCtxt(context);
  if (document != nullptr) xmlFreeDoc(document);
}

}  // namespace

std::optional<ByteBuffer> withBearablePictures(const ByteBuffer& file) {
  if (file.bytes().size() > maximumDrawingBytes) return std::nullopt;
  Inspection inspection;
  inspect(file.bytes(), inspection);
  return inspection.isBearable ? std::optional(file) : std::nullopt;
}

}  // namespace tessarine::preparation
