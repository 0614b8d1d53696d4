// ClassFactory: makes add-in objects for CoCreateInstance.
#pragma once

#include "com/com_object.h"
#include "module/server.h"

namespace tv {

class ClassFactory final : public ComObject<IClassFactory>
{
  public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    ServerHold hold;
};

} // namespace tv

TV_IID(IClassFactory, "00000001-0000-0000-c000-000000000046");
