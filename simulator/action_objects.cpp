// ActionDescriptor, ActionList and ActionReference by Photoshop's dispatch ids. The list repeats the descriptor's
// numbers, with a position where the descriptor has a key.
#include "simulator/action_objects.h"

#include "frame/dispids.h"
#include "platform/text.h"

namespace ostrel::sim {
namespace {

using Args = std::span<const Variant>;
constexpr InvokeKind kMethod = InvokeKind::kMethod;
constexpr InvokeKind kGet = InvokeKind::kPropertyGet;

const wchar_t* TypeName(ValueType type) {
  if (type == kRawData) return L"raw data";
  switch (type) {
    case ValueType::kInteger: return L"integer";
    case ValueType::kDouble: return L"double";
    case ValueType::kUnitDouble: return L"unit double";
    case ValueType::kString: return L"string";
    case ValueType::kBoolean: return L"boolean";
    case ValueType::kList: return L"list";
    case ValueType::kObject: return L"object";
    case ValueType::kEnumerated: return L"enumerated";
    case ValueType::kReference: return L"reference";
    case ValueType::kClass: return L"class";
    case ValueType::kAlias: return L"alias";
    case ValueType::kLargeInteger: return L"large integer";
  }
  return L"?";
}

// Every typed get wants its own type. getInteger of a boolean is the scenario's choice: 0 or 1 (the library reads
// "background" so), or a failure.
const Value& Checked(const Session& session, const Value& value, ValueType wanted, const std::wstring& where) {
  const bool integerOfBoolean = wanted == ValueType::kInteger && value.type == ValueType::kBoolean &&
                                !session.state.unsettled.integerOfBooleanFails;
  if (value.type != wanted && !integerOfBoolean) {
    ThrowGeneralError(Format(L"%s holds a %s, not a %s.", where, TypeName(value.type), TypeName(wanted)));
  }
  return value;
}

Variant Typed(const Value& value) {
  switch (value.type) {
    case ValueType::kInteger: return Variant::I4(static_cast<int32_t>(value.integer));
    case ValueType::kBoolean: return Variant::Bool(value.integer != 0);
    case ValueType::kDouble:
    case ValueType::kUnitDouble: return Variant::R8(value.number);
    case ValueType::kString: return Variant::Bstr(value.text);
    case ValueType::kEnumerated: return Variant::I4(value.enumValue);
    default: return Variant();
  }
}

// The typed gets, alike on descriptors (by key) and lists (by position).
template <class T, ValueType kType>
Variant GetTyped(T& self, Args args) {
  const Value& value = self.Get(ArgI4(args, 0), kType);
  if (kType == ValueType::kInteger) return Variant::I4(static_cast<int32_t>(value.integer));
  return Typed(value);
}

template <class T>
Variant GetObject(T& self, Args args) {
  const Value& value = self.Get(ArgI4(args, 0), ValueType::kObject);
  return Variant::Dispatch(std::make_shared<ActionDescriptorObject>(self.sessionPtr(), value.object));
}

template <class T>
Variant GetList(T& self, Args args) {
  const Value& value = self.Get(ArgI4(args, 0), ValueType::kList);
  return Variant::Dispatch(std::make_shared<ActionListObject>(self.sessionPtr(), value.list));
}

template <class T>
Variant GetReference(T& self, Args args) {
  const Value& value = self.Get(ArgI4(args, 0), ValueType::kReference);
  return Variant::Dispatch(std::make_shared<ActionReferenceObject>(self.sessionPtr(), value.reference));
}

Variant Put(ActionDescriptorObject& self, int32_t key, Value value) {
  self.value().Put(key, std::move(value));
  return Variant();
}

Variant AppendElement(ActionReferenceObject& self, RefElement element) {
  self.value().elements.push_back(std::move(element));
  return Variant();
}

RefElement Element(RefElement::Form form, int32_t classId, int32_t value) {
  RefElement element;
  element.form = form;
  element.classId = classId;
  element.value = value;
  return element;
}

using D = ActionDescriptorObject;
using L = ActionListObject;
using R = ActionReferenceObject;
namespace dd = dispid::desc;
namespace dl = dispid::list;
namespace dr = dispid::ref;

const Member<D> kDescriptorMembers[] = {
    {dd::kCount, kGet, "count", 0, 0,
     [](D& self, Args) { return Variant::I4(static_cast<int32_t>(self.value().entries.size())); }},
    {dd::kGetKey, kMethod, "getKey", 1, 1,
     [](D& self, Args args) {
       const int32_t position = ArgI4(args, 0);
       if (position < 0 || position >= static_cast<int32_t>(self.value().entries.size())) {
         ThrowGeneralError(Format(L"There is no key at position %d.", position));
       }
       return Variant::I4(self.value().entries[static_cast<size_t>(position)].key);
     }},
    {dd::kGetType, kMethod, "getType", 1, 1,
     [](D& self, Args args) {
       const Value* value = self.value().Find(ArgI4(args, 0));
       if (!value) ThrowGeneralError(L"The key is not in the descriptor.");
       return Variant::I4(static_cast<int32_t>(value->type));
     }},
    {dd::kHasKey, kMethod, "hasKey", 1, 1,
     [](D& self, Args args) { return Variant::Bool(self.value().Find(ArgI4(args, 0)) != nullptr); }},
    {dd::kGetBoolean, kMethod, "getBoolean", 1, 1, GetTyped<D, ValueType::kBoolean>},
    {dd::kGetDouble, kMethod, "getDouble", 1, 1, GetTyped<D, ValueType::kDouble>},
    {dd::kGetEnumerationValue, kMethod, "getEnumerationValue", 1, 1, GetTyped<D, ValueType::kEnumerated>},
    {dd::kGetInteger, kMethod, "getInteger", 1, 1, GetTyped<D, ValueType::kInteger>},
    {dd::kGetList, kMethod, "getList", 1, 1, GetList<D>},
    {dd::kGetObjectValue, kMethod, "getObjectValue", 1, 1, GetObject<D>},
    {dispid::list::kGetReference, kMethod, "getReference", 1, 1, GetReference<D>},
    {dd::kGetString, kMethod, "getString", 1, 1, GetTyped<D, ValueType::kString>},
    {dd::kGetUnitDoubleValue, kMethod, "getUnitDoubleValue", 1, 1, GetTyped<D, ValueType::kUnitDouble>},
    {dd::kPutBoolean, kMethod, "putBoolean", 2, 2,
     [](D& self, Args args) { return Put(self, ArgI4(args, 0), Value::Boolean(ArgBool(args, 1))); }},
    {dd::kPutEnumerated, kMethod, "putEnumerated", 3, 3,
     [](D& self, Args args) {
       return Put(self, ArgI4(args, 0), Value::Enumerated(ArgI4(args, 1), ArgI4(args, 2)));
     }},
    {dd::kPutInteger, kMethod, "putInteger", 2, 2,
     [](D& self, Args args) { return Put(self, ArgI4(args, 0), Value::Integer(ArgI4(args, 1))); }},
    {dd::kPutObject, kMethod, "putObject", 3, 3,
     [](D& self, Args args) {
       return Put(self, ArgI4(args, 0), Value::Object(ArgI4(args, 1), ArgObject<D>(args, 2).value()));
     }},
    {dd::kPutPath, kMethod, "putPath", 2, 2,
     [](D& self, Args args) { return Put(self, ArgI4(args, 0), Value::Alias(ArgBstr(args, 1))); }},
    {dd::kPutReference, kMethod, "putReference", 2, 2,
     [](D& self, Args args) { return Put(self, ArgI4(args, 0), Value::Ref(ArgObject<R>(args, 1).value())); }},
    {dd::kPutString, kMethod, "putString", 2, 2,
     [](D& self, Args args) { return Put(self, ArgI4(args, 0), Value::String(ArgBstr(args, 1))); }},
};

// The list answers its own documented members and the typed gets of the descriptor under the same numbers.
const Member<L> kListMembers[] = {
    {dl::kCount, kGet, "count", 0, 0,
     [](L& self, Args) { return Variant::I4(static_cast<int32_t>(self.items().size())); }},
    {dd::kGetType, kMethod, "getType", 1, 1,
     [](L& self, Args args) {
       const int32_t position = ArgI4(args, 0);
       if (position < 0 || position >= static_cast<int32_t>(self.items().size())) {
         ThrowGeneralError(Format(L"There is no item at position %d.", position));
       }
       return Variant::I4(static_cast<int32_t>(self.items()[static_cast<size_t>(position)].type));
     }},
    {dd::kGetBoolean, kMethod, "getBoolean", 1, 1, GetTyped<L, ValueType::kBoolean>},
    {dl::kGetDouble, kMethod, "getDouble", 1, 1, GetTyped<L, ValueType::kDouble>},
    {dd::kGetEnumerationValue, kMethod, "getEnumerationValue", 1, 1, GetTyped<L, ValueType::kEnumerated>},
    {dd::kGetInteger, kMethod, "getInteger", 1, 1, GetTyped<L, ValueType::kInteger>},
    {dd::kGetList, kMethod, "getList", 1, 1, GetList<L>},
    {dl::kGetObjectValue, kMethod, "getObjectValue", 1, 1, GetObject<L>},
    {dl::kGetReference, kMethod, "getReference", 1, 1, GetReference<L>},
    {dl::kGetString, kMethod, "getString", 1, 1, GetTyped<L, ValueType::kString>},
    {dd::kGetUnitDoubleValue, kMethod, "getUnitDoubleValue", 1, 1, GetTyped<L, ValueType::kUnitDouble>},
};

const Member<R> kReferenceMembers[] = {
    {dr::kGetIndex, kMethod, "getIndex", 0, 0,
     [](R& self, Args) {
       const auto& elements = self.value().elements;
       if (elements.empty() || elements.front().form != RefElement::Form::kIndex) {
         ThrowGeneralError(L"The reference holds no index.");
       }
       return Variant::I4(elements.front().value);
     }},
    {dr::kPutClass, kMethod, "putClass", 1, 1,
     [](R& self, Args args) { return AppendElement(self, Element(RefElement::Form::kClass, ArgI4(args, 0), 0)); }},
    {dr::kPutEnumerated, kMethod, "putEnumerated", 3, 3,
     [](R& self, Args args) {
       RefElement element = Element(RefElement::Form::kEnumerated, ArgI4(args, 0), ArgI4(args, 2));
       element.enumType = ArgI4(args, 1);
       return AppendElement(self, std::move(element));
     }},
    {dr::kPutIdentifier, kMethod, "putIdentifier", 2, 2,
     [](R& self, Args args) {
       return AppendElement(self, Element(RefElement::Form::kIdentifier, ArgI4(args, 0), ArgI4(args, 1)));
     }},
    {dr::kPutIndex, kMethod, "putIndex", 2, 2,
     [](R& self, Args args) {
       return AppendElement(self, Element(RefElement::Form::kIndex, ArgI4(args, 0), ArgI4(args, 1)));
     }},
    {dr::kPutName, kMethod, "putName", 2, 2,
     [](R& self, Args args) {
       RefElement element = Element(RefElement::Form::kName, ArgI4(args, 0), 0);
       element.name = ArgBstr(args, 1);
       return AppendElement(self, std::move(element));
     }},
    {dr::kPutProperty, kMethod, "putProperty", 2, 2,
     [](R& self, Args args) {
       return AppendElement(self, Element(RefElement::Form::kProperty, ArgI4(args, 0), ArgI4(args, 1)));
     }},
};

}  // namespace

ActionDescriptorObject::ActionDescriptorObject(std::shared_ptr<Session> session, Descriptor value)
    : SimObjectOf(std::move(session), "ActionDescriptor"), m_value(std::move(value)) {}

std::span<const Member<ActionDescriptorObject>> ActionDescriptorObject::Members() { return kDescriptorMembers; }

const Value& ActionDescriptorObject::Get(int32_t key, ValueType wanted) {
  const Value* value = m_value.Find(key);
  if (!value) ThrowGeneralError(Format(L"The key \u201c%s\u201d is not in the descriptor.", session().ids.IdToName(key)));
  return Checked(session(), *value, wanted, Format(L"The key \u201c%s\u201d", session().ids.IdToName(key)));
}

ActionListObject::ActionListObject(std::shared_ptr<Session> session, std::vector<Value> items)
    : SimObjectOf(std::move(session), "ActionList"), m_items(std::move(items)) {}

std::span<const Member<ActionListObject>> ActionListObject::Members() { return kListMembers; }

const Value& ActionListObject::Get(int32_t position, ValueType wanted) {
  if (position < 0 || position >= static_cast<int32_t>(m_items.size())) {
    ThrowGeneralError(Format(L"There is no item at position %d.", position));
  }
  return Checked(session(), m_items[static_cast<size_t>(position)], wanted,
                 Format(L"The item at position %d", position));
}

ActionReferenceObject::ActionReferenceObject(std::shared_ptr<Session> session, Reference value)
    : SimObjectOf(std::move(session), "ActionReference"), m_value(std::move(value)) {}

std::span<const Member<ActionReferenceObject>> ActionReferenceObject::Members() { return kReferenceMembers; }

}  // namespace ostrel::sim
