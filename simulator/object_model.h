// Photoshop's object model as far as the library uses it: documents, art layers and layer sets with their
// collections, history states, channels, path items, the selection, fonts, notifiers and colours. The objects
// name what they stand for (a document by its serial, a layer by its id) and look it up at every call, so an
// object whose document was closed fails as Photoshop's would.
#pragma once

#include <memory>

#include "platform/automation.h"
#include "simulator/session.h"

namespace ostrel::sim {

DispatchPtr NewDocumentObject(const std::shared_ptr<Session>& session, int serial);
DispatchPtr NewDocumentsCollection(const std::shared_ptr<Session>& session);
DispatchPtr NewFontsCollection(const std::shared_ptr<Session>& session);
DispatchPtr NewNotifiersCollection(const std::shared_ptr<Session>& session);
// A SolidColor with the colour of an application key ("foregroundColor" or "backgroundColor").
DispatchPtr NewSolidColor(const std::shared_ptr<Session>& session, int32_t key);
// Puts the colour of a SolidColor argument into that application key.
void PutSolidColor(Session& session, int32_t key, const Variant& solidColor);

}  // namespace ostrel::sim
