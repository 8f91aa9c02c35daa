// The pieces of the measurement that its tables rest on: the percentiles, the printing of durations, and the count
// of the calls that carry an object and of the objects created.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "frame/dispids.h"
#include "object_tally.h"
#include "simulator/photoshop.h"
#include "spread.h"

namespace ostrel::roundtrip {
namespace {

// The percentiles of the measurement.
struct SpreadCase {
  const char* name;
  std::vector<double> samples;
  Spread expected;
};

TEST(SpreadTest, MeanAndNearestRankPercentiles) {
  std::vector<double> hundred;
  for (int i = 100; i >= 1; --i) hundred.push_back(i);  // unsorted on purpose
  const SpreadCase cases[] = {
      {"None", {}, {0, 0, 0, 0, 0, 0}},
      {"One", {7}, {1, 7, 7, 7, 7, 7}},
      {"Two", {9, 1}, {2, 5, 1, 1, 9, 9}},
      {"OneToHundred", hundred, {100, 50.5, 50, 10, 90, 99}},
      {"LongTail", {1, 1, 1, 1, 1, 1, 1, 1, 1, 91}, {10, 10, 1, 1, 1, 91}},
  };
  for (const SpreadCase& c : cases) {
    SCOPED_TRACE(c.name);
    const Spread s = SpreadOf(c.samples);
    EXPECT_EQ(s.count, c.expected.count);
    EXPECT_DOUBLE_EQ(s.mean, c.expected.mean);
    EXPECT_EQ(s.median, c.expected.median);
    EXPECT_EQ(s.p10, c.expected.p10);
    EXPECT_EQ(s.p90, c.expected.p90);
    EXPECT_EQ(s.p99, c.expected.p99);
  }
}

TEST(SpreadTest, DurationsKeepThreeFiguresInTheirUnit) {
  const std::pair<double, const char*> cases[] = {{0.843, "0.84 us"}, {61.27, "61.3 us"}, {412.4, "412 us"},
                                                  {1270, "1.27 ms"},  {38400, "38.4 ms"}, {637800, "638 ms"},
                                                  {3800000, "3.80 s"}};
  for (const auto& [microseconds, text] : cases) EXPECT_EQ(FormatMicroseconds(microseconds), text);
}

// Steps on the simulated Photoshop through the tally, with the counts after each.
TEST(ObjectTallyTest, CountsCreationsAndTheCallsThatCarryAnObject) {
  sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(
      std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / "layers_and_group.json");
  ObjectTally tally(photoshop);
  DispatchPtr application, reference, descriptor;
  const auto id = [&](int32_t dispId, const wchar_t* name) {
    return Variant::I4(application->Invoke(dispId, InvokeKind::kMethod, {{Variant::Bstr(name)}}).AsI4());
  };
  struct Step {
    const char* name;
    std::function<void()> run;
    int64_t created, objectCalls;
  };
  const Step steps[] = {
      {"create the application", [&] { application = tally.Create(L"Photoshop.Application.130"); }, 1, 0},
      {"a get", [&] { application->Invoke(dispid::app::kVersion, InvokeKind::kPropertyGet, {}); }, 1, 0},
      {"create a reference", [&] { reference = tally.Create(L"Photoshop.ActionReference.130"); }, 2, 0},
      {"numbers into the reference",
       [&] {
         const Variant current[] = {id(dispid::app::kCharIDToTypeID, L"Lyr "),
                                    id(dispid::app::kCharIDToTypeID, L"Ordn"),
                                    id(dispid::app::kCharIDToTypeID, L"Trgt")};
         reference->Invoke(dispid::ref::kPutEnumerated, InvokeKind::kMethod, current);
       },
       2, 0},
      {"the reference there, a descriptor back",  // only works when the reference reaches Photoshop as its own
       [&] {
         const Variant target[] = {Variant::Dispatch(reference)};
         descriptor = application->Invoke(dispid::app::kExecuteActionGet, InvokeKind::kMethod, target).AsDispatch();
       },
       2, 1},
      {"a get on the descriptor that came back",
       [&] { descriptor->Invoke(dispid::desc::kCount, InvokeKind::kPropertyGet, {}); }, 2, 1},
      {"an object inside an array",
       [&] {
         const Variant target[] = {Variant::Array({Variant::I4(1), Variant::Dispatch(reference)})};
         try {
           application->Invoke(dispid::app::kVersion, InvokeKind::kPropertyGet, target);
         } catch (const AutomationError&) {  // Photoshop refuses the argument; the call carried the object all the same
         }
       },
       2, 2},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.name);
    step.run();
    EXPECT_EQ(tally.Created(), step.created);
    EXPECT_EQ(tally.ObjectCalls(), step.objectCalls);
  }
  EXPECT_EQ(photoshop.Calls("Create"), 2);
}

}  // namespace
}  // namespace ostrel::roundtrip
