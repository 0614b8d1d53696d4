// A vault in a folder of its own on the real disk, gone at the end of the test.
#pragma once

#include "vault/file_work.h"

#include <gtest/gtest.h>

namespace tv::local {

inline const Session kAnna{"anna", "bench-1"};
inline const Session kBert{"bert", "bench-2"};

class DiskWorld : public ::testing::Test
{
  protected:
    DiskWorld();
    ~DiskWorld() override;

    std::filesystem::path Folder(std::string_view name) const { return base / PathOf(name); }
    std::filesystem::path Root() const { return Folder("vault"); }

    StoreOptions OptionsOf(const Session& session) const;
    std::shared_ptr<VaultStore> Make() { return VaultStore::Create(Root(), "Bench", OptionsOf(kAnna)); }
    std::shared_ptr<VaultStore> OpenAs(const Session& session) { return VaultStore::Open(Root(), OptionsOf(session)); }

    /// Writes a file outside of the vault and returns its place.
    std::filesystem::path Write(std::string_view name, std::string_view bytes) const;
    /// Puts a file with these bytes into a vault folder, checked in.
    FileRecord Import(VaultStore& store, std::string_view name, std::string_view bytes, const VaultPath& folder = {});

  private:
    std::filesystem::path base;
};

std::string BytesOf(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, std::string_view bytes);
/// The codes alone, in order.
std::vector<Result> CodesOf(const std::vector<Outcome>& outcomes);
/// The line for a person that the operation ends with; empty when it raises none.
std::string WordsOf(const std::function<void()>& operation);
/// The code that the operation raises; 0 when it raises none.
Result CodeOf(const std::function<void()>& operation);

} // namespace tv::local
