// ActionDescriptor, ActionList and ActionReference through their dispatch ids: what is put comes back by the
// typed gets, a get of another type fails, and what a get hands out is a copy.
#include "simulator/action_objects.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/text.h"
#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

using namespace test;

using ActionObjectsTest = ExampleTest;

// Would catch a put whose arguments are taken in another order, or a get mapped to another member's id.
TEST_F(ActionObjectsTest, PutsComeBackByTheirTypedGets) {
  const DispatchPtr d = c.NewDescriptor();
  Call(d, dd::kPutInteger, {I4(c.S(L"count")), I4(-7)});
  Call(d, dd::kPutString, {I4(c.S(L"name")), Str(L"图层 1")});
  Call(d, dd::kPutBoolean, {I4(c.S(L"visible")), Variant::Bool(true)});
  Call(d, dd::kPutEnumerated, {I4(c.S(L"mode")), I4(c.S(L"blendMode")), I4(c.S(L"multiply"))});
  Call(d, dd::kPutPath, {I4(c.S(L"to")), Str(L"C:\\a.psd")});
  EXPECT_EQ(c.Integer(d, L"count"), -7);
  EXPECT_EQ(c.String(d, L"name"), L"图层 1");
  EXPECT_TRUE(Call(d, dd::kGetBoolean, {I4(c.S(L"visible"))}).AsBool());
  EXPECT_EQ(c.Integer(d, L"visible"), 1);  // as Photoshop reads "background"
  EXPECT_EQ(Call(d, dd::kGetEnumerationValue, {I4(c.S(L"mode"))}).AsI4(), c.S(L"multiply"));
  const std::pair<const wchar_t*, ValueType> kKeys[] = {{L"count", ValueType::kInteger},
                                                        {L"name", ValueType::kString},
                                                        {L"visible", ValueType::kBoolean},
                                                        {L"mode", ValueType::kEnumerated},
                                                        {L"to", ValueType::kAlias}};
  EXPECT_EQ(Get(d, dd::kCount).AsI4(), 5);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(Call(d, dd::kGetKey, {I4(i)}).AsI4(), c.S(kKeys[i].first));
    EXPECT_EQ(Call(d, dd::kGetType, {I4(c.S(kKeys[i].first))}).AsI4(), static_cast<int32_t>(kKeys[i].second));
  }
  // Putting a key again replaces its value where it stands.
  Call(d, dd::kPutInteger, {I4(c.S(L"name")), I4(3)});
  EXPECT_EQ(Get(d, dd::kCount).AsI4(), 5);
  EXPECT_EQ(Call(d, dd::kGetKey, {I4(1)}).AsI4(), c.S(L"name"));
  EXPECT_EQ(c.Integer(d, L"name"), 3);
}

TEST_F(ActionObjectsTest, GetsOfAnotherTypeOrMissingKeysFail) {
  const DispatchPtr d = c.NewDescriptor();
  Call(d, dd::kPutInteger, {I4(c.S(L"opacity")), I4(255)});
  EXPECT_FALSE(Call(d, dd::kHasKey, {I4(c.S(L"name"))}).AsBool());
  for (int32_t get : {dd::kGetDouble, dd::kGetUnitDoubleValue, dd::kGetBoolean, dd::kGetString, dd::kGetObjectValue,
                      dd::kGetList, dd::kGetEnumerationValue}) {
    SCOPED_TRACE(get);
    EXPECT_EQ(FailureCode([&] { Call(d, get, {I4(c.S(L"opacity"))}); }), kDispEException);
  }
  EXPECT_EQ(FailureCode([&] { Call(d, dd::kGetInteger, {I4(c.S(L"name"))}); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Call(d, dd::kGetType, {I4(c.S(L"name"))}); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Call(d, dd::kGetKey, {I4(1)}); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Call(d, dd::kPutInteger, {I4(1)}); }), kDispEBadParamCount);
  EXPECT_EQ(FailureCode([&] { Call(d, dd::kPutObject, {I4(1), I4(2), Str(L"x")}); }), kDispETypeMismatch);
}

// putObject takes a copy of the descriptor, and getObjectValue gives one: neither is changed through the other.
TEST_F(ActionObjectsTest, ObjectsAreCopies) {
  const DispatchPtr inner = c.NewDescriptor();
  Call(inner, dd::kPutInteger, {I4(c.S(L"scale")), I4(50)});
  const DispatchPtr outer = c.NewDescriptor();
  Call(outer, dd::kPutObject, {I4(c.S(L"pattern")), I4(c.S(L"pattern")), Variant::Dispatch(inner)});
  Call(inner, dd::kPutInteger, {I4(c.S(L"scale")), I4(75)});
  const DispatchPtr got = c.Object(outer, L"pattern");
  EXPECT_EQ(c.Integer(got, L"scale"), 50);
  Call(got, dd::kPutInteger, {I4(c.S(L"scale")), I4(10)});
  EXPECT_EQ(c.Integer(c.Object(outer, L"pattern"), L"scale"), 50);
}

// Lists come from descriptors; their positions count from 0 and their gets repeat the descriptor's ids.
TEST_F(ActionObjectsTest, ListsByPositionFromZero) {
  const DispatchPtr printers = Call(c.ReadCurrent(L"Dcmn"), dd::kGetList, {I4(c.S(L"printerList"))}).AsDispatch();
  EXPECT_EQ(Get(printers, dl::kCount).AsI4(), 1);
  EXPECT_EQ(Call(printers, dl::kGetString, {I4(0)}).AsBstr(), L"Secure Printer");
  EXPECT_EQ(Call(printers, dd::kGetType, {I4(0)}).AsI4(), static_cast<int32_t>(ValueType::kString));
  EXPECT_EQ(FailureCode([&] { Call(printers, dl::kGetString, {I4(1)}); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Call(printers, dl::kGetDouble, {I4(0)}); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { Call(printers, dd::kHasKey, {I4(0)}); }), kDispENotFound);  // no keys in a list
  const DispatchPtr workspaces = Call(c.ReadCurrent(L"capp"), dd::kGetList, {I4(c.S(L"workspaceList"))}).AsDispatch();
  EXPECT_EQ(c.String(Call(workspaces, dl::kGetObjectValue, {I4(2)}).AsDispatch(), L"displayName"), L"Motion");
}

// The two unsettled behaviours, each with its default and its other choice, on descriptors and on lists.
// A raw data key is counted and walked like any other, getType gives 12, and no typed get reads it.
TEST(RawDataTest, GetTypeGivesTwelveAndTypedGetsFail) {
  auto ps = FromText(R"({"application": {"before": 1, "legacyContentData": {"_rawData": "AAECAw=="}, "after": 2}})");
  Connected c(ps);
  const DispatchPtr app = c.ReadCurrent(L"capp");
  const int32_t key = c.S(L"legacyContentData");
  EXPECT_EQ(Call(app, dd::kGetKey, {I4(1)}).AsI4(), key);
  EXPECT_EQ(Call(app, dd::kGetType, {I4(key)}).AsI4(), 12);
  for (int32_t get : {dd::kGetInteger, dd::kGetString, dd::kGetDouble, dd::kGetObjectValue, dd::kGetList}) {
    SCOPED_TRACE(get);
    EXPECT_EQ(FailureCode([&] { Call(app, get, {I4(key)}); }), kDispEException);
  }
  auto listed = FromText(R"({"application": {"items": [{"_rawData": "/w=="}, "text"]}})");
  Connected l(listed);
  const DispatchPtr items = Call(l.ReadCurrent(L"capp"), dd::kGetList, {I4(l.S(L"items"))}).AsDispatch();
  EXPECT_EQ(Call(items, dd::kGetType, {I4(0)}).AsI4(), 12);
  EXPECT_EQ(Call(items, dd::kGetType, {I4(1)}).AsI4(), static_cast<int32_t>(ValueType::kString));
}

TEST(UnsettledBehaviourTest, EachChoiceIsServed) {
  struct Case {
    const char* unsettled;  // the scenario's "unsettled" object
    bool charIdOfOtherLengthFails;
    bool integerOfBooleanFails;
  };
  const Case kCases[] = {
      {"{}", true, false},
      {R"({"charIDToTypeIDOfOtherLength": "fails", "getIntegerOfBoolean": "zeroOrOne"})", true, false},
      {R"({"charIDToTypeIDOfOtherLength": "minusOne"})", false, false},
      {R"({"getIntegerOfBoolean": "fails"})", true, true},
      {R"({"charIDToTypeIDOfOtherLength": "minusOne", "getIntegerOfBoolean": "fails"})", false, true},
  };
  for (const Case& k : kCases) {
    SCOPED_TRACE(k.unsettled);
    auto ps = FromText(std::string(R"({"application": {"flags": [true, false], "visible": true}, "unsettled": )") +
                       k.unsettled + "}");
    Connected c(ps);
    for (const wchar_t* text : {L"Lyr", L"layer", L"", L"Lyr  "}) {
      SCOPED_TRACE(ToUtf8(text));
      const auto charId = [&] { return Call(c.app, da::kCharIDToTypeID, {Str(text)}).AsI4(); };
      if (k.charIdOfOtherLengthFails) {
        EXPECT_EQ(FailureCode(charId), kDispEException);
      } else {
        EXPECT_EQ(charId(), -1);
      }
    }
    EXPECT_EQ(c.C(L"Lyr "), 0x4C797220);  // four characters are a char id under either choice
    EXPECT_EQ(FailureCode([&] { c.C(L"\u56fe\u5c42\u4e00\u4e8c"); }), kDispEException);
    const DispatchPtr app = c.ReadCurrent(L"capp");
    const DispatchPtr flags = Call(app, dd::kGetList, {I4(c.S(L"flags"))}).AsDispatch();
    const std::function<int32_t()> integerOfBoolean[] = {
        [&] { return c.Integer(app, L"visible"); },
        [&] { return Call(flags, dd::kGetInteger, {I4(0)}).AsI4(); },
    };
    for (const auto& read : integerOfBoolean) {
      if (k.integerOfBooleanFails) {
        EXPECT_EQ(FailureCode(read), kDispEException);
      } else {
        EXPECT_EQ(read(), 1);
      }
    }
    if (!k.integerOfBooleanFails) {
      EXPECT_EQ(Call(flags, dd::kGetInteger, {I4(1)}).AsI4(), 0);
    }
    EXPECT_TRUE(Call(app, dd::kGetBoolean, {I4(c.S(L"visible"))}).AsBool());  // getBoolean reads it either way
  }
}

TEST_F(ActionObjectsTest, ReferencesKeepTheirElements) {
  const DispatchPtr reference = c.NewReference();
  EXPECT_EQ(FailureCode([&] { Call(reference, dr::kGetIndex); }), kDispEException);
  Call(reference, dr::kPutIndex, {I4(c.C(L"Lyr ")), I4(4)});
  Call(reference, dr::kPutName, {I4(c.C(L"Dcmn")), Str(L"a.psd")});
  EXPECT_EQ(Call(reference, dr::kGetIndex).AsI4(), 4);
  const DispatchPtr d = c.NewDescriptor();
  Call(d, dd::kPutReference, {I4(c.C(L"null")), Variant::Dispatch(reference)});
  Call(reference, dr::kPutClass, {I4(c.C(L"capp"))});  // the descriptor holds a copy
  const DispatchPtr back = Call(d, dl::kGetReference, {I4(c.S(L"target"))}).AsDispatch();
  auto& held = dynamic_cast<ActionReferenceObject&>(*back).value();
  ASSERT_EQ(held.elements.size(), 2u);
  EXPECT_EQ(held.elements[1].name, L"a.psd");
}

}  // namespace
}  // namespace ostrel::sim
