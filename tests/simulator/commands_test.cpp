// executeAction: the journal records each command in the descriptor notation, and the commands that later reads
// must see change the state.
#include "simulator/commands.h"

#include <gtest/gtest.h>

#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

using test::Call;
using test::Get;
using test::I4;
using test::Str;
namespace da = dispid::app;
namespace dd = dispid::desc;
namespace dr = dispid::ref;

class CommandsTest : public ::testing::Test {
 protected:
  SimulatedPhotoshop ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "layers_and_group.json");
  test::Connected c{ps};

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
  DispatchPtr MenuCommand(const std::wstring& item) {
    return Run(L"select", Targeting([&](const DispatchPtr& r) {
                 Call(r, dr::kPutEnumerated, {I4(c.S(L"menuItemClass")), I4(c.S(L"menuItemType")), I4(c.S(item))});
               }));
  }
  bool PanelShown(const std::wstring& panel) {
    DispatchPtr descriptor = Targeting([&](const DispatchPtr& r) {
      Call(r, dr::kPutEnumerated, {I4(c.C(L"capp")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
    });
    Call(descriptor, dd::kPutString, {I4(c.S(L"command")), Str(L"getViewInfo")});
    Call(descriptor, dd::kPutString, {I4(c.S(L"panel")), Str(panel)});
    const DispatchPtr view = Call(Run(L"uiInfo", descriptor), dd::kGetObjectValue, {I4(c.S(L"view"))}).AsDispatch();
    return Call(view, dd::kGetBoolean, {I4(c.S(L"shown"))}).AsBool();
  }
};

TEST_F(CommandsTest, JournalHoldsTheCommandInDescriptorNotation) {
  MenuCommand(L"clearRecentFiles");
  ASSERT_EQ(ps.Journal().size(), 1u);
  const JournalEntry& entry = ps.Journal()[0];
  EXPECT_EQ(entry.member, "executeAction");
  EXPECT_EQ(entry.event, L"select");
  EXPECT_EQ(entry.eventId, c.C(L"slct"));
  EXPECT_EQ(entry.dialogMode, 3);
  EXPECT_FALSE(entry.failed);
  EXPECT_EQ(entry.descriptor,
            R"({"null":{"_ref":"menuItemClass","_enum":"menuItemType","_value":"clearRecentFiles"}})");
}

TEST_F(CommandsTest, SelectingAToolChangesCurrentToolAndItsOptions) {
  EXPECT_EQ(Get(c.app, da::kCurrentTool).AsBstr(), L"marqueeRectTool");
  Run(L"select", Targeting([&](const DispatchPtr& r) { Call(r, dr::kPutClass, {I4(c.S(L"paintbrushTool"))}); }));
  EXPECT_EQ(Get(c.app, da::kCurrentTool).AsBstr(), L"paintbrushTool");
  const DispatchPtr tool = c.Read([&](const DispatchPtr& r) {
    Call(r, dr::kPutProperty, {I4(c.C(L"Prpr")), I4(c.S(L"tool"))});
    Call(r, dr::kPutEnumerated, {I4(c.C(L"capp")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
  });
  const auto options = [&] {
    return c.Read([&](const DispatchPtr& r) {
      Call(r, dr::kPutProperty, {I4(c.C(L"Prpr")), I4(c.S(L"currentToolOptions"))});
      Call(r, dr::kPutEnumerated, {I4(c.C(L"capp")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
    });
  };
  const DispatchPtr brush = Call(options(), dd::kGetObjectValue, {I4(c.S(L"currentToolOptions"))}).AsDispatch();
  EXPECT_TRUE(Call(brush, dd::kGetBoolean, {I4(c.S(L"useTipDynamics"))}).AsBool());
  EXPECT_EQ(c.Name(Call(tool, dd::kGetEnumerationValue, {I4(c.S(L"tool"))}).AsI4()), L"targetEnum");
  // Back to the marquee: its options are those it had.
  test::Put(c.app, da::kCurrentTool, Str(L"marqueeRectTool"));
  const DispatchPtr marquee = Call(options(), dd::kGetObjectValue, {I4(c.C(L"CrnT"))}).AsDispatch();
  EXPECT_TRUE(Call(marquee, dd::kGetBoolean, {I4(c.C(L"MrqA"))}).AsBool());
  EXPECT_EQ(test::FailureCode([&] { test::Put(c.app, da::kCurrentTool, Str(L"")); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { test::Put(c.app, da::kCurrentTool, Str(L"noSuchTool")); }), kDispEException);
  EXPECT_EQ(Get(c.app, da::kCurrentTool).AsBstr(), L"marqueeRectTool");
}

TEST_F(CommandsTest, PanelsAnswerUiInfoAndToggle) {
  EXPECT_TRUE(PanelShown(L"layers"));
  EXPECT_FALSE(PanelShown(L"paths"));
  MenuCommand(L"togglePathsPalette");
  EXPECT_TRUE(PanelShown(L"paths"));
  EXPECT_FALSE(PanelShown(L"noSuchPanel"));
}

TEST_F(CommandsTest, SelectingALayerMovesTheSelection) {
  Run(L"select", Targeting([&](const DispatchPtr& r) { Call(r, dr::kPutIdentifier, {I4(c.C(L"Lyr ")), I4(4)}); }));
  EXPECT_EQ(c.String(c.ReadCurrent(L"Lyr "), L"name"), L"Shadow");
  const DispatchPtr targets =
      Call(c.ReadCurrent(L"Dcmn"), dd::kGetList, {I4(c.S(L"targetLayers"))}).AsDispatch();
  ASSERT_EQ(test::Get(targets, dispid::list::kCount).AsI4(), 1);
  EXPECT_EQ(Call(Call(targets, dispid::list::kGetReference, {I4(0)}).AsDispatch(), dr::kGetIndex).AsI4(), 3);
  EXPECT_EQ(test::FailureCode([&] {
              Run(L"select", Targeting([&](const DispatchPtr& r) { Call(r, dr::kPutIdentifier, {I4(c.C(L"Lyr ")), I4(77)}); }));
            }),
            kDispEException);
}

TEST_F(CommandsTest, DeletingTheCurrentHistoryStateDropsItAndLaterOnes) {
  const DispatchPtr document = Get(c.app, da::kActiveDocument).AsDispatch();
  test::Put(document, dispid::obj::kActiveHistoryState,
            Call(Get(document, dispid::obj::kHistoryStates).AsDispatch(), dispid::obj::kItem, {I4(2)}));
  Run(L"delete", Targeting([&](const DispatchPtr& r) {
        Call(r, dr::kPutProperty, {I4(c.S(L"historyState")), I4(c.S(L"currentHistoryState"))});
      }));
  EXPECT_EQ(Get(Get(document, dispid::obj::kHistoryStates).AsDispatch(), dispid::obj::kCount).AsI4(), 1);
  EXPECT_EQ(Get(Get(document, dispid::obj::kActiveHistoryState).AsDispatch(), dispid::obj::kName).AsBstr(), L"Open");
}

TEST_F(CommandsTest, WorkspacesAndRefusedEvents) {
  const auto selectWorkspace = [&](const std::wstring& name) {
    Run(L"select", Targeting([&](const DispatchPtr& r) { Call(r, dr::kPutName, {I4(c.S(L"workspace")), Str(name)}); }));
  };
  EXPECT_EQ(test::FailureCode([&] { selectWorkspace(L"Painting"); }), 0);
  EXPECT_EQ(test::FailureCode([&] { selectWorkspace(L"No Such Workspace"); }), kDispEException);
  EXPECT_TRUE(ps.Journal().back().failed);
  ps.state().app.refusedEvents = {L"Rset"};
  const DispatchPtr reset = Targeting([&](const DispatchPtr& r) {
    Call(r, dr::kPutProperty, {I4(c.C(L"Prpr")), I4(c.S(L"brush"))});
    Call(r, dr::kPutEnumerated, {I4(c.C(L"capp")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
  });
  EXPECT_EQ(test::FailureCode([&] { Run(L"reset", reset); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { Run(L"set", reset); }), 0);
}

}  // namespace
}  // namespace ostrel::sim
