// Calls that leave the module: members of objects and declared functions.

#include "macro/runner.h"

#include "macro/convert.h"

namespace tv::macro {

void Runner::CallExternal(const Instruction& instruction)
{
    const External& external = module.externals[static_cast<size_t>(instruction.target)];
    const ExternalFunction* function = runtime.host.FindFunction(external.library, external.entry);
    if (function == nullptr) {
        throw MacroError(kEntryNotFound,
                         u"Can't find DLL entry point " + external.shownEntry + u" in " + external.shownLibrary);
    }
    std::span<Value> values(top - instruction.count, instruction.count);
    Arguments arguments(values);
    Value result = (*function)(arguments);
    if (external.result != Type::Variant && external.result != Type::Empty) {
        result = CoerceTo(external.result, result);
    }
    Drop(instruction.count);
    Push(std::move(result));
}

Value Runner::InvokeObject(const Value& target, const MemberName& name, InvokeKind kind, std::span<Value> values,
                           std::span<const MemberName> names)
{
    const Value& object = target.Resolved();
    if (!object.IsObject()) {
        // A With block that was jumped into has no object.
        Raise(object.Kind() == Type::Internal ? kObjectNotSet : kObjectRequired);
    }
    if (object.IsNothing()) {
        Raise(kObjectNotSet);
    }
    Ref<Object> held(object.ObjectPointer());
    Arguments arguments(values, names);
    return held->Invoke(name, kind, arguments);
}

void Runner::CallMember(const Instruction& instruction, InvokeKind kind)
{
    size_t count = size_t{instruction.count} + (kind == InvokeKind::Get ? 0 : 1);
    std::span<Value> values(top - count, count);
    std::span<const MemberName> names;
    if (instruction.extra >= 0) {
        names = module.argumentNames[static_cast<size_t>(instruction.extra)];
    }
    const MemberName& name = module.names[static_cast<size_t>(instruction.target)];
    Value target = (top - count - 1)->Resolved();
    // The default member of an array with indices is the element.
    if (target.IsArray() && name.IsDefault() && kind == InvokeKind::Get) {
        Value element = ReadElement(target, values);
        Drop(count + 1);
        Push(std::move(element));
        return;
    }
    Value result = InvokeObject(target, name, kind, values, names);
    Drop(count + 1);
    if (kind == InvokeKind::Get) {
        Push(std::move(result));
    }
}

} // namespace tv::macro
