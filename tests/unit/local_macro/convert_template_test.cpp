// The convert template as it stands, run against an application that writes down what it is asked.

#include "local_macro/script_world.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace tv::macro {

namespace {

struct FakeDocument
{
    int32_t type = 1;
    std::vector<std::u16string> configurations = {u"Default"};
    std::vector<std::u16string> sheets;
    /// Paths of the components, virtual ones with true.
    std::vector<std::pair<std::u16string, bool>> components;
};

struct SaveOutcome
{
    bool succeeds = true;
    int32_t errors = 0;
    int32_t warnings = 0;
};

struct FakeCad
{
    std::map<std::u16string, FakeDocument> documents;
    std::vector<std::string> calls;
    std::u16string revision = u"18.2.0";
    int32_t openError = 0;
    std::map<std::string, SaveOutcome> saves;
};

std::string TextOf(const Value& value)
{
    if (value.IsObject()) {
        return value.IsNothing() ? "Nothing" : Narrow(value.ObjectPointer()->ClassName());
    }
    if (value.IsArray()) {
        std::string joined = "[";
        for (const Value& item : value.ArrayPointer()->items) {
            joined += (joined.size() > 1 ? "," : "") + TextOf(item);
        }
        return joined + "]";
    }
    return Narrow(value.ToText());
}

/// An object of the application: a class name, a way to answer, and the common call log.
class FakeObject final : public Object
{
  public:
    using Answer = std::function<Value(const MemberName&, InvokeKind, Arguments&)>;
    FakeObject(FakeCad& world, std::u16string ownClass, Answer ownAnswer)
        : cad(world), className(std::move(ownClass)), answer(std::move(ownAnswer))
    {}

    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) override
    {
        std::string line = Narrow(name.text);
        for (size_t i = 0; i < arguments.Count(); ++i) {
            line += (i == 0 ? " " : ", ") + TextOf(arguments[i]);
        }
        cad.calls.push_back(line);
        return answer(name, kind, arguments);
    }
    std::u16string ClassName() const override { return className; }
    bool IsKindOf(std::u16string_view) const override { return true; }

  private:
    FakeCad& cad;
    std::u16string className;
    Answer answer;
};

class World
{
  public:
    World()
    {
        const char* const names[] = {"tvDocNONE",
                                     "tvDocPART",
                                     "tvDocASSEMBLY",
                                     "tvDocDRAWING",
                                     "tvSaveAsCurrentVersion",
                                     "tvSaveAsOptions_Silent",
                                     "tvExportData_ExportSpecifiedSheets",
                                     "tvExportPdfData",
                                     "tvFutureVersion",
                                     "tvZephrinSaveAsSelectionOption",
                                     "tvZephrinSaveActive",
                                     "tvZephrinSaveAll",
                                     "tvZephrinSaveSelected",
                                     "tvZephrinSelectionList"};
        const int32_t values[] = {0, 1, 2, 3, 0, 1, 2, 1, 8192, 70, 71, 72, 73, 74};
        for (size_t i = 0; i < std::size(names); ++i) {
            library.constants[FoldCase(Wide(names[i]))] = values[i];
        }
        library.globals[u"application"] = true;
        Ref<Object> application = MakeObject(u"Application", [this](const MemberName& name, InvokeKind, Arguments&) {
            EXPECT_EQ(name.text, u"Torvane");
            cad.calls.clear();
            return Value(MakeApplication());
        });
        host.globals[u"application"] = Value(application);
        host.functions[{u"shell32", u"shcreatedirectoryexa"}] = [this](Arguments& arguments) {
            std::u16string path = arguments[1].ToText();
            while (!path.empty() && path.back() == u'\\') {
                path.pop_back();
            }
            if (path.empty() || host.files.Find(path)) {
                return Value(int32_t{183});
            }
            for (size_t i = path.find(u'\\', 3); i != std::u16string::npos; i = path.find(u'\\', i + 1)) {
                if (!host.files.Find(path.substr(0, i))) {
                    host.files.CreateFolder(path.substr(0, i));
                }
            }
            host.files.CreateFolder(path);
            return Value(int32_t{0});
        };
        host.functions[{u"shlwapi", u"pathisrelativea"}] = [](Arguments& arguments) {
            std::u16string path = arguments[0].ToText();
            bool absolute = (!path.empty() && path[0] == u'\\') || (path.size() > 1 && path[1] == u':');
            return Value(int32_t{absolute ? 0 : 1});
        };
    }

    ScriptResult Run(const std::string& path, std::map<std::string, std::string> values = {})
    {
        values["<Filepath>"] = path;
        const std::map<std::string, std::string> standard = {{"[ErrorLogPath]", "\\Logs"},
                                                             {"<VaultPath>", "C:\\Vault"},
                                                             {"<TaskInstanceGuid>", "{guid}"},
                                                             {"[OutputPath]", "C:\\Out\\<Filename>_<Configuration>"},
                                                             {"[OutputPath2]", ""},
                                                             {"[FileFormat]", "STL (*.stl)"},
                                                             {"[OutputSheets]", "2"},
                                                             {"[OutputConfs]", "2"},
                                                             {"[FileSheets]", "4"},
                                                             {"[FileConfs]", "4"},
                                                             {"[NamedSheet]", "*"},
                                                             {"[NamedConf]", "*"}};
        values.insert(standard.begin(), standard.end());
        std::ifstream file(TV_TEMPLATES "/convert.bas", std::ios::binary);
        std::stringstream bytes;
        bytes << file.rdbuf();
        std::string text = bytes.str();
        for (const auto& [name, value] : values) {
            for (size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + value.size())) {
                text.replace(at, name.size(), value);
            }
        }
        for (size_t open = text.find('['); open != std::string::npos; open = text.find('[', open)) {
            text.replace(open, text.find(']', open) - open + 1, "0");
        }
        AddPreferenceNames(text);
        ScriptResult result = RunModule(text, host, &library);
        EXPECT_EQ(result.FirstProblem(), "");
        EXPECT_EQ(result.run.outcome, Outcome::Ok) << Narrow(result.run.description) << " at " << result.run.line;
        return result;
    }

    std::string Log() const { return host.files.Content(u"C:\\Vault\\Logs\\{guid}.log").value_or("(none)"); }

    /// Calls that begin with a word, joined.
    std::string CallsOf(std::string_view word) const
    {
        std::string joined;
        for (const std::string& call : cad.calls) {
            if (call.starts_with(word)) {
                joined += call + "\n";
            }
        }
        return joined;
    }

    FakeCad cad;
    ScriptHost host;
    ScriptLibrary library;

  private:
    Ref<Object> MakeObject(std::u16string name, FakeObject::Answer answer)
    {
        return MakeRef<FakeObject>(cad, std::move(name), std::move(answer));
    }

    /// Preferences that the test doesn't name get numbers of their own.
    void AddPreferenceNames(const std::string& text)
    {
        int32_t next = 1000;
        for (size_t at = text.find(" tv"); at != std::string::npos; at = text.find(" tv", at + 1)) {
            size_t end = at + 1;
            while (std::isalnum(static_cast<unsigned char>(text[end])) != 0) {
                ++end;
            }
            std::string name = text.substr(at + 1, end - at - 1);
            size_t call = text.rfind("SetUserPreference", at);
            bool isPreference = text[end] == ',' && call != std::string::npos && call + 40 > at;
            if (isPreference) {
                library.constants.try_emplace(FoldCase(Wide(name)), next++);
            }
        }
    }

    Ref<Object> MakeApplication()
    {
        return MakeObject(u"Torvane", [this](const MemberName& name, InvokeKind, Arguments& a) -> Value {
            if (name.Is(u"loadfile4")) {
                a.Assign(3, Value(cad.openError));
                return OpenModel(a[0].ToText());
            }
            if (name.Is(u"getopendocspec")) {
                std::u16string path = a[0].ToText();
                return Value(MakeObject(u"Spec", [this, path](const MemberName& member, InvokeKind, Arguments&) {
                    return member.Is(u"error") ? Value(cad.openError) : Value(path);
                }));
            }
            if (name.Is(u"opendoc7")) {
                Arguments none;
                return OpenModel(a[0].ObjectPointer()->Invoke(MemberName(u"Path"), InvokeKind::Get, none).ToText());
            }
            if (name.Is(u"revisionnumber")) {
                return Value(cad.revision);
            }
            if (name.Is(u"frame")) {
                return Value(MakeObject(u"Frame", [](const MemberName&, InvokeKind, Arguments&) { return Value(); }));
            }
            if (name.Is(u"getexportfiledata")) {
                return Value(MakeObject(u"PdfData", [](const MemberName&, InvokeKind, Arguments&) { return Value(); }));
            }
            return Value(true);
        });
    }

    Value OpenModel(const std::u16string& path)
    {
        auto found = cad.documents.find(path);
        return found == cad.documents.end() ? Value::Nothing() : Value(MakeModel(path, found->second));
    }

    Ref<Object> MakeModel(const std::u16string& path, const FakeDocument& document)
    {
        return MakeObject(u"Model", [this, path, document](const MemberName& name, InvokeKind, Arguments&) -> Value {
            if (name.Is(u"gettype")) {
                return Value(document.type);
            }
            if (name.Is(u"getpathname")) {
                return Value(path);
            }
            if (name.Is(u"gettitle")) {
                return Value(u"title of " + path);
            }
            if (name.Is(u"extension")) {
                return Value(MakeExtension());
            }
            if (name.Is(u"configurationmanager") || name.Is(u"activeconfiguration") || name.Is(u"getcurrentsheet")) {
                return Value(MakeObject(u"Part", [this, document](const MemberName& inner, InvokeKind, Arguments&) {
                    std::u16string active = document.sheets.empty() ? document.configurations[0] : document.sheets[0];
                    return inner.Is(u"activeconfiguration")
                               ? Value(MakeObject(u"Named", [active](const MemberName&, InvokeKind,
                                                                     Arguments&) { return Value(active); }))
                               : Value(active);
                }));
            }
            if (name.Is(u"getconfigurationnames")) {
                return Value(Array::FromTexts(document.configurations));
            }
            if (name.Is(u"getsheetnames")) {
                return Value(Array::FromTexts(document.sheets));
            }
            if (name.Is(u"getcomponents")) {
                return Components(document);
            }
            return Value(true);
        });
    }

    Value Components(const FakeDocument& document)
    {
        if (document.components.empty()) {
            return Value();
        }
        std::vector<Value> components;
        for (const auto& [path, isVirtual] : document.components) {
            components.push_back(
                Value(MakeObject(u"Component", [path, isVirtual](const MemberName& name, InvokeKind, Arguments&) {
                    return name.Is(u"isvirtual") ? Value(bool{isVirtual}) : Value(path);
                })));
        }
        return Value(Array::FromValues(std::move(components)));
    }

    Ref<Object> MakeExtension()
    {
        return MakeObject(u"Extension", [this](const MemberName&, InvokeKind, Arguments& a) {
            SaveOutcome outcome = cad.saves[Narrow(a[0].ToText())];
            a.Assign(4, Value(outcome.errors));
            a.Assign(5, Value(outcome.warnings));
            return Value(bool{outcome.succeeds});
        });
    }
};

} // namespace

TEST(ConvertTemplate, APartIsOpenedConvertedAndClosedInThisOrder)
{
    World world;
    world.cad.documents[u"C:\\V\\part.tvnprt"] = {1, {u"Default", u"A/B"}, {}, {}};
    world.Run("C:\\V\\part.tvnprt");
    std::vector<std::string> expected = {
        "GetOpenDocSpec C:\\V\\part.tvnprt",
        "DocumentType 1",
        "ReadOnly True",
        "Silent True",
        "ConfigurationName ",
        "DisplayState ",
        "OpenDoc7 Spec",
        "Path",
        "Error",
        "RevisionNumber",
        "Frame",
        "KeepInVisible True",
        "ActivateDoc2 C:\\V\\part.tvnprt, True, 0",
        "GetPathName",
    };
    ASSERT_GT(world.cad.calls.size(), expected.size());
    std::vector<std::string> begin(world.cad.calls.begin(),
                                   world.cad.calls.begin() + static_cast<std::ptrdiff_t>(expected.size()));
    EXPECT_EQ(begin, expected);
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\part_Default.stl, 0, 1, Nothing, 0, 0\n"
                                       "SaveAs C:\\Out\\part_AB.stl, 0, 1, Nothing, 0, 0\n");
    EXPECT_EQ(world.CallsOf("ShowConfiguration"), "ShowConfiguration Default\nShowConfiguration A/B\n");
    EXPECT_EQ(world.cad.calls.back(), "QuitDoc title of C:\\V\\part.tvnprt");
    EXPECT_EQ(world.Log(), "(none)");
    EXPECT_TRUE(world.host.files.Find(u"C:\\Out")->isFolder);
    EXPECT_FALSE(world.host.files.Find(u"C:\\Out\\~$holder"));
}

TEST(ConvertTemplate, ARevision17StaysVisible)
{
    World world;
    world.cad.revision = u"17.1";
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    world.Run("C:\\V\\part.prt");
    EXPECT_EQ(world.CallsOf("KeepInVisible"), "");
}

TEST(ConvertTemplate, NumbersTellFilesApartWhenThePathHasNoConfiguration)
{
    World world;
    world.cad.documents[u"C:\\V\\Part.tvnprt"] = {1, {u"a", u"b"}, {}, {}};
    world.Run("C:\\V\\Part.tvnprt", {{"[OutputPath]", "C:\\Out\\<Filename>"}});
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\Part_0.stl, 0, 1, Nothing, 0, 0\n"
                                       "SaveAs C:\\Out\\Part_1.stl, 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertTemplate, ASheetAFileSetsTheSheetOfThePdf)
{
    World world;
    world.cad.documents[u"C:\\V\\plan.tvndrw"] = {3, {u"x"}, {u"One", u"Two"}, {}};
    world.Run("C:\\V\\plan.tvndrw", {{"[FileFormat]", "Adobe PDF (*.pdf)"}});
    EXPECT_EQ(world.CallsOf("SetSheets"), "SetSheets 2, One\nSetSheets 2, Two\n");
    EXPECT_EQ(world.CallsOf("GetExportFileData"), "GetExportFileData 1\nGetExportFileData 1\n");
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\plan_One.pdf, 0, 1, PdfData, 0, 0\n"
                                       "SaveAs C:\\Out\\plan_Two.pdf, 0, 1, PdfData, 0, 0\n");
}

TEST(ConvertTemplate, OneFileHoldsAllSheets)
{
    World world;
    world.cad.documents[u"C:\\V\\plan.tvndrw"] = {3, {u"x"}, {u"One", u"Two"}, {}};
    world.Run("C:\\V\\plan.tvndrw", {{"[FileFormat]", "Adobe PDF (*.pdf)"}, {"[FileSheets]", "2"}});
    EXPECT_EQ(world.CallsOf("SetSheets"), "SetSheets 2, [One,Two]\n");
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\plan_All.pdf, 0, 1, PdfData, 0, 0\n");
}

TEST(ConvertTemplate, ASelectionOfSheetsIsToldToZephrin)
{
    World world;
    world.cad.documents[u"C:\\V\\plan.tvndrw"] = {3, {u"x"}, {u"One", u"Two", u"Onto"}, {}};
    world.Run("C:\\V\\plan.tvndrw", {{"[FileFormat]", "Zephrin (*.zprt; *.zasm; *.zdrw)"},
                                     {"[FileSheets]", "2"},
                                     {"[OutputSheets]", "8"},
                                     {"[NamedSheet]", "On*"}});
    EXPECT_EQ(world.CallsOf("SetUserPreferenceIntegerValue 70"), "SetUserPreferenceIntegerValue 70, 73\n");
    EXPECT_EQ(world.CallsOf("SetUserPreferenceStringListValue"), "SetUserPreferenceStringListValue 74, One\nOnto\n");
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\plan_All.zdrw, 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertTemplate, TheActiveConfigurationAloneHasNoNumber)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnprt"] = {1, {u"First", u"Second"}, {}, {}};
    world.Run("C:\\V\\p.tvnprt", {{"[OutputConfs]", "4"}, {"[OutputPath]", "C:\\Out\\<Filename>"}});
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\p.stl, 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertTemplate, ASecondOutputIsSavedBesideEach)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnprt"] = {};
    world.Run("C:\\V\\p.tvnprt", {{"[OutputPath2]", "C:\\<Foo>\\<Filename>.<Extension>"}});
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\p_Default.stl, 0, 1, Nothing, 0, 0\n"
                                       "SaveAs C:\\Foo\\p.tvnprt.stl, 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertTemplate, VirtualComponentsFollowDepthFirst)
{
    World world;
    world.cad.documents[u"C:\\V\\top.tvnasm"] = {
        2,
        {u"Default"},
        {},
        {{u"C:\\T\\sub.tvnasm", true}, {u"C:\\V\\real.tvnprt", false}, {u"C:\\T\\v.tvnprt", true}}};
    world.cad.documents[u"C:\\T\\sub.tvnasm"] = {2, {u"Default"}, {}, {{u"C:\\T\\deep.tvnprt", true}}};
    world.cad.documents[u"C:\\T\\deep.tvnprt"] = {};
    world.cad.documents[u"C:\\T\\v.tvnprt"] = {};
    world.Run("C:\\V\\top.tvnasm");
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\top_Default.stl, 0, 1, Nothing, 0, 0\n"
                                       "SaveAs C:\\Out\\sub_Default.stl, 0, 1, Nothing, 0, 0\n"
                                       "SaveAs C:\\Out\\deep_Default.stl, 0, 1, Nothing, 0, 0\n"
                                       "SaveAs C:\\Out\\v_Default.stl, 0, 1, Nothing, 0, 0\n");
    // The shared model is the last component's when the assembly is closed.
    EXPECT_EQ(world.CallsOf("QuitDoc"), "QuitDoc title of C:\\T\\deep.tvnprt\nQuitDoc title of C:\\T\\deep.tvnprt\n"
                                        "QuitDoc title of C:\\T\\v.tvnprt\nQuitDoc title of C:\\T\\v.tvnprt\n");
}

TEST(ConvertTemplate, MessageForAnUnsupportedExtension)
{
    World world;
    world.Run("C:\\V\\a.Doc");
    EXPECT_EQ(world.Log(), "The file extension 'Doc' is not supported.\r\n");
}

TEST(ConvertTemplate, MessageForAFutureVersion)
{
    World world;
    world.cad.openError = 8192;
    world.Run("C:\\V\\a.tvnprt");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\a.tvnprt' is future version.\r\n");
}

TEST(ConvertTemplate, MessageForADocumentThatDoesNotOpen)
{
    World world;
    world.cad.openError = 2;
    world.Run("C:\\V\\a.tvnprt");
    EXPECT_EQ(world.Log(), "Method call ModelDoc2::OpenDoc7 for document 'C:\\V\\a.tvnprt' failed. Error code 2 "
                           "returned.\r\n");
}

TEST(ConvertTemplate, MessagesForAFailedSave)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnprt"] = {1, {u"A", u"B"}, {}, {}};
    world.cad.saves["C:\\Out\\p_A.stl"] = {false, 256, 0};
    world.cad.saves["C:\\Out\\p_B.stl"] = {false, 4096, 512};
    world.cad.saves["C:\\O2\\p_B.stl"] = {false, 3, 7};
    world.Run("C:\\V\\p.tvnprt", {{"[OutputPath2]", "C:\\O2\\<Filename>_<Configuration>"}});
    EXPECT_EQ(
        world.Log(),
        "The file 'C:\\V\\p.tvnprt' and configuration 'A' can't be converted to the file extension '.stl'.\r\n"
        "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_B.stl' and configuration 'B' failed. Error "
        "code 4096 returned.\r\n"
        "This document contains OLE objects. Such objects can't be converted outside of Torvane. Please open the "
        "document and perform the conversion from Torvane.\r\n"
        "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\p_B.stl' and configuration 'B' failed. Error "
        "code 3 returned.\r\n"
        "warnings1 = 7\r\n");
}

TEST(ConvertTemplate, MessagesForAPatternThatMatchesNothing)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnasm"] = {2, {u"A"}, {}, {{u"C:\\T\\v.tvnprt", true}}};
    world.cad.documents[u"C:\\T\\v.tvnprt"] = {1, {u"Zed"}, {}, {}};
    world.Run("C:\\V\\p.tvnasm", {{"[OutputConfs]", "8"}, {"[NamedConf]", "Z*"}});
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\p.tvnasm' didn't contain any configurations named 'Z*'.\r\n");
    EXPECT_EQ(world.CallsOf("SaveAs"), "SaveAs C:\\Out\\v_Zed.stl, 0, 1, Nothing, 0, 0\n");

    World drawing;
    drawing.cad.documents[u"C:\\V\\d.tvndrw"] = {3, {u"x"}, {u"One"}, {}};
    drawing.Run("C:\\V\\d.tvndrw", {{"[OutputSheets]", "8"}, {"[NamedSheet]", "Z*"}});
    EXPECT_EQ(drawing.Log(), "Document 'C:\\V\\d.tvndrw' didn't contain any sheets named 'Z*'.\r\n");
}

TEST(ConvertTemplate, MessageForAFailedSaveOfAllInOne)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnprt"] = {};
    world.cad.saves["C:\\Out\\p_All.stl"] = {false, 1, 0};
    world.Run("C:\\V\\p.tvnprt", {{"[FileConfs]", "2"}});
    EXPECT_EQ(world.Log(),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_All.stl' failed. Error code 1 "
              "returned.\r\n");
}

TEST(ConvertTemplate, MessageForAnUnexpectedError)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnprt"] = {};
    world.Run("C:\\V\\p.tvnprt", {{"[FileFormat]", "STL"}});
    EXPECT_EQ(world.Log(),
              "Error while converting file 'C:\\V\\p.tvnprt': \r\nAn unexpected error occurred while executing the "
              "generated script. Script syntax error?\r\nError number: 5\r\nError description: 'Invalid procedure call "
              "or argument'\r\n\r\n");
}

TEST(ConvertTemplate, ANeutralFileThatDoesNotLoadEndsInTheHandler)
{
    World world;
    world.cad.openError = 2;
    world.Run("C:\\V\\a.step");
    EXPECT_EQ(world.CallsOf("LoadFile4"), "LoadFile4 C:\\V\\a.step, , Nothing, 0\n");
    EXPECT_NE(world.Log().find("Error number: 91\r\n"), std::string::npos);
}

TEST(ConvertTemplate, NothingIsSavedWhenNoFileNumberIsSet)
{
    World world;
    world.cad.documents[u"C:\\V\\p.tvnprt"] = {};
    world.Run("C:\\V\\p.tvnprt", {{"[FileConfs]", "1"}});
    EXPECT_EQ(world.CallsOf("SaveAs"), "");
    EXPECT_EQ(world.Log(), "(none)");
}

} // namespace tv::macro
