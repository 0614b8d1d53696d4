#include "fakes/application/cad_installation.h"

#include "support/format.h"

namespace tv::fakes {

namespace {

std::u16string ItemName(uint32_t processId)
{
    return FormatText(u"Torvane_PID_%d", processId);
}

} // namespace

CadInstallation::CadInstallation(FakePlatform& onMachine) : machine(onMachine)
{
    machine.runningObjects.AddClass(u"Torvane.Application", kLocalApplicationClass);
    machine.runningObjects.AddClass(u"Torvane.Application.21", kLocalApplicationClass);
    machine.registry.PutText(kLocalMachineRoot, u"SOFTWARE\\Torvane\\Torvane 2013\\Setup", u"Torvane Folder",
                             u"C:\\CAD\\");
    machine.registry.PutNumber(kLocalMachineRoot, u"SOFTWARE\\Torvane\\Torvane 2013\\Setup",
                               u"Torvane Office Installed", 1);
    const std::u16string classKey = u"SOFTWARE\\Classes\\CLSID\\" + GuidText(kLocalApplicationClass);
    machine.registry.PutText(kLocalMachineRoot, classKey + u"\\LocalServer32", u"", u"C:\\CAD\\TORVANE.EXE");
    machine.registry.PutText(kLocalMachineRoot, classKey + u"\\ProgID", u"", u"Torvane.Application.21");
    machine.processes.OnStart([this](FakeProcess& process) { OnStart(process); });
    machine.processes.OnEnd([this](FakeProcess& process) { OnEnd(process); });
}

void CadInstallation::OnStart(FakeProcess& process)
{
    const uint32_t id = process.id;
    ComPtr<FakeApplication> application = MakeObject<FakeApplication>();
    started.push_back(application);
    byProcess[id] = application;
    application->onExit = [this, id] {
        if (endsAfter) {
            machine.clock.After(*endsAfter, [this, id] { machine.processes.End(id); });
        }
    };
    if (prepare) {
        prepare(*application.get(), StartCount());
    }
    if (registersAfter) {
        machine.clock.After(*registersAfter, [this, id, application] {
            if (machine.processes.At(id).isRunning) {
                ComPtr<IUnknown> object;
                application.As(object);
                machine.runningObjects.Register(ItemName(id), object);
            }
        });
    }
}

void CadInstallation::OnEnd(const FakeProcess& process)
{
    machine.runningObjects.Revoke(ItemName(process.id));
    byProcess.at(process.id)->script.FailNthOfAll(1, kServerDied, true);
}

} // namespace tv::fakes
