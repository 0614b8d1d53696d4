// Lays out pages: the standard page of a model, and the sheets of a drawing.
#pragma once

#include "engine/hidden_lines.h"
#include "engine/loader.h"
#include "engine/page.h"

namespace tv::kernel {

struct PageSettings
{
    Exactness exactness = Exactness::Automatic;
    document::HiddenLines hiddenLines = document::HiddenLines::Dashed; // of a model's page; a drawing's views say it
    std::string sheetFormat = "A3";                                    // of a model's page
    bool headerAndFooter = false;
};

/// What stands in the title block.
struct TitleBlock
{
    std::string title;
    std::string item; // "Configuration: Long" or "Sheet: Overview"
    std::string scale;
    std::string format;
    std::string description;
    std::string material;
    int page = 1;
    int pages = 1;
};

/// Front, top, right and isometric views at the largest standard scale that fits the sheet.
Page LayOutModel(const Model& model, TitleBlock title, const PageSettings& settings);

/// The sheet's views and notes at their places.
Page LayOutSheet(const document::Sheet& sheet, const OpenedSource& drawing, Loader& loader, TitleBlock title,
                 const PageSettings& settings);

/// "1:2" for 0.5, "2:1" for 2.
std::string ScaleText(double scale);

} // namespace tv::kernel
