#include "document/json_node.h"

#include <algorithm>
#include <cmath>

namespace tv::document {

void JsonNode::Fail(const std::string& reason) const
{
    const std::string place = where.empty() ? "the document" : where;
    throw DocumentError(Fault::Invalid, std::string(fileName) + ": " + place + ": " + reason);
}

void JsonNode::AllowMembers(std::initializer_list<std::string_view> names) const
{
    if (!value.is_object()) {
        Fail("must be an object in braces");
    }
    for (const auto& member : value.items()) {
        if (std::ranges::find(names, member.key()) == names.end()) {
            JsonNode(member.value(), fileName, where + "/" + member.key()).Fail("no member of this name is known here");
        }
    }
}

std::optional<JsonNode> JsonNode::Find(const char* name) const
{
    const auto found = value.find(name);
    if (found == value.end()) {
        return std::nullopt;
    }
    return JsonNode(*found, fileName, where + "/" + name);
}

JsonNode JsonNode::Member(const char* name) const
{
    if (!value.is_object()) {
        Fail("must be an object in braces");
    }
    const std::optional<JsonNode> member = Find(name);
    if (!member) {
        Fail("the member \"" + std::string(name) + "\" is missing");
    }
    return *member;
}

std::vector<JsonNode> JsonNode::Elements() const
{
    if (!value.is_array()) {
        Fail("must be a list in brackets");
    }
    std::vector<JsonNode> elements;
    for (size_t i = 0; i < value.size(); i++) {
        elements.emplace_back(value[i], fileName, where + "/" + std::to_string(i));
    }
    return elements;
}

std::vector<std::pair<std::string, JsonNode>> JsonNode::Members() const
{
    if (!value.is_object()) {
        Fail("must be an object in braces");
    }
    std::vector<std::pair<std::string, JsonNode>> members;
    for (const auto& member : value.items()) {
        members.emplace_back(member.key(), JsonNode(member.value(), fileName, where + "/" + member.key()));
    }
    return members;
}

std::string JsonNode::Text() const
{
    if (!value.is_string()) {
        Fail("must be a text");
    }
    return value.get<std::string>();
}

std::string JsonNode::NonEmptyText() const
{
    std::string text = Text();
    if (text.empty()) {
        Fail("must not be empty");
    }
    return text;
}

double JsonNode::Number() const
{
    if (!value.is_number()) {
        Fail("must be a number");
    }
    const double number = value.get<double>();
    if (!std::isfinite(number) || std::abs(number) > kLongestLength) {
        Fail("must lie between -1000000 and 1000000");
    }
    return number;
}

double JsonNode::PositiveLength() const
{
    const double number = Number();
    if (number <= 0) {
        Fail("must be greater than 0");
    }
    return number;
}

int JsonNode::Integer() const
{
    if (!value.is_number_integer()) {
        Fail("must be a whole number");
    }
    const double number = Number();
    return static_cast<int>(number);
}

bool JsonNode::Bool() const
{
    if (!value.is_boolean()) {
        Fail("must be true or false");
    }
    return value.get<bool>();
}

} // namespace tv::document
