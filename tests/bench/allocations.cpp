#include "allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

/// Stands before each block and keeps the block aligned for everything.
struct alignas(std::max_align_t) BlockHead
{
    size_t size;
};

std::atomic<size_t> allocated = 0;
std::atomic<size_t> most = 0;

void* Take(size_t size)
{
    auto* head = static_cast<BlockHead*>(std::malloc(sizeof(BlockHead) + size));
    if (head == nullptr) {
        throw std::bad_alloc();
    }
    head->size = size;
    const size_t now = allocated += size;
    if (now > most) {
        most = now;
    }
    return head + 1;
}

void Give(void* block)
{
    if (block != nullptr) {
        BlockHead* head = static_cast<BlockHead*>(block) - 1;
        allocated -= head->size;
        std::free(head);
    }
}

} // namespace

void* operator new(size_t size)
{
    return Take(size);
}

void* operator new[](size_t size)
{
    return Take(size);
}

void operator delete(void* block) noexcept
{
    Give(block);
}

void operator delete[](void* block) noexcept
{
    Give(block);
}

void operator delete(void* block, size_t) noexcept
{
    Give(block);
}

void operator delete[](void* block, size_t) noexcept
{
    Give(block);
}

namespace tv {

size_t AllocatedBytes()
{
    return allocated;
}

size_t MostAllocatedBytes()
{
    return most;
}

void ForgetMostAllocated()
{
    most = allocated.load();
}

} // namespace tv
