#include "vault/error_table.h"

#include "vault/text.h"

#include <algorithm>
#include <cstdio>

namespace tv::local {

namespace {

constexpr ErrorWords kErrors[] = {
    {0, "S_OK", "The method was successfully executed."},
    {1, "S_FALSE", "The method was successfully executed but returned 'false'."},
    {VaultCode(0x80004001), "E_NOTIMPL", "The operation isn't offered by this vault."},
    {VaultCode(0x80004002), "E_NOINTERFACE", "The object doesn't offer that interface."},
    {VaultCode(0x80004003), "E_POINTER", "An argument that is needed is missing."},
    {VaultCode(0x80004005), "E_FAIL", "The operation failed."},
    {VaultCode(0x8000FFFF), "E_UNEXPECTED", "Something happened that the program isn't prepared for."},
    {kErrorPermissionDenied, "E_VYX_PERMISSION_DENIED", "You don't have permission to perform this action."},
    {kErrorDatabaseAccess, "E_VYX_DATABASE_ACCESS", "Could not access the item in the database."},
    {kErrorEndOfList, "E_VYX_END_OF_LIST", "You tried to get an element from a list where the cursor is off-right."},
    {kErrorLocked, "E_VYX_LOCKED", "The vault is in use by another program."},
    {kErrorNameAlreadyExists, "E_VYX_NAME_ALREADY_EXISTS", "There is an item of that name already."},
    {kErrorNotLockedByYou, "E_VYX_FILE_NOT_LOCKED_BY_YOU",
     "An attempt was made to check in/undo check out on a file that isn't checked out by you."},
    {kErrorFileIsLocked, "E_VYX_FILE_IS_LOCKED", "The operation is not permitted since the file is checked out."},
    {kErrorLockedByAnotherUser, "E_VYX_LOCKED_BY_ANOTHER_USER", "The file in question is checked out by another user."},
    {kErrorFileNotFound, "E_VYX_FILE_NOT_FOUND", "The file could not be found."},
    {kErrorFolderNotFound, "E_VYX_FOLDER_NOT_FOUND", "The folder could not be found."},
    {kErrorLockedOnOtherComputer, "E_VYX_LOCKED_ON_OTHER_COMPUTER", "The file is checked out on another computer."},
    {kErrorInvalidName, "E_VYX_INVALID_NAME", "The file/key name was invalid."},
    {kErrorInvalidRevision, "E_VYX_INVALID_REVISION_NUMBER", "The revision is none that the file can have."},
    {kErrorIo, "E_VYX_IO_ERROR", "Error accessing the file."},
    {kErrorInvalidFile, "E_VYX_INVALID_FILE", "The file format is not recognized."},
    {kErrorVersionMismatch, "E_VYX_VERSION_MISMATCH", "The program and the file vault are of incompatible versions."},
    {kErrorInvalidQuery, "E_VYX_INVALID_QUERY", "The query is none that the vault can answer."},
    {kErrorDiskFull, "E_VYX_DISK_FULL", "The disk is full."},
    {kErrorVariableNotFound, "E_VYX_VARIABLE_NOT_FOUND", "The specified card variable is missing."},
    {kErrorRevisionExists, "E_VYX_REVNUM_EXISTS", "A version of the file has that revision already."},
    {kErrorFileDeleted, "E_VYX_FILE_DELETED", "The file has been deleted."},
    {kErrorInvalidUserName, "E_VYX_INVALID_USER_NAME", "The user name was invalid."},
    {VaultCode(0x8007000E), "E_OUTOFMEMORY", "There isn't enough memory."},
    {VaultCode(0x80070057), "E_INVALIDARG", "An argument is out of its range."},
};

constexpr bool IsSorted()
{
    for (size_t i = 1; i < std::size(kErrors); ++i) {
        if (static_cast<uint32_t>(kErrors[i - 1].code) >= static_cast<uint32_t>(kErrors[i].code)) {
            return false;
        }
    }
    return true;
}
static_assert(IsSorted());

} // namespace

std::span<const ErrorWords> ErrorTable()
{
    return kErrors;
}

NameAndDescription WordsFor(Result code)
{
    const auto row = std::find_if(std::begin(kErrors), std::end(kErrors),
                                  [&](const ErrorWords& words) { return words.code == code; });
    if (row != std::end(kErrors)) {
        return {std::string(row->name), std::string(row->description)};
    }
    char name[16];
    std::snprintf(name, sizeof name, "0x%08X", static_cast<unsigned>(code));
    return {name, std::string("The operation ended with the code ") + name + "."};
}

void Fail(Result code, std::string_view words)
{
    throw ResultError(code, Utf16(words));
}

std::string WordsOf(const ResultError& error)
{
    return error.Text().empty() ? WordsFor(error.Code()).description : Utf8(error.Text());
}

} // namespace tv::local
