// Functions of interest, payments and depreciation. Money that is paid out is negative, as in the language.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/runtime.h"

#include <algorithm>
#include <cmath>

namespace tv::macro {

namespace {

double Number(const Arguments& a, size_t index, double otherwise = 0)
{
    return a.Has(index) ? a[index].ToDouble() : otherwise;
}

/// Whether payments are due at the beginning of their period.
bool PaidAtStart(const Arguments& a, size_t index)
{
    return Number(a, index) != 0;
}

void Require(bool makesSense)
{
    if (!makesSense) {
        Raise(kInvalidCall);
    }
}

Value Result(double number)
{
    if (!std::isfinite(number)) {
        Raise(kOverflow);
    }
    return Value(number);
}

double FutureValue(double rate, double periods, double payment, double present, bool atStart)
{
    if (rate == 0) {
        return -present - payment * periods;
    }
    double growth = std::pow(1 + rate, periods);
    return -present * growth - payment * (atStart ? 1 + rate : 1) * (growth - 1) / rate;
}

double Payment(double rate, double periods, double present, double future, bool atStart)
{
    Require(periods != 0);
    if (rate == 0) {
        return (-future - present) / periods;
    }
    double growth = std::pow(1 + rate, periods);
    return (-future - present * growth) * rate / ((atStart ? 1 + rate : 1) * (growth - 1));
}

double Interest(double rate, double period, double periods, double present, double future, bool atStart)
{
    Require(period > 0 && period < periods + 1);
    if (atStart && period == 1) {
        return 0;
    }
    double payment = Payment(rate, periods, present, future, atStart);
    double balance = atStart ? FutureValue(rate, period - 2, payment, present + payment, false)
                             : FutureValue(rate, period - 1, payment, present, false);
    return balance * rate;
}

Value FV(Runtime&, const Arguments& a)
{
    return Result(FutureValue(Number(a, 0), Number(a, 1), Number(a, 2), Number(a, 3), PaidAtStart(a, 4)));
}

Value PV(Runtime&, const Arguments& a)
{
    double rate = Number(a, 0);
    double periods = Number(a, 1);
    double payment = Number(a, 2);
    double future = Number(a, 3);
    if (rate == 0) {
        return Result(-future - payment * periods);
    }
    double growth = std::pow(1 + rate, periods);
    return Result(-(future + payment * (PaidAtStart(a, 4) ? 1 + rate : 1) * (growth - 1) / rate) / growth);
}

Value Pmt(Runtime&, const Arguments& a)
{
    return Result(Payment(Number(a, 0), Number(a, 1), Number(a, 2), Number(a, 3), PaidAtStart(a, 4)));
}

Value IPmt(Runtime&, const Arguments& a)
{
    return Result(Interest(Number(a, 0), Number(a, 1), Number(a, 2), Number(a, 3), Number(a, 4), PaidAtStart(a, 5)));
}

Value PPmt(Runtime&, const Arguments& a)
{
    double interest = Interest(Number(a, 0), Number(a, 1), Number(a, 2), Number(a, 3), Number(a, 4), PaidAtStart(a, 5));
    return Result(Payment(Number(a, 0), Number(a, 2), Number(a, 3), Number(a, 4), PaidAtStart(a, 5)) - interest);
}

Value NPer(Runtime&, const Arguments& a)
{
    double rate = Number(a, 0);
    double payment = Number(a, 1);
    double present = Number(a, 2);
    double future = Number(a, 3);
    if (rate == 0) {
        Require(payment != 0);
        return Result(-(present + future) / payment);
    }
    Require(rate > -1);
    double paid = payment * (PaidAtStart(a, 4) ? 1 + rate : 1) / rate;
    double ratio = (paid - future) / (paid + present);
    Require(ratio > 0);
    return Result(std::log(ratio) / std::log1p(rate));
}

/// Finds by secants where a function is zero; error 5 when it doesn't get there.
template <typename Function> double FindZero(Function function, double guess)
{
    constexpr int kMostSteps = 60;
    constexpr double kCloseEnough = 1e-13;
    constexpr double kIndistinct = 1e-7;
    double first = guess;
    double second = guess == 0 ? 0.00001 : guess * 1.1;
    double atFirst = function(first);
    for (int step = 0; step < kMostSteps; ++step) {
        double atSecond = function(second);
        Require(std::isfinite(atSecond));
        if (atSecond == 0 || std::abs(second - first) < kCloseEnough) {
            return second;
        }
        if (atSecond == atFirst) {
            // So near that the function can't tell the two apart, or nowhere near.
            Require(std::abs(second - first) < kIndistinct);
            return second;
        }
        double next = second - atSecond * (second - first) / (atSecond - atFirst);
        first = second;
        atFirst = atSecond;
        second = next;
    }
    Raise(kInvalidCall);
}

Value Rate(Runtime&, const Arguments& a)
{
    double periods = Number(a, 0);
    Require(periods > 0);
    auto balance = [&](double rate) {
        return FutureValue(rate, periods, Number(a, 1), Number(a, 2), PaidAtStart(a, 4)) - Number(a, 3);
    };
    return Result(FindZero(balance, Number(a, 5, 0.1)));
}

Value SLN(Runtime&, const Arguments& a)
{
    double life = Number(a, 2);
    Require(life != 0);
    return Result((Number(a, 0) - Number(a, 1)) / life);
}

Value SYD(Runtime&, const Arguments& a)
{
    double salvage = Number(a, 1);
    double life = Number(a, 2);
    double period = Number(a, 3);
    Require(salvage >= 0 && period > 0 && period <= life);
    return Result((Number(a, 0) - salvage) * (life + 1 - period) * 2 / (life * (life + 1)));
}

Value DDB(Runtime&, const Arguments& a)
{
    double cost = Number(a, 0);
    double salvage = Number(a, 1);
    double life = Number(a, 2);
    double period = Number(a, 3);
    double factor = Number(a, 4, 2);
    Require(factor > 0 && salvage >= 0 && period > 0 && period <= life);
    if (cost <= 0) {
        return Value(0.0);
    }
    double rate = std::min(factor / life, 1.0);
    double book = cost * std::pow(1 - rate, period - 1);
    // Never below what the thing is worth in the end.
    return Result(std::max(std::min(book * rate, book - salvage), 0.0));
}

std::vector<double> Flows(const Value& value)
{
    Ref<Array> array = value.ToArray();
    Require(array->dimensions.size() == 1 && !array->items.empty());
    std::vector<double> flows;
    for (const Value& item : array->items) {
        flows.push_back(item.ToDouble());
    }
    return flows;
}

/// What the payments at the ends of periods are worth at the beginning of the first.
double PresentValue(double rate, const std::vector<double>& flows)
{
    double value = 0;
    double growth = 1;
    for (double flow : flows) {
        growth *= 1 + rate;
        value += flow / growth;
    }
    return value;
}

Value NPV(Runtime&, const Arguments& a)
{
    double rate = Number(a, 0);
    Require(rate != -1);
    return Result(PresentValue(rate, Flows(a[1])));
}

/// Payments in and payments out; a rate exists only where there are both.
void RequireBothSigns(const std::vector<double>& flows)
{
    bool in = false;
    bool out = false;
    for (double flow : flows) {
        in = in || flow > 0;
        out = out || flow < 0;
    }
    Require(in && out);
}

Value IRR(Runtime&, const Arguments& a)
{
    std::vector<double> flows = Flows(a[0]);
    RequireBothSigns(flows);
    double guess = Number(a, 1, 0.1);
    Require(guess > -1);
    return Result(FindZero([&](double rate) { return PresentValue(rate, flows); }, guess));
}

Value MIRR(Runtime&, const Arguments& a)
{
    std::vector<double> in = Flows(a[0]);
    RequireBothSigns(in);
    double financeRate = Number(a, 1);
    double reinvestRate = Number(a, 2);
    Require(financeRate != -1 && reinvestRate != -1);
    std::vector<double> out = in;
    for (size_t i = 0; i < in.size(); ++i) {
        in[i] = std::max(in[i], 0.0);
        out[i] = std::min(out[i], 0.0);
    }
    double periods = static_cast<double>(in.size());
    double gained = PresentValue(reinvestRate, in) * std::pow(1 + reinvestRate, periods);
    double spent = PresentValue(financeRate, out) * (1 + financeRate);
    return Result(std::pow(-gained / spent, 1 / (periods - 1)) - 1);
}

constexpr Builtin kFunctions[] = {
    {u"ddb", 4, 5, Type::Double, DDB, u"Cost Salvage Life Period Factor"},
    {u"fv", 3, 5, Type::Double, FV, u"Rate NPer Pmt PV Due"},
    {u"ipmt", 4, 6, Type::Double, IPmt, u"Rate Per NPer PV FV Due"},
    {u"irr", 1, 2, Type::Double, IRR, u"ValueArray Guess"},
    {u"mirr", 3, 3, Type::Double, MIRR, u"ValueArray FinanceRate ReinvestRate"},
    {u"nper", 3, 5, Type::Double, NPer, u"Rate Pmt PV FV Due"},
    {u"npv", 2, 2, Type::Double, NPV, u"Rate ValueArray"},
    {u"pmt", 3, 5, Type::Double, Pmt, u"Rate NPer PV FV Due"},
    {u"ppmt", 4, 6, Type::Double, PPmt, u"Rate Per NPer PV FV Due"},
    {u"pv", 3, 5, Type::Double, PV, u"Rate NPer Pmt FV Due"},
    {u"rate", 3, 6, Type::Double, Rate, u"NPer Pmt PV FV Due Guess"},
    {u"sln", 3, 3, Type::Double, SLN, u"Cost Salvage Life"},
    {u"syd", 4, 4, Type::Double, SYD, u"Cost Salvage Life Period"},
};

} // namespace

std::span<const Builtin> FinancialFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
