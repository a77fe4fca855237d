#include "allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> s_allocations { 0 };

}

long plix::bench::allocationCount()
{
    return s_allocations.load(std::memory_order_relaxed);
}

void* operator new(std::size_t size)
{
    s_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
