#include "vault/file_list.h"

#include "com/result.h"
#include "com/utf8.h"
#include "support/numbers.h"

#include <pugixml.hpp>

namespace tv {

namespace {

constexpr int32_t kConvert = 1;
constexpr int32_t kPrint = 2;
/// A file's name may hold half a surrogate pair, and the list must give it back as it was.
constexpr LoneSurrogate kNames = LoneSurrogate::Keep;

void AppendElement(pugi::xml_node record, const char* name, const std::string& text)
{
    pugi::xml_node element = record.append_child(name);
    if (!text.empty()) {
        element.text().set(text.c_str());
    }
}

void AppendPlace(pugi::xml_node record, const TaskFile& file)
{
    AppendElement(record, "doc_id", std::to_string(file.fileId));
    AppendElement(record, "proj_id", std::to_string(file.folderId));
    AppendElement(record, "path", ToUtf8(file.path, kNames));
    AppendElement(record, "ver", std::to_string(file.version));
}

void FillRecord(pugi::xml_node record, const TaskFile& file, int32_t taskKind)
{
    if (file.source == nullptr) {
        AppendPlace(record, file);
        return;
    }
    AppendPlace(record, *file.source);
    AppendElement(record, "conf", ToUtf8(file.outputConf, kNames));
    if (taskKind == kConvert) {
        AppendElement(record, "extra", ToUtf8(file.path, kNames));
    } else if (taskKind == kPrint && file.isPrinted) {
        AppendElement(record, "extra", ToUtf8(file.extra, kNames));
    }
}

/// A reader takes a bare carriage return for a line feed, so it is written by its number. Only texts hold any.
class Utf8Writer final : public pugi::xml_writer
{
  public:
    void write(const void* data, size_t size) override
    {
        std::string_view rest(static_cast<const char*>(data), size);
        for (size_t end = rest.find('\r'); end != std::string_view::npos; end = rest.find('\r')) {
            bytes.append(rest.substr(0, end)).append("&#13;");
            rest.remove_prefix(end + 1);
        }
        bytes.append(rest);
    }

    std::string bytes;
};

struct TextElement
{
    std::string_view name;
    std::u16string TaskFile::*field;
};

constexpr TextElement kTextElements[] = {
    {"path", &TaskFile::path},
    {"conf", &TaskFile::conf},
    {"extra", &TaskFile::extra},
};

struct NumberElement
{
    std::string_view name;
    int32_t TaskFile::*field;
};

constexpr NumberElement kNumberElements[] = {
    {"ver", &TaskFile::version},
    {"doc_id", &TaskFile::fileId},
    {"proj_id", &TaskFile::folderId},
};

std::u16string TextIn(pugi::xml_node element)
{
    std::string text;
    for (pugi::xml_node part : element.children()) {
        text += part.value();
    }
    return FromUtf8(text, kNames);
}

void ReadElement(pugi::xml_node element, TaskFile& file)
{
    for (const TextElement& row : kTextElements) {
        if (row.name == element.name()) {
            file.*row.field = TextIn(element);
        }
    }
    for (const NumberElement& row : kNumberElements) {
        if (row.name == element.name()) {
            file.*row.field = ParseDecimal(TextIn(element));
        }
    }
}

/// True for a text with two roots.
bool HasElementBehind(pugi::xml_node root)
{
    pugi::xml_node next = root.next_sibling();
    while (next && next.type() != pugi::node_element) {
        next = next.next_sibling();
    }
    return static_cast<bool>(next);
}

} // namespace

std::u16string FileListText(const std::vector<TaskFile>& files, int32_t taskKind)
{
    // One record at a time, so that a long list doesn't stand in memory in three forms.
    constexpr unsigned int kForm = pugi::format_raw | pugi::format_no_declaration;
    constexpr size_t kUsualRecord = 256;
    std::u16string text = u"<sels>";
    const size_t emptySize = text.size();
    text.reserve(files.size() * kUsualRecord);
    Utf8Writer writer;
    pugi::xml_document document;
    for (const TaskFile& file : files) {
        if (!file.isLog) {
            pugi::xml_node record = document.append_child("sel");
            FillRecord(record, file, taskKind);
            writer.bytes.clear();
            record.print(writer, "", kForm, pugi::encoding_utf8);
            document.remove_child(record);
            text += FromUtf8(writer.bytes, kNames);
        }
    }
    return text.size() == emptySize ? u"<sels/>" : text.append(u"</sels>");
}

void ParseFileList(std::u16string_view text, std::vector<TaskFile>& files)
{
    std::string bytes = ToUtf8(text, kNames);
    pugi::xml_document document;
    // A name may consist of blanks.
    constexpr unsigned int kOptions = pugi::parse_default | pugi::parse_ws_pcdata_single;
    const bool isRead = document.load_buffer_inplace(bytes.data(), bytes.size(), kOptions, pugi::encoding_utf8);
    const pugi::xml_node root = document.document_element();
    if (!isRead || HasElementBehind(root)) {
        throw ResultError(E_FAIL);
    }
    for (pugi::xml_node record : root.children("sel")) {
        TaskFile file;
        for (pugi::xml_node element : record.children()) {
            ReadElement(element, file);
        }
        files.push_back(std::move(file));
    }
}

} // namespace tv
