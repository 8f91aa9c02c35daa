// The Application object by Photoshop's dispatch ids.
#include "simulator/application_object.h"

#include "frame/dispids.h"
#include "simulator/action_get.h"
#include "simulator/action_objects.h"
#include "simulator/commands.h"
#include "simulator/object_model.h"

namespace ostrel::sim {
namespace {

using Args = std::span<const Variant>;
using A = ApplicationObject;
constexpr InvokeKind kMethod = InvokeKind::kMethod;
constexpr InvokeKind kGet = InvokeKind::kPropertyGet;
constexpr InvokeKind kPut = InvokeKind::kPropertyPut;
namespace da = dispid::app;

// The version string of each ProgID version, for a scenario that names none.
struct VersionRow {
  int progIdVersion;
  const wchar_t* version;
};
constexpr VersionRow kVersions[] = {
    {110, L"18.0.0"},  // CC 2017
    {120, L"19.0.0"},  // CC 2018
    {130, L"20.0.0"},  // CC 2019
    {140, L"21.0.0"},  // 2020
    {150, L"22.0.0"},  // 2021
};

std::wstring Version(const Session& session) {
  if (!session.state.app.version.empty()) return session.state.app.version;
  for (const VersionRow& row : kVersions) {
    if (row.progIdVersion == session.createdVersion) return row.version;
  }
  return L"";
}

std::wstring InstallPath(const Session& session) {
  if (!session.state.app.path.empty()) return session.state.app.path;
  const Value* path = session.state.app.descriptor.Find(CharId("Path"));
  return path && path->type == ValueType::kAlias ? path->text : L"";
}

// A text of four characters is a char id (one above U+00FF fails); what Photoshop does with another length is the
// scenario's choice: fail, or answer -1.
Variant CharIdToTypeId(A& self, Args args) {
  const std::wstring text = ArgBstr(args, 0);
  if (text.size() != 4 && self.session().state.unsettled.charIdOfOtherLengthGivesMinusOne) return Variant::I4(-1);
  const auto id = TypeIds::CharIdToTypeId(text);
  if (!id) ThrowGeneralError(L"\u201c" + text + L"\u201d is not a four-character id.");
  return Variant::I4(*id);
}

Variant ExecuteActionGetCall(A& self, Args args) {
  Descriptor result = ExecuteActionGet(self.session(), ArgObject<ActionReferenceObject>(args, 0).value());
  return Variant::Dispatch(std::make_shared<ActionDescriptorObject>(self.sessionPtr(), std::move(result)));
}

Variant ExecuteActionCall(A& self, Args args) {
  const int32_t eventId = ArgI4(args, 0);
  std::optional<Descriptor> descriptor;
  if (args.size() > 1 && !args[1].IsEmpty()) descriptor = ArgObject<ActionDescriptorObject>(args, 1).value();
  const int32_t dialogMode = args.size() > 2 && !args[2].IsEmpty() ? ArgI4(args, 2) : 0;
  Descriptor result = ExecuteAction(self.session(), eventId, descriptor, dialogMode);
  return Variant::Dispatch(std::make_shared<ActionDescriptorObject>(self.sessionPtr(), std::move(result)));
}

Variant ActiveDocument(A& self, Args) {
  DocumentState* document = ActiveDocument(self.session().state);
  if (!document) ThrowNoSuchElement(self.session());
  return Variant::Dispatch(NewDocumentObject(self.sessionPtr(), document->serial));
}

const Member<A> kApplicationMembers[] = {
    {da::kStringIDToTypeID, kMethod, "stringIDToTypeID", 1, 1,
     [](A& self, Args args) { return Variant::I4(self.session().ids.StringIdToTypeId(ArgBstr(args, 0))); }},
    {da::kTypeIDToStringID, kMethod, "typeIDToStringID", 1, 1,
     [](A& self, Args args) { return Variant::Bstr(self.session().ids.TypeIdToStringId(ArgI4(args, 0))); }},
    {da::kCharIDToTypeID, kMethod, "charIDToTypeID", 1, 1, CharIdToTypeId},
    {da::kTypeIDToCharID, kMethod, "typeIDToCharID", 1, 1,
     [](A&, Args args) { return Variant::Bstr(TypeIds::TypeIdToCharId(ArgI4(args, 0))); }},
    {da::kExecuteActionGet, kMethod, "executeActionGet", 1, 1, ExecuteActionGetCall},
    {da::kExecuteAction, kMethod, "executeAction", 1, 3, ExecuteActionCall},
    {da::kLoad, kMethod, "load", 1, 1,
     [](A& self, Args args) {
       JournalCall(self.session(), "load", ArgBstr(args, 0));
       return Variant();
     }},
    {da::kActiveDocument, kGet, "activeDocument", 0, 0, ActiveDocument},
    {da::kDocuments, kGet, "documents", 0, 0,
     [](A& self, Args) { return Variant::Dispatch(NewDocumentsCollection(self.sessionPtr())); }},
    {da::kFonts, kGet, "fonts", 0, 0, [](A& self, Args) { return Variant::Dispatch(NewFontsCollection(self.sessionPtr())); }},
    {da::kCurrentTool, kGet, "currentTool", 0, 0, [](A& self, Args) { return Variant::Bstr(CurrentTool(self.session())); }},
    {da::kCurrentTool, kPut, "currentTool", 1, 1,
     [](A& self, Args args) {
       const std::wstring tool = ArgBstr(args, 0);
       SelectTool(self.session(), tool);
       JournalCall(self.session(), "currentTool", tool);
       return Variant();
     }},
    {da::kVersion, kGet, "version", 0, 0, [](A& self, Args) { return Variant::Bstr(Version(self.session())); }},
    {da::kPath, kGet, "path", 0, 0, [](A& self, Args) { return Variant::Bstr(InstallPath(self.session())); }},
    {da::kVisible, kGet, "visible", 0, 0, [](A& self, Args) { return Variant::Bool(self.session().state.app.visible); }},
    {da::kForegroundColor, kGet, "foregroundColor", 0, 0,
     [](A& self, Args) { return Variant::Dispatch(NewSolidColor(self.sessionPtr(), CharId("FrgC"))); }},
    {da::kForegroundColor, kPut, "foregroundColor", 1, 1,
     [](A& self, Args args) {
       PutSolidColor(self.session(), CharId("FrgC"), args[0]);
       return Variant();
     }},
    {da::kBackgroundColor, kGet, "backgroundColor", 0, 0,
     [](A& self, Args) { return Variant::Dispatch(NewSolidColor(self.sessionPtr(), CharId("BckC"))); }},
    {da::kBackgroundColor, kPut, "backgroundColor", 1, 1,
     [](A& self, Args args) {
       PutSolidColor(self.session(), CharId("BckC"), args[0]);
       return Variant();
     }},
    {da::kNotifiers, kGet, "notifiers", 0, 0,
     [](A& self, Args) { return Variant::Dispatch(NewNotifiersCollection(self.sessionPtr())); }},
    {da::kNotifiersEnabled, kGet, "notifiersEnabled", 0, 0,
     [](A& self, Args) { return Variant::Bool(self.session().state.app.notifiersEnabled); }},
    {da::kNotifiersEnabled, kPut, "notifiersEnabled", 1, 1,
     [](A& self, Args args) {
       self.session().state.app.notifiersEnabled = ArgBool(args, 0);
       JournalCall(self.session(), "notifiersEnabled", ArgBool(args, 0) ? L"1" : L"0");
       return Variant();
     }},
};

}  // namespace

ApplicationObject::ApplicationObject(std::shared_ptr<Session> session)
    : SimObjectOf(std::move(session), "Application") {}

std::span<const Member<ApplicationObject>> ApplicationObject::Members() { return kApplicationMembers; }

}  // namespace ostrel::sim
