#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace tv::macro {

/// The run-time errors that the language itself raises. Their numbers and words are part of the language.
enum ErrorNumber : int32_t
{
    kReturnWithoutGoSub = 3,
    kInvalidCall = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscriptOutOfRange = 9,
    kArrayLocked = 10,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kOutOfStackSpace = 28,
    kResumeWithoutError = 20,
    kInternalError = 51,
    kBadFileNumber = 52,
    kFileNotFound = 53,
    kBadFileMode = 54,
    kFileAlreadyOpen = 55,
    kDeviceError = 57,
    kFileExists = 58,
    kBadRecordLength = 59,
    kDiskFull = 61,
    kInputPastEnd = 62,
    kBadRecordNumber = 63,
    kTooManyFiles = 67,
    kPermissionDenied = 70,
    kPathFileAccess = 75,
    kPathNotFound = 76,
    kObjectNotSet = 91,
    kForLoopNotInitialized = 92,
    kInvalidPattern = 93,
    kInvalidUseOfNull = 94,
    kObjectRequired = 424,
    kCannotCreateObject = 429,
    kNoAutomation = 430,
    kFileNotFoundByName = 432,
    kNoSuchMember = 438,
    kAutomationError = 440,
    kActionNotSupported = 445,
    kNamedArgumentsNotSupported = 446,
    kNamedArgumentNotFound = 448,
    kArgumentNotOptional = 449,
    kWrongArgumentCount = 450,
    kNotACollection = 451,
    kInvalidOrdinal = 452,
    kEntryNotFound = 453,
    kKeyAlreadyUsed = 457,
    kTypeNotSupported = 458,
};

/// Returns the language's English words for an error number; "Application-defined or object-defined error" when it has
/// none of its own.
std::u16string_view ErrorDescription(int32_t number);

/// A run-time error on its way to a macro's handler. Objects and hosts throw it too.
class MacroError : public std::exception
{
public:
    explicit MacroError(int32_t number);
    MacroError(int32_t number, std::u16string description, std::u16string source = {});

    /// The error that a failed automation call becomes: the codes that stand for errors of the language get their
    /// numbers, any other code is the number itself.
    static MacroError FromResult(int32_t result, std::u16string description = {}, std::u16string source = {});

    const char* what() const noexcept override { return "macro error"; }

    int32_t number;
    std::u16string description;
    std::u16string source;
    std::u16string helpFile;
    int32_t helpContext = 0;
};

[[noreturn]] void Raise(int32_t number);

} // namespace tv::macro
