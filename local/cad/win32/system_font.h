// SystemFont: a font in which the system itself writes, as the person at the screen has chosen it.
#pragma once

#include "com/base.h"

namespace tv::app {

enum class FontUse
{
    Message,
    Caption
};

class SystemFont
{
  public:
    explicit SystemFont(FontUse use)
    {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
            font = CreateFontIndirectW(use == FontUse::Caption ? &metrics.lfCaptionFont : &metrics.lfMessageFont);
        }
    }
    SystemFont(const SystemFont&) = delete;
    SystemFont& operator=(const SystemFont&) = delete;
    ~SystemFont()
    {
        if (font != nullptr) {
            DeleteObject(font);
        }
    }

    /// Never null: without a font of its own it is the system's stock one.
    HGDIOBJ get() const { return font != nullptr ? font : GetStockObject(DEFAULT_GUI_FONT); }

  private:
    HFONT font = nullptr;
};

/// Draws in the font while it lives.
class SystemFontInUse
{
  public:
    SystemFontInUse(HDC drawnOn, const SystemFont& font) : context(drawnOn), before(SelectObject(drawnOn, font.get()))
    {}
    SystemFontInUse(const SystemFontInUse&) = delete;
    SystemFontInUse& operator=(const SystemFontInUse&) = delete;
    ~SystemFontInUse() { SelectObject(context, before); }

  private:
    HDC context;
    HGDIOBJ before;
};

} // namespace tv::app
