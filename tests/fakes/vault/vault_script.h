// VaultScript: the log of the calls that a simulator got, and the faults that a test asked it for.
#pragma once

#include "com/result.h"

#include <string>
#include <string_view>
#include <vector>

namespace tv::fakes {

enum class FaultSpan
{
    Once,   ///< the call fails and later ones succeed
    Lasting ///< every call from then on fails
};

/// A line of the log is the operation, such as "File.LockFile", and behind a blank what it was called with.
class VaultScript
{
  public:
    /// Lets the nth call from now on fail, counted from 1 over all operations.
    void FailNth(int n, Result code, FaultSpan span = FaultSpan::Once);
    /// Lets the nth call of one operation from now on fail.
    void Fail(std::string_view operation, int n, Result code, FaultSpan span = FaultSpan::Once);
    /// Lets every call of one operation fail.
    void FailAlways(std::string_view operation, Result code) { Fail(operation, 1, code, FaultSpan::Lasting); }
    /// True when some fault was met.
    bool FaultFired() const { return fired; }
    /// Takes back all faults that are still to come.
    void ClearFaults();

    const std::vector<std::string>& Calls() const { return calls; }
    /// The calls of one operation, in order.
    std::vector<std::string> CallsOf(std::string_view operation) const;
    size_t CountOf(std::string_view operation) const { return CallsOf(operation).size(); }
    void ClearCalls() { calls.clear(); }
    /// Notes no calls from now on, so that a measurement doesn't pay for them. Faults still come.
    void StopNoting() { isNoting = false; }

    /// Called by the simulator at the beginning of each operation: takes note of the call and returns its scripted
    /// fault, or 0.
    Result Enter(std::string_view operation, std::u16string_view details = {});

  private:
    struct Fault
    {
        std::string operation; ///< empty for all
        int callsLeft;
        Result code;
        FaultSpan span;
    };

    std::vector<std::string> calls;
    std::vector<Fault> faults;
    bool fired = false;
    bool isNoting = true;
};

} // namespace tv::fakes
