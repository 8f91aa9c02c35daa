// executeAction: the journal records each command in the descriptor notation, and the commands that later reads
// must see change the state.
#include "simulator/commands.h"

#include <gtest/gtest.h>

#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

using namespace test;

class CommandsTest : public ExampleTest {
 protected:
  // A descriptor with "null" set to a reference made by fill.
  template <class Fill>
  DispatchPtr Targeting(Fill fill) {
    DispatchPtr reference = c.NewReference();
    fill(reference);
    DispatchPtr descriptor = c.NewDescriptor();
    Call(descriptor, dd::kPutReference, {I4(c.C(L"null")), Variant::Dispatch(reference)});
    return descriptor;
  }
  DispatchPtr Run(const std::wstring& event, const DispatchPtr& descriptor) {
    return Call(c.app, da::kExecuteAction, {I4(c.S(event)), Variant::Dispatch(descriptor), I4(3)}).AsDispatch();
  }
  // select of a reference made by one put (form) with its arguments; the code it fails with, or 0.
  int32_t Select(int32_t form, std::initializer_list<Variant> args) {
    return FailureCode([&] { Run(L"select", Targeting([&](const DispatchPtr& r) { Call(r, form, args); })); });
  }
  bool PanelShown(const std::wstring& panel) {
    DispatchPtr descriptor = Targeting([&](const DispatchPtr& r) { c.PutTarget(r, L"capp"); });
    Call(descriptor, dd::kPutString, {I4(c.S(L"command")), Str(L"getViewInfo")});
    Call(descriptor, dd::kPutString, {I4(c.S(L"panel")), Str(panel)});
    return Call(c.Object(Run(L"uiInfo", descriptor), L"view"), dd::kGetBoolean, {I4(c.S(L"shown"))}).AsBool();
  }
};

// A menu command toggles its panel, and the journal holds it in the descriptor notation.
TEST_F(CommandsTest, MenuCommandsToggleTheirPanelAndAreJournaled) {
  EXPECT_TRUE(PanelShown(L"layers"));
  EXPECT_FALSE(PanelShown(L"paths"));
  EXPECT_FALSE(PanelShown(L"noSuchPanel"));
  ps.ClearJournal();
  Select(dr::kPutEnumerated, {I4(c.S(L"menuItemClass")), I4(c.S(L"menuItemType")), I4(c.S(L"togglePathsPalette"))});
  ASSERT_EQ(ps.Journal().size(), 1u);
  const JournalEntry entry = ps.Journal()[0];
  EXPECT_TRUE(PanelShown(L"paths"));
  EXPECT_EQ(entry.member, "executeAction");
  EXPECT_EQ(entry.event, L"select");
  EXPECT_EQ(entry.eventId, c.C(L"slct"));
  EXPECT_EQ(entry.dialogMode, 3);
  EXPECT_FALSE(entry.failed);
  EXPECT_EQ(entry.descriptor,
            R"({"null":{"_ref":"menuItemClass","_enum":"menuItemType","_value":"togglePathsPalette"}})");
}

TEST_F(CommandsTest, SelectingAToolChangesCurrentToolAndItsOptions) {
  EXPECT_EQ(Get(c.app, da::kCurrentTool).AsBstr(), L"marqueeRectTool");
  EXPECT_EQ(Select(dr::kPutClass, {I4(c.S(L"paintbrushTool"))}), 0);
  EXPECT_EQ(Get(c.app, da::kCurrentTool).AsBstr(), L"paintbrushTool");
  const auto options = [&](int32_t key) {
    return Call(c.ReadProperty(L"capp", L"currentToolOptions"), dd::kGetObjectValue, {I4(key)}).AsDispatch();
  };
  EXPECT_TRUE(Call(options(c.S(L"currentToolOptions")), dd::kGetBoolean, {I4(c.S(L"useTipDynamics"))}).AsBool());
  // Back to the marquee: its options are those it had.
  Put(c.app, da::kCurrentTool, Str(L"marqueeRectTool"));
  EXPECT_TRUE(Call(options(c.C(L"CrnT")), dd::kGetBoolean, {I4(c.C(L"MrqA"))}).AsBool());
  EXPECT_EQ(FailureCode([&] { Put(c.app, da::kCurrentTool, Str(L"")); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Put(c.app, da::kCurrentTool, Str(L"noSuchTool")); }), kDispEException);
  EXPECT_EQ(Get(c.app, da::kCurrentTool).AsBstr(), L"marqueeRectTool");
}

TEST_F(CommandsTest, SelectingALayerMovesTheSelection) {
  EXPECT_EQ(Select(dr::kPutIdentifier, {I4(c.C(L"Lyr ")), I4(4)}), 0);
  EXPECT_EQ(c.String(c.ReadCurrent(L"Lyr "), L"name"), L"Shadow");
  const DispatchPtr targets = Call(c.ReadCurrent(L"Dcmn"), dd::kGetList, {I4(c.S(L"targetLayers"))}).AsDispatch();
  ASSERT_EQ(Get(targets, dl::kCount).AsI4(), 1);
  EXPECT_EQ(Call(Call(targets, dl::kGetReference, {I4(0)}).AsDispatch(), dr::kGetIndex).AsI4(), 3);
  EXPECT_EQ(Select(dr::kPutIdentifier, {I4(c.C(L"Lyr ")), I4(77)}), kDispEException);
}

TEST_F(CommandsTest, DeletingTheCurrentHistoryStateDropsItAndLaterOnes) {
  const DispatchPtr document = Get(c.app, da::kActiveDocument).AsDispatch();
  const DispatchPtr states = Get(document, om::kHistoryStates).AsDispatch();
  Put(document, om::kActiveHistoryState, Call(states, om::kItem, {I4(2)}));
  Run(L"delete", Targeting([&](const DispatchPtr& r) {
        Call(r, dr::kPutProperty, {I4(c.S(L"historyState")), I4(c.S(L"currentHistoryState"))});
      }));
  EXPECT_EQ(Get(states, om::kCount).AsI4(), 1);
  EXPECT_EQ(Get(Get(document, om::kActiveHistoryState).AsDispatch(), om::kName).AsBstr(), L"Open");
}

TEST_F(CommandsTest, WorkspacesAndRefusedEvents) {
  EXPECT_EQ(Select(dr::kPutName, {I4(c.S(L"workspace")), Str(L"Painting")}), 0);
  EXPECT_EQ(Select(dr::kPutName, {I4(c.S(L"workspace")), Str(L"No Such Workspace")}), kDispEException);
  EXPECT_TRUE(ps.Journal().back().failed);
  ps.state().app.refusedEvents = {L"Rset"};
  const DispatchPtr reset = Targeting([&](const DispatchPtr& r) {
    c.PutProperty(r, L"brush");
    c.PutTarget(r, L"capp");
  });
  EXPECT_EQ(FailureCode([&] { Run(L"reset", reset); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Run(L"set", reset); }), 0);
}

}  // namespace
}  // namespace ostrel::sim
