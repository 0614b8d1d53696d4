// A machine in memory that is as the test says, in place of the real one.
#pragma once

#include "host/health_machine.h"

#include "vault/text.h"

#include <map>
#include <set>
#include <tuple>

namespace tv::local {

class ScriptedHealth final : public HealthMachine
{
  public:
    void SetValue(const RegistryKey& key, const std::string& name, const RegistryValue& value)
    {
        keys[PlaceOf(key)][name] = value;
        names[PlaceOf(key)] = key.path;
    }
    void SetText(const RegistryKey& key, const std::string& text) { SetValue(key, "", {RegistryType::Text, text}); }
    void MakeKey(const RegistryKey& key)
    {
        keys[PlaceOf(key)];
        names[PlaceOf(key)] = key.path;
    }
    /// With all below it.
    void RemoveKey(const RegistryKey& key)
    {
        const Place place = PlaceOf(key);
        std::erase_if(keys, [&](const auto& entry) { return entry.first == place || IsBelow(entry.first, place); });
    }

    bool HasComponents() const override { return hasComponents; }
    bool HasKey(const RegistryKey& key) override
    {
        const Place place = PlaceOf(key);
        for (const auto& [other, values] : keys) {
            if (other == place || IsBelow(other, place)) {
                return true;
            }
        }
        return false;
    }
    std::optional<RegistryValue> ReadValue(const RegistryKey& key, std::string_view name) override
    {
        const auto found = keys.find(PlaceOf(key));
        if (found == keys.end()) {
            return std::nullopt;
        }
        const auto value = found->second.find(std::string(name));
        return value == found->second.end() ? std::nullopt : std::optional(value->second);
    }
    std::vector<std::string> SubKeys(const RegistryKey& key) override
    {
        const Place place = PlaceOf(key);
        std::vector<std::string> found;
        std::set<std::string> seen;
        for (const auto& [other, values] : keys) {
            if (!IsBelow(other, place)) {
                continue;
            }
            const std::string rest = names[other].substr(key.path.size() + 1);
            const std::string name = rest.substr(0, rest.find('\\'));
            if (seen.insert(FoldName(name)).second) {
                found.push_back(name);
            }
        }
        return found;
    }

    ProgramKind LookAtProgram(const std::string& path) override
    {
        const auto found = programs.find(path);
        return found == programs.end() ? ProgramKind::Missing : found->second;
    }
    Trouble LoadLibraryFile(const std::string&) override { return loadTrouble; }
    Listener AskListener(std::chrono::milliseconds) override { return listener; }
    std::vector<Printer> Printers() override { return printers; }
    std::vector<RunningProcess> Applications() override { return applications; }
    std::string KernelProgram(const std::string& folder) override
    {
        kernelFolder = folder;
        return kernel;
    }
    Trouble TryKernel(const std::string&) override { return kernelTrouble; }
    FolderState TryFolder(const std::string& path) override
    {
        const auto found = folders.find(path);
        return found == folders.end() ? FolderState::Writable : found->second;
    }
    bool FileExists(const std::string& path) override { return programs.contains(path); }
    std::optional<uint64_t> FreeBytes(const std::string&) override { return freeBytes; }
    std::vector<FoundFile> Files(const std::string&, std::string_view begin, std::string_view end) override
    {
        std::vector<FoundFile> found;
        for (const FoundFile& file : files) {
            const std::string name = file.path.substr(file.path.find_last_of("\\/") + 1);
            if (name.starts_with(begin) && name.ends_with(end)) {
                found.push_back(file);
            }
        }
        return found;
    }
    std::string TemporaryFolder() override { return "C:\\Temp"; }
    std::string ProgramFolder() override { return "C:\\Local"; }
    std::string Expand(const std::string& text) override
    {
        const size_t at = text.find("%ROOT%");
        return at == std::string::npos ? text : text.substr(0, at) + "C:" + text.substr(at + 6);
    }

    bool hasComponents = true;
    /// Files that are there.
    std::map<std::string, ProgramKind> programs;
    Trouble loadTrouble;
    Listener listener;
    std::vector<Printer> printers;
    std::vector<RunningProcess> applications;
    std::string kernel = "C:\\Local\\tvkernel.exe";
    std::string kernelFolder;
    Trouble kernelTrouble;
    /// Those that can't be written.
    std::map<std::string, FolderState> folders;
    std::optional<uint64_t> freeBytes = uint64_t{50} << 30;
    std::vector<FoundFile> files;

  private:
    using Place = std::tuple<RegistryRoot, RegistryView, std::string>;

    static Place PlaceOf(const RegistryKey& key) { return {key.root, key.view, FoldName(key.path)}; }
    static bool IsBelow(const Place& place, const Place& parent)
    {
        return std::get<0>(place) == std::get<0>(parent) && std::get<1>(place) == std::get<1>(parent) &&
               std::get<2>(place).starts_with(std::get<2>(parent) + "\\");
    }

    std::map<Place, std::map<std::string, RegistryValue>> keys;
    /// Their paths as they were written.
    std::map<Place, std::string> names;
};

} // namespace tv::local
