// The JSON notation of descriptors: real Photoshop descriptors survive load -> JSON unchanged, every notation
// gives its value type, and every mistake names its place.
#include "simulator/value_json.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "platform/text.h"
#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

const std::set<std::string> kNameMembers = {"_obj", "_enum", "_value", "_unit", "_ref", "_property", "_class"};

bool IsNotation(const Json& object) {
  for (const char* key : {"_enum", "_unit", "_ref", "_property", "_path", "_class"}) {
    if (object.contains(key)) return true;
  }
  return false;
}

// The JSON with names turned into their type ids and the members of notation objects in sorted order: two
// spellings of one id ("green" and "grain", "_target" and "null") and two orders of a notation compare equal, and
// so do two printings of a unit double's value (0 and 0.0).
Json Canonical(const Json& json, TypeIds& ids, bool isName = false) {
  const auto id = [&](const std::string& name) {
    return name == "_target" ? CharId("null") : ids.NameToId(FromUtf8(name));
  };
  if (json.is_string() && isName) return id(json.get<std::string>());
  if (json.is_array()) {
    Json out = Json::array();
    for (const Json& item : json) out.push_back(Canonical(item, ids));
    return out;
  }
  if (!json.is_object()) return json;
  const bool notation = IsNotation(json);
  std::vector<std::pair<std::string, Json>> members;
  for (const auto& [key, value] : json.items()) {
    const bool names = notation ? kNameMembers.count(key) != 0 : key == "_obj";
    if (notation && key == "_value" && json.contains("_unit") && value.is_number()) {
      members.emplace_back(key, Json(value.get<double>()));
      continue;
    }
    members.emplace_back(notation ? key : std::to_string(id(key)), Canonical(value, ids, names));
  }
  if (notation) std::sort(members.begin(), members.end(), [](auto& x, auto& y) { return x.first < y.first; });
  Json out = Json::object();
  for (auto& [key, value] : members) out[key] = std::move(value);
  return out;
}

// Would catch a value type read wrongly, a lost key or key order, a notation member dropped on the way.
TEST(ValueJsonTest, RealDescriptorsSurviveLoadAndWriteBack) {
  int files = 0;
  for (const auto& item : std::filesystem::directory_iterator(test::ExamplesDir() / "realdata")) {
    if (item.path().extension() != ".json") continue;
    SCOPED_TRACE(item.path().filename().string());
    std::ifstream in(item.path());
    const Json original = Json::parse(in);
    TypeIds ids;
    const Value loaded = ValueFromJson(original, ids);
    // A descriptor as Photoshop answers a get has no class; an object value pasted whole (layerEffects) has one.
    const bool descriptor = loaded.type == ValueType::kObject && !original.contains("_obj");
    const Json written = descriptor ? DescriptorToJson(loaded.object, ids) : ValueToJson(loaded, ids);
    EXPECT_EQ(Canonical(written, ids).dump(1), Canonical(original, ids).dump(1));
    TypeIds again;  // written once, the text is stable: loading it again gives the same descriptor
    EXPECT_EQ(ValueToJson(ValueFromJson(written, again), again), ValueToJson(loaded, ids));
    ++files;
  }
  EXPECT_EQ(files, 27);
}

TEST(ValueJsonTest, NotationsGiveTheirTypes) {
  struct Case {
    const char* json;
    ValueType type;
  };
  const Case cases[] = {
      {"1", ValueType::kInteger},
      {"-2147483648", ValueType::kInteger},
      {"1.0", ValueType::kDouble},
      {"1e2", ValueType::kDouble},
      {"3000000000", ValueType::kLargeInteger},
      {R"("x")", ValueType::kString},
      {"false", ValueType::kBoolean},
      {"[]", ValueType::kList},
      {"{}", ValueType::kObject},
      {R"({"_obj": "layer", "name": "a"})", ValueType::kObject},
      {R"({"_enum": "blendMode", "_value": "normal"})", ValueType::kEnumerated},
      {R"({"_unit": "pixelsUnit", "_value": 3})", ValueType::kUnitDouble},
      {R"({"_path": "C:\\a.psd"})", ValueType::kAlias},
      {R"({"_class": "layer"})", ValueType::kClass},
      {R"({"_rawData": "AAEC"})", kRawData},
      {R"({"_ref": "layer", "_index": 1})", ValueType::kReference},
      {R"({"_property": "title"})", ValueType::kReference},
      {R"({"_ref": [{"_ref": "layer", "_enum": "ordinal"}, {"_ref": "document", "_id": 3}]})", ValueType::kReference},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.json);
    TypeIds ids;
    EXPECT_EQ(ValueFromJson(Json::parse(c.json), ids).type, c.type);
  }
}

TEST(ValueJsonTest, ReferenceFormsReadAsTheirPuts) {
  TypeIds ids;
  const Value value = ValueFromJson(
      Json::parse(R"({"_ref": [{"_ref": "property", "_property": "layerID"}, {"_ref": "layer", "_enum": "ordinal"},
                               {"_ref": "document", "_name": "a.psd"}]})"),
      ids);
  const auto& e = value.reference.elements;
  ASSERT_EQ(e.size(), 3u);
  EXPECT_EQ(e[0].form, RefElement::Form::kProperty);
  EXPECT_EQ(e[0].value, CharId("LyrI"));
  EXPECT_EQ(e[1].form, RefElement::Form::kEnumerated);
  EXPECT_EQ(e[1].value, CharId("Trgt"));  // the notation's default value
  EXPECT_EQ(e[2].name, L"a.psd");
}

TEST(ValueJsonTest, MistakesNameTheirPlace) {
  struct Case {
    const char* json;
    const char* pointer;
  };
  const Case cases[] = {
      {R"({"a": {"_value": 1}})", "/a/_value"},
      {R"({"a": {"_enum": "e"}})", "/a"},
      {R"({"a": {"_unit": "pixelsUnit", "_value": "10"}})", "/a/_value"},
      {R"({"a": {"_enum": "e", "_value": "v", "x": 1}})", "/a/x"},
      {R"({"a": [1, null]})", "/a/1"},
      {R"({"a": {"_ref": [{"_ref": "layer", "_index": "one"}]}})", "/a/_ref/0/_index"},
      {R"({"a": {"_ref": "layer", "_value": "targetEnum"}})", "/a/_value"},
      {R"({"a": {"_obj": 3}})", "/a/_obj"},
      {R"({"$Lyr": 1})", "/$Lyr"},
      {R"({"a~b/c": {"_id": 1}})", "/a~0b~1c/_id"},
      {R"({"a": {"_rawData": "AAE"}})", "/a/_rawData"},
      {R"({"a": {"_rawData": "AA=A"}})", "/a/_rawData"},
      {R"({"a": {"_rawData": "A==="}})", "/a/_rawData"},
      {R"({"a": {"_rawData": "A*=="}})", "/a/_rawData"},
      {R"({"a": {"_rawData": 12}})", "/a/_rawData"},
      {R"({"a": {"_rawData": "", "x": 1}})", "/a/x"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.json);
    TypeIds ids;
    try {
      DescriptorFromJson(Json::parse(c.json), ids);
      ADD_FAILURE() << "no error";
    } catch (const NotationError& e) {
      EXPECT_EQ(e.pointer(), c.pointer) << e.what();
    }
  }
}

// Raw data is base64 in the notation: every length of the last group (no padding, one or two "=") gives its bytes,
// zero and high bytes among them, and writes back as it was read.
TEST(ValueJsonTest, RawDataIsBase64BothWays) {
  struct Case {
    const char* base64;
    std::string bytes;
  };
  const Case cases[] = {
      {"", ""},
      {"/w==", "\xff"},
      {"AP8=", std::string("\x00\xff", 2)},
      {"TWFu", "Man"},
      {"8J+YgAA=", std::string("\xf0\x9f\x98\x80\x00", 5)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.base64);
    TypeIds ids;
    const Json json = {{"_rawData", c.base64}};
    const Value value = ValueFromJson(json, ids);
    EXPECT_EQ(value.bytes, c.bytes);
    EXPECT_EQ(ValueToJson(value, ids), json);
  }
}

TEST(ValueJsonTest, WritesWithPhotoshopsNamesAndKeepsNumberKinds) {
  TypeIds ids;
  const Descriptor d = DescriptorFromJson(
      Json::parse(
          R"({"_target": {"_ref": "layer", "_id": 4}, "green": 1, "x": 1.0, "u": {"_unit": "pixelsUnit", "_value": 2.0}})"),
      ids);
  EXPECT_EQ(DescriptorToJson(d, ids).dump(),
            R"({"null":{"_ref":"layer","_id":4},"grain":1,"x":1.0,"u":{"_unit":"pixelsUnit","_value":2}})");
}

}  // namespace
}  // namespace ostrel::sim
