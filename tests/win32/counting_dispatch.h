// An IDispatch that does nothing but count its references, for the ownership tests of the holders and of the
// variant conversions. It lives on the test's stack, so a count that goes below zero or stays above the baseline
// shows a missing or an extra reference without crashing the test.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace ostrel::testing {

class CountingDispatch final : public IDispatch {
 public:
  CountingDispatch() = default;
  CountingDispatch(const CountingDispatch&) = delete;
  CountingDispatch& operator=(const CountingDispatch&) = delete;

  // References held by others; 0 when nobody holds one.
  long References() const { return m_references; }

  // A reference of the caller's own, as an out-parameter would give it.
  IDispatch* NewReference() {
    IDispatch* out = nullptr;
    QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&out));
    return out;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IDispatch)) return E_NOINTERFACE;
    *out = static_cast<IDispatch*>(this);
    ++m_references;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--m_references); }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count) *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  long m_references = 0;
};

}  // namespace ostrel::testing
