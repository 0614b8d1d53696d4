// CallLog: what a test sees of the calls that went out, and the place where it makes one of them fail.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tv::fakes {

/// One call: the operation, such as "files.MoveFile", and what it was about.
struct Call
{
    std::string operation;
    std::u16string subject;
};

/// How long a planned failure lasts.
enum class Failure
{
    Once,
    Lasting
};

/// Shared by the services of one fake platform. Safe across threads.
class CallLog
{
  public:
    static constexpr uint32_t kDefaultError = 5;

    /// Makes the nth call of an operation fail, counted from 1 and from now on; Failure::Lasting lets all later ones
    /// fail too. Services that answer with a number give `error`.
    void FailNth(std::string operation, uint32_t n, Failure failure = Failure::Once, uint32_t error = kDefaultError);
    /// The same for the nth call of all operations that can fail: the step of a fault sweep.
    void FailNthOfAll(uint32_t n, Failure failure = Failure::Once, uint32_t error = kDefaultError);
    /// Forgets the planned failures; the log stays.
    void StopFailing();
    /// True once a planned failure has happened; a sweep ends when none did.
    bool HasFailed() const;

    /// Notes a call that can fail. Returns the error to fail with, 0 to go on.
    uint32_t Enter(std::string_view operation, std::u16string_view subject = {});
    /// Notes a call that can't fail.
    void Note(std::string_view operation, std::u16string_view subject = {});

    std::vector<Call> Calls() const;
    /// Operations in order, without their subjects.
    std::vector<std::string> Operations() const;
    size_t CountOf(std::string_view operation) const;
    /// Subjects of one operation, in order.
    std::vector<std::u16string> SubjectsOf(std::string_view operation) const;
    void Clear();
    /// Notes no calls from now on, so that a measurement doesn't pay for them. Planned failures still come.
    void StopNoting();

  private:
    struct Plan
    {
        std::string operation; ///< empty for every operation
        uint32_t callsLeft;    ///< calls up to the failing one
        Failure failure;
        uint32_t error;
    };

    mutable std::mutex lock;
    std::vector<Call> calls;
    std::vector<Plan> plans;
    bool hasFailed = false;
    bool isNoting = true;
};

} // namespace tv::fakes
