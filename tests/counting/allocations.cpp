#include "tests/counting/allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<std::int64_t> g_allocations = 0;
std::atomic<std::size_t> g_most = std::numeric_limits<std::size_t>::max();

void* Allocate(std::size_t size) {
  ++g_allocations;
  return size <= g_most ? std::malloc(size == 0 ? 1 : size) : nullptr;
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* block = Allocate(size)) return block;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
// All forms: a sanitizer brings its own for those that are missing, which do not fit the others.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

namespace tolvane::counting {

std::int64_t Allocations() { return g_allocations; }

void RefuseAbove(std::size_t bytes) { g_most = bytes; }

}  // namespace tolvane::counting
