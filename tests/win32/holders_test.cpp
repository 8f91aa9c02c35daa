// The owners of Win32 and COM resources: each reference and handle is given back exactly once, wherever the
// owner moves, and Put() on a filled owner gives back what it held first.
#include "platform/win32/holders.h"

#include <gtest/gtest.h>

#include "counting_dispatch.h"
#include "platform/automation.h"

namespace ostrel {
namespace {

using testing::CountingDispatch;
using win32::Bstr;
using win32::ComPtr;
using win32::SafeArray;
using win32::SafeArrayLock;
using win32::ScopedVariant;

// A handle that is a pointer to the number of times it was closed.
void CloseCounted(int* closes) {
  ++*closes;
}
using CountedHandle = win32::UniqueAny<int*, &CloseCounted>;

TEST(UniqueAnyTest, ClosesEachHandleOnceWhereverItMoves) {
  int a = 0, b = 0, c = 0;
  {
    CountedHandle first(&a);
    CountedHandle second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(a, 0);
    second = CountedHandle(&b);  // the handle it held is closed, the one it takes is not
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 0);
    *second.Put() = &c;  // Put closes first
    EXPECT_EQ(b, 1);
    int* released = second.Release();
    EXPECT_FALSE(second);
    EXPECT_EQ(c, 0);  // released, not closed
    CountedHandle again(released);
  }
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 1);
  EXPECT_EQ(c, 1);
}

TEST(ComPtrTest, AdoptTakesTheReferenceOverAndCopyOfAddsOne) {
  CountingDispatch stub;
  {
    const ComPtr<IDispatch> adopted = ComPtr<IDispatch>::Adopt(stub.NewReference());
    EXPECT_EQ(stub.References(), 1);
    const ComPtr<IDispatch> copied = ComPtr<IDispatch>::CopyOf(&stub);
    EXPECT_EQ(stub.References(), 2);
  }
  EXPECT_EQ(stub.References(), 0);
}

TEST(ComPtrTest, MovesCountNothingAndTheTargetLetsGoOfWhatItHeld) {
  CountingDispatch a, b;
  {
    ComPtr<IDispatch> first = ComPtr<IDispatch>::CopyOf(&a);
    ComPtr<IDispatch> second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(a.References(), 1);
    ComPtr<IDispatch> third = ComPtr<IDispatch>::CopyOf(&b);
    third = std::move(second);
    EXPECT_EQ(a.References(), 1);
    EXPECT_EQ(b.References(), 0);
    third.Reset();
    EXPECT_EQ(a.References(), 0);
  }
  EXPECT_EQ(a.References(), 0);
  EXPECT_EQ(b.References(), 0);
}

TEST(ComPtrTest, PutReleasesFirstAndDetachHandsTheReferenceOut) {
  CountingDispatch a, b;
  {
    ComPtr<IDispatch> holder = ComPtr<IDispatch>::CopyOf(&a);
    ASSERT_EQ(b.QueryInterface(IID_IDispatch, holder.PutVoid()), S_OK);  // reused as an out-parameter
    EXPECT_EQ(a.References(), 0);
    EXPECT_EQ(b.References(), 1);
    IDispatch* raw = holder.Detach();
    EXPECT_FALSE(holder);
    EXPECT_EQ(b.References(), 1);
    const ComPtr<IDispatch> owner = ComPtr<IDispatch>::Adopt(raw);
  }
  EXPECT_EQ(b.References(), 0);
}

TEST(ScopedVariantTest, EverySetterAndReceiveLetGoOfWhatWasHeld) {
  CountingDispatch stub;
  ScopedVariant variant;
  variant.SetDispatch(ComPtr<IDispatch>::CopyOf(&stub));
  EXPECT_EQ(variant.Type(), VT_DISPATCH);
  EXPECT_EQ(stub.References(), 1);
  variant.SetBstr(Bstr::CopyOf(L"羽化"));
  EXPECT_EQ(stub.References(), 0);
  EXPECT_EQ(variant.Type(), VT_BSTR);

  variant.SetDispatch(ComPtr<IDispatch>::CopyOf(&stub));
  VARIANT* out = variant.Receive();
  EXPECT_EQ(stub.References(), 0);
  EXPECT_EQ(out->vt, VT_EMPTY);

  CountingDispatch other;
  variant.SetDispatch(ComPtr<IDispatch>::CopyOf(&stub));
  variant.SetDispatch(ComPtr<IDispatch>::CopyOf(&other));
  EXPECT_EQ(stub.References(), 0);
  EXPECT_EQ(other.References(), 1);
  variant.SetI4(3);
  EXPECT_EQ(other.References(), 0);
}

TEST(ScopedVariantTest, MoveAndReleaseHandTheReferenceOverWithoutCounting) {
  CountingDispatch stub;
  {
    ScopedVariant first;
    first.SetDispatch(ComPtr<IDispatch>::CopyOf(&stub));
    ScopedVariant second(std::move(first));
    EXPECT_EQ(first.Type(), VT_EMPTY);
    EXPECT_EQ(stub.References(), 1);
    ScopedVariant third;
    third.SetDispatch(ComPtr<IDispatch>::CopyOf(&stub));
    third = std::move(second);  // the reference third held goes
    EXPECT_EQ(stub.References(), 1);

    const VARIANT raw = third.Release();
    EXPECT_EQ(third.Type(), VT_EMPTY);
    EXPECT_EQ(stub.References(), 1);
    ScopedVariant owner;
    *owner.Receive() = raw;
  }
  EXPECT_EQ(stub.References(), 0);
}

TEST(ScopedVariantTest, AnArrayOfAnotherElementTypeIsRefusedAndDestroyed) {
  CountingDispatch stub;
  SafeArray dispatches(SafeArrayCreateVector(VT_DISPATCH, 0, 1));
  ASSERT_TRUE(dispatches);
  LONG index = 0;
  ASSERT_EQ(SafeArrayPutElement(dispatches.Get(), &index, static_cast<IDispatch*>(&stub)), S_OK);
  ASSERT_EQ(stub.References(), 1);
  ScopedVariant variant;
  try {
    variant.SetVariantArray(std::move(dispatches));
    ADD_FAILURE() << "an array of IDispatch taken as one of VARIANTs";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.code(), kDispETypeMismatch);
  }
  EXPECT_EQ(variant.Type(), VT_EMPTY);
  EXPECT_EQ(stub.References(), 0);
}

TEST(BstrTest, CopyOfKeepsTheWholeText) {
  const std::wstring withNul(L"矩形\0选框", 5);
  EXPECT_EQ(Bstr::CopyOf(withNul).Text(), withNul);
  const Bstr empty = Bstr::CopyOf(L"");
  EXPECT_NE(empty.Get(), nullptr);
  EXPECT_EQ(SysStringLen(empty.Get()), 0u);
  Bstr adopted = Bstr::Adopt(Bstr::CopyOf(L"工具").Release());
  EXPECT_EQ(adopted.Text(), L"工具");
  EXPECT_EQ(Bstr::Adopt(nullptr).Text(), L"");
}

TEST(BstrTest, TextThatCantBeAllocatedIsAnErrorNotAnEmptyString) {
  // Lengths no BSTR can have: the allocator refuses the first, the second doesn't even fit its length field.
  // The view's characters are never read.
  static const wchar_t kSome[] = L"x";
  for (const size_t length : {size_t{0x7FFFFFFF}, size_t{0x80000000}}) {
    SCOPED_TRACE(length);
    try {
      Bstr::CopyOf(std::wstring_view(kSome, length));
      ADD_FAILURE() << "no exception";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.code(), static_cast<int32_t>(E_OUTOFMEMORY));
    }
  }
}

// A SAFEARRAY of VARIANTs with the given bounds, its elements the numbers first, first + 1, ...
SafeArray NumberArray(LONG lower, ULONG count, LONG first) {
  SAFEARRAYBOUND bound{count, lower};
  SafeArray array(SafeArrayCreate(VT_VARIANT, 1, &bound));
  for (LONG i = 0; i < static_cast<LONG>(count); ++i) {
    ScopedVariant element;
    element.SetI4(first + i);
    LONG index = lower + i;
    OSTREL_CHECK_HR(SafeArrayPutElement(array.Get(), &index, const_cast<VARIANT*>(&element.Get())));
  }
  return array;
}

TEST(SafeArrayLockTest, CountsFromBothBoundsAndHoldsOneLockWhileOpen) {
  for (const LONG lower : {0, 5, -3}) {
    SCOPED_TRACE(lower);
    const SafeArray array = NumberArray(lower, 3, 10);
    {
      std::optional<SafeArrayLock<VT_VARIANT>> lock = SafeArrayLock<VT_VARIANT>::Open(array.Get());
      ASSERT_TRUE(lock);
      const std::optional<SafeArrayLock<VT_VARIANT>> moved(std::move(*lock));
      EXPECT_EQ(array.Get()->cLocks, 1u);  // moving the lock doesn't unlock or lock again
      ASSERT_EQ(moved->Elements().size(), 3u);
      for (size_t i = 0; i < 3; ++i) EXPECT_EQ(moved->Elements()[i].lVal, 10 + static_cast<LONG>(i));
    }
    EXPECT_EQ(array.Get()->cLocks, 0u);
  }
  const SafeArray empty = NumberArray(0, 0, 0);
  EXPECT_TRUE(SafeArrayLock<VT_VARIANT>::Open(empty.Get())->Elements().empty());
}

}  // namespace
}  // namespace ostrel
