#include "program_generator.h"

#include <array>

namespace tv::fuzz {

namespace {

using Words = std::span<const std::u16string_view>;

constexpr auto kVariables = std::to_array<std::u16string_view>({
    u"v",
    u"n",
    u"s",
    u"d",
    u"a",
    u"m",
    u"o",
    u"r",
    u"c",
    u"w",
    u"i",
    u"g",
});
constexpr auto kConstants = std::to_array<std::u16string_view>({
    u"0",      u"1",      u"-1",    u"2",    u"3",       u"255",        u"32767",  u"32768",         u"2147483647",
    u"0.5",    u"1E+300", u"3@",    u"7#",   u"\"\"",    u"\"a\"",      u"\"12\"", u"\"a*[b-d]?#\"", u"\"C:\\one.txt\"",
    u"True",   u"False",  u"Empty", u"Null", u"Nothing", u"#1/2/2024#", u"vbCrLf", u"&HFFFF",        u"&H7FFFFFFF",
    u"100000",
});
constexpr auto kOperators = std::to_array<std::u16string_view>({
    u" + ", u" - ",  u" * ",  u" / ",    u" \\ ", u" Mod ", u" ^ ",  u" & ",   u" = ",   u" <> ",  u" < ",
    u" > ", u" <= ", u" >= ", u" Like ", u" Is ", u" And ", u" Or ", u" Xor ", u" Eqv ", u" Imp ",
});
/// Functions by how many arguments they are given.
constexpr auto kFunctions1 = std::to_array<std::u16string_view>({
    u"Len",     u"CStr",     u"CLng",   u"CInt",      u"CDbl",      u"CDate",   u"CBool",      u"CByte",
    u"CCur",    u"Abs",      u"Int",    u"Fix",       u"Sgn",       u"Sqr",     u"Exp",        u"Log",
    u"Hex",     u"Oct",      u"Str",    u"Val",       u"UCase",     u"Trim",    u"StrReverse", u"Space",
    u"Chr",     u"ChrW",     u"Asc",    u"IsNumeric", u"IsDate",    u"IsArray", u"TypeName",   u"VarType",
    u"UBound",  u"LBound",   u"Split",  u"Join",      u"Array",     u"Year",    u"Weekday",    u"Dir",
    u"FileLen", u"Twice",    u"Deeper", u"CVErr",     u"MonthName", u"Round",   u"LenB",       u"CSng",
    u"CLngLng", u"IsObject", u"Error",  u"LCase",     u"AscW",      u"Hour",    u"DateValue",  u"TimeValue",
});
constexpr auto kFunctions2 = std::to_array<std::u16string_view>({
    u"Left",   u"Right",   u"Mid",          u"InStr",  u"InStrRev", u"String",     u"Split",  u"Join",
    u"Filter", u"StrComp", u"StrConv",      u"Format", u"Round",    u"Array",      u"Choose", u"a",
    u"m",      u"UBound",  u"FormatNumber", u"c",      u"w",        u"CallByName",
});
constexpr auto kFunctions3 = std::to_array<std::u16string_view>({
    u"Mid",
    u"InStr",
    u"Replace",
    u"IIf",
    u"DateAdd",
    u"DateSerial",
    u"TimeSerial",
    u"DateDiff",
    u"Choose",
    u"Split",
    u"Filter",
    u"Partition",
    u"Switch",
    u"Array",
    u"RGB",
});
constexpr auto kMembers = std::to_array<std::u16string_view>({
    u"o.Self",
    u"o.Number",
    u"o.Fill(v)",
    u"c.Count",
    u"c(1)",
    u"c.Item(n)",
    u"w.Count",
    u"w.Exists(v)",
    u"w.Keys",
    u"w.Items",
    u"r.Number",
    u"r.Text",
    u"r.List(n)",
    u"r.Inner.Fixed",
    u"Err.Number",
    u"Err.Description",
    u"Application.Number",
    u"a(n)",
    u"m(1, 2)",
    u"g(0)",
    u"v(n)",
    u"s",
    u"Deeper(3)",
});
constexpr auto kTargets = std::to_array<std::u16string_view>({
    u"v",         u"n",
    u"s",         u"d",
    u"a(n)",      u"a(2)",
    u"m(1, 2)",   u"m(n, i)",
    u"r.Number",  u"r.Text",
    u"r.List(1)", u"r.Inner.Fixed",
    u"v(0)",      u"g(n)",
    u"o.Number",  u"w(v)",
    u"w(\"k\")",  u"i",
    u"fixed",     u"a",
    u"r",         u"Mid(s, 2, 3)",
});
constexpr auto kSimple = std::to_array<std::u16string_view>({
    u"Set o = Application",
    u"Set o = Nothing",
    u"Set c = New Collection",
    u"c.Add v",
    u"c.Add c",
    u"c.Add v, s",
    u"c.Remove 1",
    u"Set w = CreateObject(\"Scripting.Dictionary\")",
    u"w.Add s, v",
    u"w.Remove s",
    u"w.RemoveAll",
    u"Set w(s) = w",
    u"Set v = c",
    u"Set v = o",
    u"ReDim a(n)",
    u"ReDim Preserve a(n + 1)",
    u"ReDim a(2 To 5)",
    u"ReDim v(3)",
    u"ReDim Preserve v(n, 2)",
    u"ReDim g(n)",
    u"Erase a",
    u"Erase g",
    u"Erase v",
    u"v = a",
    u"a = g",
    u"v = Array(v, n, s)",
    u"Err.Raise 5",
    u"Err.Raise n, s, s",
    u"Err.Clear",
    u"On Error Resume Next",
    u"On Error GoTo 0",
    u"On Error GoTo failed",
    u"On Error GoTo -1",
    u"Resume Next",
    u"Resume",
    u"GoSub routine",
    u"GoTo done",
    u"Exit Sub",
    u"Return",
    u"Debug.Print v; s, n",
    u"Change n",
    u"Change v",
    u"Change a(1)",
    u"Change r.Number",
    u"Change m(1, 1)",
    u"Change (n)",
    u"ChangeText s",
    u"ChangeText fixed",
    u"ChangeAll a",
    u"ChangeRecord r",
    u"Several v, n, s",
    u"Several",
    u"o.Fill a(1)",
    u"o.Fill s",
    u"Static kept As Long: kept = kept + 1",
    u"Open \"C:\\one.txt\" For Input As #1",
    u"Open \"C:\\new.txt\" For Output As #2",
    u"Open \"C:\\b\" For Binary As #3",
    u"Line Input #1, s",
    u"Input #1, v, s",
    u"Print #2, v; Tab(5); s",
    u"Write #2, v, s",
    u"Put #3, , n",
    u"Get #3, 1, n",
    u"Get #3, , s",
    u"Close",
    u"Close #1",
    u"Kill \"C:\\two.txt\"",
    u"v = Dir(\"C:\\*\")",
    u"v = Dir",
    u"Recurse",
    u"other = r: r = other",
    u"r.List = a",
    u"LSet s = v",
    u"RSet s = v",
    u"Seek #3, n",
    u"v = Nearby(n)",
    u"n = n + 1",
    u"s = s & s",
    u"s = s & v & \"x\"",
    u"v = v & n",
    u"g(1) = g(0) & g(1)",
});

constexpr std::u16string_view kBefore =
    u"Option Base 0\n"
    u"Private Declare PtrSafe Function Nearby Lib \"near\" (ByRef x As Long) As Long\n"
    u"Type Inside\nFixed As String * 4\nLevel As Integer\nEnd Type\n"
    u"Type Whole\nNumber As Long\nText As String\nList() As Variant\nInner As Inside\nEnd Type\n"
    u"Dim g() As String\nDim shared As Whole\nDim depth As Long\n"
    u"Function Twice(ByVal x)\nTwice = x & x\nEnd Function\n"
    u"Function Deeper(ByVal x As Long) As Variant\nIf x > 0 And x < 50 Then Deeper = Array(Deeper(x - 1), x) Else "
    u"Deeper = x\n"
    u"End Function\n"
    u"Sub Change(x)\nx = x + 1\nEnd Sub\n"
    u"Sub ChangeText(x As String)\nx = x & \"!\"\nEnd Sub\n"
    u"Sub ChangeAll(x() As Variant)\nReDim Preserve x(3)\nx(1) = 5\nEnd Sub\n"
    u"Sub ChangeRecord(x As Whole)\nx.Number = 4\nx.Text = \"changed\"\nshared = x\nx = shared\nEnd Sub\n"
    u"Sub Several(ParamArray x())\nDim y\nFor Each y In x\ndepth = depth + 1\nNext\nIf UBound(x) > 0 Then x(0) = "
    u"x(1)\nEnd Sub\n"
    u"Sub Recurse()\ndepth = depth + 1\nRecurse\nEnd Sub\n"
    u"Sub main()\nDim v, n As Long, s As String, d As Double, a() As Variant, m(3, 3) As Long, o As Object\n"
    u"Dim r As Whole, other As Whole, c As Object, w As Object, i As Integer, fixed As String * 5\n"
    u"ReDim a(3): ReDim r.List(3): ReDim g(2)\n"
    u"Set c = New Collection: Set w = CreateObject(\"Scripting.Dictionary\"): Set o = Application\n"
    u"On Error Resume Next\n";
constexpr std::u16string_view kBehind = u"done:\nExit Sub\nroutine:\nn = n + 1\nReturn\nfailed:\nv = Err.Number\nn = n "
                                        u"+ 1\nIf n > 20 Then Exit Sub\nResume Next\n"
                                        u"End Sub\n";

class Generator
{
  public:
    explicit Generator(Bytes bytes) : rest(bytes) {}

    std::u16string Program()
    {
        std::u16string text(kBefore);
        while (!rest.empty() && text.size() < 20000) {
            Statement(text, 0);
        }
        text += kBehind;
        return text;
    }

  private:
    size_t Take(size_t below)
    {
        if (rest.empty()) {
            return 0;
        }
        const size_t byte = rest.front();
        rest = rest.subspan(1);
        return byte % below;
    }

    std::u16string_view Pick(Words words) { return words[Take(words.size())]; }

    void Block(std::u16string& text, int depth)
    {
        for (size_t count = Take(4); count > 0; --count) {
            Statement(text, depth + 1);
        }
    }

    void Statement(std::u16string& text, int depth)
    {
        switch (Take(depth < 6 ? 16 : 4)) {
        case 4:
            text += u"If " + Expression(0) + u" Then\n";
            Block(text, depth);
            text += u"Else\n";
            Block(text, depth);
            text += u"End If\n";
            break;
        case 5:
            text += u"For i = " + Expression(2) + u" To " + Expression(2) + u"\n";
            Block(text, depth);
            text += u"If i > 20 Then Exit For\nNext\n";
            break;
        case 6:
            text += u"For Each v In " + Expression(2) + u"\n";
            Block(text, depth);
            text += u"Next\n";
            break;
        case 7:
            text += u"Do While " + Expression(1) + u"\nn = n + 1\n";
            Block(text, depth);
            text += u"If n > 20 Then Exit Do\nLoop\n";
            break;
        case 8:
            text += u"Select Case " + Expression(1) + u"\nCase " + Expression(2) + u", Is > " + Expression(2) + u"\n";
            Block(text, depth);
            text += u"Case " + Expression(2) + u" To " + Expression(2) + u"\n";
            Block(text, depth);
            text += u"Case Else\n";
            Block(text, depth);
            text += u"End Select\n";
            break;
        case 9:
            text += Take(2) == 0 ? u"With r\n.Number = .Number + 1\n" : u"With o\n.Number = 2\n";
            Block(text, depth);
            text += u"End With\n";
            break;
        case 0:
        case 10:
        case 11:
            text += std::u16string(Pick(kTargets)) + u" = " + Expression(0) + u"\n";
            break;
        default:
            text += Pick(kSimple);
            text += u"\n";
            break;
        }
    }

    std::u16string Call(Words functions, int arguments, int depth)
    {
        std::u16string text(Pick(functions));
        text += u"(";
        for (int i = 0; i < arguments; ++i) {
            text += (i > 0 ? u", " : u"") + Expression(depth + 1);
        }
        return text + u")";
    }

    std::u16string Expression(int depth)
    {
        switch (Take(depth < 5 ? 12 : 4)) {
        case 0:
        case 1:
            return std::u16string(Pick(kConstants));
        case 2:
            return std::u16string(Pick(kVariables));
        case 3:
            return std::u16string(Pick(kMembers));
        case 4:
        case 5:
        case 6:
            return Expression(depth + 1) + std::u16string(Pick(kOperators)) + Expression(depth + 1);
        case 7:
            return u"(" + Expression(depth + 1) + u")";
        case 8:
            return (Take(2) == 0 ? u"-" : u"Not ") + Expression(depth + 1);
        case 9:
            return Call(kFunctions1, 1, depth);
        case 10:
            return Call(kFunctions2, 2, depth);
        default:
            return Call(kFunctions3, 3, depth);
        }
    }

    Bytes rest;
};

} // namespace

std::u16string GenerateProgram(Bytes bytes)
{
    return Generator(bytes).Program();
}

} // namespace tv::fuzz
