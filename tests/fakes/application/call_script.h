// CallScript: the log of the calls that a simulator got, and the failures that a test has planned for them.
#pragma once

#include "com/base.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tv::fakes {

/// \code
/// application.script.OnCall(3, u"RunMacroEx").Fail(kServerDied);
/// \endcode
class CallScript
{
  public:
    class Rule
    {
      public:
        /// The call gives this code instead of doing its work.
        void Fail(Result code) { result = code; }
        Result Planned() const { return result; }

      private:
        Result result = 0;
    };

    /// The nth call of that name, counted from 1.
    Rule& OnCall(int nth, std::u16string_view name) { return rules[{std::u16string(name), nth}]; }
    /// Every call of that name.
    Rule& OnEveryCall(std::u16string_view name) { return rules[{std::u16string(name), 0}]; }
    /// The nth call of all, and with it every later one when it lasts.
    void FailNthOfAll(int nth, Result code, bool lasting);
    bool HasFailed() const { return hasFailed; }

    /// Notes a call; the code that it must give, 0 to go on.
    Result Enter(std::u16string_view name, std::u16string_view arguments = {});

    /// Every call with its arguments, such as "SetInteractive(false)".
    const std::vector<std::u16string>& Calls() const { return calls; }
    int CountOf(std::u16string_view name) const;

  private:
    Result PlannedFor(const std::u16string& name, int nth) const;

    std::vector<std::u16string> calls;
    std::map<std::pair<std::u16string, int>, Rule> rules;
    std::map<std::u16string, int, std::less<>> counts;
    int nthOfAll = 0;
    Result resultOfAll = 0;
    bool isLasting = false;
    bool hasFailed = false;
};

} // namespace tv::fakes
