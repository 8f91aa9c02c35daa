// Registering the notifiers through Photoshop's object model: the application's notifiersEnabled and its
// notifiers collection (add, removeAll).
#include "events/notifiers.h"

#include "events/event_file.h"
#include "frame/connection.h"
#include "frame/dispids.h"
#include "frame/guard.h"
#include "photoshop/action_manager.h"

namespace ostrel {
namespace {

namespace app = dispid::app;
namespace obj = dispid::obj;

COleDispatchDriver NotifiersCollection() {
  return am::Wrap(Application().Get(app::kNotifiers));
}

}  // namespace

int RegisterNotifiers(const std::wstring& scriptPath) {
  DeleteEventFile();
  if (!IsConnected()) return 0;
  if (!Application().Get(app::kNotifiersEnabled).AsBool()) {
    Application().Put(app::kNotifiersEnabled, Variant::Bool(true));
  }
  COleDispatchDriver notifiers = NotifiersCollection();
  notifiers.Call(obj::kRemoveAll);
  for (const wchar_t* event : kNotifierEvents) {
    notifiers.Call(obj::kAdd, {Variant::Bstr(event), Variant::Bstr(scriptPath), Variant::Bstr(L"")});
  }
  notifiers.ReleaseDispatch();
  return 1;
}

int RegisterNotifiersUnconnected() noexcept {
  Guarded(0, [] { return DeleteEventFile(); });
  return 0;
}

int UnregisterNotifiers() {
  if (!IsConnected()) return 0;
  if (!Application().Get(app::kNotifiersEnabled).AsBool()) return 1;
  COleDispatchDriver notifiers = NotifiersCollection();
  if (notifiers.IsEmpty()) return 0;
  notifiers.Call(obj::kRemoveAll);
  Application().Put(app::kNotifiersEnabled, Variant::Bool(false));
  notifiers.ReleaseDispatch();
  return 1;
}

}  // namespace ostrel
