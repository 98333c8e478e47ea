#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/bytes.h"

namespace tessarine {

// What a decoder throws when the data does not have the form it must have.
class DecodingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Stores values under keys.
class KeyedEncoder {
 public:
  virtual ~KeyedEncoder() = default;

  virtual void encode(const ByteBuffer& value, std::string_view key) = 0;
};

// Finds values by their keys; keys that nobody asks for are passed over.
class KeyedDecoder {
 public:
  virtual ~KeyedDecoder() = default;

  // Nothing when the key is missing or its value is null; throws DecodingError when the value is
  // of another kind.
  virtual std::optional<ByteBuffer> decodeIfPresent(std::string_view key) const = 0;
};

// Encodes into one JSON object: compact, keys in the order of encoding, bytes as standard base64.
class JSONEncoder final : public KeyedEncoder {
 public:
  void encode(const ByteBuffer& value, std::string_view key) override;
  // The object of all that has been encoded so far.
  std::string text() const;

 private:
  std::string members_;
};

// Throws DecodingError for a text that is not one JSON object.
class JSONDecoder final : public KeyedDecoder {
 public:
  explicit JSONDecoder(std::string_view text);
  ~JSONDecoder() override;
  std::optional<ByteBuffer> decodeIfPresent(std::string_view key) const override;

 private:
  std::unique_ptr<nlohmann::json> object_;
};

}  // namespace tessarine
