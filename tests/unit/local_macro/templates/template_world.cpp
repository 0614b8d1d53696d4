#include "local_macro/templates/template_world.h"

#include "macro/text.h"
#include "templates/script_templates.h"

#include <stdexcept>

namespace tv::macro {

namespace {

struct NamedNumber
{
    std::u16string_view name;
    int32_t number;
};

constexpr NamedNumber kEnumerations[] = {
    {u"tvDocNONE", 0},
    {u"tvDocPART", 1},
    {u"tvDocASSEMBLY", 2},
    {u"tvDocDRAWING", 3},
    {u"tvFutureVersion", 8192},
    {u"tvSaveAsCurrentVersion", 0},
    {u"tvSaveAsOptions_Silent", 1},
    {u"tvExportPdfData", 1},
    {u"tvExportData_ExportSpecifiedSheets", 3},
    {u"tvZephrinSaveActive", 71},
    {u"tvZephrinSaveAll", 72},
    {u"tvZephrinSaveSelected", 73},
    {u"tvPageSetupInUse_Document", 2},
};

/// The preferences by name. Each gets a number of its own, so that the call log can show the name again.
constexpr std::u16string_view kPreferences[] = {
    u"tvPDFExportInColor",
    u"tvPDFExportEmbedFonts",
    u"tvPDFExportHighQuality",
    u"tvPDFExportPrintHeaderFooter",
    u"tvPDFExportUseCurrentPrintLineWeights",
    u"tvIGESExportSolidAndSurface",
    u"tvIGESRepresentation",
    u"tvIGESExportAsWireframe",
    u"tvIGESCurveRepresentation",
    u"tvIGESSystem",
    u"tvIGESExportFreeCurves",
    u"tvIGESExportSketchEntities",
    u"tvIGESHighTrimCurveAccuracy",
    u"tvIGESComponentsIntoOneFile",
    u"tvIGESFlattenAssemHierarchy",
    u"tvAcisOutputGeometryPreference",
    u"tvOutputVersion",
    u"tvAcisOutputUnits",
    u"tvStepAP",
    u"tvParasolidOutputVersion",
    u"tvXTAssemSaveFormat",
    u"tvExportVrmlUnits",
    u"tvExportVrmlAllComponentsInSingleFile",
    u"tvSTLBinaryFormat",
    u"tvExportStlUnits",
    u"tvSTLQuality",
    u"tvSTLDontTranslateToPositive",
    u"tvSTLComponentsIntoOneFile",
    u"tvSTLCheckForInterference",
    u"tvTiffImageType",
    u"tvTiffCompressionScheme",
    u"tvZephrinOkayToMeasure",
    u"tvZephrinExportSTLOkay",
    u"tvZephrinSaveShadedDataInDrawings",
    u"tvZephrinSaveBOM",
    u"tvZephrinSaveAnimationOkay",
    u"tvZephrinSaveAnimationToAllConfigs",
    u"tvZephrinSaveAnimationRecalculate",
    u"tvZephrinSaveAsSelectionOption",
    u"tvZephrinSelectionList",
    u"tvPageSetupPrinterUsePrinterMargin",
    u"tvPageSetupPrinterTopMargin",
    u"tvPageSetupPrinterBottomMargin",
    u"tvPageSetupPrinterLeftMargin",
    u"tvPageSetupPrinterRightMargin",
};

/// The options of the output formats, as the pages store them.
constexpr std::u16string_view kNumberOptions[] = {
    u"IgesRepresentation", u"IgesCurveRepresentation", u"IgesSystem",      u"AcisGeometry",
    u"AcisVersion",        u"AcisOutputAsUnit",        u"StepGeometry",    u"StepVersion",
    u"ParasolidVersion",   u"VrmlOutputAsUnit",        u"StlOutputAsUnit", u"StlQuality",
    u"TifImageType",       u"TifCompressionScheme",
};

constexpr std::u16string_view kSwitchOptions[] = {
    u"PdfInColor",
    u"PdfEmbedFonts",
    u"PdfHighQuality",
    u"PdfPrintHeaderFooter",
    u"PdfUsePrinterLineWeights",
    u"IgesExportSolidSurface",
    u"IgesExportWireframe",
    u"IgesExportFreeCurves",
    u"IgesExportSketchEntities",
    u"IgesHighCurveAccuracy",
    u"IgesComponentsIntoOneFile",
    u"IgesFlattenAssemblyHierarchy",
    u"ParasolidFlattenHierarchy",
    u"VrmlSaveAssemblyAsOneFile",
    u"StlOutputAs",
    u"StlDontTranslatePositive",
    u"StlComponentsIntoOneFile",
    u"StlCheckForInterferences",
    u"ZphrOkayToMeasure",
    u"ZphrAllowExportOfSTL",
    u"ZphrSaveShadedData",
    u"ZphrSaveBOM",
    u"ZphrSaveMotionStudies",
    u"ZphrSaveMotionStudiesToAllConfs",
    u"ZphrRecalcMotionStudies",
};

constexpr int32_t kAlreadyExists = 183;
constexpr int32_t kInvalidParameter = 87;
constexpr int32_t kInvalidName = 123;
constexpr int32_t kBadPathName = 161;

bool IsRelative(std::u16string_view path)
{
    return !path.starts_with(u'\\') && !(path.size() > 1 && path[1] == u':');
}

/// A narrow entry sees the path in the code page of the system.
std::u16string ThroughCodePage(const Value& path)
{
    return FromNarrow(ToNarrow(path.ToText()));
}

Value CreateFolders(FileSystem& files, std::u16string path)
{
    while (path.size() > 1 && path.back() == u'\\') {
        path.pop_back();
    }
    if (path.empty() || IsRelative(path)) {
        return Value(kBadPathName);
    }
    if (path.find_first_of(u"?*<>|\"") != std::u16string::npos) {
        return Value(kInvalidName);
    }
    if (files.Find(path)) {
        return Value(kAlreadyExists);
    }
    for (size_t i = path.find(u'\\', 3); i != std::u16string::npos; i = path.find(u'\\', i + 1)) {
        if (!files.Find(path.substr(0, i))) {
            files.CreateFolder(path.substr(0, i));
        }
    }
    files.CreateFolder(path);
    return Value(int32_t{0});
}

} // namespace

TemplateWorld::TemplateWorld(int32_t templateId) : resource(templateId)
{
    for (const NamedNumber& row : kEnumerations) {
        library.constants[FoldCase(row.name)] = row.number;
    }
    int32_t number = 1000;
    for (const std::u16string_view name : kPreferences) {
        library.constants[FoldCase(name)] = number;
        cad.preferenceNames[number++] = Utf8Text(name);
    }
    library.globals[u"application"] = true;
    host.globals[u"application"] = Value(MakeScriptedApplication(cad));
    host.functions[{u"shell32", u"shcreatedirectoryexa"}] = [this](Arguments& arguments) {
        arguments.Expect(3, 3);
        // Neither a window nor a security descriptor goes with the path.
        if (arguments[0].ToLong() != 0 || arguments[2].ToLong() != 0) {
            return Value(kInvalidParameter);
        }
        return CreateFolders(host.files, ThroughCodePage(arguments[1]));
    };
    host.functions[{u"shlwapi", u"pathisrelativea"}] = [](Arguments& arguments) {
        arguments.Expect(1, 1);
        return Value(int32_t{IsRelative(ThroughCodePage(arguments[0])) ? 1 : 0});
    };
    machine.module.AddScript(resource, std::string(ScriptTemplate(resource)));
    task->guid = u"{guid}";
    Variables().SetText(u"ErrorLogPath", u"\\Logs");
}

std::u16string TemplateWorld::MacroText(std::u16string_view path, std::u16string_view configurationOrSheet)
{
    TaskScript script(machine.platform);
    script.InitScript(vault.Get(), task.get(), ReadScriptResource(machine.module, resource));
    script.SetSourceFile(path, configurationOrSheet, 10, 20, 1);
    return script.GetMacroText();
}

CompileResult TemplateWorld::CompileMacro(std::u16string_view text) const
{
    CompileOptions options;
    options.library = &library;
    return Compile(text, options);
}

RunResult TemplateWorld::RunProcedure(std::u16string_view text, std::u16string_view procedure)
{
    const CompileResult compiled = CompileMacro(text);
    if (!compiled.module) {
        const Problem& first = compiled.problems.front();
        throw std::runtime_error("line " + std::to_string(first.line) + ": " + Utf8Text(first.message));
    }
    const RunResult result = Machine(host, {}).Run(*compiled.module, procedure);
    if (result.outcome != Outcome::Ok) {
        throw std::runtime_error("error " + std::to_string(result.number) + " in line " + std::to_string(result.line) +
                                 ": " + Utf8Text(result.description));
    }
    return result;
}

void TemplateWorld::Run(std::u16string_view path, std::u16string_view configurationOrSheet)
{
    RunProcedure(MacroText(path, configurationOrSheet), u"main");
}

std::string TemplateWorld::RunStatements(std::u16string_view statements)
{
    const size_t before = host.printed.size();
    const std::u16string text = MacroText(u"C:\\Vault\\part.tvnprt") + u"\r\nSub ProbeOfATest()\r\n" +
                                std::u16string(statements) + u"\r\nEnd Sub\r\n";
    RunProcedure(text, u"ProbeOfATest");
    std::string printed;
    for (size_t i = before; i < host.printed.size(); ++i) {
        printed += (i > before ? "\n" : "") + host.printed[i];
    }
    return printed;
}

std::string TemplateWorld::Calls(std::string_view beginning) const
{
    std::string joined;
    for (const std::string& call : cad.calls) {
        if (call.starts_with(beginning)) {
            joined += call + "\n";
        }
    }
    return joined;
}

std::string TemplateWorld::Log() const
{
    return host.files.Content(u"C:\\Vault\\Logs\\{guid}.log").value_or("(none)");
}

ConvertWorld::ConvertWorld() : TemplateWorld(kConvertTemplate)
{
    Variables().SetText(u"OutputPath", u"C:\\Out\\<Filename>_<Configuration>");
    Variables().SetText(u"OutputPath2", u"");
    Variables().SetText(u"FileFormat", u"STL (*.stl)");
    Variables().SetInt(u"OutputSheets", 2);
    Variables().SetInt(u"OutputConfs", 2);
    Variables().SetInt(u"FileSheets", 4);
    Variables().SetInt(u"FileConfs", 4);
    Variables().SetText(u"NamedSheet", u"*");
    Variables().SetText(u"NamedConf", u"*");
    for (const std::u16string_view name : kNumberOptions) {
        Variables().SetInt(name, 0);
    }
    for (const std::u16string_view name : kSwitchOptions) {
        Variables().SetBool(name, false);
    }
}

PrintWorld::PrintWorld() : TemplateWorld(kPrintTemplate)
{
    cad.printers = {u"Plotter"};
    Variables().SetInt(u"__printer_prseltype", 0);
    Variables().SetText(u"__printer_prname", u"Plotter");
    Variables().SetInt(u"__printer_copycount", 1);
    Variables().SetBool(u"__printer_usedrwnfo", true);
    Variables().SetInt(u"__printer_defpapsize", 10);
    Variables().SetInt(u"__printer_deforientation", 0);
    Variables().SetInt(u"__printer_margintype", 0);
    for (const char16_t* side : {u"top", u"bottom", u"left", u"right"}) {
        Variables().Set(u"__printer_margin" + std::u16string(side), Variant::FromFloat(0));
    }
    Variables().SetInt(u"__printer_headertype", 0);
    Variables().SetInt(u"__printer_footertype", 0);
}

} // namespace tv::macro
