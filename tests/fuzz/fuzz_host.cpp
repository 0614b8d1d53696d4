#include "fuzz_host.h"

#include "targets.h"

namespace tv::fuzz {

namespace {

using macro::Value;

/// Gives itself as a member, keeps a number, and writes to what it is handed.
class Thing final : public macro::Object
{
  public:
    Value Invoke(const macro::MemberName& name, macro::InvokeKind kind, macro::Arguments& arguments) override
    {
        if (name.Is(u"self")) {
            return Value(macro::Ref<Thing>(this));
        }
        if (name.Is(u"fill")) {
            arguments.Assign(0, Value(u"filled"));
            return Value(static_cast<int32_t>(arguments.Count()));
        }
        if (name.Is(u"number") || name.IsDefault()) {
            if (kind != macro::InvokeKind::Get) {
                number = arguments[arguments.Count() - 1].ToDouble();
            }
            return Value(number);
        }
        NoSuchMember();
    }
    std::u16string ClassName() const override { return u"Thing"; }

  private:
    double number = 1;
};

class ThingLibrary final : public macro::Library
{
  public:
    std::optional<Value> Constant(std::u16string_view name) const override
    {
        return name == u"tvthree" ? std::optional(Value(int32_t{3})) : std::nullopt;
    }
    bool HasGlobal(std::u16string_view name) const override { return name == u"application"; }
    bool HasLibrary(std::u16string_view name) const override { return name == u"torvane"; }
    bool HasType(std::u16string_view name) const override { return name == u"thing"; }
    bool HasEnumeration(std::u16string_view name) const override { return name == u"tvnumbers"; }
};

} // namespace

FuzzHost::FuzzHost()
    : function([](macro::Arguments& arguments) {
          arguments.Assign(0, Value(int32_t{7}));
          return Value(static_cast<int32_t>(arguments.Count()));
      })
{
    for (std::u16string_view path : {u"C:\\one.txt", u"C:\\two.txt"}) {
        files.Open(path, macro::FileAccess::Write)->Write(std::string_view("1,\"two\",#TRUE#\r\nline\r\n\r\nlast"));
    }
}

Value FuzzHost::Global(std::u16string_view)
{
    return Value(macro::MakeRef<Thing>());
}

macro::Ref<macro::Object> FuzzHost::CreateObject(std::u16string_view progId)
{
    return progId.empty() ? nullptr : macro::MakeRef<Thing>();
}

const macro::ExternalFunction* FuzzHost::FindFunction(std::u16string_view, std::u16string_view entry)
{
    return entry == u"nothing" ? nullptr : &function;
}

void CompileAndRun(std::u16string_view text)
{
    static const ThingLibrary library;
    const macro::CompileResult compiled = macro::Compile(text, {&library, {}});
    Require((compiled.module != nullptr) == compiled.problems.empty(), "a text is a module or has problems");
    if (!compiled.module) {
        return;
    }
    FuzzHost host;
    macro::Limits limits;
    limits.callDepth = 300;
    limits.memory = uint64_t{16} << 20;
    limits.runTime = std::chrono::milliseconds(100);
    macro::Machine machine(host, limits);
    const macro::RunResult result = machine.Run(*compiled.module, u"main");
    Require(result.outcome != macro::Outcome::CompileError, "what was compiled doesn't fail to compile");
    Require(result.outcome != macro::Outcome::Stopped, "nobody asked for a stop");
    Require((result.outcome == macro::Outcome::Ok) == (result.number == 0), "a failure has a number");
    Require(result.number != 51, "the compiler makes instructions that the machine knows");
}

} // namespace tv::fuzz
