// executeActionGet: a reference resolved against the simulated state, as Photoshop resolves it. The first element
// may narrow the read to one key (putProperty); the next names the target (application, document, layer, channel,
// path, history state) by class, enumeration, index, id or name; a document element after it names the document
// that holds the target, otherwise the current document does.
#pragma once

#include "simulator/session.h"
#include "simulator/values.h"

namespace ostrel::sim {

// The descriptor that Photoshop returns for the reference: the whole target, or only the key asked for.
// A target or key that isn't there throws Photoshop's refusal.
Descriptor ExecuteActionGet(Session& session, const Reference& reference);

// The document that the containers of a reference name, from element `from` on; the current one if none does.
DocumentState& ResolveDocument(Session& session, const Reference& reference, size_t from);
// The layer node (not an end entry) that a layer element names, in document.
LayerNode& ResolveLayerNode(Session& session, DocumentState& document, const RefElement& element);

// A document's and a layer's descriptor as a read gives them: with the keys that follow from the stack.
Descriptor DocumentDescriptor(Session& session, DocumentState& document);
Descriptor LayerDescriptor(Session& session, DocumentState& document, const StackEntry& entry, int itemIndex);

}  // namespace ostrel::sim
