// Result codes at the border and the exception that carries one inside.
#pragma once

#include "com/base.h"

#include <exception>
#include <new>
#include <string>

namespace tv {

/// The result code of a system error number: 0x80070000 plus the number; 0 stays 0.
constexpr Result ResultFromSystemError(uint32_t error)
{
    return error == 0 ? 0 : static_cast<Result>((error & 0xFFFFu) | 0x80070000u);
}

/// A failed call on its way to the one place that answers for it. Carries the code and, where there is one, a text.
class ResultError : public std::exception
{
  public:
    explicit ResultError(Result failure, std::u16string words = {}) : code(failure), text(std::move(words)) {}
    Result Code() const { return code; }
    const std::u16string& Text() const { return text; }
    const char* what() const noexcept override { return "a call failed with a result code"; }

  private:
    Result code;
    std::u16string text;
};

/// Raises a negative code; returns any other, so that 0 and 1 can be told apart.
inline Result ThrowIfFailed(Result result)
{
    if (result < 0) {
        throw ResultError(result);
    }
    return result;
}

/// Runs the body of an exported operation and turns whatever it raises into a result code.
template <typename Body>
Result AtBoundary(Body&& body) noexcept
{
    try {
        return body();
    } catch (const ResultError& error) {
        return error.Code();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

} // namespace tv
