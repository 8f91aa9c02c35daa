// The dispatch holder: ownership (counted through shared references) and the do-nothing empty holder.
#include "frame/dispatch_driver.h"

#include <gtest/gtest.h>

#include "fake_automation.h"
#include "platform/platform.h"

namespace ostrel {
namespace {

TEST(DispatchDriverTest, CopiesShareAndReleasesGiveBack) {
  auto object = std::make_shared<testing::FakeApplication>();
  {
    COleDispatchDriver first(object);
    EXPECT_EQ(object.use_count(), 2);
    COleDispatchDriver copy(first);
    EXPECT_EQ(object.use_count(), 3);
    COleDispatchDriver assigned;
    assigned = copy;
    EXPECT_EQ(object.use_count(), 4);
    assigned = COleDispatchDriver();  // assignment lets go of what the target held
    EXPECT_EQ(object.use_count(), 3);
    copy.ReleaseDispatch();
    copy.ReleaseDispatch();  // harmless on an empty holder
    EXPECT_TRUE(copy.IsEmpty());
    EXPECT_EQ(object.use_count(), 2);
  }
  EXPECT_EQ(object.use_count(), 1);
}

TEST(DispatchDriverTest, AnEmptyHolderDoesNothingAndLeavesTheResultAsItStood) {
  COleDispatchDriver empty;
  Variant result = Variant::I4(42);
  empty.InvokeHelper(dispid::app::kVersion, InvokeKind::kPropertyGet, &result, {});
  EXPECT_EQ(result.AsI4(), 42);
  EXPECT_TRUE(empty.Get(dispid::app::kVersion).IsEmpty());
  EXPECT_NO_THROW(empty.Put(dispid::app::kCurrentTool, Variant::Bstr(L"moveTool")));
}

TEST(DispatchDriverTest, FailuresThrowOurAutomationError) {
  COleDispatchDriver app(std::make_shared<testing::FakeApplication>());
  EXPECT_EQ(app.Get(dispid::app::kVersion).AsBstr(), L"21.0.0");
  try {
    app.Get(dispid::app::kFonts);
    FAIL() << "no exception";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.code(), kDispENotFound);
  }
  EXPECT_THROW(app.Get(dispid::app::kVersion).AsI4(), AutomationError);  // a text is no number
}

TEST(DispatchDriverTest, AFailedCreationLeavesTheHolderEmptyAndTheCodeBehind) {
  testing::FakeAutomation automation;
  automation.reachable = {L"Photoshop.ActionDescriptor.130"};
  ScopedPlatform platform(Platform{.automation = &automation});
  COleDispatchDriver holder;
  COleException error;
  EXPECT_FALSE(holder.CreateDispatch(L"Photoshop.ActionDescriptor.110", &error));
  EXPECT_TRUE(holder.IsEmpty());
  EXPECT_EQ(error.m_sc, kCoEClassString);
  EXPECT_EQ(error.GetErrorMessage(), L"Invalid class string");
  EXPECT_TRUE(holder.CreateDispatch(L"Photoshop.ActionDescriptor.130", &error));
  EXPECT_FALSE(holder.IsEmpty());
  EXPECT_EQ(error.m_sc, kCoEClassString);  // a success leaves the last failure's code alone
}

TEST(VariantTest, CoercionsFollowAutomation) {
  EXPECT_EQ(Variant::Bool(true).AsI4(), -1);
  EXPECT_EQ(Variant::I2(-7).AsI4(), -7);
  EXPECT_EQ(Variant::R8(2.5).AsI4(), 2);  // banker's rounding, as VariantChangeType
  EXPECT_EQ(Variant::R8(3.5).AsI4(), 4);
  EXPECT_DOUBLE_EQ(Variant::I4(3).AsR8(), 3.0);
  EXPECT_TRUE(Variant::I4(2).AsBool());
  EXPECT_THROW(Variant().AsI4(), AutomationError);
  EXPECT_THROW(Variant::R8(1e12).AsI4(), AutomationError);
  EXPECT_THROW(Variant::I4(1).AsBstr(), AutomationError);
  EXPECT_EQ(Variant::Array({Variant::R8(1), Variant::R8(2)}).AsArray().size(), 2u);
}

}  // namespace
}  // namespace ostrel
