// One add-in object, driven as the vault's task framework drives it.
#pragma once

#include "host/host_context.h"

namespace tv::local {

/// What a command left in its record.
struct CommandOutcome
{
    Result result = 0;
    bool cancelled = false;
    /// Name of the page that the add-in wants shown, or empty.
    std::string page;
    /// The data array as it came back.
    std::vector<SelectionItem> selection;
};

class AddInSession
{
  public:
    /// Creates and loads the add-in. Raises when it can't be created or its loading fails.
    AddInSession(Component& component, std::shared_ptr<VaultStore> store);

    /// Sends one task command with the instance. `button` is the button pressed, for the commands that tell one.
    CommandOutcome Send(int32_t command, IVyxTaskInstance* instance, std::span<const SelectionItem> selection,
                        std::u16string_view button = {});

    /// Raises when the add-in doesn't handle the command.
    void RequireHook(int32_t command) const;

    /// The macro that a run would give the file.
    std::string MacroFor(IVyxTaskInstance* instance, const SelectionItem& file);

  private:
    ComPtr<IVyxAddIn5> addIn;
    ComPtr<IVyxVault> vault;
    std::vector<int32_t> hooks;
};

} // namespace tv::local
