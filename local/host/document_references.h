// What a document of the CAD application refers to. The vault keeps it as references, so that a task host fetches a
// document together with everything that it needs.
#pragma once

#include "vault/vault_store.h"

namespace tv::local {

/// Files of the vault that the document's bytes name by a path relative to the document. A file that is no document of
/// ours, or can't be read as one, refers to nothing.
std::vector<ReferenceRecord> FindDocumentReferences(VaultStore& store, const FileRecord& document,
                                                    const std::filesystem::path& bytes);

} // namespace tv::local
