#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
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

constexpr void layOut(const CatalogueEntry& entry, const auto& write) {
  write("    {\n");
  std::string_view separator;
  const auto member = [&](std::string_view key, std::string_view value) {
    if (value.empty()) return;
    write(separator);
    write("      \"");
    write(key);
    write("\" : \"");
    write(value);
    write("\"");
    separator = ",\n";
  };
  member("filename", entry.filename);
  member("idiom", entry.idiom);
  member("role", entry.role);
  member("scale", entry.scale);
  member("size", entry.size);
  member("subtype", entry.subtype);
  write("\n    }");
}

// The layout that the platform's own tools write: two-space steps, " : " between key and value,
// keys in alphabetical order, no line feed at the end. `write` is handed the text part by part.
constexpr void layOutCatalogue(const auto& entries, const auto& write) {
  write("{\n  \"images\" : [\n");
  std::string_view separator;
  for (const CatalogueEntry& entry : entries) {
    write(separator);
    layOut(entry, write);
    separator = ",\n";
  }
  write("\n  ],\n  \"info\" : {\n    \"author\" : \"xcode\",\n    \"version\" : 1\n  }\n}");
}

template <const auto& entries>
inline constexpr std::size_t catalogueLength = [] {
  std::size_t length = 0;
  layOutCatalogue(entries, [&](std::string_view part) { length += part.size(); });
  return length;
}();

template <const auto& entries>
inline constexpr auto catalogueStorage = [] {
  std::array<char, catalogueLength<entries>> storage{};
  auto end = storage.begin();
  layOutCatalogue(entries, [&](std::string_view part) { end = std::ranges::copy(part, end).out; });
  return storage;
}();

}  // namespace detail

// The complete text of a `Contents.json`, produced when the program is compiled.
template <const auto& entries>
inline constexpr std::string_view catalogueText(detail::catalogueStorage<entries>.data(),
                                                detail::catalogueStorage<entries>.size());

}  // namespace tessarine
