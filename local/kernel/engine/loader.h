// Loads what a job names: a document or a neutral file, with everything that it refers to.
#pragma once

#include "document/model.h"
#include "engine/model.h"
#include "protocol/jobs.h"

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tv::kernel {

/// A source after its file was read, before any shape was made.
struct OpenedSource
{
    std::filesystem::path file;
    std::string name;                           // for people: the file's or the virtual component's, with no extension
    std::optional<document::Document> document; // empty for a neutral file

    const document::Drawing* drawing() const
    {
        return document ? std::get_if<document::Drawing>(&document->content) : nullptr;
    }
};

/// Throws JobFailure when the source isn't there, or isn't a whole document.
OpenedSource Open(const Source& source);

/// Makes models, each file and configuration once.
class Loader
{
  public:
    /// \param configuration  empty for the active one
    Model Load(const OpenedSource& source, const std::string& configuration);

    /// Loads a file that a document refers to.
    ///
    /// \param user  the document, for errors
    Model LoadReference(const std::filesystem::path& user, const std::string& reference,
                        const std::string& configuration);

  private:
    using Key = std::pair<std::filesystem::path, std::string>;

    ModelNode Build(const document::Document& document, const std::filesystem::path& file, const std::string& name,
                    const std::string& configuration);
    ModelNode BuildPart(const document::Part& part, const std::filesystem::path& file, const std::string& name,
                        const std::string& configuration);
    ModelNode BuildAssembly(const document::Assembly& assembly, const std::filesystem::path& file,
                            const std::string& name, const std::string& configuration);
    ModelNode BuildComponent(const document::Component& component, const std::filesystem::path& file);

    std::map<Key, Model> loaded;
    std::set<Key> loading; // to find an assembly that holds itself
};

/// The file that a reference of a document means. Documents come from systems that don't tell upper case from lower, so
/// a name that differs only in that is found too.
std::filesystem::path ResolveReference(const std::filesystem::path& user, const std::string& reference);

} // namespace tv::kernel
