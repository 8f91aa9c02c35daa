// The document, its history, and the application: object-model reads for the most part, the Action Manager
// where a key has no property.
#include "photoshop/documents.h"

#include "frame/connection.h"
#include "frame/dispids.h"
#include "photoshop/action_manager.h"
#include "photoshop/main_window.h"
#include "platform/platform.h"

namespace ostrel {
namespace {

namespace obj = dispid::obj;

// The history panel answers "no such element" in this wording when a document has no history brush source.
constexpr std::wstring_view kNoSuchElementChinese = L"没有这种元素";
// What the main window's title holds while its document is in quick mask mode.
constexpr std::wstring_view kQuickMaskTitle = L"快速蒙版";
// The save option of close: don't save, and don't ask.
constexpr int32_t kDoNotSaveChanges = 2;

COleDispatchDriver HistoryStates(const COleDispatchDriver& document) {
  return am::Wrap(document.Get(obj::kHistoryStates));
}

// The history state at a position from 1.
COleDispatchDriver HistoryStateAt(const COleDispatchDriver& states, long position) {
  return am::Wrap(states.Call(obj::kItem, {Variant::I4(static_cast<int32_t>(position))}));
}

std::wstring NameOf(const COleDispatchDriver& object) { return object.Get(obj::kName).AsBstr(); }

}  // namespace

// ---- History ---------------------------------------------------------------------------------------------------

std::wstring CurrentHistoryName() {
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver state = am::Wrap(document.Get(obj::kActiveHistoryState));
  return NameOf(state);
}

int CurrentHistoryIndex() {
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver states = HistoryStates(document);
  const COleDispatchDriver state = am::Wrap(document.Get(obj::kActiveHistoryState));
  return states.Call(obj::kIndex, {Variant::Dispatch(state.m_lpDispatch)}).AsI4();
}

int HistoryCount() {
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver states = HistoryStates(document);
  return states.Get(obj::kCount).AsI4();
}

int ReadHistoryList(std::vector<std::wstring>& names) {
  names.clear();
  const int count = HistoryCount();
  if (count < 0) return 0;
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver states = HistoryStates(document);
  if (document.IsEmpty() || states.IsEmpty()) return 0;
  for (int position = 1; position <= count; ++position) {
    const COleDispatchDriver state = HistoryStateAt(states, position);
    if (state.IsEmpty()) {
      names.clear();
      return 0;
    }
    names.push_back(NameOf(state));
  }
  return 1;
}

std::wstring HistoryName(long position) {
  HistoryCount();  // asked first, as the history panel's own reads do; Photoshop refuses a position outside it
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver state = HistoryStateAt(HistoryStates(document), position);
  return NameOf(state);
}

int JumpHistory(long position) {
  HistoryCount();
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver state = HistoryStateAt(HistoryStates(document), position);
  document.Put(obj::kActiveHistoryState, Variant::Dispatch(state.m_lpDispatch));
  return 1;
}

int ReadHistoryBrushSource(std::wstring& name) {
  name.clear();
  const COleDispatchDriver document = am::ActiveDocument();
  try {
    const COleDispatchDriver source = am::Wrap(document.Get(obj::kActiveHistoryBrushSource));
    name = NameOf(source);
    return 1;
  } catch (const AutomationError& failure) {
    std::wstring message = failure.description();
    if (message.size() > 1023) message.resize(1023);  // the message buffer holds 1024 characters
    if (message == kNoSuchElementChinese) return 1;  // the document has no source
    throw;
  }
}

int DeleteCurrentHistory() {
  const COleDispatchDriver reference = am::NewReference();
  am::PutProperty(reference, am::StringId(L"historyState"), am::StringId(L"currentHistoryState"));
  const COleDispatchDriver descriptor = am::NewDescriptor();
  am::PutReference(descriptor, am::StringId(L"null"), reference);
  am::ExecuteAction(am::StringId(L"delete"), descriptor);
  return 1;
}

// ---- Document --------------------------------------------------------------------------------------------------

long DocumentCount() {
  const COleDispatchDriver documents = am::Wrap(Application().Get(dispid::app::kDocuments));
  return documents.Get(obj::kCount).AsI4();
}

std::wstring CurrentDocumentName() { return NameOf(am::ActiveDocument()); }

std::wstring CurrentFileFullName() { return am::ActiveDocument().Get(obj::kFullName).AsBstr(); }

tagSIZE CurrentCanvasSize() {
  const COleDispatchDriver document = am::ActiveDocument();
  const double width = document.Get(obj::kWidth).AsR8();
  const double height = document.Get(obj::kHeight).AsR8();
  return tagSIZE{static_cast<long>(width), static_cast<long>(height)};  // cut towards zero
}

int CloseCurrentDocument() {
  const COleDispatchDriver document = am::ActiveDocument();
  document.Call(obj::kClose, {Variant::I4(kDoNotSaveChanges)});
  return 1;
}

int IsArtboardEnabled() {
  const COleDispatchDriver document = am::ReadCurrentDocument();
  const int32_t layers = am::GetInteger(document, am::StringId(L"numberOfLayers"));
  for (int32_t index = 1; index <= layers; ++index) {
    const COleDispatchDriver layer = am::ReadLayerByIndex(index);
    if (am::GetBoolean(layer, am::StringId(L"artboardEnabled"))) return 1;
  }
  return 0;
}

int HasSelection() {
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver selection = am::Wrap(document.Get(obj::kSelection));
  selection.Get(obj::kBounds);  // only whether Photoshop gives the bounds matters
  return 1;
}

int IsQuickMaskMode() {
  try {
    const COleDispatchDriver document = am::ActiveDocument();
    return document.Get(obj::kQuickMaskMode).AsBool() ? 1 : 0;
  } catch (const AutomationError&) {
    return MainWindowTitleHolds(kQuickMaskTitle) ? 1 : 0;  // Photoshop can't say: its main window's title can
  }
}

// ---- Application -----------------------------------------------------------------------------------------------

std::wstring ApplicationVersion() { return Application().Get(dispid::app::kVersion).AsBstr(); }

std::wstring ApplicationPath() { return Application().Get(dispid::app::kPath).AsBstr(); }

int OpenFile(const std::wstring& path) {
  Application().Call(dispid::app::kLoad, {Variant::Bstr(path)});
  return 1;
}

int ReadWorkspaceList(std::vector<std::wstring>& names) {
  const COleDispatchDriver application = am::ReadApplicationKey(L"workspaceList");
  const COleDispatchDriver list = am::GetList(application, am::StringId(L"workspaceList"));
  names.clear();  // only now: a failure before this leaves the caller's vector as it was
  am::ForEachPosition(list, [&](int32_t position) {
    const COleDispatchDriver workspace = am::ListGetObjectValue(list, position);
    names.push_back(am::GetString(workspace, am::StringId(L"displayName")));
  });
  return 1;
}

int ClearRecentFiles() {
  am::MenuCommand(L"clearRecentFiles");
  return 1;
}

int UsesLegacyNewDocument() {
  const COleDispatchDriver application = am::ReadApplicationKey(L"generalPreferences");
  const COleDispatchDriver preferences = am::GetObjectValue(application, am::StringId(L"generalPreferences"));
  return am::GetBoolean(preferences, am::StringId(L"useClassicFileNewDialog")) ? 1 : 0;
}

int EmptiedAnd(std::vector<std::wstring>& names, int result) noexcept {
  names.clear();
  return result;
}

int EmptiedAnd(std::wstring& name, int result) noexcept {
  name.clear();
  return result;
}

}  // namespace ostrel
