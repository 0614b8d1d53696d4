#pragma once

#include <cstddef>
#include <functional>

namespace tv::macro {

/// Makes what takes long within one instruction stoppable: the work tells how much it did, and now and then the check of
/// the run on this thread is called, which ends the run by an exception. Outside of a run nothing happens.
class LongWork
{
public:
    explicit LongWork(std::function<void()> check);
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;
    ~LongWork();

    /// \param units steps of a few nanoseconds each, such as characters compared
    static void Did(size_t units);

private:
    std::function<void()> checkOfRun;
    LongWork* outer;
};

} // namespace tv::macro
