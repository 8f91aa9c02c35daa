// The shapes in which the library reads and commands Photoshop through the Action Manager and the object
// model. Every helper assumes a filled application object (the caller tests IsConnected first) and lets an
// AutomationError pass to the caller's guarded region. Type ids are asked of Photoshop at every use.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/connection.h"
#include "frame/dispatch_driver.h"
#include "frame/dispids.h"

namespace ostrel::am {

// ---- Type ids ------------------------------------------------------------------------------------------------

int32_t CharId(std::wstring_view fourChars);   // charIDToTypeID
int32_t StringId(std::wstring_view stringId);  // stringIDToTypeID
std::wstring TypeIdToStringId(int32_t typeId);
std::wstring TypeIdToCharId(int32_t typeId);

// A key's or value's name: the string form, or the char form where the id has no string form.
std::wstring NameOfTypeId(int32_t typeId);

// A name back to a type id: charIDToTypeID first; if that gives -1 or fails, stringIDToTypeID.
int32_t TypeIdFromName(std::wstring_view name);

// ---- Objects -------------------------------------------------------------------------------------------------

// A fresh ActionDescriptor / ActionReference of the version connected. A failed creation leaves the holder
// empty: the puts on it do nothing and the following get or command fails in Photoshop.
COleDispatchDriver NewDescriptor();
COleDispatchDriver NewReference();

// Wraps a DISPATCH result in a holder (an empty holder for an empty result).
COleDispatchDriver Wrap(const Variant& result);

// ---- References ----------------------------------------------------------------------------------------------

void PutProperty(const COleDispatchDriver& ref, int32_t classId, int32_t keyId);
void PutEnumerated(const COleDispatchDriver& ref, int32_t classId, int32_t typeId, int32_t valueId);
void PutIndex(const COleDispatchDriver& ref, int32_t classId, int32_t index);
void PutIdentifier(const COleDispatchDriver& ref, int32_t classId, int32_t id);
void PutName(const COleDispatchDriver& ref, int32_t classId, const std::wstring& name);
void PutClass(const COleDispatchDriver& ref, int32_t classId);

// executeActionGet of a filled reference: the descriptor Photoshop gives back.
COleDispatchDriver ExecuteActionGet(const COleDispatchDriver& ref);

// ---- The read forms ------------------------------------------------------------------------------------------

enum class IdForm { kString, kChar };

// The application's key K: putProperty(property, K), putEnumerated(application, ordinal, targetEnum), in string
// ids or in their char twins (Prpr, capp, Ordn, Trgt).
COleDispatchDriver ReadApplicationKey(std::wstring_view key, IdForm form = IdForm::kString);
// The whole application: putEnumerated(capp, Ordn, Trgt).
COleDispatchDriver ReadApplication();
// The current document, whole or (with a key) one property: putProperty(Prpr, K) ahead of
// putEnumerated(Dcmn, Ordn, Trgt), or the same in string ids.
COleDispatchDriver ReadCurrentDocument(std::optional<std::wstring_view> key = std::nullopt,
                                       IdForm form = IdForm::kChar);
// The active layer: putEnumerated(Lyr , Ordn, Trgt).
COleDispatchDriver ReadCurrentLayer(std::optional<std::wstring_view> key = std::nullopt);
// A layer by Photoshop's putIndex place (the caller has applied the background offset) or by its id, with
// putProperty(property, K) ahead where one key is wanted.
COleDispatchDriver ReadLayerByIndex(int32_t place, std::optional<std::wstring_view> key = std::nullopt);
COleDispatchDriver ReadLayerById(int32_t layerId, std::optional<std::wstring_view> key = std::nullopt);
// Channels and paths: by index, by name (paths), or the current one.
COleDispatchDriver ReadChannelByIndex(int32_t index);
COleDispatchDriver ReadCurrentChannel();
COleDispatchDriver ReadPathByIndex(int32_t index);
COleDispatchDriver ReadPathByName(const std::wstring& name);
COleDispatchDriver ReadCurrentPath();

// ---- Descriptor and list reads -------------------------------------------------------------------------------

int32_t Count(const COleDispatchDriver& descriptorOrList);
bool HasKey(const COleDispatchDriver& desc, int32_t key);
int32_t GetKey(const COleDispatchDriver& desc, int32_t position);
int32_t GetType(const COleDispatchDriver& desc, int32_t key);
int32_t GetInteger(const COleDispatchDriver& desc, int32_t key);
double GetDouble(const COleDispatchDriver& desc, int32_t key);
double GetUnitDouble(const COleDispatchDriver& desc, int32_t key);
bool GetBoolean(const COleDispatchDriver& desc, int32_t key);
std::wstring GetString(const COleDispatchDriver& desc, int32_t key);
int32_t GetEnumerationValue(const COleDispatchDriver& desc, int32_t key);
COleDispatchDriver GetObjectValue(const COleDispatchDriver& desc, int32_t key);
COleDispatchDriver GetList(const COleDispatchDriver& desc, int32_t key);
// List items by position from 0.
double ListGetDouble(const COleDispatchDriver& list, int32_t position);
std::wstring ListGetString(const COleDispatchDriver& list, int32_t position);
COleDispatchDriver ListGetObjectValue(const COleDispatchDriver& list, int32_t position);
COleDispatchDriver ListGetReference(const COleDispatchDriver& list, int32_t position);
int32_t ReferenceGetIndex(const COleDispatchDriver& ref);

// The value types that getType gives.
using ValueType = DescriptorValueType;

// ---- Walkers -------------------------------------------------------------------------------------------------

// Every item of a collection, from position 1 up to and including its count. The position travels in a
// VARIANT of type I2 (layers, layer sets, fonts) or I4 (history states).
template <class Visit>
void ForEachItem(const COleDispatchDriver& collection, VarType positionType, Visit&& visit) {
  const int32_t count = collection.Get(dispid::obj::kCount).AsI4();
  for (int32_t position = 1; position <= count; ++position) {
    const Variant where = positionType == VarType::kI2 ? Variant::I2(static_cast<int16_t>(position))
                                                       : Variant::I4(position);
    COleDispatchDriver item = Wrap(collection.Call(dispid::obj::kItem, {where}));
    visit(item, position);
  }
}

// Every position of a list or descriptor, from 0 up to but not including its count.
template <class Visit>
void ForEachPosition(const COleDispatchDriver& listOrDescriptor, Visit&& visit) {
  const int32_t count = Count(listOrDescriptor);
  for (int32_t position = 0; position < count; ++position) visit(position);
}

// ---- Commands ------------------------------------------------------------------------------------------------

// executeAction(event, descriptor, dialog mode 3: no dialogs). What Photoshop gives back is not read.
void ExecuteAction(int32_t eventId, const COleDispatchDriver& descriptor);
// A menu command: select of a reference putEnumerated(menuItemClass, menuItemType, M).
void MenuCommand(std::wstring_view menuItem);
// A set command: a descriptor with putReference(null, target) and putObject(to, class, value), event set.
void SetCommand(const COleDispatchDriver& target, int32_t toClassId, const COleDispatchDriver& value);
void PutReference(const COleDispatchDriver& desc, int32_t keyId, const COleDispatchDriver& ref);
void PutObject(const COleDispatchDriver& desc, int32_t keyId, int32_t classId, const COleDispatchDriver& value);

// ---- Object model --------------------------------------------------------------------------------------------

COleDispatchDriver ActiveDocument();
COleDispatchDriver ActiveLayer(const COleDispatchDriver& document);

// The one dialog mode of every command: no dialogs.
inline constexpr int32_t kDialogModeNone = 3;

}  // namespace ostrel::am
