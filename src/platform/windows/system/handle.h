#pragma once

#include <utility>

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// Owns one handle. The traits name its type, the value that means none, and how it is closed;
/// nobody else calls CloseHandle, DeleteObject, Release and their like.
template <typename Traits>
class Handle {
 public:
  using Type = typename Traits::Type;

  Handle() = default;
  explicit Handle(Type value) : value_(value) {}
  Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, Traits::kNone)) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) {
      Close();
      value_ = std::exchange(other.value_, Traits::kNone);
    }
    return *this;
  }
  ~Handle() { Close(); }

  [[nodiscard]] Type Get() const { return value_; }
  explicit operator bool() const { return value_ != Traits::kNone; }

  /// False when the system refused; the handle is given up in either case.
  bool Close() {
    return value_ == Traits::kNone || Traits::Close(std::exchange(value_, Traits::kNone));
  }
  /// Hands over the ownership: the caller closes it.
  [[nodiscard]] Type Release() { return std::exchange(value_, Traits::kNone); }

 private:
  Type value_ = Traits::kNone;
};

template <typename T>
struct NullIsNone {
  using Type = T;
  static constexpr T kNone = nullptr;
};

struct FileTraits {
  using Type = HANDLE;
  static inline const HANDLE kNone = INVALID_HANDLE_VALUE;
  static bool Close(HANDLE value) { return CloseHandle(value) != FALSE; }
};
struct SearchTraits {
  using Type = HANDLE;
  static inline const HANDLE kNone = INVALID_HANDLE_VALUE;
  static bool Close(HANDLE value) { return FindClose(value) != FALSE; }
};
struct KernelTraits : NullIsNone<HANDLE> {
  static bool Close(HANDLE value) { return CloseHandle(value) != FALSE; }
};
struct ModuleTraits : NullIsNone<HMODULE> {
  static bool Close(HMODULE value) { return FreeLibrary(value) != FALSE; }
};
template <typename T>
struct GdiTraits : NullIsNone<T> {
  static bool Close(T value) { return DeleteObject(value) != FALSE; }
};
struct MemoryDcTraits : NullIsNone<HDC> {
  static bool Close(HDC value) { return DeleteDC(value) != FALSE; }
};
struct IconTraits : NullIsNone<HICON> {
  static bool Close(HICON value) { return DestroyIcon(value) != FALSE; }
};
struct MenuTraits : NullIsNone<HMENU> {
  static bool Close(HMENU value) { return DestroyMenu(value) != FALSE; }
};
struct DropTraits : NullIsNone<HDROP> {
  static bool Close(HDROP value) {
    DragFinish(value);
    return true;
  }
};
struct GlobalTraits : NullIsNone<HGLOBAL> {
  static bool Close(HGLOBAL value) { return GlobalFree(value) == nullptr; }
};
template <typename Interface>
struct ComTraits : NullIsNone<Interface*> {
  static bool Close(Interface* value) {
    value->Release();
    return true;
  }
};

using FileHandle = Handle<FileTraits>;
using SearchHandle = Handle<SearchTraits>;  // of files in a folder
using KernelHandle = Handle<KernelTraits>;
using ModuleHandle = Handle<ModuleTraits>;
using FontHandle = Handle<GdiTraits<HFONT>>;
using BrushHandle = Handle<GdiTraits<HBRUSH>>;
using BitmapHandle = Handle<GdiTraits<HBITMAP>>;
using MemoryDcHandle = Handle<MemoryDcTraits>;  // what is selected there outlives it
using IconHandle = Handle<IconTraits>;
using MenuHandle = Handle<MenuTraits>;  // only for menus that no window owns
using DropHandle = Handle<DropTraits>;
using GlobalHandle = Handle<GlobalTraits>;
template <typename Interface>
using ComHandle = Handle<ComTraits<Interface>>;

}  // namespace tolvane::platform::windows
