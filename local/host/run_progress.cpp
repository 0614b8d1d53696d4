#include "host/run_progress.h"

#include "host/table.h"
#include "vault/text.h"

namespace tv::local {

namespace {

constexpr int32_t kBarCells = 24;

} // namespace

void RunProgress::Update(const InstanceRecord& instance)
{
    const Progress& progress = instance.progress;
    if (progress.text == current || instance.status != static_cast<int32_t>(TaskStatus::Running)) {
        return;
    }
    CloseFile();
    current = progress.text;
    since = std::chrono::steady_clock::now();
    if (context.json || current.empty()) {
        return;
    }
    const auto path = BelowRoot(context.store->Root(), current);
    const std::string text = path ? VaultPathText(*path) : current;
    context.environment.terminal ? ShowBar(progress, text) : ShowLine(progress, text);
}

/// Only texts that are files of the vault count; the add-in also announces its own work.
void RunProgress::CloseFile()
{
    if (!current.empty() && BelowRoot(context.store->Root(), current)) {
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - since;
        seconds.emplace_back(current, taken.count());
    }
    current.clear();
}

void RunProgress::ShowBar(const Progress& progress, const std::string& text)
{
    const int32_t total = std::max(progress.upper, int32_t{1});
    const int32_t filled = std::min(kBarCells, progress.position * kBarCells / total);
    std::string line = std::string("[") + std::string(static_cast<size_t>(filled), '#') +
                       std::string(static_cast<size_t>(kBarCells - filled), '.') + "] " +
                       std::to_string(progress.position) + "/" + std::to_string(total) + " " + text;
    const size_t width = CharacterCount(line);
    line += std::string(barWidth > width ? barWidth - width : 0, ' ');
    barWidth = width;
    context.environment.out << '\r' << line << std::flush;
}

void RunProgress::ShowLine(const Progress& progress, const std::string& text)
{
    context.environment.out << "[" << progress.position << "/" << progress.upper << "] " << text << std::endl;
}

void RunProgress::Finish()
{
    CloseFile();
    if (barWidth > 0) {
        context.environment.out << '\r' << std::string(barWidth, ' ') << '\r' << std::flush;
        barWidth = 0;
    }
}

} // namespace tv::local
