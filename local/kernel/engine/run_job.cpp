#include "engine/run_job.h"

#include "engine/failure.h"
#include "engine/loader.h"
#include "engine/measure.h"
#include "engine/neutral_reader.h"
#include "engine/sheet_layout.h"
#include "engine/writers.h"

#include <Standard_ErrorHandler.hxx>
#include <Standard_Failure.hxx>
#include <Standard_OutOfMemory.hxx>

#include <algorithm>
#include <new>

namespace tv::kernel {

namespace {

namespace fs = std::filesystem;

/// The one place where a job's exceptions end.
template <class T, class Work> Outcome<T> Guarded(const std::string& subject, const Work& work)
{
    try {
        OCC_CATCH_SIGNALS
        return work();
    } catch (const JobFailure& failure) {
        return Error{failure.code(), failure.what()};
    } catch (const std::bad_alloc&) {
        return Error{ErrorCode::OutOfMemory, Quoted(subject) + " needs more memory than the job may have."};
    } catch (const Standard_OutOfMemory&) {
        return Error{ErrorCode::OutOfMemory, Quoted(subject) + " needs more memory than the job may have."};
    } catch (const Standard_Failure& failure) {
        return Error{ErrorCode::Failed, Quoted(subject) + ": the geometry library failed: " +
                                            failure.DynamicType()->Name() + " " + failure.GetMessageString()};
    } catch (const std::exception& failure) {
        return Error{ErrorCode::Failed, Quoted(subject) + ": " + failure.what()};
    }
}

SourceKind KindOf(const OpenedSource& source)
{
    if (!source.document) {
        return SourceKind::Neutral;
    }
    switch (document::KindOf(*source.document)) {
    case document::Kind::Part:
        return SourceKind::Part;
    case document::Kind::Assembly:
        return SourceKind::Assembly;
    case document::Kind::Drawing:
        break;
    }
    return SourceKind::Drawing;
}

Inspection Inspect(const InspectJob& job)
{
    const OpenedSource source = Open(job.source);
    Inspection inspection;
    inspection.kind = KindOf(source);
    if (source.document) {
        inspection.items = document::ItemNames(*source.document);
        inspection.activeItem = document::ActiveItem(*source.document);
    } else {
        inspection.items = {std::string(document::kDefaultConfiguration)};
        inspection.activeItem = document::kDefaultConfiguration;
    }
    if (!source.drawing()) {
        Loader loader;
        Measure(loader.Load(source, job.configuration), inspection);
    }
    return inspection;
}

const document::Properties& PropertiesOf(const document::Document& document)
{
    return std::visit([](const auto& content) -> const document::Properties& { return content.properties; },
                      document.content);
}

TitleBlock TitleFor(const OpenedSource& source, const std::string& item)
{
    TitleBlock title;
    title.title = source.name;
    title.item = item;
    if (source.document) {
        const document::Properties& properties = PropertiesOf(*source.document);
        const auto text = [&properties](const char* name) {
            const auto found = properties.find(name);
            return found == properties.end() ? std::string() : found->second;
        };
        title.description = text("Description");
        title.material = text("Material");
    }
    return title;
}

PageSettings SettingsFrom(const Options& options)
{
    PageSettings settings;
    settings.exactness = options.Is("edges", "exact")  ? Exactness::Exact
                         : options.Is("edges", "fast") ? Exactness::Fast
                                                       : Exactness::Automatic;
    settings.hiddenLines =
        options.Is("hidden-lines", "removed") ? document::HiddenLines::Removed : document::HiddenLines::Dashed;
    settings.sheetFormat = options.Text("sheet");
    settings.headerAndFooter = options.IsOn("header-footer");
    return settings;
}

std::vector<Page> PagesOfDrawing(const SaveJob& job, const OpenedSource& source, const PageSettings& settings)
{
    const document::Drawing& drawing = *source.drawing();
    const std::vector<std::string> names = job.items.empty() ? document::ItemNames(*source.document) : job.items;
    Loader loader;
    std::vector<Page> pages;
    for (const std::string& name : names) {
        const document::Sheet* sheet = document::FindSheet(drawing, name);
        if (!sheet) {
            throw JobFailure(ErrorCode::UnknownItem, Quoted(job.source.path) + " has no sheet " + Quoted(name) + ".");
        }
        TitleBlock title = TitleFor(source, "Sheet: " + name);
        title.page = static_cast<int>(pages.size()) + 1;
        title.pages = static_cast<int>(names.size());
        pages.push_back(LayOutSheet(*sheet, source, loader, title, settings));
    }
    return pages;
}

std::vector<Page> PagesOfModel(const SaveJob& job, const OpenedSource& source, const PageSettings& settings)
{
    const std::vector<std::string> names = job.items.empty() ? std::vector<std::string>{""} : job.items;
    Loader loader;
    std::vector<Page> pages;
    for (const std::string& name : names) {
        const Model model = loader.Load(source, name);
        TitleBlock title = TitleFor(source, "Configuration: " + model.configuration);
        title.page = static_cast<int>(pages.size()) + 1;
        title.pages = static_cast<int>(names.size());
        pages.push_back(LayOutModel(model, title, settings));
    }
    return pages;
}

Model TheOneModel(const SaveJob& job, const OpenedSource& source, const Writer& writer)
{
    if (source.drawing()) {
        throw JobFailure(ErrorCode::UnsuitableSource, Quoted(job.source.path) + " is a drawing, and " +
                                                          std::string(writer.title) + " holds models only.");
    }
    if (job.items.size() > 1) {
        throw JobFailure(ErrorCode::BadRequest, std::string(writer.title) + " holds one configuration, and " +
                                                    std::to_string(job.items.size()) + " were given.");
    }
    return Loader().Load(source, job.items.empty() ? std::string() : job.items.front());
}

const Writer& WriterFor(const SaveJob& job)
{
    const Writer* writer = FindWriter(job.target);
    if (!writer) {
        throw JobFailure(ErrorCode::UnsupportedFormat, Quoted(job.target) +
                                                           " can't be written: there is no writer for " +
                                                           Quoted(LowerExtension(job.target)) + ".");
    }
    return *writer;
}

Saved Save(const SaveJob& job, const fs::path& temporary)
{
    const Writer& writer = WriterFor(job);
    const Options options(writer.options, job.options, writer.title);
    const WriteTarget target{temporary, fs::path(job.target).filename().string()};
    const OpenedSource source = Open(job.source);
    Saved saved;
    saved.target = job.target;
    if (const auto* writeModel = std::get_if<WriteModel>(&writer.write)) {
        (*writeModel)(TheOneModel(job, source, writer), options, target);
    } else {
        const PageSettings settings = SettingsFrom(options);
        const std::vector<Page> pages =
            source.drawing() ? PagesOfDrawing(job, source, settings) : PagesOfModel(job, source, settings);
        std::get<WritePages>(writer.write)(pages, options, target);
        saved.pages = static_cast<int>(pages.size());
    }
    saved.bytes = fs::file_size(temporary);
    return saved;
}

} // namespace

Outcome<Inspection> RunInspect(const InspectJob& job)
{
    return Guarded<Inspection>(job.source.path, [&job] { return Inspect(job); });
}

Outcome<Saved> RunSave(const SaveJob& job, const fs::path& temporary)
{
    return Guarded<Saved>(job.source.path, [&job, &temporary] { return Save(job, temporary); });
}

} // namespace tv::kernel
