// Prints what the macro text of one file costs, for a macro of 40 KB with 100 placeholders and all nine tokens: once
// with the places of the tokens known, as a run does it, and beside it with one replacement after the other.

#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "script/task_script.h"

#include <chrono>
#include <cstdio>

namespace tv {
namespace {

constexpr size_t kBytes = 40 * 1024;
constexpr int kPlaceholders = 100;
constexpr int kFileCounts[] = {1, 100, 10000};

using Clock = std::chrono::steady_clock;

double MicrosecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

std::u16string Number(int number)
{
    std::u16string text;
    for (char digit : std::to_string(number)) {
        text += static_cast<char16_t>(digit);
    }
    return text;
}

std::u16string Macro()
{
    std::u16string text;
    for (int i = 0; i < kPlaceholders; ++i) {
        text +=
            u"    If option = [Variable" + Number(i) + u"] Then\r\n        tvApp.SetUserPreferenceToggle 1, True\r\n";
    }
    for (const Token& token : kTokens) {
        text += u"    value = \"" + std::u16string(token.text) + u"\"\r\n";
    }
    while (text.size() < kBytes) {
        text += u"    If count < 3 And count > 1 Then count = count + 1 ' a line without anything to expand\r\n";
    }
    text.resize(kBytes);
    return text;
}

class Bench
{
  public:
    Bench()
    {
        for (int i = 0; i < kPlaceholders; ++i) {
            task->variables.SetInt(u"Variable" + Number(i), i);
        }
    }

    void Run(int count)
    {
        TaskScript script(machine.platform);
        const auto start = Clock::now();
        script.InitScript(vault.Get(), task.get(), macro);
        const double once = MicrosecondsSince(start);

        const auto files = Clock::now();
        size_t units = 0;
        for (int i = 0; i < count; ++i) {
            script.SetSourceFile(u"C:\\Vault\\Project\\Part" + Number(i) + u".tvnprt", u"Default", i, 1, 2);
            units += script.GetMacroText().size();
        }
        const double known = MicrosecondsSince(files) / count;

        std::printf("%8d files: %9.1f us once, %8.2f us a file, %8.2f us by replacements (%zu units)\n", count, once,
                    known, PeerMicroseconds(count), units);
    }

  private:
    double PeerMicroseconds(int count)
    {
        TokenValues values;
        values.vaultPath = u"C:\\Vault";
        values.filePath = u"C:\\Vault\\Project\\Part.tvnprt";
        const auto start = Clock::now();
        size_t units = 0;
        for (int i = 0; i < count; ++i) {
            values.version = Number(i);
            units += ExpandTokens(macro, values).size();
        }
        return units > 0 ? MicrosecondsSince(start) / count : 0;
    }

    fakes::FakePlatform machine;
    fakes::FakeVault vault;
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    const std::u16string macro = Macro();
};

} // namespace
} // namespace tv

int main()
{
    tv::Bench bench;
    for (int count : tv::kFileCounts) {
        bench.Run(count);
    }
    return 0;
}
