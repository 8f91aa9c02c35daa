// Conversions between the library's variants and COM's, and IDispatch calls through them: every kind survives
// the round trip, arrays keep their order whatever their lower bound, arrays of another shape or element type are
// refused, and a conversion that fails half-way leaves no reference behind.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "counting_dispatch.h"
#include "platform/win32/com_automation.h"
#include "platform/win32/holders.h"

namespace ostrel {
namespace {

using testing::CountingDispatch;
using win32::Bstr;
using win32::ComPtr;
using win32::FromComVariant;
using win32::SafeArray;
using win32::ScopedVariant;
using win32::ToComVariant;

// A variant as text, kinds and values, arrays element by element.
std::wstring Describe(const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty:
      return L"Empty";
    case VarType::kI2:
      return L"I2(" + std::to_wstring(value.AsI4()) + L")";
    case VarType::kI4:
      return L"I4(" + std::to_wstring(value.AsI4()) + L")";
    case VarType::kR8:
      return L"R8(" + std::to_wstring(value.AsR8()) + L")";
    case VarType::kBool:
      return value.AsBool() ? L"Bool(true)" : L"Bool(false)";
    case VarType::kBstr:
      return L"Bstr(" + value.AsBstr() + L")";
    case VarType::kDispatch:
      return value.AsDispatch() ? L"Dispatch" : L"Dispatch(null)";
    case VarType::kArray: {
      std::wstring text = L"Array[";
      for (const Variant& item : value.AsArray()) text += Describe(item) + L",";
      return text + L"]";
    }
    case VarType::kVariant:
      return L"Variant";
  }
  return L"?";
}

DispatchPtr ComObject(CountingDispatch& stub) {
  return std::make_shared<win32::ComDispatchObject>(ComPtr<IDispatch>::CopyOf(&stub));
}

// An object of the library's that doesn't live in COM, so it can't cross.
class LocalObject final : public IAutomationObject {
 public:
  Variant Invoke(int32_t, InvokeKind, std::span<const Variant>) override { return {}; }
};

void ExpectTypeMismatch(const std::function<void()>& conversion) {
  try {
    conversion();
    ADD_FAILURE() << "no exception";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.code(), kDispETypeMismatch);
  }
}

TEST(ComVariantTest, EveryKindSurvivesTheRoundTrip) {
  const Variant values[] = {
      Variant(),
      Variant::I2(-7),
      Variant::I4(70000),
      Variant::R8(2.5),
      Variant::Bool(true),
      Variant::Bool(false),
      Variant::Bstr(L"矩形选框工具"),
      Variant::Bstr(L""),
      Variant::Dispatch(nullptr),
      Variant::Array({}),
      Variant::Array({Variant::I4(1), Variant::Bstr(L"图层 1"), Variant::Array({Variant::Bool(false)})}),
  };
  const VARTYPE types[] = {VT_EMPTY,
                           VT_I2,
                           VT_I4,
                           VT_R8,
                           VT_BOOL,
                           VT_BOOL,
                           VT_BSTR,
                           VT_BSTR,
                           VT_DISPATCH,
                           VT_ARRAY | VT_VARIANT,
                           VT_ARRAY | VT_VARIANT};
  for (size_t i = 0; i < std::size(values); ++i) {
    SCOPED_TRACE(i);
    const ScopedVariant com = ToComVariant(values[i]);
    EXPECT_EQ(com.Type(), types[i]);
    EXPECT_EQ(Describe(FromComVariant(com.Get())), Describe(values[i]));
  }
}

TEST(ComVariantTest, ObjectsCrossWithAReferenceOfTheirOwn) {
  CountingDispatch stub;
  {
    const Variant object = Variant::Dispatch(ComObject(stub));
    ASSERT_EQ(stub.References(), 1);
    {
      const ScopedVariant com = ToComVariant(Variant::Array({object, object}));
      EXPECT_EQ(stub.References(), 3);  // one in each element of the array, none left over from building it
      const Variant back = FromComVariant(com.Get());
      EXPECT_EQ(stub.References(), 5);
    }
    EXPECT_EQ(stub.References(), 1);
  }
  EXPECT_EQ(stub.References(), 0);
}

// An array of VARIANTs with the given bounds; element i is elements[i].
SafeArray VariantArray(LONG lower, std::initializer_list<const ScopedVariant*> elements) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(elements.size()), lower};
  SafeArray array(SafeArrayCreate(VT_VARIANT, 1, &bound));
  LONG index = lower;
  for (const ScopedVariant* element : elements) {
    OSTREL_CHECK_HR(SafeArrayPutElement(array.Get(), &index, const_cast<VARIANT*>(&element->Get())));
    ++index;
  }
  return array;
}

// A VARIANT that says it holds an array of VARIANTs, whatever array it is given, as a faulty server might send.
ScopedVariant ClaimedVariantArray(SafeArray array) {
  ScopedVariant variant;
  VARIANT* raw = variant.Receive();
  raw->vt = VT_ARRAY | VT_VARIANT;
  raw->parray = array.Release();
  return variant;
}

// An array of two elements of type vt that are as large as VARIANTs, so that only their type tells them apart.
SafeArray VariantSizedArrayOf(VARTYPE vt) {
  SafeArray array;
  OSTREL_CHECK_HR(SafeArrayAllocDescriptorEx(vt, 1, array.Put()));
  array.Get()->cbElements = sizeof(VARIANT);
  array.Get()->rgsabound[0] = SAFEARRAYBOUND{2, 0};
  OSTREL_CHECK_HR(SafeArrayAllocData(array.Get()));
  return array;
}

TEST(ComVariantTest, ArraysAreReadInOrderFromTheirLowerBound) {
  ScopedVariant first, second, third;
  first.SetI4(10);
  second.SetBstr(Bstr::CopyOf(L"羽化"));
  third.SetR8(0.5);
  for (const LONG lower : {0, 1, 7, -2}) {
    SCOPED_TRACE(lower);
    const ScopedVariant com = ClaimedVariantArray(VariantArray(lower, {&first, &second, &third}));
    EXPECT_EQ(Describe(FromComVariant(com.Get())), L"Array[I4(10),Bstr(羽化),R8(0.500000),]");
    EXPECT_EQ(com.Get().parray->cLocks, 0u);
  }
}

TEST(ComVariantTest, ArraysOfAnotherShapeOrElementTypeAreTypeMismatches) {
  SAFEARRAYBOUND square[2] = {{2, 0}, {2, 0}};
  const ScopedVariant twoDimensions = ClaimedVariantArray(SafeArray(SafeArrayCreate(VT_VARIANT, 2, square)));
  const ScopedVariant numbersClaimedAsVariants = ClaimedVariantArray(VariantSizedArrayOf(VT_I4));
  const ScopedVariant numbers = [] {  // honest about its elements, but not a kind that crosses
    ScopedVariant variant;
    VARIANT* raw = variant.Receive();
    raw->vt = VT_ARRAY | VT_I4;
    raw->parray = SafeArrayCreateVector(VT_I4, 0, 2);
    return variant;
  }();
  for (const ScopedVariant* com : {&twoDimensions, &numbersClaimedAsVariants, &numbers}) {
    SCOPED_TRACE(com->Type());
    ExpectTypeMismatch([&] { FromComVariant(com->Get()); });
    EXPECT_EQ(com->Get().parray->cLocks, 0u);
  }
  const ScopedVariant none = ClaimedVariantArray(SafeArray());
  ExpectTypeMismatch([&] { FromComVariant(none.Get()); });
}

TEST(ComVariantTest, AConversionThatFailsHalfWayLeavesNoReferenceBehind) {
  CountingDispatch stub;
  const Variant object = Variant::Dispatch(ComObject(stub));
  const Variant local = Variant::Dispatch(std::make_shared<LocalObject>());
  const long baseline = stub.References();

  // Into COM: the elements before the one that can't cross are already in the array.
  ExpectTypeMismatch([&] { ToComVariant(Variant::Array({object, Variant::Array({object}), local})); });
  EXPECT_EQ(stub.References(), baseline);

  // Out of COM: the objects read before an element of an unknown kind are already ours.
  ScopedVariant dispatch, date;
  dispatch.SetDispatch(ComPtr<IDispatch>::CopyOf(&stub));
  VARIANT* rawDate = date.Receive();
  rawDate->vt = VT_DATE;
  rawDate->date = 1.0;
  const ScopedVariant com = ClaimedVariantArray(VariantArray(0, {&dispatch, &dispatch, &date}));
  const long withArray = stub.References();
  ExpectTypeMismatch([&] { FromComVariant(com.Get()); });
  EXPECT_EQ(stub.References(), withArray);
  EXPECT_EQ(com.Get().parray->cLocks, 0u);

  // The arguments of a call: the last one is converted first, so the object is in COM when the local one fails.
  win32::ComDispatchObject target(ComPtr<IDispatch>::CopyOf(&stub));
  const long withTarget = stub.References();
  const Variant args[] = {local, object};
  ExpectTypeMismatch([&] { target.Invoke(1, InvokeKind::kMethod, args); });
  EXPECT_EQ(stub.References(), withTarget);
}

// An IDispatch whose every call fails as a server's own error, with the text left to a deferred fill-in, as
// servers that build their error text lazily do.
class DeferringDispatch final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                                   UINT*) override {
    *exception = EXCEPINFO{};
    exception->pfnDeferredFillIn = &FillIn;
    return DISP_E_EXCEPTION;
  }

 private:
  static HRESULT STDMETHODCALLTYPE FillIn(EXCEPINFO* exception) {
    exception->scode = static_cast<SCODE>(0x80040123);
    exception->bstrDescription = Bstr::CopyOf(L"没有打开的文档").Release();
    return S_OK;
  }
};

TEST(ComVariantTest, AServersDeferredErrorTextReachesTheError) {
  DeferringDispatch server;
  win32::ComDispatchObject object(ComPtr<IDispatch>::Adopt(&server));
  try {
    object.Invoke(1, InvokeKind::kPropertyGet, {});
    ADD_FAILURE() << "no exception";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.code(), static_cast<int32_t>(0x80040123));
    EXPECT_EQ(error.description(), L"没有打开的文档");
  }
}

}  // namespace
}  // namespace ostrel
