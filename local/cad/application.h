// The application: its open documents, its preferences, opening and saving.
#pragma once

#include "cad/export_options.h"
#include "cad/geometry.h"
#include "cad/macro_event.h"
#include "cad/model_document.h"
#include "macro/file_system.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tv::app {

struct OpenOutcome
{
    std::shared_ptr<ModelDocument> document;
    int32_t error = 0; ///< of OpenError
    std::string message;
};

struct SaveOutcome
{
    int32_t error = 0; ///< of SaveError
    std::string message;
    bool Succeeded() const { return error == 0; }
};

class Application
{
  public:
    Application(macro::FileSystem& files, Geometry& geometry);

    /// "21.1.0" unless the start asked for another.
    std::u16string revision = u"21.1.0";
    Preferences preferences;
    bool isInteractive = true;
    bool isBackgroundRun = false;
    std::map<int32_t, bool> switches;

    /// Called when the main window is to be shown or hidden.
    std::function<void(bool shown)> onWindowShown = [](bool) {};
    /// Called when the application is asked to end.
    std::function<void()> onExit = [] {};
    /// Told of everything that a person would want to know afterwards, one line each.
    std::function<void(const std::string& line)> onNote = [](const std::string&) {};
    /// Told of what a macro does while it does it.
    std::function<void(const MacroEvent& event)> onMacroEvent = [](const MacroEvent&) {};
    /// Called when a save has been announced and before its first byte is written.
    std::function<void()> onSaving = [] {};
    /// Called after the list of documents or an active item changed.
    std::function<void()> onChanged = [] {};
    /// Handle of the main window, 0 for none.
    intptr_t mainWindow = 0;
    bool keepsInvisible = false;

    /// Opens one of our own documents, from a file or as a virtual component of a document that is open. A document
    /// that is open already is given again. \param type what the caller takes it for; None for whatever it is
    OpenOutcome Open(std::u16string_view path, DocumentType type, bool readOnly, std::u16string_view configuration);
    /// Loads a neutral file.
    OpenOutcome Load(std::u16string_view path);

    /// Announces the save to the document's listeners and then writes the file. `items` names the sheets of a drawing
    /// for a format that holds several; empty for all. The target's extension decides the format.
    SaveOutcome Save(ModelDocument& document, std::u16string_view target, const std::vector<std::u16string>& items);

    const std::vector<std::shared_ptr<ModelDocument>>& Documents() const { return documents; }
    std::shared_ptr<ModelDocument> ActiveDocument() const { return active; }
    std::shared_ptr<ModelDocument> NextAfter(const ModelDocument& document) const;
    /// By path or title, case ignored; null when none is open under that name.
    std::shared_ptr<ModelDocument> Find(std::u16string_view name) const;
    bool Activate(std::u16string_view name);
    /// False when no document of that name is open.
    bool Close(std::u16string_view name);
    void CloseAll();

    const std::shared_ptr<EventSource>& Events() const { return events; }
    macro::FileSystem& Files() { return files; }

  private:
    std::shared_ptr<ModelDocument> FindByPath(std::u16string_view path) const;
    std::shared_ptr<ModelDocument> OpenVirtual(std::u16string_view path) const;
    OpenOutcome Announce(std::shared_ptr<ModelDocument> document);
    SaveOutcome SaveOwn(ModelDocument& document, std::u16string_view target, std::u16string_view extension);
    SaveOutcome SaveByKernel(ModelDocument& document, std::u16string_view target, std::u16string_view extension,
                             const std::vector<std::u16string>& items);
    void SetActive(std::shared_ptr<ModelDocument> document);

    macro::FileSystem& files;
    Geometry& geometry;
    std::vector<std::shared_ptr<ModelDocument>> documents;
    std::shared_ptr<ModelDocument> active;
    std::shared_ptr<EventSource> events;
};

} // namespace tv::app
