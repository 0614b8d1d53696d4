// The CAD application as a script plays it: documents by path, answers that a test sets, and every call written down in
// the order in which a macro makes them.
#pragma once

#include "macro/object.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tv::macro {

/// Document types of the application, by the numbers of its enumeration.
enum ScriptedType : int32_t
{
    kScriptedPart = 1,
    kScriptedAssembly = 2,
    kScriptedDrawing = 3,
};

struct ScriptedComponent
{
    std::u16string path;
    bool isVirtual = true;
};

struct ScriptedDocument
{
    int32_t type = kScriptedPart;
    std::vector<std::u16string> configurations = {u"Default"};
    std::vector<std::u16string> sheets = {};
    std::vector<ScriptedComponent> components = {};
    /// Index of the active sheet of a drawing or the active configuration of a model.
    size_t active = 0;
    /// A document that was never saved, such as an imported one, has no path of its own.
    bool hasPath = true;
};

struct SaveOutcome
{
    bool succeeds = true;
    int32_t errors = 0;
    int32_t warnings = 0;
};

/// What the application knows and how it answers.
struct ScriptedCad
{
    std::map<std::u16string, ScriptedDocument> documents;
    std::u16string revision = u"18.2.0";
    /// The error that opening reports, with or without a document.
    int32_t openError = 0;
    /// Saves that don't simply succeed, by target.
    std::map<std::u16string, SaveOutcome> saves;
    /// Called inside each save, with its target.
    std::function<void(const std::u16string&)> onSave;
    /// A document takes no other printer name.
    std::set<std::u16string> printers;
    /// Messages that wait before a print, and those that the print brings.
    std::vector<std::u16string> waitingMessages;
    std::vector<std::u16string> printMessages;
    /// Members that raise an error instead of doing their work, such as "Torvane.ActivateDoc2".
    std::map<std::string, int32_t> failures;
    /// Names of numbers that the log shows in place of the first argument of SetUserPreference….
    std::map<int32_t, std::string> preferenceNames;
    bool recording = true;
    std::vector<std::string> calls;
};

/// The object behind Application. \param cad must outlive the objects
Ref<Object> MakeScriptedApplication(ScriptedCad& cad);

/// A text in the form in which call logs and expectations hold it.
std::string Utf8Text(std::u16string_view text);

} // namespace tv::macro
