// The words that the JSON form uses for the values of an enumeration.
#pragma once

#include "document/model.h"

#include <string_view>

namespace tv::document {

template <class T> struct Word
{
    T value;
    std::string_view text;
};

inline constexpr Word<Operation> kOperations[] = {
    {Operation::Join, "join"},
    {Operation::Cut, "cut"},
};

inline constexpr Word<Projection> kProjections[] = {
    {Projection::Front, "front"},         {Projection::Back, "back"}, {Projection::Left, "left"},
    {Projection::Right, "right"},         {Projection::Top, "top"},   {Projection::Bottom, "bottom"},
    {Projection::Isometric, "isometric"},
};

inline constexpr Word<HiddenLines> kHiddenLines[] = {
    {HiddenLines::Removed, "removed"},
    {HiddenLines::Dashed, "dashed"},
};

template <class T, size_t N> std::string_view WordFor(const Word<T> (&words)[N], T value)
{
    for (const Word<T>& word : words) {
        if (word.value == value) {
            return word.text;
        }
    }
    return words[0].text;
}

} // namespace tv::document
