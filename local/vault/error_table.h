// The vault's own result codes with their names and sentences.
#pragma once

#include "com/result.h"

#include <span>
#include <string>
#include <string_view>

namespace tv::local {

constexpr Result VaultCode(uint32_t code)
{
    return static_cast<Result>(code);
}

inline constexpr Result kErrorPermissionDenied = VaultCode(0x80040203);
inline constexpr Result kErrorDatabaseAccess = VaultCode(0x80040207);
inline constexpr Result kErrorEndOfList = VaultCode(0x80040208);
inline constexpr Result kErrorLocked = VaultCode(0x8004020A);
inline constexpr Result kErrorNameAlreadyExists = VaultCode(0x8004020F);
inline constexpr Result kErrorNotLockedByYou = VaultCode(0x80040210);
inline constexpr Result kErrorFileIsLocked = VaultCode(0x80040211);
inline constexpr Result kErrorLockedByAnotherUser = VaultCode(0x80040212);
inline constexpr Result kErrorFileNotFound = VaultCode(0x80040213);
inline constexpr Result kErrorFolderNotFound = VaultCode(0x80040214);
inline constexpr Result kErrorLockedOnOtherComputer = VaultCode(0x80040215);
inline constexpr Result kErrorInvalidName = VaultCode(0x8004021D);
inline constexpr Result kErrorInvalidRevision = VaultCode(0x80040224);
inline constexpr Result kErrorIo = VaultCode(0x80040228);
inline constexpr Result kErrorInvalidFile = VaultCode(0x80040229);
inline constexpr Result kErrorVersionMismatch = VaultCode(0x8004022E);
inline constexpr Result kErrorInvalidQuery = VaultCode(0x80040230);
inline constexpr Result kErrorDiskFull = VaultCode(0x80040239);
inline constexpr Result kErrorVariableNotFound = VaultCode(0x80040252);
inline constexpr Result kErrorRevisionExists = VaultCode(0x8004025F);
inline constexpr Result kErrorFileDeleted = VaultCode(0x8004026D);
inline constexpr Result kErrorInvalidUserName = VaultCode(0x80040287);

struct ErrorWords
{
    Result code;
    std::string_view name;
    std::string_view description;
};

/// The whole table, sorted by code as an unsigned number.
std::span<const ErrorWords> ErrorTable();

/// The words for a code; a code that the table doesn't hold gets a name made of its number.
struct NameAndDescription
{
    std::string name;
    std::string description;
};
NameAndDescription WordsFor(Result code);

/// Ends the operation with a code and a line for a person.
[[noreturn]] void Fail(Result code, std::string_view words);

/// The line for a person, or else the words of the table.
std::string WordsOf(const ResultError& error);

} // namespace tv::local
