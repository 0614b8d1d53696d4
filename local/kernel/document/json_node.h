// A place in a JSON text that knows its own path, so that every complaint can say where it belongs.
#pragma once

#include "document/document_io.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::document {

class JsonNode
{
  public:
    JsonNode(const nlohmann::json& json, std::string_view file, std::string path = {})
        : value(json), fileName(file), where(std::move(path))
    {}

    [[noreturn]] void Fail(const std::string& reason) const;

    /// Fails unless this is an object with no members but these.
    void AllowMembers(std::initializer_list<std::string_view> names) const;

    JsonNode Member(const char* name) const; // fails when it is missing
    std::optional<JsonNode> Find(const char* name) const;

    std::vector<JsonNode> Elements() const;
    std::vector<std::pair<std::string, JsonNode>> Members() const;
    std::string Text() const;
    std::string NonEmptyText() const;
    double Number() const;
    double PositiveLength() const; // above 0, at most kLongestLength
    bool Bool() const;
    int Integer() const;
    template <size_t N> std::array<double, N> Numbers() const
    {
        const std::vector<JsonNode> elements = Elements();
        if (elements.size() != N) {
            Fail("must be a list of " + std::to_string(N) + " numbers, and has " + std::to_string(elements.size()));
        }
        std::array<double, N> numbers{};
        for (size_t i = 0; i < N; i++) {
            numbers[i] = elements[i].Number();
        }
        return numbers;
    }

  private:
    const nlohmann::json& value;
    std::string_view fileName;
    std::string where;
};

/// A kilometre. Shapes beyond it lose the kernel's precision of a ten-thousandth of a millimetre.
inline constexpr double kLongestLength = 1e6;

} // namespace tv::document
