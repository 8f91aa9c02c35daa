// The read and command shapes of the Action Manager.
#include "photoshop/action_manager.h"

namespace ostrel::am {

using dispid::app::kCharIDToTypeID;
using dispid::app::kStringIDToTypeID;

int32_t CharId(std::wstring_view fourChars) {
  return Application().Call(kCharIDToTypeID, {Variant::Bstr(std::wstring(fourChars))}).AsI4();
}

int32_t StringId(std::wstring_view stringId) {
  return Application().Call(kStringIDToTypeID, {Variant::Bstr(std::wstring(stringId))}).AsI4();
}

std::wstring TypeIdToStringId(int32_t typeId) {
  return Application().Call(dispid::app::kTypeIDToStringID, {Variant::I4(typeId)}).AsBstr();
}

std::wstring TypeIdToCharId(int32_t typeId) {
  return Application().Call(dispid::app::kTypeIDToCharID, {Variant::I4(typeId)}).AsBstr();
}

std::wstring NameOfTypeId(int32_t typeId) {
  std::wstring name = TypeIdToStringId(typeId);
  if (name.empty()) name = TypeIdToCharId(typeId);
  return name;
}

int32_t TypeIdFromName(std::wstring_view name) {
  try {
    const int32_t id = CharId(name);
    if (id != -1) return id;
  } catch (const AutomationError&) {
    // a name that is no char id: its string form is asked next
  }
  return StringId(name);
}

COleDispatchDriver NewDescriptor() {
  COleDispatchDriver desc;
  desc.CreateDispatch(DescriptorProgID());
  return desc;
}

COleDispatchDriver NewReference() {
  COleDispatchDriver ref;
  ref.CreateDispatch(ReferenceProgID());
  return ref;
}

COleDispatchDriver Wrap(const Variant& result) {
  if (result.type() != VarType::kDispatch) return COleDispatchDriver();
  return COleDispatchDriver(result.AsDispatch());
}

void PutProperty(const COleDispatchDriver& ref, int32_t classId, int32_t keyId) {
  ref.Call(dispid::ref::kPutProperty, {Variant::I4(classId), Variant::I4(keyId)});
}

void PutEnumerated(const COleDispatchDriver& ref, int32_t classId, int32_t typeId, int32_t valueId) {
  ref.Call(dispid::ref::kPutEnumerated, {Variant::I4(classId), Variant::I4(typeId), Variant::I4(valueId)});
}

void PutIndex(const COleDispatchDriver& ref, int32_t classId, int32_t index) {
  ref.Call(dispid::ref::kPutIndex, {Variant::I4(classId), Variant::I4(index)});
}

void PutIdentifier(const COleDispatchDriver& ref, int32_t classId, int32_t id) {
  ref.Call(dispid::ref::kPutIdentifier, {Variant::I4(classId), Variant::I4(id)});
}

void PutName(const COleDispatchDriver& ref, int32_t classId, const std::wstring& name) {
  ref.Call(dispid::ref::kPutName, {Variant::I4(classId), Variant::Bstr(name)});
}

void PutClass(const COleDispatchDriver& ref, int32_t classId) {
  ref.Call(dispid::ref::kPutClass, {Variant::I4(classId)});
}

COleDispatchDriver ExecuteActionGet(const COleDispatchDriver& ref) {
  return Wrap(Application().Call(dispid::app::kExecuteActionGet, {Variant::Dispatch(ref.m_lpDispatch)}));
}

namespace {

// The names of one reference form, in string ids or in their char twins.
struct FormNames {
  const wchar_t* property;
  const wchar_t* application;
  const wchar_t* ordinal;
  const wchar_t* target;
  const wchar_t* document;
};

constexpr FormNames kStringNames = {L"property", L"application", L"ordinal", L"targetEnum", L"document"};
constexpr FormNames kCharNames = {L"Prpr", L"capp", L"Ordn", L"Trgt", L"Dcmn"};

int32_t IdOf(IdForm form, const wchar_t* name) { return form == IdForm::kChar ? CharId(name) : StringId(name); }

}  // namespace

COleDispatchDriver ReadApplicationKey(std::wstring_view key, IdForm form) {
  const FormNames& names = form == IdForm::kChar ? kCharNames : kStringNames;
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  PutProperty(ref, IdOf(form, names.property), StringId(key));
  PutEnumerated(ref, IdOf(form, names.application), IdOf(form, names.ordinal), IdOf(form, names.target));
  desc = ExecuteActionGet(ref);
  return desc;
}

COleDispatchDriver ReadApplication() {
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  PutEnumerated(ref, CharId(L"capp"), CharId(L"Ordn"), CharId(L"Trgt"));
  desc = ExecuteActionGet(ref);
  return desc;
}

COleDispatchDriver ReadCurrentDocument(std::optional<std::wstring_view> key, IdForm form) {
  const FormNames& names = form == IdForm::kChar ? kCharNames : kStringNames;
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  if (key) PutProperty(ref, IdOf(form, names.property), StringId(*key));
  PutEnumerated(ref, IdOf(form, names.document), IdOf(form, names.ordinal), IdOf(form, names.target));
  desc = ExecuteActionGet(ref);
  return desc;
}

COleDispatchDriver ReadCurrentLayer(std::optional<std::wstring_view> key) {
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  if (key) PutProperty(ref, StringId(L"property"), StringId(*key));
  PutEnumerated(ref, CharId(L"Lyr "), CharId(L"Ordn"), CharId(L"Trgt"));
  desc = ExecuteActionGet(ref);
  return desc;
}

COleDispatchDriver ReadLayerByIndex(int32_t place, std::optional<std::wstring_view> key) {
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  if (key) PutProperty(ref, StringId(L"property"), StringId(*key));
  PutIndex(ref, CharId(L"Lyr "), place);
  desc = ExecuteActionGet(ref);
  return desc;
}

COleDispatchDriver ReadLayerById(int32_t layerId, std::optional<std::wstring_view> key) {
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  if (key) PutProperty(ref, StringId(L"property"), StringId(*key));
  PutIdentifier(ref, CharId(L"Lyr "), layerId);
  desc = ExecuteActionGet(ref);
  return desc;
}

namespace {

// A read of one channel or path: the reference is filled by fill(ref, classId).
template <class Fill>
COleDispatchDriver ReadOne(const wchar_t* classChars, Fill&& fill) {
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  fill(ref, CharId(classChars));
  desc = ExecuteActionGet(ref);
  return desc;
}

void PutCurrent(const COleDispatchDriver& ref, int32_t classId) {
  PutEnumerated(ref, classId, CharId(L"Ordn"), CharId(L"Trgt"));
}

}  // namespace

COleDispatchDriver ReadChannelByIndex(int32_t index) {
  return ReadOne(L"Chnl", [&](const COleDispatchDriver& ref, int32_t cls) { PutIndex(ref, cls, index); });
}

COleDispatchDriver ReadCurrentChannel() { return ReadOne(L"Chnl", PutCurrent); }

COleDispatchDriver ReadPathByIndex(int32_t index) {
  return ReadOne(L"Path", [&](const COleDispatchDriver& ref, int32_t cls) { PutIndex(ref, cls, index); });
}

COleDispatchDriver ReadPathByName(const std::wstring& name) {
  return ReadOne(L"Path", [&](const COleDispatchDriver& ref, int32_t cls) { PutName(ref, cls, name); });
}

COleDispatchDriver ReadCurrentPath() { return ReadOne(L"Path", PutCurrent); }

int32_t Count(const COleDispatchDriver& descriptorOrList) {
  return descriptorOrList.Get(dispid::desc::kCount).AsI4();
}

bool HasKey(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kHasKey, {Variant::I4(key)}).AsBool();
}

int32_t GetKey(const COleDispatchDriver& desc, int32_t position) {
  return desc.Call(dispid::desc::kGetKey, {Variant::I4(position)}).AsI4();
}

int32_t GetType(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetType, {Variant::I4(key)}).AsI4();
}

int32_t GetInteger(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetInteger, {Variant::I4(key)}).AsI4();
}

double GetDouble(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetDouble, {Variant::I4(key)}).AsR8();
}

double GetUnitDouble(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetUnitDoubleValue, {Variant::I4(key)}).AsR8();
}

bool GetBoolean(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetBoolean, {Variant::I4(key)}).AsBool();
}

std::wstring GetString(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetString, {Variant::I4(key)}).AsBstr();
}

int32_t GetEnumerationValue(const COleDispatchDriver& desc, int32_t key) {
  return desc.Call(dispid::desc::kGetEnumerationValue, {Variant::I4(key)}).AsI4();
}

COleDispatchDriver GetObjectValue(const COleDispatchDriver& desc, int32_t key) {
  return Wrap(desc.Call(dispid::desc::kGetObjectValue, {Variant::I4(key)}));
}

COleDispatchDriver GetList(const COleDispatchDriver& desc, int32_t key) {
  return Wrap(desc.Call(dispid::desc::kGetList, {Variant::I4(key)}));
}

double ListGetDouble(const COleDispatchDriver& list, int32_t position) {
  return list.Call(dispid::list::kGetDouble, {Variant::I4(position)}).AsR8();
}

std::wstring ListGetString(const COleDispatchDriver& list, int32_t position) {
  return list.Call(dispid::list::kGetString, {Variant::I4(position)}).AsBstr();
}

COleDispatchDriver ListGetObjectValue(const COleDispatchDriver& list, int32_t position) {
  return Wrap(list.Call(dispid::list::kGetObjectValue, {Variant::I4(position)}));
}

COleDispatchDriver ListGetReference(const COleDispatchDriver& list, int32_t position) {
  return Wrap(list.Call(dispid::list::kGetReference, {Variant::I4(position)}));
}

int32_t ReferenceGetIndex(const COleDispatchDriver& ref) { return ref.Call(dispid::ref::kGetIndex).AsI4(); }

void ExecuteAction(int32_t eventId, const COleDispatchDriver& descriptor) {
  Application().Call(dispid::app::kExecuteAction,
                     {Variant::I4(eventId), Variant::Dispatch(descriptor.m_lpDispatch), Variant::I4(kDialogModeNone)});
}

void PutReference(const COleDispatchDriver& desc, int32_t keyId, const COleDispatchDriver& ref) {
  desc.Call(dispid::desc::kPutReference, {Variant::I4(keyId), Variant::Dispatch(ref.m_lpDispatch)});
}

void PutObject(const COleDispatchDriver& desc, int32_t keyId, int32_t classId, const COleDispatchDriver& value) {
  desc.Call(dispid::desc::kPutObject, {Variant::I4(keyId), Variant::I4(classId), Variant::Dispatch(value.m_lpDispatch)});
}

void MenuCommand(std::wstring_view menuItem) {
  COleDispatchDriver desc = NewDescriptor();
  COleDispatchDriver ref = NewReference();
  PutEnumerated(ref, StringId(L"menuItemClass"), StringId(L"menuItemType"), StringId(menuItem));
  PutReference(desc, StringId(L"null"), ref);
  ExecuteAction(StringId(L"select"), desc);
}

void SetCommand(const COleDispatchDriver& target, int32_t toClassId, const COleDispatchDriver& value) {
  COleDispatchDriver desc = NewDescriptor();
  PutReference(desc, StringId(L"null"), target);
  PutObject(desc, StringId(L"to"), toClassId, value);
  ExecuteAction(StringId(L"set"), desc);
}

COleDispatchDriver ActiveDocument() { return Wrap(Application().Get(dispid::app::kActiveDocument)); }

COleDispatchDriver ActiveLayer(const COleDispatchDriver& document) {
  return Wrap(document.Get(dispid::obj::kActiveLayer));
}

}  // namespace ostrel::am
