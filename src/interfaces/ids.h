// Every id that this program shares with others, in one place.
//
// The ids below are this team's own. They make the add-in, the local edition and the tests agree with each other. A site
// that runs the add-in under its real vault client and its real CAD application puts the ids of those products here and
// rebuilds; nothing else in the sources names an id.
#pragma once

#include "com/guid.h"

namespace tv {

/// The add-in's component class, made by CoCreateInstance.
inline constexpr GUID kTaskAddInClass = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e01");
inline constexpr char16_t kTaskAddInProgId[] = u"Torvane.TVTaskAddIn.1";
inline constexpr char16_t kTaskAddInVersionIndependentProgId[] = u"Torvane.TVTaskAddIn";
/// The add-in's type library.
inline constexpr GUID kTaskAddInTypeLibrary = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e02");

/// The class of the local edition's CAD application, for the names "Torvane.Application" and "Torvane.Application.21".
inline constexpr GUID kLocalApplicationClass = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e03");

/// Pipe and mutex of the notification of a local listener; both must agree with the listener.
inline constexpr char16_t kNotificationPipe[] = u"\\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04}";
inline constexpr char16_t kNotificationMutex[] = u"{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E05}";

/// Record descriptions of the arrays that cross the vault's interfaces.
inline constexpr GUID kCmdDataRecord = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e10");
inline constexpr GUID kDocumentRecord = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e11");
inline constexpr GUID kFileListRecord = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e12");
inline constexpr GUID kAddResultRecord = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e13");
inline constexpr GUID kSelectionPairRecord = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e14");

} // namespace tv

// The vault's interfaces.
struct IVyxAddIn5;
struct IVyxCmdMgr;
struct IVyxPos;
struct IVyxVault;
struct IVyxFolder;
struct IVyxFile;
struct IVyxTaskProperties;
struct IVyxTaskInstance;
struct IVyxBatchGet;
struct IVyxBatchList;
struct IVyxBatchAdd;
struct IVyxBatchUnlock;
struct IVyxBatchUpdate;
struct IVyxBatchRefs;
struct IVyxVariableMgr;
struct IVyxVariable;
struct IVyxEnumeratorVariable;
struct IVyxVariableValue;
TV_IID(IVyxAddIn5, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a501");
TV_IID(IVyxCmdMgr, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a502");
TV_IID(IVyxPos, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a503");
TV_IID(IVyxVault, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a504");
TV_IID(IVyxFolder, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a505");
TV_IID(IVyxFile, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a506");
TV_IID(IVyxTaskProperties, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a507");
TV_IID(IVyxTaskInstance, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a508");
TV_IID(IVyxBatchGet, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a509");
TV_IID(IVyxBatchList, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a50a");
TV_IID(IVyxBatchAdd, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a50b");
TV_IID(IVyxBatchUnlock, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a50c");
TV_IID(IVyxBatchUpdate, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a50d");
TV_IID(IVyxBatchRefs, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a50e");
TV_IID(IVyxVariableMgr, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a50f");
TV_IID(IVyxVariable, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a510");
TV_IID(IVyxEnumeratorVariable, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a511");
TV_IID(IVyxVariableValue, "7d20c6a4-31b7-4e0c-8d5e-9b1f40c7a512");

// The add-in's own interfaces.
struct ITVTaskAddIn;
struct ITVTaskPreview;
struct ITVStartPreview;
TV_IID(ITVTaskAddIn, "5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e20");
TV_IID(ITVTaskPreview, "5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e21");
TV_IID(ITVStartPreview, "5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e22");

// The CAD application's interfaces and event interfaces.
struct ITorvane;
struct ITorvaneFrame;
struct ITorvaneDocument;
struct ITorvaneDrawing;
struct ITorvaneSheet;
struct ITorvaneConfigurationManager;
struct ITorvaneConfiguration;
struct ITorvaneModelView;
struct ITorvaneView;
struct ITorvaneViewItem;
struct DTorvaneEvents;
struct DPartDocEvents;
struct DAssemblyDocEvents;
struct DDrawingDocEvents;
struct DModelViewEvents;
TV_IID(ITorvane, "c3f8e15b-64d2-4f77-a0c9-58be2d94f001");
TV_IID(ITorvaneFrame, "c3f8e15b-64d2-4f77-a0c9-58be2d94f002");
TV_IID(ITorvaneDocument, "c3f8e15b-64d2-4f77-a0c9-58be2d94f003");
TV_IID(ITorvaneDrawing, "c3f8e15b-64d2-4f77-a0c9-58be2d94f004");
TV_IID(ITorvaneSheet, "c3f8e15b-64d2-4f77-a0c9-58be2d94f005");
TV_IID(ITorvaneConfigurationManager, "c3f8e15b-64d2-4f77-a0c9-58be2d94f006");
TV_IID(ITorvaneConfiguration, "c3f8e15b-64d2-4f77-a0c9-58be2d94f007");
TV_IID(ITorvaneModelView, "c3f8e15b-64d2-4f77-a0c9-58be2d94f008");
TV_IID(ITorvaneView, "c3f8e15b-64d2-4f77-a0c9-58be2d94f009");
TV_IID(ITorvaneViewItem, "c3f8e15b-64d2-4f77-a0c9-58be2d94f00a");
TV_IID(DTorvaneEvents, "c3f8e15b-64d2-4f77-a0c9-58be2d94f010");
TV_IID(DPartDocEvents, "c3f8e15b-64d2-4f77-a0c9-58be2d94f011");
TV_IID(DAssemblyDocEvents, "c3f8e15b-64d2-4f77-a0c9-58be2d94f012");
TV_IID(DDrawingDocEvents, "c3f8e15b-64d2-4f77-a0c9-58be2d94f013");
TV_IID(DModelViewEvents, "c3f8e15b-64d2-4f77-a0c9-58be2d94f014");
