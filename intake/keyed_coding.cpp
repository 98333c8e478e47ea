#include "intake/keyed_coding.h"

#include <nlohmann/json.hpp>

#include "intake/base64.h"

namespace tessarine {

void JSONEncoder::encode(const ByteBuffer& value, std::string_view key) {
  if (!members_.empty()) members_ += ',';
  members_ += nlohmann::json(key).dump();
  members_.append(":\"").append(encodeBase64(value.bytes())).append("\"");
}

std::string JSONEncoder::text() const {
  return "{" + members_ + "}";
}

JSONDecoder::JSONDecoder(std::string_view text) {
  auto value = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!value.is_object()) throw DecodingError("not a JSON object");
  object_ = std::make_unique<nlohmann::json>(std::move(value));
}

JSONDecoder::~JSONDecoder() = default;

std::optional<ByteBuffer> JSONDecoder::decodeIfPresent(std::string_view key) const {
  const auto member = object_->find(key);
  if (member == object_->end() || member->is_null()) return std::nullopt;
  if (!member->is_string()) throw DecodingError("not a text: " + std::string(key));
  const auto bytes = decodeBase64(member->get_ref<const std::string&>());
  if (!bytes) throw DecodingError("not base64: " + std::string(key));
  auto buffer = ByteBuffer::copyOf(*bytes);
  if (!buffer) throw DecodingError("too large: " + std::string(key));
  return buffer;
}

}  // namespace tessarine
