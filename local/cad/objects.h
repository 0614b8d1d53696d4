// The application's objects as macros and other processes see them.
#pragma once

#include "cad/app_object.h"
#include "cad/application.h"
#include "cad/macro_runner.h"

#include <functional>
#include <memory>

namespace tv::app {

/// What every object reaches: the application and its macro runner. Outlives the objects.
struct ObjectContext
{
    Application& application;
    /// Runs a procedure of a macro file.
    std::function<MacroOutcome(std::u16string_view path, std::u16string_view module, std::u16string_view procedure)>
        runMacro;
};

/// The application object, `Application.Torvane` in a macro and the registered object to other processes.
macro::Ref<macro::Object> MakeApplicationObject(ObjectContext& context);

/// The macro language's global `Application`.
macro::Ref<macro::Object> MakeGlobalObject(ObjectContext& context);

/// The object of an open document; Nothing for null.
macro::Value DocumentValue(ObjectContext& context, const std::shared_ptr<ModelDocument>& document);

/// What a PDF is to hold: GetExportFileData gives it, SaveAs takes it.
macro::Value MakePdfExportData();

} // namespace tv::app
