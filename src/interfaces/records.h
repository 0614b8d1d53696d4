// The records that cross the vault's interfaces, byte for byte. All are packed on four-byte boundaries.
#pragma once

#include "com/record_array.h"
#include "interfaces/ids.h"

namespace tv {

#pragma pack(push, 4)

/// The command record of a task command.
struct VyxCmd
{
    int32_t commandType;      ///< 40 to 45, see vault_commands.h
    int32_t parentWindow;     ///< window under which dialogs open; at launch, on return, the page to show
    uint8_t unread8[8];
    IUnknown* vault;          ///< borrowed
    BStr comment;             ///< in: name of the pressed button; out: name of a page; owned by the record
    uint8_t unread32[4];
    IUnknown* extra;          ///< task instance or task properties; owned by the record
    uint8_t unread44[2];
    VariantBool cancel;       ///< -1 tells the vault to drop what it was doing
};

/// One file or folder that a command was launched on.
struct VyxCmdData
{
    int32_t fileId;
    int32_t folderId;
    uint8_t unused8[8];
    BStr path;                ///< local path of the file, or of the folder
    BStr configuration;       ///< may be empty
    uint8_t unused32[8];
    int32_t kind;             ///< 1 file, 2 folder
    int32_t version;          ///< requested version
    uint8_t unused48[12];

    static constexpr uint32_t kTextOffsets[] = {16, 24};
    static const RecordLayout kLayout;
};

/// What the add-in tells of itself when it is loaded.
struct VyxAddInInfo
{
    BStr name;
    BStr company;
    BStr description;
    int32_t version;
    int32_t requiredMajorVersion;
    int32_t requiredMinorVersion;
};

/// One entry of the document list that goes with a final task status.
struct VyxDocument
{
    int32_t fileId;
    int32_t objectType;       ///< always 1, a file
    int32_t folderId;
    int32_t version;

    static const RecordLayout kLayout;
};

/// One file of the batch list utility.
struct VyxListFile
{
    int32_t fileId;
    uint8_t unused4[8];
    int32_t latestVersion;
    uint8_t unused16[88];

    static const RecordLayout kLayout;
};

/// Result of one file of a batch add.
struct VyxAddResult
{
    uint8_t unused0[4];
    int32_t fileId;
    int32_t folderId;
    Result result;
    BStr path;
    uint8_t unused24[8];

    static constexpr uint32_t kTextOffsets[] = {16};
    static const RecordLayout kLayout;
};

/// One file of a batch check-in, or one source of a batch reference.
struct VyxSelectionPair
{
    int32_t fileId;
    int32_t folderId;

    static const RecordLayout kLayout;
};

/// What a version read tells beside the values.
struct VyxVersionInfo
{
    int32_t currentVersion;
    BStr revision;            ///< owned by the caller after the call
    BStr state;               ///< owned by the caller after the call
};

#pragma pack(pop)

static_assert(sizeof(VyxCmd) == 48);
static_assert(offsetof(VyxCmd, commandType) == 0 && offsetof(VyxCmd, parentWindow) == 4);
static_assert(offsetof(VyxCmd, vault) == 16 && offsetof(VyxCmd, comment) == 24);
static_assert(offsetof(VyxCmd, extra) == 36 && offsetof(VyxCmd, cancel) == 46);
static_assert(sizeof(VyxCmdData) == 60);
static_assert(offsetof(VyxCmdData, fileId) == 0 && offsetof(VyxCmdData, folderId) == 4);
static_assert(offsetof(VyxCmdData, unused8) == 8 && offsetof(VyxCmdData, path) == 16);
static_assert(offsetof(VyxCmdData, configuration) == 24 && offsetof(VyxCmdData, unused32) == 32);
static_assert(offsetof(VyxCmdData, kind) == 40 && offsetof(VyxCmdData, version) == 44);
static_assert(offsetof(VyxCmdData, unused48) == 48);
static_assert(sizeof(VyxDocument) == 16);
static_assert(offsetof(VyxDocument, fileId) == 0 && offsetof(VyxDocument, objectType) == 4);
static_assert(offsetof(VyxDocument, folderId) == 8 && offsetof(VyxDocument, version) == 12);
static_assert(sizeof(VyxListFile) == 104);
static_assert(offsetof(VyxListFile, fileId) == 0 && offsetof(VyxListFile, unused4) == 4);
static_assert(offsetof(VyxListFile, latestVersion) == 12 && offsetof(VyxListFile, unused16) == 16);
static_assert(sizeof(VyxAddResult) == 32);
static_assert(offsetof(VyxAddResult, unused0) == 0 && offsetof(VyxAddResult, fileId) == 4);
static_assert(offsetof(VyxAddResult, folderId) == 8 && offsetof(VyxAddResult, result) == 12);
static_assert(offsetof(VyxAddResult, path) == 16 && offsetof(VyxAddResult, unused24) == 24);
static_assert(sizeof(VyxSelectionPair) == 8);
static_assert(offsetof(VyxSelectionPair, fileId) == 0 && offsetof(VyxSelectionPair, folderId) == 4);

inline constexpr RecordLayout VyxCmdData::kLayout{kCmdDataRecord, u"VyxCmdData", 60, VyxCmdData::kTextOffsets};
inline constexpr RecordLayout VyxDocument::kLayout{kDocumentRecord, u"VyxDocument", 16, {}};
inline constexpr RecordLayout VyxListFile::kLayout{kFileListRecord, u"VyxListFile", 104, {}};
inline constexpr RecordLayout VyxAddResult::kLayout{kAddResultRecord, u"VyxAddResult", 32, VyxAddResult::kTextOffsets};
inline constexpr RecordLayout VyxSelectionPair::kLayout{kSelectionPairRecord, u"VyxSelectionPair", 8, {}};

} // namespace tv
