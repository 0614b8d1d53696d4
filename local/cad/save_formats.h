// The formats that SaveAs knows, by extension.
#pragma once

#include <string_view>

namespace tv::app {

enum class SaveRoute
{
    /// A document of our own, written by the application itself.
    Own,
    /// A neutral format that the kernel writes.
    Kernel,
    /// A format that exists and that this application can't write.
    NotOffered,
};

struct SaveFormat
{
    std::u16string_view extension;
    SaveRoute route;
};

inline constexpr SaveFormat kSaveFormats[] = {
    {u".tvnprt", SaveRoute::Own},      {u".tvnasm", SaveRoute::Own},      {u".tvndrw", SaveRoute::Own},
    {u".step", SaveRoute::Kernel},     {u".stp", SaveRoute::Kernel},      {u".igs", SaveRoute::Kernel},
    {u".iges", SaveRoute::Kernel},     {u".stl", SaveRoute::Kernel},      {u".wrl", SaveRoute::Kernel},
    {u".brep", SaveRoute::Kernel},     {u".pdf", SaveRoute::Kernel},      {u".ltxml", SaveRoute::NotOffered},
    {u".sat", SaveRoute::NotOffered},  {u".ai", SaveRoute::NotOffered},   {u".psd", SaveRoute::NotOffered},
    {u".ngr", SaveRoute::NotOffered},  {u".dxf", SaveRoute::NotOffered},  {u".dwg", SaveRoute::NotOffered},
    {u".zprt", SaveRoute::NotOffered}, {u".zasm", SaveRoute::NotOffered}, {u".zdrw", SaveRoute::NotOffered},
    {u".hcg", SaveRoute::NotOffered},  {u".hsf", SaveRoute::NotOffered},  {u".jpg", SaveRoute::NotOffered},
    {u".xaml", SaveRoute::NotOffered}, {u".x_t", SaveRoute::NotOffered},  {u".x_b", SaveRoute::NotOffered},
    {u".tif", SaveRoute::NotOffered},  {u".u3d", SaveRoute::NotOffered},  {u".vda", SaveRoute::NotOffered},
};

/// The format of an extension in small letters with its dot; null for one that nobody knows.
const SaveFormat* FindSaveFormat(std::u16string_view extension);

/// Whether LoadFile4 reads files of this extension: STEP, IGES, STL, BREP.
bool IsNeutralExtension(std::u16string_view extension);

} // namespace tv::app
