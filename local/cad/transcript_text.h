// Lines of the transcript: what the application was asked for, as a test reads it.
#pragma once

#include "com/variant.h"
#include "macro/value.h"

#include <span>
#include <string>
#include <string_view>

namespace tv::app {

/// `call Torvane.setuserpreferencetoggle 290 True`. Texts stand in quotes, an object as its class in angles.
std::string CallLine(std::u16string_view className, std::u16string_view member,
                     std::span<const macro::Value> arguments);
/// `event DPartDocEvents 7 "C:\out.stp"`.
std::string EventLine(const GUID& eventInterface, int32_t event, std::span<const Variant> arguments);

/// A text in double quotes on one line: quotes in it are doubled, ends of lines are blanks.
std::string QuotedText(std::string_view text);

} // namespace tv::app
