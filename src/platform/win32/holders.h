// Owners of the Win32 and COM resources the backends use. Each owner releases its resource when it goes;
// copying is not allowed and moving hands the resource over. Put() frees what the owner held before it hands out
// the address for an out-parameter, and only Release() (Detach() for ComPtr) lets the resource go unfreed.
// These are the only places that free or count references by hand.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/hresult.h"

namespace ostrel::win32 {

// One handle of type Handle, closed by Close; the null handle means "nothing held". Each kind of handle is one
// alias below.
template <class Handle, auto Close>
class UniqueAny {
 public:
  UniqueAny() = default;
  explicit UniqueAny(Handle handle) noexcept : m_handle(handle) {}
  UniqueAny(const UniqueAny&) = delete;
  UniqueAny& operator=(const UniqueAny&) = delete;
  UniqueAny(UniqueAny&& other) noexcept : m_handle(other.Release()) {}
  UniqueAny& operator=(UniqueAny&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  ~UniqueAny() { Reset(); }

  Handle Get() const noexcept { return m_handle; }
  explicit operator bool() const noexcept { return m_handle != Handle{}; }
  // The address for an out-parameter: what was held is closed first.
  Handle* Put() noexcept {
    Reset();
    return &m_handle;
  }
  // Hands the handle to the caller, who closes it from now on.
  [[nodiscard]] Handle Release() noexcept { return std::exchange(m_handle, Handle{}); }
  void Reset(Handle handle = Handle{}) noexcept {
    const Handle old = std::exchange(m_handle, handle);
    if (old != Handle{}) Close(old);
  }

 private:
  Handle m_handle{};
};

// An opened registry key. The predefined root keys are not owned and stay plain HKEY values.
using Hkey = UniqueAny<HKEY, &RegCloseKey>;
// A SAFEARRAY that is destroyed with its elements.
using SafeArray = UniqueAny<SAFEARRAY*, &SafeArrayDestroy>;
// Memory from LocalAlloc, as FormatMessage gives it.
using LocalMemory = UniqueAny<HLOCAL, &LocalFree>;

// One counted reference to a COM interface.
template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(const ComPtr&) = delete;
  ComPtr& operator=(const ComPtr&) = delete;
  ComPtr(ComPtr&& other) noexcept : m_ptr(other.Detach()) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    if (this != &other) Reset(other.Detach());
    return *this;
  }
  ~ComPtr() { Reset(); }

  // Takes over a reference the caller owns.
  static ComPtr Adopt(T* ptr) noexcept {
    ComPtr owner;
    owner.m_ptr = ptr;
    return owner;
  }
  // Adds a reference of its own to a pointer the caller doesn't give away.
  static ComPtr CopyOf(T* ptr) noexcept {
    if (ptr) ptr->AddRef();
    return Adopt(ptr);
  }

  T* Get() const noexcept { return m_ptr; }
  T* operator->() const noexcept { return m_ptr; }
  explicit operator bool() const noexcept { return m_ptr != nullptr; }
  // The address for an out-parameter: what was held is released first.
  T** Put() noexcept {
    Reset();
    return &m_ptr;
  }
  // The same for the void** out-parameters of QueryInterface and CoCreateInstance.
  void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }
  // Hands the reference to the caller, who releases it from now on. (Named apart from IUnknown::Release.)
  [[nodiscard]] T* Detach() noexcept { return std::exchange(m_ptr, nullptr); }
  void Reset(T* ptr = nullptr) noexcept {
    T* old = std::exchange(m_ptr, ptr);
    if (old) old->Release();
  }

 private:
  T* m_ptr = nullptr;
};

// A BSTR that is freed with the owner. Adopt takes over an existing string, CopyOf makes a new one.
class Bstr {
 public:
  Bstr() = default;

  static Bstr Adopt(BSTR text) noexcept {
    Bstr owner;
    owner.m_bstr.Reset(text);
    return owner;
  }
  // A new BSTR holding text (UTF-16). Throws AutomationError (E_OUTOFMEMORY) when it can't be allocated.
  static Bstr CopyOf(std::wstring_view text);

  BSTR Get() const noexcept { return m_bstr.Get(); }
  BSTR* Put() noexcept { return m_bstr.Put(); }
  [[nodiscard]] BSTR Release() noexcept { return m_bstr.Release(); }
  // The text; a null BSTR is the empty string, as in COM.
  std::wstring Text() const { return Get() ? std::wstring(Get(), SysStringLen(Get())) : std::wstring(); }

 private:
  UniqueAny<BSTR, &SysFreeString> m_bstr;
};

// A VARIANT that is cleared with the owner. It changes only through the typed setters, each of which clears
// what was held and takes over what it is given; Receive() serves out-parameters.
class ScopedVariant {
 public:
  ScopedVariant() noexcept { VariantInit(&m_variant); }
  ScopedVariant(const ScopedVariant&) = delete;
  ScopedVariant& operator=(const ScopedVariant&) = delete;
  ScopedVariant(ScopedVariant&& other) noexcept : m_variant(other.Release()) {}
  ScopedVariant& operator=(ScopedVariant&& other) noexcept {
    if (this != &other) {
      Reset();
      m_variant = other.Release();
    }
    return *this;
  }
  ~ScopedVariant() { Reset(); }

  const VARIANT& Get() const noexcept { return m_variant; }
  VARTYPE Type() const noexcept { return m_variant.vt; }

  // Back to VT_EMPTY, releasing what was held.
  void Reset() noexcept { VariantClear(&m_variant); }
  void SetI2(SHORT value) noexcept;
  void SetI4(LONG value) noexcept;
  void SetR8(double value) noexcept;
  void SetBool(bool value) noexcept;
  void SetBstr(Bstr text) noexcept;
  // A null dispatch gives VT_DISPATCH holding null, as COM has "Nothing".
  void SetDispatch(ComPtr<IDispatch> dispatch) noexcept;
  // Takes over a one-dimensional SAFEARRAY of VARIANTs (VT_ARRAY | VT_VARIANT). An array of another element
  // type throws AutomationError (type mismatch) and is destroyed.
  void SetVariantArray(SafeArray array);

  // The address for an out-parameter: what was held is cleared first.
  VARIANT* Receive() noexcept {
    Reset();
    return &m_variant;
  }
  // Hands the VARIANT to the caller, who clears it from now on; the owner is left empty.
  [[nodiscard]] VARIANT Release() noexcept {
    const VARIANT out = m_variant;
    VariantInit(&m_variant);
    return out;
  }

 private:
  VARIANT m_variant;
};

// The C++ type of a SAFEARRAY's elements by their VARTYPE; only the kinds the library reads have one.
template <VARTYPE Vt>
struct SafeArrayElement;
template <>
struct SafeArrayElement<VT_VARIANT> {
  using Type = VARIANT;
};

// The elements of a one-dimensional SAFEARRAY with elements of type Vt, locked (SafeArrayAccessData) for the
// owner's lifetime and unlocked when it goes. The array itself stays the caller's.
template <VARTYPE Vt>
class SafeArrayLock {
 public:
  using Element = typename SafeArrayElement<Vt>::Type;

  // Locks array when it is one-dimensional with elements of type Vt; nothing for a null array or one of another
  // shape or type. A failing SAFEARRAY call throws AutomationError.
  static std::optional<SafeArrayLock> Open(SAFEARRAY* array) {
    if (!array || SafeArrayGetDim(array) != 1) return std::nullopt;
    VARTYPE type = VT_EMPTY;
    OSTREL_CHECK_HR(SafeArrayGetVartype(array, &type));
    if (type != Vt || SafeArrayGetElemsize(array) != sizeof(Element)) return std::nullopt;
    LONG lower = 0;
    LONG upper = 0;
    OSTREL_CHECK_HR(SafeArrayGetLBound(array, 1, &lower));
    OSTREL_CHECK_HR(SafeArrayGetUBound(array, 1, &upper));
    // The count comes from both bounds: the lower one need not be 0, and an empty array has upper = lower - 1.
    const long long count = static_cast<long long>(upper) - lower + 1;
    void* data = nullptr;
    OSTREL_CHECK_HR(SafeArrayAccessData(array, &data));
    return SafeArrayLock(array, static_cast<Element*>(data), count > 0 ? static_cast<size_t>(count) : 0);
  }

  SafeArrayLock(const SafeArrayLock&) = delete;
  SafeArrayLock& operator=(const SafeArrayLock&) = delete;
  SafeArrayLock(SafeArrayLock&& other) noexcept
      : m_array(std::exchange(other.m_array, nullptr)), m_elements(other.m_elements) {}
  SafeArrayLock& operator=(SafeArrayLock&&) = delete;
  ~SafeArrayLock() {
    if (m_array) SafeArrayUnaccessData(m_array);
  }

  // The elements in index order, the first being at the array's lower bound.
  std::span<const Element> Elements() const noexcept { return m_elements; }

 private:
  SafeArrayLock(SAFEARRAY* array, Element* data, size_t count) noexcept : m_array(array), m_elements(data, count) {}

  SAFEARRAY* m_array;
  std::span<const Element> m_elements;
};

// The EXCEPINFO that IDispatch::Invoke fills when it answers DISP_E_EXCEPTION; its strings are freed with the
// owner.
class ExceptionInfo {
 public:
  ExceptionInfo() = default;
  ExceptionInfo(const ExceptionInfo&) = delete;
  ExceptionInfo& operator=(const ExceptionInfo&) = delete;
  ~ExceptionInfo() { Reset(); }

  EXCEPINFO* Receive() noexcept {
    Reset();
    return &m_info;
  }
  // The server's error code (fallback when it gave none) and its text. Each first lets the server fill in the
  // fields it deferred.
  HRESULT Code(HRESULT fallback) noexcept;
  std::wstring Description();

 private:
  void FillIn() noexcept;
  void Reset() noexcept;
  EXCEPINFO m_info{};
};

// COM initialized on the calling thread for the owner's lifetime, in the given concurrency mode. It undoes only
// its own successful initialization; RPC_E_CHANGED_MODE (the thread is in the other kind of apartment) is no
// success and is not undone. Belongs at a thread's entry, never inside a utility function.
class ComInit {
 public:
  explicit ComInit(DWORD concurrency) noexcept : m_result(CoInitializeEx(nullptr, concurrency)) {}
  ComInit(const ComInit&) = delete;
  ComInit& operator=(const ComInit&) = delete;
  ~ComInit() {
    if (SUCCEEDED(m_result)) CoUninitialize();
  }
  HRESULT Result() const noexcept { return m_result; }

 private:
  HRESULT m_result;
};

}  // namespace ostrel::win32
