// CTVDocument: hears what is saved and printed from one open document and records it among the run's outputs.
#pragma once

#include "cad/event_sink.h"
#include "cad/tv_view.h"
#include "interfaces/application.h"

#include <map>
#include <memory>
#include <string>

namespace tv {

class TVManager;

enum class OutputWay
{
    Saved,
    Printed
};

/// Lives from the first refresh that sees its document until the document goes or the application is closed.
class CTVDocument final : public std::enable_shared_from_this<CTVDocument>, private EventHandler
{
  public:
    /// \param manager  borrowed; outlives the document
    /// \param listed   the document as the application's list gave it
    /// \param identity the document, by its base identity
    CTVDocument(TVManager& manager, ComPtr<ITorvaneDocument> listed, ComPtr<IUnknown> identity, int32_t documentType);
    ~CTVDocument() override;

    /// Connects the sink of the document's type, and in a print run those of its model views.
    Result Attach();
    /// Ends all connections; a second call does nothing.
    void Detach();
    bool IsDetached() const { return detached; }

    /// What the document was found by. It has learned its members' numbers, which cost a call to the application each.
    const ComPtr<ITorvaneDocument>& Listed() const { return listed; }

    /// Records an output under the name of the configuration or sheet that it was made from.
    void RecordOutput(const std::u16string& path, OutputWay way);
    void RecordPrinted();

    size_t ViewCount() const { return views.size(); }

  private:
    void OnEvent(int32_t event, std::span<const VARIANT> arguments) override;
    Result AttachViews();
    /// Holders of their own: the document may go while it is being asked.
    /// @{
    ComPtr<ITorvaneDocument> AsDocument();
    ComPtr<ITorvaneDrawing> AsDrawing();
    /// @}
    std::u16string NameOfSheet();
    std::u16string NameOfConfiguration();

    TVManager& manager;
    ComPtr<ITorvaneDocument> listed;
    ComPtr<IUnknown> document;
    ComPtr<ITorvaneDocument> asDocument; ///< once asked for; an object doesn't lose an interface
    ComPtr<ITorvaneDrawing> asDrawing;
    int32_t documentType;
    int32_t taskKind;
    uint16_t majorRevision;
    bool detached = false;
    std::map<IUnknown*, std::unique_ptr<CTVView>> views;
    SinkConnection connection;
};

} // namespace tv
