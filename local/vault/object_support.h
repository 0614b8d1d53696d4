// Shared by the component objects of the vault.
#pragma once

#include "vault/error_table.h"
#include "vault/file_work.h"
#include "vault/text.h"

#include "com/com_object.h"
#include "interfaces/vault.h"

namespace tv::local {

/// What all objects of one vault work with.
struct VaultContext
{
    explicit VaultContext(std::shared_ptr<VaultStore> vault) : store(std::move(vault)), files(store) {}

    FileRecord RequireFile(int32_t id) { return store->RequireFile(id); }

    /// Also refuses a folder that the file isn't in.
    FileRecord RequireFileIn(int32_t id, int32_t folder)
    {
        FileRecord file = RequireFile(id);
        if (file.folder != folder) {
            Fail(kErrorFolderNotFound, "'" + file.name + "' isn't in the folder " + std::to_string(folder) + ".");
        }
        return file;
    }

    std::shared_ptr<VaultStore> store;
    FileWork files;
};

using Context = std::shared_ptr<VaultContext>;

ComPtr<IVyxFile> MakeFileObject(const Context& context, int32_t file);
ComPtr<IVyxFolder> MakeFolderObject(const Context& context, int32_t folder);
ComPtr<IVyxEnumeratorVariable> MakeCardReader(const Context& context, int32_t file);
/// Null for a number that names no utility.
ComPtr<IUnknown> MakeUtility(const Context& context, int32_t number);

inline void RequirePointer(const void* argument)
{
    if (argument == nullptr) {
        throw ResultError(E_POINTER);
    }
}

inline std::string TextArgument(const char16_t* text)
{
    RequirePointer(text);
    return Utf8(text);
}

inline BStr NewText(std::string_view text)
{
    return AllocateText(Utf16(text));
}

/// An absent text is a null text to the receiver.
inline BStr NewText(const std::optional<std::string>& text)
{
    return text ? NewText(std::string_view(*text)) : nullptr;
}

inline int32_t NumberArgument(const VARIANT* value)
{
    RequirePointer(value);
    return Variant::Copy(*value).ToInt();
}

/// A place in a list of ids that was taken when the enumeration began.
class Position final : public ComObject<IVyxPos>
{
  public:
    explicit Position(std::vector<int32_t> list) : ids(std::move(list)) {}

    Result TV_CALL IsNull(VariantBool* atEnd) override
    {
        return AtBoundary([&] {
            RequirePointer(atEnd);
            *atEnd = next == ids.size() ? kVariantTrue : kVariantFalse;
            return 0;
        });
    }

    /// Reads the id at the place and moves on; E_VYX_END_OF_LIST behind the last one.
    static int32_t Take(IVyxPos* position)
    {
        RequirePointer(position);
        auto* own = dynamic_cast<Position*>(position);
        if (own == nullptr) {
            Fail(E_INVALIDARG, "The position belongs to another enumeration.");
        }
        if (own->next == own->ids.size()) {
            Fail(kErrorEndOfList, "The enumeration is at its end.");
        }
        return own->ids[own->next++];
    }

  private:
    std::vector<int32_t> ids;
    size_t next = 0;
};

} // namespace tv::local
