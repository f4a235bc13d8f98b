#include "tests/counting/allocations.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <span>

namespace {

std::atomic<std::int64_t> g_allocations = 0;
std::atomic<std::size_t> g_most = std::numeric_limits<std::size_t>::max();

constexpr std::size_t kLarge = 1 << 20;
constexpr unsigned char kUntouched = 0xA5;
std::span<const unsigned char> g_last_large;

void* Allocate(std::size_t size) {
  ++g_allocations;
  void* const block = size <= g_most ? std::malloc(size == 0 ? 1 : size) : nullptr;
  if (block != nullptr && size >= kLarge) {
    std::memset(block, kUntouched, size);
    g_last_large = {static_cast<const unsigned char*>(block), size};
  }
  return block;
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

std::size_t UntouchedOfLastLarge() {
  return static_cast<std::size_t>(std::count(g_last_large.begin(), g_last_large.end(), kUntouched));
}

void RefuseAbove(std::size_t bytes) { g_most = bytes; }

}  // namespace tolvane::counting
