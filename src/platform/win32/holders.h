// Owners of the Win32 and COM resources the backends use. Each releases its resource when it goes; copying is
// not allowed, moving hands the resource over.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <utility>

namespace ostrel::win32 {

// One counted reference to a COM interface.
template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(const ComPtr&) = delete;
  ComPtr& operator=(const ComPtr&) = delete;
  ComPtr(ComPtr&& other) noexcept : m_ptr(std::exchange(other.m_ptr, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.m_ptr, nullptr));
    return *this;
  }
  ~ComPtr() { Reset(); }

  // Takes over a reference the caller owns.
  static ComPtr Adopt(T* ptr) {
    ComPtr owner;
    owner.m_ptr = ptr;
    return owner;
  }
  // Adds a reference of its own to a pointer the caller doesn't give away.
  static ComPtr CopyOf(T* ptr) {
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
  void Reset(T* ptr = nullptr) noexcept {
    if (m_ptr) m_ptr->Release();
    m_ptr = ptr;
  }

 private:
  T* m_ptr = nullptr;
};

// A BSTR that is freed with the owner.
class Bstr {
 public:
  Bstr() = default;
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  Bstr(Bstr&& other) noexcept : m_bstr(std::exchange(other.m_bstr, nullptr)) {}
  ~Bstr() { SysFreeString(m_bstr); }
  static Bstr CopyOf(const std::wstring& text) {
    Bstr owner;
    owner.m_bstr = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return owner;
  }
  BSTR Get() const noexcept { return m_bstr; }
  BSTR* Put() noexcept {
    SysFreeString(m_bstr);
    m_bstr = nullptr;
    return &m_bstr;
  }
  std::wstring Text() const { return m_bstr ? std::wstring(m_bstr, SysStringLen(m_bstr)) : std::wstring(); }

 private:
  BSTR m_bstr = nullptr;
};

// A VARIANT that is cleared with the owner.
class ScopedVariant {
 public:
  ScopedVariant() { VariantInit(&m_variant); }
  ScopedVariant(const ScopedVariant&) = delete;
  ScopedVariant& operator=(const ScopedVariant&) = delete;
  ~ScopedVariant() { VariantClear(&m_variant); }
  VARIANT* Get() noexcept { return &m_variant; }
  const VARIANT* Get() const noexcept { return &m_variant; }
  VARIANT* Receive() noexcept {
    VariantClear(&m_variant);
    return &m_variant;
  }

 private:
  VARIANT m_variant;
};

// Access to the data of a SAFEARRAY for the owner's lifetime.
class SafeArrayData {
 public:
  explicit SafeArrayData(SAFEARRAY* array) : m_array(array) {
    if (m_array && FAILED(SafeArrayAccessData(m_array, &m_data))) m_data = nullptr;
  }
  SafeArrayData(const SafeArrayData&) = delete;
  SafeArrayData& operator=(const SafeArrayData&) = delete;
  ~SafeArrayData() {
    if (m_data) SafeArrayUnaccessData(m_array);
  }
  void* Data() const noexcept { return m_data; }

 private:
  SAFEARRAY* m_array;
  void* m_data = nullptr;
};

// A registry key that is closed with the owner.
class Hkey {
 public:
  Hkey() = default;
  Hkey(const Hkey&) = delete;
  Hkey& operator=(const Hkey&) = delete;
  ~Hkey() {
    if (m_key) RegCloseKey(m_key);
  }
  HKEY Get() const noexcept { return m_key; }
  HKEY* Put() noexcept {
    if (m_key) RegCloseKey(m_key);
    m_key = nullptr;
    return &m_key;
  }

 private:
  HKEY m_key = nullptr;
};

}  // namespace ostrel::win32
