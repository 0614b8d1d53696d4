// Extensions of files, as far as the program judges by them.
#pragma once

#include <iterator>
#include <string_view>

namespace tv {

/// The application's own documents.
inline constexpr std::u16string_view kCadDocumentExtensions[] = {u"tvnprt", u"tvnasm", u"tvndrw"};

/// What a convert task takes from a folder. A plain "prt" isn't among them: too many programs write such files, and a
/// user who means one selects it by itself.
// clang-format off
inline constexpr std::u16string_view kConvertibleExtensions[] = {
    u"tvnprt",
    u"tvnasm",
    u"tvndrw",
    u"drw",
    u"asm",
    u"dxf",
    u"dwg",
    u"psd",
    u"ai",
    u"lfp",
    u"tvnlfp",
    u"prtdot",
    u"asmdot",
    u"drwdot",
    u"x_t",
    u"x_b",
    u"xmt_txt",
    u"xmt_bin",
    u"igs",
    u"iges",
    u"step",
    u"stp",
    u"sat",
    u"vda",
    u"stl",
    u"ngr",
    u"xpr",
    u"xas",
    u"ipt",
    u"iam",
    u"par",
    u"psm",
    u"ckd",
    u"emn",
    u"brd",
    u"bdf",
    u"idb",
    u"3dm",
};
// clang-format on
static_assert(std::size(kConvertibleExtensions) == 38);

/// Case is ignored.
bool IsCadDocument(std::u16string_view path);
bool IsConvertible(std::u16string_view path);

} // namespace tv
