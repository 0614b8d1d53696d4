// Prints what the convert macro of one file costs the application, compiled and run apart, for a part with 1, 10 and
// 100 configurations that are saved one by one. The application's objects do nothing, so what is left is the language.

#include "local_macro/templates/template_world.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace tv::macro {
namespace {

constexpr int kConfigurationCounts[] = {1, 10, 100};
constexpr auto kMeasuringTime = std::chrono::milliseconds(500);
constexpr std::u16string_view kPath = u"C:\\Vault\\Project\\Part.tvnprt";

using Clock = std::chrono::steady_clock;

/// The median time of an action that is repeated for a while.
template <typename Action> double MedianMicroseconds(Action action)
{
    std::vector<double> times;
    for (const auto begin = Clock::now(); Clock::now() - begin < kMeasuringTime;) {
        const auto start = Clock::now();
        action();
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

struct Cost
{
    double compile = 0;
    double run = 0;
};

Cost Measure(int configurations)
{
    ConvertWorld world;
    world.cad.recording = false;
    ScriptedDocument part;
    part.configurations.clear();
    int saves = 0;
    for (int i = 0; i < configurations; ++i) {
        part.configurations.push_back(u"Configuration " + Wide(std::to_string(i)));
    }
    world.cad.onSave = [&](const std::u16string&) { ++saves; };
    world.cad.documents[std::u16string(kPath)] = part;

    const std::u16string text = world.MacroText(kPath);
    const CompileResult compiled = world.CompileMacro(text);
    Machine machine(world.host, {});
    const RunResult first = machine.Run(*compiled.module, u"main");
    if (first.outcome != Outcome::Ok || saves != configurations) {
        std::printf("the macro saved %d of %d configurations\n", saves, configurations);
        return {};
    }
    return {MedianMicroseconds([&] { world.CompileMacro(text); }),
            MedianMicroseconds([&] { machine.Run(*compiled.module, u"main"); })};
}

} // namespace
} // namespace tv::macro

int main()
{
    double single = 0;
    for (int count : tv::macro::kConfigurationCounts) {
        const tv::macro::Cost cost = tv::macro::Measure(count);
        single = single > 0 ? single : cost.run;
        std::printf("%4d configurations: %8.1f us compile, %8.1f us run (%6.2f us a configuration, %5.1f times one)\n",
                    count, cost.compile, cost.run, cost.run / count, single > 0 ? cost.run / single : 0);
    }
    return 0;
}
