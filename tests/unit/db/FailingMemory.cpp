#include "unit/db/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

/// 0: no allocation fails.
thread_local std::size_t refusedSize = 0;

void* Allocate(std::size_t size) noexcept {
    if (size != 0 && size == refusedSize) {
        refusedSize = 0;
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = Allocate(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}

namespace ventlock::test {

FailingMemory::FailingMemory(std::size_t size) noexcept {
    refusedSize = size;
}

FailingMemory::~FailingMemory() {
    refusedSize = 0;
}

bool FailingMemory::HasRefused() const noexcept {
    return refusedSize == 0;
}

}  // namespace ventlock::test
