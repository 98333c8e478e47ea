#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tessarine {

// One image of an asset catalogue. An empty value leaves its key out.
struct CatalogueEntry {
  std::string_view filename = {};
  std::string_view idiom = {};
  std::string_view role = {};
  std::string_view scale = {};
  std::string_view size = {};
  std::string_view subtype = {};
};

namespace detail {

constexpr void appendEntry(std::string& text, const CatalogueEntry& entry) {
  text += "    {\n";
  std::string_view separator;
  const auto member = [&](std::string_view key, std::string_view value) {
    if (value.empty()) return;
    text.append(separator).append("      \"").append(key).append("\" : \"");
    text.append(value).append("\"");
    separator = ",\n";
  };
  member("filename", entry.filename);
  member("idiom", entry.idiom);
  member("role", entry.role);
  member("scale", entry.scale);
  member("size", entry.size);
  member("subtype", entry.subtype);
  text += "\n    }";
}

// The layout that the platform's own tools write: two-space steps, " : " between key and value,
// keys in alphabetical order, no line feed at the end.
constexpr std::string catalogueLayout(const auto& entries) {
  std::string text = "{\n  \"images\" : [\n";
  std::string_view separator;
  for (const CatalogueEntry& entry : entries) {
    text += separator;
    appendEntry(text, entry);
    separator = ",\n";
  }
  text += "\n  ],\n  \"info\" : {\n    \"author\" : \"xcode\",\n    \"version\" : 1\n  }\n}";
  return text;
}

// The text as constant storage: a string cannot outlive its compile-time evaluation.
template <const auto& entries>
inline constexpr auto catalogueStorage = [] {
  std::array<char, catalogueLayout(entries).size()> storage{};
  const std::string text = catalogueLayout(entries);
  for (std::size_t i = 0; i < storage.size(); ++i) storage[i] = text[i];
  return storage;
}();

}  // namespace detail

// The complete text of a `Contents.json`, produced when the program is compiled.
template <const auto& entries>
inline constexpr std::string_view catalogueText(detail::catalogueStorage<entries>.data(),
                                                detail::catalogueStorage<entries>.size());

}  // namespace tessarine
