// Prints how fast the macro language is: operations a second of its statements and functions, the speed of the
// compiler, how soon a stop request ends what takes long, and the distance to an evaluator that walks the syntax tree
// and looks names up in a map.

#include "name_walker.h"

#include "macro/macro.h"
#include "macro/memory_file_system.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace tv::bench {
namespace {

using Clock = std::chrono::steady_clock;
using macro::Value;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// An object with one number as a property.
class Counter final : public macro::Object
{
  public:
    Value Invoke(const macro::MemberName& name, macro::InvokeKind kind, macro::Arguments& arguments) override
    {
        if (!name.Is(u"count")) {
            NoSuchMember();
        }
        if (kind != macro::InvokeKind::Get) {
            count = arguments[0].ToLong();
        }
        return Value(count);
    }
    std::u16string ClassName() const override { return u"Counter"; }

    int32_t count = 0;
};

class BenchHost final : public macro::Host
{
  public:
    Value Global(std::u16string_view) override { return {}; }
    macro::Ref<macro::Object> CreateObject(std::u16string_view) override { return macro::MakeRef<Counter>(); }
    const macro::ExternalFunction* FindFunction(std::u16string_view, std::u16string_view) override { return nullptr; }
    macro::FileSystem& Files() override { return files; }
    double Now() override { return 46341.75; }
    int32_t MessageBox(const std::u16string&, int32_t, const std::u16string&) override
    {
        begun = true;
        begun.notify_all();
        return 1;
    }

    std::atomic<bool> begun = false;

    macro::MemoryFileSystem files;
};

/// One measurement: what is declared in front of the loop, the loop's body, and how many operations a round counts.
struct Case
{
    const char* name;
    std::u16string_view before;
    std::u16string_view body;
    int32_t rounds;
    std::u16string_view routines = {};
};

constexpr auto kCases = std::to_array<Case>({
    {"empty For loop", u"", u"", 20000000},
    {"Long arithmetic, x = x * 3 Mod 1009 + i", u"Dim x As Long", u"x = (x * 3) Mod 1009 + 7", 3000000},
    {"Double arithmetic, x = x * 0.5 + 1.25", u"Dim x As Double", u"x = x * 0.5 + 1.25", 5000000},
    {"Variant arithmetic, x = x * 0.5 + 1.25", u"x = 1", u"x = x * 0.5 + 1.25", 5000000},
    {"comparison and If", u"Dim x As Long", u"If i > 5 Then x = i Else x = 5", 5000000},
    {"s = s & \"x\"", u"Dim s As String", u"s = s & \"x\"", 3000000},
    {"s = s & \"<\" & i & \">\"", u"Dim s As String", u"s = s & \"<\" & i & \">\"", 1000000},
    {"procedure call, by reference", u"Dim x As Long", u"Bump x", 3000000,
     u"Sub Bump(x As Long)\nx = x + 1\nEnd Sub\n"},
    {"function call, by value", u"Dim x As Long", u"x = Following(x)", 3000000,
     u"Function Following(ByVal x As Long) As Long\nFollowing = x + 1\nEnd Function\n"},
    {"late-bound property, read and write", u"Set o = CreateObject(\"x\")", u"o.Count = o.Count + 1", 1000000},
    {"element of an array, one dimension", u"Dim a(99) As Long", u"a(i Mod 100) = a(7) + 1", 3000000},
    {"element of an array, two dimensions", u"Dim a(9, 9) As Long", u"a(i Mod 10, 3) = a(7, 2) + 1", 3000000},
    {"Select Case with five numbers", u"Dim x As Long",
     u"Select Case i Mod 5\nCase 0: x = 1\nCase 1: x = 2\nCase 2: x = 3\nCase 3: x = 4\nCase Else: x = 5\nEnd Select",
     2000000},
    {"Select Case with texts", u"Dim x As Long\nDim s As String\ns = \"delta\"",
     u"Select Case s\nCase \"alpha\": x = 1\nCase \"beta\": x = 2\nCase \"gamma\": x = 3\nCase \"delta\": x = 4\n"
     u"End Select",
     1000000},
    {"Collection.Add", u"Set c = New Collection", u"c.Add i", 500000},
    {"Collection by key, 1000 keys", u"Set c = New Collection\nFor k = 0 To 999\nc.Add k, \"key\" & k\nNext",
     u"x = c(\"key500\")", 200000},
    {"Dictionary, write and read", u"Set d = CreateObject(\"Scripting.Dictionary\")",
     u"d(i Mod 1000) = d(i Mod 1000) + 1", 300000},
    {"Mid, Len and InStr", u"Dim s As String\ns = \"C:\\folder\\file.txt\"", u"x = Mid(s, InStr(s, \"l\"), Len(s) - 8)",
     500000},
    {"UCase and Replace", u"Dim s As String\ns = \"C:\\folder\\file.txt\"", u"x = Replace(UCase(s), \"\\\", \"/\")",
     300000},
    {"Split and Join", u"Dim s As String\ns = \"a;b;c;d\"", u"x = Join(Split(s, \";\"), \",\")", 200000},
    {"error raised and resumed", u"On Error Resume Next", u"Err.Raise 5", 200000},
    {"error in a call, handled by GoTo", u"", u"Careful", 100000,
     u"Sub Careful()\nOn Error GoTo failed\nErr.Raise 5\nExit Sub\nfailed:\nEnd Sub\n"},
});

std::u16string MacroOf(const Case& measured)
{
    std::u16string text(measured.routines);
    text += u"Sub main(ByVal n As Long)\nDim i As Long\n";
    text += measured.before;
    text += u"\nFor i = 1 To n\n";
    text += measured.body;
    text += u"\nNext\nEnd Sub\n";
    return text;
}

std::shared_ptr<const macro::Module> CompileOrEnd(std::u16string_view text)
{
    macro::CompileResult compiled = macro::Compile(text);
    if (!compiled.module) {
        std::fprintf(stderr, "a macro of the bench doesn't compile, line %d\n", compiled.problems.front().line);
        std::exit(1);
    }
    return compiled.module;
}

/// Seconds of one run.
double Run(const macro::Module& module, int32_t rounds, macro::Outcome expected = macro::Outcome::Ok)
{
    BenchHost host;
    macro::Machine machine(host, {});
    const auto start = Clock::now();
    macro::RunResult result = machine.Run(module, u"main", {Value(rounds)});
    const double seconds = SecondsSince(start);
    if (result.outcome != expected) {
        std::fprintf(stderr, "a macro of the bench failed with error %d in line %d\n", result.number, result.line);
        std::exit(1);
    }
    return seconds;
}

void MeasureStatements()
{
    std::printf("%-44s %14s %12s\n", "", "million a s", "ns each");
    for (const Case& measured : kCases) {
        const auto module = CompileOrEnd(MacroOf(measured));
        const double seconds = Run(*module, measured.rounds);
        std::printf("%-44s %14.2f %12.1f\n", measured.name, measured.rounds / seconds / 1e6,
                    seconds / measured.rounds * 1e9);
    }
}

/// Twice the text has to take about twice the time.
void MeasureGrowth()
{
    const auto module =
        CompileOrEnd(u"Sub main(ByVal n As Long)\nDim s As String\nFor i = 1 To n\ns = s & \"x\"\nNext\nEnd Sub\n");
    std::printf("\n%-44s %14s %12s\n", "s = s & \"x\", by rounds", "ms", "ns each");
    for (int32_t rounds : {100000, 1000000, 10000000}) {
        const double seconds = Run(*module, rounds);
        std::printf("%-44d %14.2f %12.1f\n", rounds, seconds * 1e3, seconds / rounds * 1e9);
    }
}

void MeasureCompiler()
{
    std::u16string text;
    for (int i = 0; text.size() < 4U << 20; ++i) {
        const std::string number = std::to_string(i);
        const std::u16string wide(number.begin(), number.end());
        text += u"Function Routine" + wide + u"(ByVal first As Long, second As String) As Long\r\n" +
                u"    Dim index As Long, names() As String ' of what is to be saved\r\n" +
                u"    On Error GoTo failed\r\n    names = Split(second, \";\")\r\n" +
                u"    For index = LBound(names) To UBound(names)\r\n" +
                u"        If Len(names(index)) > first And Left$(names(index), 1) <> \"<\" Then\r\n" +
                u"            Routine" + wide + u" = Routine" + wide + u" + first * 2 - index Mod 7\r\n" +
                u"        End If\r\n    Next index\r\n    Exit Function\r\nfailed:\r\n" +
                u"    Debug.Print \"Error \" & Err.Number & \": \" & Err.Description\r\nEnd Function\r\n";
    }
    const auto start = Clock::now();
    CompileOrEnd(text);
    const double seconds = SecondsSince(start);
    std::printf("\ncompiler: %.1f MB of text a second (%.0f ms for %.1f MB in UTF-16)\n",
                static_cast<double>(text.size()) * 2 / 1e6 / seconds, seconds * 1e3,
                static_cast<double>(text.size()) * 2 / 1e6);
}

/// How soon a stop that is asked for in the midst of an operation ends the run.
struct LongOperation
{
    const char* name;
    std::u16string_view before;
    std::u16string_view operation;
};

constexpr auto kLongOperations = std::to_array<LongOperation>({
    {"loop", u"", u"Do: Loop"},
    {"InStr", u"s = String(3000000, \"a\"): w = String(1000000, \"a\") & \"b\"", u"x = InStr(s, w)"},
    {"Replace, ignoring case", u"s = String(3000000, \"a\"): w = String(1000000, \"A\") & \"b\"",
     u"x = Replace(s, w, \"c\", 1, -1, 1)"},
    {"Like", u"s = String(3000000, \"a\"): w = \"*\" & String(1000000, \"a\") & \"b\"", u"x = s Like w"},
    {"String of 100 million", u"", u"Do: s = String(100000000, \"a\"): Loop"},
    {"UCase of 50 million", u"s = String(50000000, \"a\")", u"Do: x = UCase(s): Loop"},
    {"StrReverse of 50 million", u"s = String(50000000, \"a\")", u"Do: x = StrReverse(s): Loop"},
    {"Join of a million", u"a = Split(String(1000000, \",\"), \",\")", u"Do: x = Join(a, \"--\"): Loop"},
    {"ReDim of 10 million", u"", u"Do: ReDim a(10000000): Loop"},
    {"ReDim Preserve of 10 million", u"ReDim a(10000000)", u"Do: ReDim Preserve a(10000000): Loop"},
    {"For Each over a million", u"Set c = New Collection: For i = 1 To 1000000: c.Add i: Next",
     u"Do: For Each v In c: Next: Loop"},
});

void MeasureStops()
{
    std::printf("\n%-44s %14s\n", "from the request to the end of the run", "ms");
    for (const LongOperation& measured : kLongOperations) {
        const auto module = CompileOrEnd(u"Sub main()\n" + std::u16string(measured.before) + u"\nMsgBox 1\n" +
                                         std::u16string(measured.operation) + u"\nEnd Sub\n");
        BenchHost host;
        macro::Machine machine(host, {});
        Clock::time_point asked;
        std::thread other([&] {
            host.begun.wait(false);
            std::this_thread::sleep_for(std::chrono::milliseconds(150));
            asked = Clock::now();
            machine.RequestStop();
        });
        const macro::RunResult result = machine.Run(*module, u"main");
        const double milliseconds = SecondsSince(asked) * 1e3;
        other.join();
        if (result.outcome != macro::Outcome::Stopped) {
            std::fprintf(stderr, "%s wasn't stopped\n", measured.name);
            std::exit(1);
        }
        std::printf("%-44s %14.1f\n", measured.name, milliseconds);
    }
}

struct Race
{
    const char* name;
    std::u16string_view macro;
    int32_t rounds;
};

constexpr auto kRaces = std::to_array<Race>({
    {"empty loop",
     u"Function main(ByVal rounds As Long) As Long\nDim index As Long\nFor index = 1 To rounds\nNext\nEnd Function\n",
     2000000},
    {"arithmetic",
     u"Function main(ByVal rounds As Long) As Long\nDim index As Long, remainder As Long, total As Long\n"
     u"For index = 1 To rounds\nremainder = (remainder * 3 + index) Mod 1009\n"
     u"If remainder < 500 Then total = total + 1 Else total = total - remainder Mod 2\nNext\nmain = total\n"
     u"End Function\n",
     500000},
    {"arithmetic without declarations",
     u"Function main(ByVal rounds)\nFor index = 1 To rounds\nremainder = (remainder * 3 + index) Mod 1009\n"
     u"If remainder < 500 Then total = total + 1 Else total = total - remainder Mod 2\nNext\nmain = total\n"
     u"End Function\n",
     500000},
    {"calls",
     u"Function Fibonacci(ByVal number As Long) As Long\n"
     u"If number < 2 Then Fibonacci = number Else Fibonacci = Fibonacci(number - 1) + Fibonacci(number - 2)\n"
     u"End Function\nFunction main(ByVal number As Long) As Long\nmain = Fibonacci(number)\nEnd Function\n",
     24},
});

void MeasureAgainstNameWalker()
{
    std::printf("\n%-44s %14s %12s %10s\n", "against a tree walk with names in a map", "walk, ms", "macro, ms",
                "times");
    for (const Race& race : kRaces) {
        NameWalker walker(race.macro);
        auto start = Clock::now();
        const Value expected = walker.Call(u"main", {Value(race.rounds)});
        const double walked = SecondsSince(start);
        const auto module = CompileOrEnd(race.macro);
        BenchHost host;
        macro::Machine machine(host, {});
        start = Clock::now();
        const macro::RunResult result = machine.Run(*module, u"main", {Value(race.rounds)});
        const double ran = SecondsSince(start);
        if (result.outcome != macro::Outcome::Ok || result.value.ToLong() != expected.ToLong()) {
            std::fprintf(stderr, "the two evaluators disagree about %s\n", race.name);
            std::exit(1);
        }
        std::printf("%-44s %14.2f %12.2f %10.1f\n", race.name, walked * 1e3, ran * 1e3, walked / ran);
    }
}

} // namespace
} // namespace tv::bench

int main()
{
    tv::bench::MeasureStatements();
    tv::bench::MeasureGrowth();
    tv::bench::MeasureCompiler();
    tv::bench::MeasureStops();
    tv::bench::MeasureAgainstNameWalker();
    return 0;
}
