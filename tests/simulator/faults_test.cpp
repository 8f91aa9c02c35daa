// Fault injection and accounting: a failure at any call leaves no object alive, and calls are counted by member.
#include <gtest/gtest.h>

#include "sim_test_support.h"
#include "simulator/accounting.h"

namespace ostrel::sim {
namespace {

using namespace test;

// A read of the current layer's name, made the way the library makes one: three objects, the ids asked each
// time, the holders released on the way out also when a call throws.
std::wstring CurrentLayerName(SimulatedPhotoshop& ps) {
  const DispatchPtr app = ps.Create(L"Photoshop.Application.130");
  DispatchPtr descriptor = ps.Create(L"Photoshop.ActionDescriptor.130");
  const DispatchPtr reference = ps.Create(L"Photoshop.ActionReference.130");
  const auto id = [&](const wchar_t* chars) { return Call(app, da::kCharIDToTypeID, {Str(chars)}).AsI4(); };
  Call(reference, dr::kPutEnumerated, {I4(id(L"Lyr ")), I4(id(L"Ordn")), I4(id(L"Trgt"))});
  descriptor = Call(app, da::kExecuteActionGet, {Variant::Dispatch(reference)}).AsDispatch();
  const int32_t key = Call(app, da::kStringIDToTypeID, {Str(L"name")}).AsI4();
  if (!Call(descriptor, dd::kHasKey, {I4(key)}).AsBool()) return L"";
  return Call(descriptor, dd::kGetString, {I4(key)}).AsBstr();
}

// 3 creations, 3 char ids, putEnumerated, the get, 1 string id, hasKey, getString.
constexpr int64_t kCallsOfTheRead = 11;

// Would catch a simulated object that outlives every reference to it (a cycle, a copy kept in the session), and
// an injected failure that is not thrown at the call it was planned for.
TEST(FaultsTest, AFailureAtAnyCallLeavesNoObjectAlive) {
  for (FaultMode mode : {FaultMode::kTransient, FaultMode::kPersistent}) {
    int64_t n = 1;
    for (;; ++n) {
      SCOPED_TRACE(n);
      auto ps = Example();
      ps.FailCall(n, mode);
      const int32_t code = FailureCode([&] { EXPECT_EQ(CurrentLayerName(ps), L"Title"); });
      EXPECT_EQ(ps.LiveObjects(), 0);
      if (!ps.FaultFired()) {
        EXPECT_EQ(code, 0);
        break;
      }
      EXPECT_EQ(code, n <= 3 ? kCoEServerExecFailure : kDispEException);  // the first three are creations
      EXPECT_EQ(ps.Calls(), n);                                           // nothing after a failure
    }
    EXPECT_EQ(n, kCallsOfTheRead + 1);
  }
}

TEST(FaultsTest, TransientFailsOnceAndPersistentFromThenOn) {
  auto ps = Example();
  ps.FailCall(kCallsOfTheRead, FaultMode::kTransient, kEFail);
  EXPECT_EQ(FailureCode([&] { CurrentLayerName(ps); }), kEFail);
  EXPECT_EQ(FailureCode([&] { CurrentLayerName(ps); }), 0);
  ps.FailCall(2, FaultMode::kPersistent);
  EXPECT_EQ(FailureCode([&] { CurrentLayerName(ps); }), kCoEServerExecFailure);
  EXPECT_EQ(FailureCode([&] { CurrentLayerName(ps); }), kCoEServerExecFailure);
  ps.ClearFaults();
  EXPECT_FALSE(ps.FaultFired());
  EXPECT_EQ(CurrentLayerName(ps), L"Title");
  // A failing member fails every call of it, and the calls are counted by member.
  ps.FailMember("getString");
  ps.ResetCalls();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(FailureCode([&] { CurrentLayerName(ps); }), kDispEException);
  EXPECT_EQ(ps.Calls(), 2 * kCallsOfTheRead);
  EXPECT_EQ(ps.Calls("getString"), 2);
  EXPECT_EQ(ps.Calls("Create"), 6);
  EXPECT_EQ(ps.Calls("charIDToTypeID"), 6);
  EXPECT_EQ(ps.Calls("executeActionGet"), 2);
  EXPECT_EQ(ps.Calls("putIndex"), 0);
  int64_t sum = 0;
  for (const auto& [member, count] : ps.CallsByMember()) sum += count;
  EXPECT_EQ(sum, ps.Calls());
  EXPECT_EQ(ps.LiveObjects(), 0);
}

TEST(FaultsTest, LiveObjectsCountsWhatIsStillReferenced) {
  auto ps = Example();
  const DispatchPtr app = ps.Create(L"Photoshop.Application.130");
  DispatchPtr kept;
  {
    const DispatchPtr document = Get(app, da::kActiveDocument).AsDispatch();
    kept = Get(document, om::kActiveLayer).AsDispatch();
    EXPECT_EQ(ps.LiveObjects(), 3);
  }
  EXPECT_EQ(ps.LiveObjects(), 2);
  kept.reset();
  EXPECT_EQ(ps.LiveObjects(), 1);
}

}  // namespace
}  // namespace ostrel::sim
