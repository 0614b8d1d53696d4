// Macros and a part for the real application.
#pragma once

#include <string>
#include <string_view>

namespace tv {

/// Content of a part that needs no geometry kernel; its one configuration is "Default".
inline constexpr char kBoxPart[] =
    R"({"format": "torvane-part", "version": 1, "units": "mm", "activeConfiguration": "Default",
  "configurations": [{"name": "Default", "features": [{"type": "box", "size": [10, 20, 30]}]}]})";

inline constexpr char16_t kEmptyMacro[] = u"Sub main()\r\nEnd Sub\r\n";

/// Writes a macro statement by statement. `Text` is whole at any time.
class MacroWriter
{
  public:
    /// The opened document is the one that the statements behind are about.
    MacroWriter& Open(std::u16string_view path)
    {
        statements += u"  Set spec = app.GetOpenDocSpec(\"" + std::u16string(path) + u"\")\r\n" +
                      u"  Set model = app.OpenDoc7(spec)\r\n";
        return *this;
    }
    MacroWriter& SaveAs(std::u16string_view path)
    {
        statements +=
            u"  saved = model.Extension.SaveAs(\"" + std::u16string(path) + u"\", 0, 1, Nothing, errors, warnings)\r\n";
        return *this;
    }
    MacroWriter& Close()
    {
        statements += u"  app.QuitDoc model.GetTitle\r\n";
        return *this;
    }

    std::u16string Text() const
    {
        return u"Sub main()\r\n  Dim errors As Long, warnings As Long\r\n  Set app = Application.Torvane\r\n" +
               statements + u"End Sub\r\n";
    }

  private:
    std::u16string statements;
};

} // namespace tv
