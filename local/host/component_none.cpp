#include "host/component.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

class NoComponent final : public Component
{
  public:
    ComPtr<IVyxAddIn5> Create() override { Refuse(); }
    std::string Template(int32_t) override { Refuse(); }

  private:
    [[noreturn]] static void Refuse()
    {
        Fail(E_NOTIMPL, "The add-in is a Windows component; on this system only the vault's own commands work.");
    }
};

} // namespace

std::unique_ptr<Component> MakeRegisteredComponent()
{
    return std::make_unique<NoComponent>();
}

} // namespace tv::local
