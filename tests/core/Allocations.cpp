// SPDX-License-Identifier: MIT
// Takes the place of operator new for the whole test program.
#include "tests/core/Allocations.h"

#include <malloc.h>

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t Never = std::numeric_limits<std::size_t>::max();

std::size_t made = 0;
std::size_t inUse = 0;
/// Which one fails, counted as `made` is.
std::size_t failing = Never;

// Every form of operator new comes here, so every form of operator delete has to go to GiveBack.
#ifdef _WIN32
void* TakeMemory(std::size_t size, std::size_t alignment) {
    return ::_aligned_malloc(size, alignment);
}
void FreeMemory(void* memory) {
    ::_aligned_free(memory);
}
#else
void* TakeMemory(std::size_t size, std::size_t alignment) {
    return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}
void FreeMemory(void* memory) {
    std::free(memory);
}
#endif

void* Allocate(std::size_t size, std::size_t alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__) {
    void* const memory = made++ == failing ? nullptr : TakeMemory(size != 0 ? size : 1, alignment);
    if (!memory) {
        throw std::bad_alloc();
    }
    ++inUse;
    return memory;
}

void GiveBack(void* memory) {
    if (memory) {
        --inUse;
        FreeMemory(memory);
    }
}

} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}

void* operator new[](std::size_t size) {
    return Allocate(size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return Allocate(size, static_cast<std::size_t>(alignment));
}

void operator delete(void* memory) noexcept {
    GiveBack(memory);
}

void operator delete[](void* memory) noexcept {
    GiveBack(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
    GiveBack(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    GiveBack(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    GiveBack(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    GiveBack(memory);
}

namespace Quorvane::Allocations {

std::size_t Made() noexcept {
    return made;
}

std::size_t InUse() noexcept {
    return inUse;
}

FailingOne::FailingOne(std::size_t before) noexcept {
    failing = made + before;
}

FailingOne::~FailingOne() {
    failing = Never;
}

} // namespace Quorvane::Allocations
