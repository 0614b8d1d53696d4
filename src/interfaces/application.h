// The CAD application's automation interface, as far as this program uses it, as typed interfaces. In a real run the
// add-in reaches the application by name through IDispatch and one adapter stands behind these declarations.
#pragma once

#include "interfaces/ids.h"

struct ITorvaneFrame : IUnknown
{
    virtual tv::Result TV_CALL GetWindowHandle(tv::WindowHandle* window) = 0;
};

struct ITorvaneConfiguration : IUnknown
{
    virtual tv::Result TV_CALL GetName(tv::BStr* name) = 0;
};

struct ITorvaneConfigurationManager : IUnknown
{
    virtual tv::Result TV_CALL GetActiveConfiguration(ITorvaneConfiguration** configuration) = 0;
};

struct ITorvaneSheet : IUnknown
{
    virtual tv::Result TV_CALL GetName(tv::BStr* name) = 0;
};

struct ITorvaneModelView : IUnknown
{
    /// Null at the end.
    virtual tv::Result TV_CALL GetNextModelView(ITorvaneModelView** next) = 0;
};

struct ITorvaneDocument : IUnknown
{
    /// 1 part, 2 assembly, 3 drawing.
    virtual tv::Result TV_CALL GetDocumentType(int32_t* type) = 0;
    /// Null at the end.
    virtual tv::Result TV_CALL GetNextDocument(ITorvaneDocument** next) = 0;
    virtual tv::Result TV_CALL GetFirstModelView(ITorvaneModelView** view) = 0;
    virtual tv::Result TV_CALL GetConfigurationManager(ITorvaneConfigurationManager** manager) = 0;
    virtual tv::Result TV_CALL GetPrintTarget(tv::BStr* text) = 0;
};

/// Asked of a document; only drawings have it.
struct ITorvaneDrawing : IUnknown
{
    virtual tv::Result TV_CALL GetCurrentSheet(IUnknown** sheet) = 0;
    /// An array of arrays of objects, each asked for ITorvaneView.
    virtual tv::Result TV_CALL GetViewArrays(VARIANT* arrays) = 0;
};

struct ITorvaneView : IUnknown
{
    /// An array of objects, each asked for ITorvaneViewItem.
    virtual tv::Result TV_CALL GetItems(VARIANT* items) = 0;
};

struct ITorvaneViewItem : IUnknown
{
    virtual tv::Result TV_CALL GetText(tv::BStr* text) = 0;
    virtual tv::Result TV_CALL GetLinkedText(tv::BStr* text) = 0;
    virtual tv::Result TV_CALL SetLinkedText(const char16_t* text) = 0;
};

struct ITorvane : IUnknown
{
    /// A decimal number leads the text.
    virtual tv::Result TV_CALL GetRevisionNumber(tv::BStr* revision) = 0;
    virtual tv::Result TV_CALL SetUserPreferenceToggle(int32_t preference, bool on) = 0;
    virtual tv::Result TV_CALL GetUserPreferenceToggle(int32_t preference, bool* on) = 0;
    virtual tv::Result TV_CALL SetUserPreferenceIntegerValue(int32_t preference, int32_t value, bool* done) = 0;
    virtual tv::Result TV_CALL SetInteractive(bool interactive) = 0;
    virtual tv::Result TV_CALL SetBackgroundRun(bool background) = 0;
    virtual tv::Result TV_CALL SetMainWindowShown(bool shown) = 0;
    virtual tv::Result TV_CALL SetAppSwitch(int32_t number, bool on) = 0;
    /// The frame object, asked for ITorvaneFrame.
    virtual tv::Result TV_CALL GetFrame(IUnknown** frame) = 0;
    virtual tv::Result TV_CALL CloseAllDocuments(bool force, bool* done) = 0;
    /// The process ends soon after.
    virtual tv::Result TV_CALL ExitApplication() = 0;
    /// Used below revision 17. Returns when the macro has ended.
    virtual tv::Result TV_CALL RunMacro(const char16_t* path, const char16_t* module, const char16_t* procedure,
                                        bool* succeeded) = 0;
    /// Used from revision 17 on. Returns when the macro has ended. \param error the macro error code, 0 for none
    virtual tv::Result TV_CALL RunMacroEx(const char16_t* path, const char16_t* module, const char16_t* procedure,
                                          int32_t options, int32_t* error, bool* succeeded) = 0;
    /// Null when none is open.
    virtual tv::Result TV_CALL GetFirstDocument(ITorvaneDocument** document) = 0;
};

namespace tv {

/// Event ids of the application's event interfaces.
inline constexpr int32_t kEventDocumentActivated = 7;  ///< DTorvaneEvents: the active document changed
inline constexpr int32_t kEventDocumentLoaded = 12;    ///< DTorvaneEvents: a document was loaded
inline constexpr int32_t kEventDocumentOpened = 22;    ///< DTorvaneEvents: a file was opened
inline constexpr int32_t kEventDocumentWritten = 7;    ///< document events: one text, the path about to be written
inline constexpr int32_t kEventDocumentGone = 2;       ///< document events: the document is about to close
inline constexpr int32_t kEventPrinted = 10;           ///< DModelViewEvents: the view is printed

} // namespace tv
