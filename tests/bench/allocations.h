// What the program has taken from the heap, so that a bench can tell how much a piece of work needs.
#pragma once

#include <cstddef>

namespace tv {

size_t AllocatedBytes();
/// The most since the last call of ForgetMostAllocated.
size_t MostAllocatedBytes();
void ForgetMostAllocated();

} // namespace tv
