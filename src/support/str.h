// Str: the program's wide text with a printf-like format operation. StrComp: a number as text of a minimum width.
#pragma once

#include "support/format.h"

#include <memory>
#include <string>
#include <string_view>

namespace tv {

/// A wide text that formats itself and lends a narrow copy. Texts of up to 7 characters need no memory of their own.
class Str
{
  public:
    Str() = default;
    Str(const char16_t* words) : text(words == nullptr ? u"" : words) {}
    Str(std::u16string words) : text(std::move(words)) {}
    Str(std::u16string_view words) : text(words) {}
    /// From a text resource, which has a length and no terminating zero.
    Str(const char16_t* resource, size_t length) : text(resource, length) {}
    Str(const Str& other) : text(other.text) {}
    Str(Str&& other) noexcept;
    virtual ~Str() = default;

    Str& operator=(const Str& other);
    Str& operator=(Str&& other) noexcept;

    /// Builds the text as printf does and replaces the content, which may be among the arguments.
    template <typename... Arguments> void Format(std::u16string_view format, const Arguments&... arguments)
    {
        SetText(FormatText(format, AsArgument(arguments)...));
    }

    const char16_t* Wide() const { return text.c_str(); }
    operator std::u16string_view() const { return text; }
    std::u16string_view View() const { return text; }
    size_t Length() const { return text.size(); }
    bool IsEmpty() const { return text.empty(); }

    /// The text in the system's narrow code page. The copy is made on demand and belongs to this object; it lives until
    /// the text changes or the object ends.
    const char* Narrow() const;

    friend bool operator==(const Str& left, const Str& right) { return left.text == right.text; }
    friend bool operator<(const Str& left, const Str& right) { return left.text < right.text; }

  private:
    static std::u16string_view AsArgument(const Str& argument) { return argument.text; }
    template <typename Argument>
    requires(!std::derived_from<Argument, Str>) static const Argument& AsArgument(const Argument& argument)
    {
        return argument;
    }

    void SetText(std::u16string words);
    void DropNarrow() noexcept;

    std::u16string text;
    mutable std::unique_ptr<char[]> narrow;
    mutable size_t narrowSize = 0;
};

/// The one way in which a number becomes a text of a fixed width. The width is a minimum; below 1 there is none.
class StrComp : public Str
{
  public:
    /// \param zero true fills with zeros, false with blanks
    StrComp(uint32_t value, int32_t width, bool zero);
};

} // namespace tv
