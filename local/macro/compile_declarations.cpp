#include "macro/compiler.h"

#include "macro/convert.h"
#include "macro/lexer.h"
#include "macro/parser.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

constexpr size_t kMostProblems = 50;

} // namespace

void Compiler::Fail(const Position& at, std::u16string message)
{
    throw CompileFailure{at, std::move(message)};
}

std::shared_ptr<const Module> Compiler::Run()
{
    module->compareText = syntax.compareText;
    DeclareModule();
    for (size_t i = 0; i < syntax.procedures.size() && problems.size() < kMostProblems; ++i) {
        CompileProcedure(i);
    }
    return problems.empty() ? module : nullptr;
}

void Compiler::DeclareModule()
{
    DeclareConstants();
    Guarded([&] { DeclareRecords(); });
    DeclareVariables();
    DeclareExternals();
    DeclareProcedures();
    for (size_t i = 0; i < constantEntries.size(); ++i) {
        const ConstantEntry& entry = constantEntries[i];
        Guarded([&] {
            ConstantValue(static_cast<int32_t>(i),
                          entry.syntax != nullptr ? entry.syntax->at : entry.enumeration->members[entry.member].at);
        });
    }
}

void Compiler::AddSymbol(const std::u16string& name, const Position& at, Symbol symbol)
{
    Guarded([&] {
        if (!symbols.emplace(Lower(name), std::move(symbol)).second) {
            Fail(at, u"Ambiguous name detected: " + name);
        }
    });
}

void Compiler::DeclareConstants()
{
    for (const ConstantSyntax& constant : syntax.constants) {
        Symbol symbol{SymbolKind::Constant, static_cast<int32_t>(constantEntries.size()), {}};
        constantEntries.push_back(ConstantEntry{&constant, nullptr, 0, std::nullopt, false});
        AddSymbol(constant.name, constant.at, symbol);
    }
    for (size_t i = 0; i < syntax.enums.size(); ++i) {
        const EnumSyntax& enumeration = syntax.enums[i];
        AddSymbol(enumeration.name, enumeration.at, Symbol{SymbolKind::Enum, static_cast<int32_t>(i), {}});
        for (size_t member = 0; member < enumeration.members.size(); ++member) {
            Symbol symbol{SymbolKind::Constant, static_cast<int32_t>(constantEntries.size()), {}};
            constantEntries.push_back(ConstantEntry{nullptr, &enumeration, member, std::nullopt, false});
            AddSymbol(enumeration.members[member].name, enumeration.members[member].at, symbol);
        }
    }
}

void Compiler::DeclareRecords()
{
    for (const RecordSyntax& record : syntax.records) {
        AddSymbol(record.name, record.at, Symbol{SymbolKind::Record, static_cast<int32_t>(module->records.size()), {}});
        module->records.push_back(RecordDefinition{record.name, {}, {}});
    }
    for (size_t i = 0; i < syntax.records.size(); ++i) {
        for (const VariableSyntax& field : syntax.records[i].fields) {
            ResolvedType type = Resolve(field.type);
            // A type can only hold types that stand above it, which rules out a type within itself.
            if (type.record >= static_cast<int32_t>(i)) {
                Fail(field.at, u"Forward reference to user-defined type");
            }
            module->records[i].fieldNames.push_back(Lower(field.name));
            module->records[i].fields.push_back(MakeShape(field, type));
        }
        if (module->records[i].fields.empty()) {
            Fail(syntax.records[i].at, u"User-defined type without members not allowed");
        }
    }
}

void Compiler::DeclareVariables()
{
    for (const VariableSyntax& variable : syntax.variables) {
        Guarded([&] {
            ResolvedType type = Resolve(variable.type);
            Symbol symbol;
            symbol.variable =
                Variable{Place::Global, static_cast<int32_t>(module->globals.size()), type, variable.isArray};
            symbol.variable.isFixed = !variable.bounds.empty();
            module->globals.push_back(AddShape(MakeShape(variable, type)));
            AddSymbol(variable.name, variable.at, symbol);
        });
    }
}

void Compiler::DeclareExternals()
{
    for (const DeclareSyntax& declare : syntax.declares) {
        Guarded([&] {
            External external;
            external.shownLibrary = declare.library;
            external.shownEntry = declare.entry;
            external.library = Lower(declare.library);
            if (external.library.ends_with(u".dll")) {
                external.library.resize(external.library.size() - 4);
            }
            external.entry = Lower(declare.entry);
            external.result = declare.isFunction ? Resolve(declare.result).type : Type::Empty;
            std::vector<Parameter> parameters = CompileParameters(declare.parameters);
            int32_t index = static_cast<int32_t>(module->externals.size());
            module->externals.push_back(external);
            externalParameters.push_back(std::move(parameters));
            AddSymbol(declare.name, declare.at, Symbol{SymbolKind::External, index, {}});
        });
    }
}

void Compiler::DeclareProcedures()
{
    for (const ProcedureSyntax& declared : syntax.procedures) {
        int32_t index = static_cast<int32_t>(module->procedures.size());
        procedureOf.push_back(index);
        module->procedures.emplace_back();
        Guarded([&] {
            Procedure& procedure = module->procedures.back();
            procedure.name = declared.name;
            procedure.hasResult =
                declared.kind == ProcedureKind::Function || declared.kind == ProcedureKind::PropertyGet;
            procedure.parameters = CompileParameters(declared.parameters);
            std::u16string folded = Lower(declared.name);
            if (declared.kind == ProcedureKind::Sub || declared.kind == ProcedureKind::Function) {
                module->procedureNames.emplace(folded, index);
                AddSymbol(declared.name, declared.at, Symbol{SymbolKind::Procedure, index, {}});
                return;
            }
            auto found = symbols.find(folded);
            if (found == symbols.end()) {
                Symbol symbol{SymbolKind::Property, static_cast<int32_t>(properties.size()), {}};
                properties.emplace_back();
                found = symbols.emplace(folded, symbol).first;
            }
            if (found->second.kind != SymbolKind::Property) {
                Fail(declared.at, u"Ambiguous name detected: " + declared.name);
            }
            PropertyGroup& group = properties[static_cast<size_t>(found->second.index)];
            int32_t& place = declared.kind == ProcedureKind::PropertyGet   ? group.get
                             : declared.kind == ProcedureKind::PropertyLet ? group.let
                                                                           : group.set;
            if (place >= 0) {
                Fail(declared.at, u"Ambiguous name detected: " + declared.name);
            }
            place = index;
        });
    }
}

std::vector<Parameter> Compiler::CompileParameters(const std::vector<ParameterSyntax>& parameters)
{
    std::vector<Parameter> compiled;
    for (const ParameterSyntax& written : parameters) {
        ResolvedType type = Resolve(written.type);
        Parameter parameter;
        parameter.name = Lower(written.name);
        parameter.type = type.type;
        parameter.record = type.record;
        parameter.className = type.className;
        parameter.byValue = written.byValue;
        parameter.isOptional = written.isOptional;
        parameter.isParamArray = written.isParamArray;
        parameter.isArray = written.isArray;
        if (written.defaultValue) {
            Value value = EvaluateConstant(*written.defaultValue);
            parameter.defaultValue = type.type == Type::Object ? value : CoerceTo(type.type, value);
        } else {
            parameter.defaultValue = type.type == Type::Variant ? Value::Missing() : InitialValue(type.type);
        }
        if (type.record >= 0 && written.byValue) {
            Fail(written.at, u"User-defined type may not be passed ByVal");
        }
        compiled.push_back(std::move(parameter));
    }
    return compiled;
}

bool Compiler::IsKnownClass(const TypeSyntax& type) const
{
    std::u16string name = Lower(type.name);
    std::u16string qualifier = Lower(type.qualifier);
    if (IsBuiltinClass(qualifier.empty() ? name : qualifier + u"." + name) || qualifier == u"vba") {
        return true;
    }
    if (options.library == nullptr) {
        return !qualifier.empty();
    }
    return (qualifier.empty() || options.library->HasLibrary(qualifier)) && options.library->HasType(name);
}

ResolvedType Compiler::Resolve(const TypeSyntax& type)
{
    ResolvedType resolved;
    resolved.type = type.type;
    resolved.isNew = type.isNew;
    if (type.fixedLength) {
        Value length = EvaluateConstant(*type.fixedLength);
        if (!length.IsNumeric() || length.ToDouble() < 1 || length.ToDouble() > 65526) {
            Fail(type.at, u"Expected: length between 1 and 65526");
        }
        resolved.fixedLength = length.ToLong();
    }
    if (type.name.empty()) {
        return resolved;
    }
    std::u16string folded = Lower(type.name);
    auto found = type.qualifier.empty() ? symbols.find(folded) : symbols.end();
    if (found != symbols.end() && found->second.kind == SymbolKind::Record) {
        resolved.type = Type::Record;
        resolved.record = found->second.index;
        return resolved;
    }
    bool isEnum = (found != symbols.end() && found->second.kind == SymbolKind::Enum) || IsBuiltinEnumeration(folded) ||
                  (options.library != nullptr && options.library->HasEnumeration(folded));
    if (isEnum) {
        resolved.type = Type::Long;
        return resolved;
    }
    if (!IsKnownClass(type)) {
        Fail(type.at, u"User-defined type not defined: " +
                          (type.qualifier.empty() ? type.name : type.qualifier + u"." + type.name));
    }
    std::u16string qualified = Lower(type.qualifier) + u"." + folded;
    resolved.className = IsBuiltinClass(qualified) ? qualified : folded;
    return resolved;
}

Shape Compiler::MakeShape(const VariableSyntax& variable, const ResolvedType& type)
{
    Shape shape;
    shape.type = type.type;
    shape.record = type.record;
    shape.fixedLength = type.fixedLength;
    shape.isArray = variable.isArray;
    shape.isFixed = !variable.bounds.empty();
    for (const BoundSyntax& bound : variable.bounds) {
        int32_t lower = bound.lower ? EvaluateConstant(*bound.lower).ToLong() : syntax.optionBase;
        int32_t upper = EvaluateConstant(*bound.upper).ToLong();
        if (upper < lower) {
            Fail(variable.at, u"Array bounds out of order");
        }
        if (int64_t{upper} - lower >= 0x7FFFFFFF) {
            Fail(variable.at, u"Array is too large");
        }
        shape.dimensions.push_back(Dimension{lower, upper - lower + 1});
    }
    return shape;
}

int32_t Compiler::AddShape(Shape shape)
{
    module->shapes.push_back(std::move(shape));
    return static_cast<int32_t>(module->shapes.size()) - 1;
}

void Compiler::CompileProcedure(size_t index)
{
    const ProcedureSyntax& declared = syntax.procedures[index];
    const size_t firstUndeclared = undeclared.size();
    Scope current;
    current.syntax = &declared;
    // Calls compile against the other procedures' parameters, so this one is built aside.
    Procedure& procedure = module->procedures[static_cast<size_t>(procedureOf[index])];
    current.procedure = &procedure;
    scope = &current;
    Guarded([&] {
        for (size_t i = 0; i < procedure.parameters.size(); ++i) {
            const Parameter& parameter = procedure.parameters[i];
            Variable variable;
            variable.place = Place::Param;
            variable.slot = static_cast<int32_t>(i);
            variable.type.type = parameter.type;
            variable.type.record = parameter.record;
            variable.type.className = parameter.className;
            variable.isArray = parameter.isArray;
            if (!current.variables.emplace(parameter.name, variable).second) {
                Fail(declared.at, u"Duplicate declaration in current scope: " + parameter.name);
            }
        }
        if (procedure.hasResult) {
            VariableSyntax result;
            ResolvedType type = Resolve(declared.result);
            Variable variable{Place::Local, NewSlot(InitialValue(type.type)), type, declared.resultIsArray};
            procedure.resultSlot = variable.slot;
            if (type.record >= 0 || declared.resultIsArray) {
                result.isArray = declared.resultIsArray;
                current.shapedLocals.emplace_back(variable.slot, AddShape(MakeShape(result, type)));
            }
            if (!current.variables.emplace(Lower(declared.name), variable).second) {
                Fail(declared.at, u"Duplicate declaration in current scope: " + declared.name);
            }
        }
    });
    EmitBlock(declared.body);
    BeginStatement(declared.end);
    Emit(Op::Return);
    FinishStatement();
    FinishProcedure();
    if (comparesNames) {
        FindSimilarNames(firstUndeclared);
    }
    scope = nullptr;
}

/// Arrays and user-defined types of the procedure get their storage before its first statement.
void Compiler::WritePrologue(uint32_t body)
{
    Procedure& procedure = *scope->procedure;
    procedure.entry = body;
    if (scope->shapedLocals.empty()) {
        return;
    }
    procedure.entry = Here();
    BeginStatement(scope->syntax->at);
    for (auto [slot, shape] : scope->shapedLocals) {
        Emit(Op::PushInitial, shape);
        Emit(Op::StoreLocal, slot, 0, kRaw);
    }
    Emit(Op::Jump, static_cast<int32_t>(body));
    FinishStatement();
}

void Compiler::FinishProcedure()
{
    WritePrologue(0);
    Procedure& procedure = *scope->procedure;
    for (const auto& [name, label] : scope->labels) {
        if (!label.isDefined) {
            problems.push_back(Problem{label.at.line, label.at.column, u"Label not defined: " + name});
        }
        for (size_t use : label.uses) {
            procedure.code[use].target = label.address;
        }
    }
    RouteDepartures();
    std::vector<uint32_t> sizes(procedure.statements.size() + 1, 0);
    uint32_t most = 0;
    for (uint32_t statement : procedure.statementOf) {
        most = std::max(most, ++sizes[statement]);
    }
    procedure.stackNeed = most + 4;
}

CompileResult Compile(std::u16string_view source, const CompileOptions& options)
{
    CompileResult result;
    try {
        ModuleSyntax tree = Parser(Tokenize(source, options)).ParseModule();
        Compiler compiler(tree, options);
        result.module = compiler.Run();
        result.problems = std::move(compiler.problems);
    } catch (const CompileFailure& failure) {
        result.problems.push_back(Problem{failure.at.line, failure.at.column, failure.message});
    } catch (const MacroError& error) {
        result.problems.push_back(Problem{0, 0, error.description});
    }
    if (!result.problems.empty()) {
        result.module = nullptr;
    }
    return result;
}

Value MakeInitial(const Module& module, const Shape& shape)
{
    Shape element = shape;
    element.isArray = false;
    if (shape.isArray) {
        Ref<Array> array = MakeRef<Array>(shape.type, shape.dimensions, MakeInitial(module, element));
        array->isFixed = shape.isFixed;
        array->hasFixedTexts = shape.fixedLength >= 0;
        return Value(array);
    }
    if (shape.record >= 0) {
        const RecordDefinition& definition = module.records[static_cast<size_t>(shape.record)];
        std::vector<Value> fields;
        std::vector<Type> types;
        for (const Shape& field : definition.fields) {
            fields.push_back(MakeInitial(module, field));
            types.push_back(field.StoredType());
        }
        return Value(MakeRef<Record>(shape.record, std::move(fields), std::move(types)));
    }
    if (shape.fixedLength >= 0) {
        return Value(std::u16string(static_cast<size_t>(shape.fixedLength), u'\0'));
    }
    return InitialValue(shape.type);
}

} // namespace tv::macro
