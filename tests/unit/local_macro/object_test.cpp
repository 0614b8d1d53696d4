#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

namespace {

/// An object that writes down how it is used.
class Recorder final : public Object
{
  public:
    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) override
    {
        std::string line = kind == InvokeKind::Get ? "get " : kind == InvokeKind::Let ? "let " : "set ";
        line += Narrow(name.text);
        for (size_t i = 0; i < arguments.Count(); ++i) {
            line += (i == 0 ? "(" : ",") + (arguments.Has(i)
                                                ? Narrow(arguments[i].IsObject() ? u"obj" : arguments[i].ToText())
                                                : std::string("-"));
        }
        for (const MemberName& given : arguments.Names()) {
            line += "," + Narrow(given.text);
        }
        calls.push_back(line);
        if (name.Is(u"fail")) {
            throw MacroError::FromResult(static_cast<int32_t>(0x80004005), u"It broke", u"Torvane");
        }
        if (name.Is(u"missing")) {
            NoSuchMember();
        }
        if (name.Is(u"save")) {
            arguments.Assign(1, Value(int32_t{256}));
            return Value(false);
        }
        if (name.Is(u"list")) {
            return Value(Array::FromTexts({u"a", u"b"}));
        }
        if (name.Is(u"self")) {
            return Value(Ref<Recorder>(this));
        }
        return name.IsDefault() ? Value(int32_t{42}) : Value(u"result");
    }
    std::u16string ClassName() const override { return u"Recorder"; }
    bool IsKindOf(std::u16string_view name) const override { return name == u"modeldoc2"; }

    std::vector<std::string> calls;
};

struct World
{
    World()
    {
        library.globals[u"application"] = true;
        library.constants[u"tvdocpart"] = 1;
        host.globals[u"application"] = Value(recorder);
    }

    std::string Run(std::string_view statements)
    {
        result = RunModule("Sub main()\n" + std::string(statements) + "\nEnd Sub", host, &library);
        std::string calls;
        for (const std::string& call : recorder->calls) {
            calls += (calls.empty() ? "" : "; ") + call;
        }
        return calls;
    }

    Ref<Recorder> recorder = MakeRef<Recorder>();
    ScriptHost host;
    ScriptLibrary library;
    ScriptResult result;
};

} // namespace

TEST(Objects, AreCalledByName)
{
    World world;
    EXPECT_EQ(world.Run("Application.Do 1, \"x\"\ny = Application.Read(2)\nApplication.Prop = 3\n"
                        "Set Application.Obj = Nothing"),
              "get Do(1,x; get Read(2; let Prop(3; set Obj(obj");
}

TEST(Objects, TakeNamedAndOmittedArguments)
{
    World world;
    EXPECT_EQ(world.Run("Application.Do 1, , 3\nApplication.Do 1, last:=2"), "get Do(1,-,3; get Do(1,2,last");
}

TEST(Objects, WriteBackThroughVariables)
{
    World world;
    world.Run("Dim errors As Long, ok As Boolean\nok = Application.Save(\"x\", errors)\nDebug.Print ok; errors");
    EXPECT_EQ(world.result.Output(), "False 256 ");
}

TEST(Objects, WriteBackLeavesExpressionsAlone)
{
    World world;
    world.Run("Dim errors As Long\nApplication.Save \"x\", (errors)\nDebug.Print errors");
    EXPECT_EQ(world.result.Output(), " 0 ");
}

TEST(Objects, GiveTheirDefaultValueWhereAValueIsNeeded)
{
    World world;
    world.Run("Dim n As Long\nn = Application\nv = Application\nDebug.Print n; v; Application + 1; TypeName(v)");
    EXPECT_EQ(world.result.Output(), " 42  42  43 Long");
}

TEST(Objects, AreWalkedThroughWith)
{
    World world;
    EXPECT_EQ(world.Run("With Application.Self\n.One\nWith .Self\n.Two = 1\nEnd With\nEnd With"),
              "get Self; get One; get Self; let Two(1");
}

TEST(Objects, AFailedCallIsAnErrorWithItsWords)
{
    World world;
    world.Run("On Error Resume Next\nApplication.Fail\nDebug.Print Err.Number; Err.Description; Err.Source");
    EXPECT_EQ(world.result.Output(), "-2147467259 It brokeTorvane");
}

TEST(Objects, AnUnknownMemberIsError438)
{
    World world;
    world.Run("Application.Missing");
    EXPECT_EQ(world.result.run.number, 438);
}

TEST(Objects, NothingHasNoMembers)
{
    EXPECT_EQ(RunLines("Dim o As Object\no.Do"), "error 91");
    EXPECT_EQ(RunLines("Dim v\nv.Do"), "error 424");
    EXPECT_EQ(RunLines("Set v = 5"), "error 424");
}

TEST(Objects, ATypedVariableTakesItsClassOnly)
{
    World world;
    world.Run(
        "Dim m As Torvane.ModelDoc2\nSet m = Application\nDebug.Print m Is Application\n"
        "Debug.Print TypeOf m Is ModelDoc2; TypeOf m Is DrawingDoc\nDim d As Torvane.DrawingDoc\nSet d = Application");
    EXPECT_EQ(world.result.Output(), "True\nTrueFalse");
    EXPECT_EQ(world.result.run.number, 13);
}

TEST(Objects, EnumerationNamesAreConstants)
{
    World world;
    world.Run("Debug.Print tvDocPART; tvDocumentTypes.tvDocPART; Torvane.tvDocPART");
    EXPECT_EQ(world.result.Output(), " 1  1  1 ");
}

TEST(Objects, AReturnedArrayIsIndexed)
{
    World world;
    world.Run("names = Application.List\nDebug.Print UBound(names); names(1)\nFor Each n In Application.List\n"
              "Debug.Print n\nNext");
    EXPECT_EQ(world.result.Output(), " 1 b\na\nb");
}

TEST(Objects, ACollectionKeepsOrderAndKeys)
{
    EXPECT_EQ(RunLines("Dim c As New Collection\nc.Add \"a\"\nc.Add \"b\", \"key\"\nc.Add \"z\", , 1\n"
                       "Debug.Print c.Count; c(1); c(\"KEY\"); c.Item(2)\nc.Remove \"key\"\nFor Each v In c\n"
                       "Debug.Print v\nNext\nc.Add 1, \"k\"\nc.Add 2, \"K\""),
              " 3 zba\nz\na\nerror 457");
    EXPECT_EQ(RunLines("Dim c As New Collection\nDebug.Print c(1)"), "error 9");
    EXPECT_EQ(RunLines("Dim c As New Collection\nDebug.Print c(\"x\")"), "error 5");
}

TEST(Objects, ADictionaryFindsByKey)
{
    EXPECT_EQ(RunLines("Set d = CreateObject(\"Scripting.Dictionary\")\nd(\"a\") = 1\nd.Add 2, \"two\"\n"
                       "Debug.Print d.Count; d(\"a\"); d(2&); d.Exists(\"A\"); UBound(d.Keys)\nFor Each k In d\n"
                       "Debug.Print k\nNext\nd.Remove \"a\"\nDebug.Print d.Exists(\"a\")\nd.Add 2, 3"),
              " 2  1 twoFalse 1 \na\n 2 \nFalse\nerror 457");
}

TEST(Objects, AnUnknownClassIsError429)
{
    EXPECT_EQ(RunLines("Set x = CreateObject(\"No.Such\")"), "error 429");
}

TEST(DeclaredFunctions, AreFoundInTheHostsTable)
{
    ScriptHost host;
    std::string seen;
    host.functions[{u"shlwapi", u"pathisrelativea"}] = [&](Arguments& arguments) {
        seen = Narrow(arguments[0].ToText());
        arguments.Assign(1, Value(int32_t{7}));
        return Value(int32_t{1});
    };
    ScriptResult result =
        RunModule("Private Declare PtrSafe Function Check Lib \"shlwapi.dll\" Alias \"PathIsRelativeA\" "
                  "(ByVal p As String, n As Long) As Long\n"
                  "Sub main()\nDim n As Long\nDebug.Print Check(\"a\\b\", n); n\nEnd Sub",
                  host);
    EXPECT_EQ(result.Output(), " 1  7 ");
    EXPECT_EQ(seen, "a\\b");
}

TEST(DeclaredFunctions, AnUnknownEntryIsError453WhenCalledAndNotBefore)
{
    constexpr std::string_view kDeclare = "Declare PtrSafe Function Odd Lib \"kernel32\" () As Long\n";
    EXPECT_EQ(RunModule(std::string(kDeclare) + "Sub main()\nDebug.Print 1\nEnd Sub").Output(), " 1 ");
    EXPECT_EQ(RunModule(std::string(kDeclare) + "Sub main()\nx = Odd()\nEnd Sub").run.number, 453);
}

TEST(Host, ShowsMessagesAndTellsTheTime)
{
    ScriptHost host;
    ScriptResult result = RunModule("Sub main()\nIf MsgBox(\"Really?\", vbYesNo + vbQuestion, \"Title\") = vbYes Then\n"
                                    "Debug.Print Format(Now, \"yyyy-mm-dd hh:nn\")\nEnd If\nEnd Sub",
                                    host);
    EXPECT_EQ(host.messages, (std::vector<std::string>{"Really?|36|Title"}));
    EXPECT_EQ(result.Output(), "2026-11-15 18:00");
}

} // namespace tv::macro
