#include "vault/object_support.h"
#include "vault/vault_objects.h"

namespace tv::local {

namespace {

class CardVariableObject final : public ComObject<IVyxVariable>
{
  public:
    explicit CardVariableObject(CardVariable record) : variable(std::move(record)) {}

    Result TV_CALL GetID(int32_t* id) override
    {
        return AtBoundary([&] {
            RequirePointer(id);
            *id = variable.id;
            return 0;
        });
    }

    Result TV_CALL GetName(BStr* name) override
    {
        return AtBoundary([&] {
            RequirePointer(name);
            *name = NewText(std::string_view(variable.name));
            return 0;
        });
    }

  private:
    CardVariable variable;
};

class VaultObject final : public ComObject<IVyxVault, IVyxVariableMgr>
{
  public:
    explicit VaultObject(Context shared) : context(std::move(shared)) {}

    Result TV_CALL GetName(BStr* name) override
    {
        return AtBoundary([&] {
            RequirePointer(name);
            *name = NewText(std::string_view(context->store->Name()));
            return 0;
        });
    }

    Result TV_CALL GetRootFolderPath(BStr* path) override
    {
        return AtBoundary([&] {
            RequirePointer(path);
            *path = NewText(std::string_view(TextOf(context->store->Root())));
            return 0;
        });
    }

    Result TV_CALL GetFolderFromPath(const char16_t* path, IVyxFolder** folder) override
    {
        return AtBoundary([&] {
            RequirePointer(folder);
            *folder = nullptr;
            const auto place = PlaceOf(path);
            const auto record = place ? context->store->FindFolder(*place) : std::nullopt;
            if (!record) {
                return 1;
            }
            context->store->RequireRight(record->id, Right::Read);
            *folder = MakeFolderObject(context, record->id).release();
            return 0;
        });
    }

    Result TV_CALL GetFileFromPath(const char16_t* path, IVyxFolder** folder, IVyxFile** file) override
    {
        return AtBoundary([&] {
            RequirePointer(file);
            *file = nullptr;
            if (folder != nullptr) {
                *folder = nullptr;
            }
            const auto place = PlaceOf(path);
            const auto record = place ? context->store->FindFile(*place) : std::nullopt;
            if (!record) {
                return 1;
            }
            auto object = MakeFileObject(context, record->id);
            if (folder != nullptr) {
                *folder = MakeFolderObject(context, record->folder).release();
            }
            *file = object.release();
            return 0;
        });
    }

    Result TV_CALL CreateUtility(int32_t number, IUnknown** utility) override
    {
        return AtBoundary([&] {
            RequirePointer(utility);
            *utility = MakeUtility(context, number).release();
            return *utility != nullptr ? Result{0} : Result{E_INVALIDARG};
        });
    }

    Result TV_CALL GetErrorString(Result code, BStr* name, BStr* description) override
    {
        return AtBoundary([&] {
            const NameAndDescription words = WordsFor(code);
            BString nameText(Utf16(words.name));
            BString descriptionText(Utf16(words.description));
            if (name != nullptr) {
                *name = nameText.release();
            }
            if (description != nullptr) {
                *description = descriptionText.release();
            }
            return 0;
        });
    }

    Result TV_CALL GetFirstVariablePosition(IVyxPos** position) override
    {
        return AtBoundary([&] {
            RequirePointer(position);
            std::vector<int32_t> ids;
            for (const CardVariable& variable : context->store->CardVariables()) {
                ids.push_back(variable.id);
            }
            *position = MakeObject<Position>(std::move(ids)).release();
            return 0;
        });
    }

    Result TV_CALL GetNextVariable(IVyxPos* position, IVyxVariable** variable) override
    {
        return AtBoundary([&] {
            RequirePointer(variable);
            const auto record = context->store->CardVariableById(Position::Take(position));
            if (!record) {
                return kErrorVariableNotFound;
            }
            *variable = MakeObject<CardVariableObject>(*record).release();
            return Result{0};
        });
    }

  private:
    /// Empty for a path outside the local view.
    std::optional<VaultPath> PlaceOf(const char16_t* path) const
    {
        const std::string text = TextArgument(path);
        if (text.empty()) {
            Fail(E_INVALIDARG, "A path is needed.");
        }
        return BelowRoot(context->store->Root(), text);
    }

    Context context;
};

} // namespace

ComPtr<IVyxVault> MakeVaultObject(std::shared_ptr<VaultStore> store)
{
    auto object = MakeObject<VaultObject>(std::make_shared<VaultContext>(std::move(store)));
    return ComPtr<IVyxVault>::Adopt(object.release());
}

} // namespace tv::local
