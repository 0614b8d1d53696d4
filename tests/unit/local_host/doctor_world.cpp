#include "doctor_world.h"

#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr char kAddIn[] = "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01}";
constexpr char kApplication[] = "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}";

} // namespace

DoctorWorld::DoctorWorld()
{
    health.programs["C:\\Local\\TVTaskAddIn.dll"] = ProgramKind::Bits64;
    health.programs["C:\\Local\\TORVANE.EXE"] = ProgramKind::Bits64;
    health.SetText(ClassKey(kAddIn, "\\InprocServer32"), "C:\\Local\\TVTaskAddIn.dll");
    health.SetValue(ClassKey(kAddIn, "\\InprocServer32"), "ThreadingModel", {RegistryType::Text, "Both"});
    health.SetText(ClassKey(kApplication, "\\LocalServer32"), "C:\\Local\\TORVANE.EXE");
    health.SetText(Classes("Torvane.Application\\CLSID"), kApplication);
    health.SetText(Classes("Torvane.Application.21\\CLSID"), kApplication);
    health.SetValue(SetupKey(2013), "Torvane Folder", {RegistryType::Text, "C:\\Local"});
    component.starts = {{0, {2013, StartSource::RegisteredServer, u"TORVANE.EXE /R"}},
                        {2013, {2013, StartSource::Setup64, u"TORVANE.EXE /B"}}};
}

std::string DoctorWorld::Check(std::string_view name)
{
    std::string text;
    const Json json = Run({"doctor", "--json"}).AsJson();
    for (const Json& finding : json["findings"]) {
        if (finding["check"] != name) {
            continue;
        }
        text += finding["level"].get<std::string>() + " | " + finding["subject"].get<std::string>() + " | " +
                finding["found"].get<std::string>() + "\n";
        const std::string advice = finding["advice"];
        text += advice.empty() ? "" : "  " + advice + "\n";
        for (const std::string command : finding["commands"]) {
            text += "    " + command + "\n";
        }
    }
    return WithoutBase(text);
}

std::string DoctorWorld::WithoutBase(std::string text) const
{
    const std::string whole = TextOf(Folder(""));
    const std::string folder = whole.substr(0, whole.find_last_not_of("\\/") + 1);
    for (size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
        text.replace(at, folder.size(), "BASE");
        // Below it the separators are those of the system.
        const size_t end = std::min(text.find('"', at), text.size());
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(at), text.begin() + static_cast<std::ptrdiff_t>(end),
                     '\\', '/');
    }
    return text;
}

RegistryKey DoctorWorld::Classes(const std::string& path, RegistryView view)
{
    return {RegistryRoot::Machine, "SOFTWARE\\Classes\\" + path, view};
}

RegistryKey DoctorWorld::ClassKey(const std::string& id, const std::string& below, RegistryView view)
{
    return Classes("CLSID\\" + id + below, view);
}

RegistryKey DoctorWorld::UserClassKey(const std::string& id, const std::string& below)
{
    return {RegistryRoot::User, "Software\\Classes\\CLSID\\" + id + below};
}

RegistryKey DoctorWorld::SetupKey(int year, RegistryView view)
{
    return {RegistryRoot::Machine, "SOFTWARE\\Torvane\\Torvane " + std::to_string(year) + "\\Setup", view};
}

RegistryKey DoctorWorld::StartUp(const std::string& path)
{
    return {RegistryRoot::User, "Software\\Torvane\\" + path};
}

RegistryKey DoctorWorld::AddInSettings()
{
    return {RegistryRoot::User, "Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn"};
}

void DoctorWorld::RemoveApplication()
{
    for (const char* name : {"Torvane.Application", "Torvane.Application.21"}) {
        health.RemoveKey(Classes(name));
    }
    health.RemoveKey(ClassKey(kApplication));
    health.RemoveKey(SetupKey(2013));
}

} // namespace tv::local
