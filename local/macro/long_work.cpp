#include "macro/long_work.h"

#include <utility>

namespace tv::macro {

namespace {

constexpr size_t kUnitsBetweenChecks = size_t{1} << 20;

thread_local LongWork* current = nullptr;
thread_local size_t unitsDone = 0;

} // namespace

LongWork::LongWork(std::function<void()> check) : checkOfRun(std::move(check)), outer(std::exchange(current, this)) {}

LongWork::~LongWork()
{
    current = outer;
}

void LongWork::Did(size_t units)
{
    unitsDone += units;
    if (unitsDone >= kUnitsBetweenChecks) {
        unitsDone = 0;
        if (current != nullptr) {
            current->checkOfRun();
        }
    }
}

} // namespace tv::macro
