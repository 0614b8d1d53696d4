// BString: the owner of one text that crosses an interface.
#pragma once

#include "com/base.h"

#include <string>
#include <string_view>
#include <utility>

namespace tv {

/// Owns a BStr. A null pointer and an empty text read the same.
class BString
{
  public:
    BString() = default;
    explicit BString(std::u16string_view text);
    BString(const BString& other) : BString(other.View()) {}
    BString(BString&& other) noexcept : text(std::exchange(other.text, nullptr)) {}
    ~BString() { reset(); }
    BString& operator=(BString other) noexcept
    {
        std::swap(text, other.text);
        return *this;
    }

    /// Takes over a text that the caller owns.
    static BString Adopt(BStr owned)
    {
        BString result;
        result.text = owned;
        return result;
    }

    BStr get() const { return text; }
    BStr* put()
    {
        reset();
        return &text;
    }
    BStr release() { return std::exchange(text, nullptr); }
    void reset();

    std::u16string_view View() const;
    std::u16string Text() const { return std::u16string(View()); }

  private:
    BStr text = nullptr;
};

/// Returns the characters of a borrowed BStr; a null pointer is the empty text.
std::u16string_view TextOf(BStr text);

/// Allocates a BStr that the receiver frees; the form in which an operation returns a text. Raises std::bad_alloc.
BStr AllocateText(std::u16string_view text);

} // namespace tv
