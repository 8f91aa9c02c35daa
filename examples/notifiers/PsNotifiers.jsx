// PsNotifiers.jsx: the notifier script of the lesson player. Ostrel_InitNotifiers registers this file with
// Photoshop for 32 events; Photoshop runs it on each of them, with the event's descriptor in arguments[0] and the
// event's id in arguments[1]. It writes what happened into PsNotifiers.ini in the user's temporary directory,
// where the library's readers (Ostrel_IsColorExchange, Ostrel_GetAddMask, ...) find it.
//
// The file is written in UTF-16LE with its byte order mark and CR LF line ends: the form in which the Windows
// profile functions read Chinese layer names whatever the system's code page. Each event rewrites the whole file
// at once, keeping the keys it doesn't change (the library blanks keys it has read in the same file).
//
// ExtendScript (ECMAScript 3): no let, no arrow functions, no Array indexOf. The functions keysForEvent and
// writeKeys know nothing of Photoshop; the library's tests run them under Node with a stand-in for File.

var PsNotifiers = (function () {
  // The char ids of the registered events, for an id that has no string form.
  var CHAR_EVENTS = {
    "slct": "select", "setd": "set", "Sbtr": "subtract", "Add ": "add", "Intr": "interfaceIconFrameDimmed",
    "Exch": "exchange", "Dlt ": "delete", "Dplc": "duplicate", "Rset": "reset", "Mk  ": "make", "AddT": "addTo",
    "SbtF": "subtractFrom", "IntW": "interfaceWhite", "GrpL": "groupEvent", "Ungr": "ungroup"
  };
  // The selection mode (EnSelectMode) of each event that loads a selection.
  var SELECT_MODES = {
    "set": 0, "add": 1, "addTo": 1, "subtract": 2, "subtractFrom": 2, "interfaceIconFrameDimmed": 3,
    "interfaceWhite": 3
  };
  // The panel (EnLayerPanel) of the object loaded as a selection.
  var PANELS = { "layer": 0, "channel": 1, "path": 2 };
  // What the selection or mask was made of, by the enumeration that names it: the number the file holds.
  var MASK_TYPES = { "transparencyEnum": 0, "mask": 1, "vectorMask": 2, "filterMask": 3 };

  function eventName(eventId) {
    var name = typeIDToStringID(eventId);
    if (name) return name;
    var code = typeIDToCharID(eventId);
    return CHAR_EVENTS[code] || code;
  }

  // The keys that an event sets, as [section, key, value] in the order they are written. facts is what
  // describeEvent read of the descriptor.
  function keysForEvent(name, facts) {
    var keys = [];
    function put(section, key, value) { keys.push([section, key, String(value)]); }
    var layerName = facts.targetName ? facts.targetName : "-1";  // "-1": the layer that is current now

    if (name === "exchange" && facts.property === "colors") put("Color", "ColorState", 1);
    else if (name === "reset" && facts.property === "colors") put("Color", "ColorState", 2);
    else if (name === "select" && facts.targetClass === "layer") put("select", "Name", facts.targetName || "");
    else if (name === "select" && facts.targetClass === "brush") put("Brush", "PresetName", facts.targetName || "");
    else if (SELECT_MODES.hasOwnProperty(name) && facts.sourceClass && PANELS.hasOwnProperty(facts.sourceClass)) {
      put("LoadSelection", "Mode", SELECT_MODES[name]);
      put("LoadSelection", "Type", PANELS[facts.sourceClass]);
      put("LoadSelection", "MaskType", MASK_TYPES.hasOwnProperty(facts.sourceEnum) ? MASK_TYPES[facts.sourceEnum] : 0);
      put("LoadSelection", "Name", facts.sourceName);  // last: the name is what tells the reader of an event
    } else if (name === "set" && facts.targetClass === "layer" && facts.maskLinkChanged) {
      put("MaskLink", "Name", layerName);
    } else if (name === "delete" && facts.targetClass === "layer") {
      put("DuplicateDelete", "Name", layerName);
    } else if (name === "delete" && facts.targetClass === "channel" && facts.targetEnum === "mask") {
      put("DuplicateDelete", "Name", "-1");  // the mask of the current layer
    } else if (name === "duplicate" && facts.targetClass === "layer") {
      put("DuplicateDelete", "Name", facts.newName ? facts.newName : layerName);
    } else if (name === "make" && MASK_TYPES.hasOwnProperty(facts.atEnum) && facts.atEnum !== "transparencyEnum") {
      if (facts.usingName) {  // a mask copied from another layer onto the current one
        put("Mask", "MakeMaskAddMode", "");
        put("Mask", "MaskLayerNameStart", facts.usingName);
        put("Mask", "MaskLayerNameDest", "-1");
      } else {
        put("Mask", "MakeMaskAddMode", 1);
      }
      put("Mask", "MaskType", MASK_TYPES[facts.atEnum]);
    } else if (name === "groupEvent") {  // Create Clipping Mask: the current layer joins the one below
      put("JoinLayerMask", "State", 1);
      put("JoinLayerMask", "LayerName", "-1");
      put("Mask", "MakeMaskAddMode", 1);
      put("Mask", "MaskType", 4);
    } else if (name === "ungroup") {
      put("JoinLayerMask", "State", 0);
      put("JoinLayerMask", "LayerName", "-1");
    } else if (name === "placedLayerEditContents") {
      put("SmartObject", "State", 1);
    } else if (name === "placedLayerReplaceContents" && facts.path) {
      put("SmartObject", "Path", facts.path);
    }
    return keys;
  }

  // ---- The file: read as bytes, changed line by line, written whole --------------------------------------------

  function decode(bytes) {
    if (bytes.length >= 2 && bytes.charCodeAt(0) === 0xFF && bytes.charCodeAt(1) === 0xFE) {
      var text = "";
      for (var i = 2; i + 1 < bytes.length; i += 2) {
        text += String.fromCharCode(bytes.charCodeAt(i) | (bytes.charCodeAt(i + 1) << 8));
      }
      return text;
    }
    return bytes;  // a file of another writer: its ASCII survives
  }

  function encode(text) {
    var bytes = String.fromCharCode(0xFF, 0xFE);
    for (var i = 0; i < text.length; i++) {
      var unit = text.charCodeAt(i);
      bytes += String.fromCharCode(unit & 0xFF, (unit >> 8) & 0xFF);
    }
    return bytes;
  }

  function trim(text) { return text.replace(/^[ \t]+|[ \t]+$/g, ""); }

  // Sets the keys in the lines as the profile functions do: sections and keys without regard to case, a key
  // changed where it stands, a new key at the end of its section, a new section at the end of the file.
  function setKey(lines, section, key, value) {
    var wantedSection = section.toLowerCase(), wantedKey = key.toLowerCase();
    var start = -1, end = lines.length;
    for (var i = 0; i < lines.length; i++) {
      var match = /^\s*\[([^\]]*)\]/.exec(lines[i]);
      if (!match) continue;
      if (start >= 0) { end = i; break; }
      if (trim(match[1]).toLowerCase() === wantedSection) start = i;
    }
    if (start < 0) {
      lines.push("[" + section + "]", key + "=" + value);
      return;
    }
    var last = start;
    for (var j = start + 1; j < end; j++) {
      var equals = lines[j].indexOf("=");
      if (equals >= 0 && trim(lines[j].substring(0, equals)).toLowerCase() === wantedKey) {
        lines[j] = key + "=" + value;
        return;
      }
      if (trim(lines[j]) !== "") last = j;
    }
    lines.splice(last + 1, 0, key + "=" + value);
  }

  // Writes the keys into the file (a File), in one write. Gives true when the file was written. A file that
  // can't be opened (the library reading it at this moment) loses this event rather than show an error.
  function writeKeys(file, keys) {
    if (keys.length === 0) return false;
    var text = "";
    file.encoding = "BINARY";
    if (file.exists && file.open("r")) {
      text = decode(file.read());
      file.close();
    }
    var lines = text === "" ? [] : text.split(/\r?\n/);
    if (lines.length > 0 && lines[lines.length - 1] === "") lines.pop();
    for (var i = 0; i < keys.length; i++) setKey(lines, keys[i][0], keys[i][1], keys[i][2]);
    if (!file.open("w")) return false;
    var written = file.write(encode(lines.join("\r\n") + "\r\n"));
    file.close();
    return written !== false;
  }

  // ---- Photoshop: what the descriptor says -----------------------------------------------------------------------

  function s2t(id) { return stringIDToTypeID(id); }
  function t2s(id) { var s = typeIDToStringID(id); return s ? s : typeIDToCharID(id); }

  // The class, name and enumeration of the reference's first element.
  function describeReference(ref, into, prefix) {
    try {
      into[prefix + "Class"] = t2s(ref.getDesiredClass());
      var form = ref.getForm();
      if (form === ReferenceFormType.NAME) into[prefix + "Name"] = ref.getName();
      else if (form === ReferenceFormType.ENUMERATED) into[prefix + "Enum"] = t2s(ref.getEnumeratedValue());
      else if (form === ReferenceFormType.PROPERTY) into.property = t2s(ref.getProperty());
      if (form === ReferenceFormType.PROPERTY || form === ReferenceFormType.ENUMERATED) {
        var container = ref.getContainer();  // the layer of "mask of layer X"
        if (container && t2s(container.getDesiredClass()) === "layer" &&
            container.getForm() === ReferenceFormType.NAME) {
          into[prefix + "Name"] = container.getName();
        }
      }
    } catch (e) {}
  }

  function activeLayerName() {
    try { return app.activeDocument.activeLayer.name; } catch (e) { return ""; }
  }

  function describeEvent(desc) {
    var facts = {};
    var target = s2t("null");
    if (desc.hasKey(target) && desc.getType(target) === DescValueType.REFERENCETYPE) {
      describeReference(desc.getReference(target), facts, "target");
    } else if (desc.hasKey(target) && desc.getType(target) === DescValueType.ALIASTYPE) {
      facts.path = desc.getPath(target).fsName;
    }
    // Loading a selection: "set" names the source under "to", the modes name it under "null".
    var to = s2t("to");
    if (facts.property === "selection" && desc.hasKey(to) && desc.getType(to) === DescValueType.REFERENCETYPE) {
      describeReference(desc.getReference(to), facts, "source");
    } else if (facts.targetClass && facts.property !== "selection" && facts.targetClass !== "layer") {
      facts.sourceClass = facts.targetClass === "channel" && facts.targetEnum !== "mask" ? "channel" : facts.targetClass;
      facts.sourceName = facts.targetName;
      facts.sourceEnum = facts.targetEnum;
    }
    if (facts.sourceClass && !facts.sourceName) facts.sourceName = activeLayerName();
    if (facts.sourceEnum === "transparencyEnum" || facts.sourceEnum === "mask") facts.sourceClass = "layer";
    // Making a mask: new channel (or path) at the mask of the layer, perhaps using another layer's mask.
    var at = s2t("at"), using = s2t("using");
    if (desc.hasKey(at) && desc.getType(at) === DescValueType.REFERENCETYPE) {
      var atFacts = {};
      describeReference(desc.getReference(at), atFacts, "at");
      facts.atEnum = atFacts.atEnum;
    }
    if (desc.hasKey(using) && desc.getType(using) === DescValueType.REFERENCETYPE) {
      var usingFacts = {};
      describeReference(desc.getReference(using), usingFacts, "using");
      facts.usingName = usingFacts.usingName;
    }
    if (desc.hasKey(to) && desc.getType(to) === DescValueType.OBJECTTYPE) {
      var changed = desc.getObjectValue(to);
      facts.maskLinkChanged = changed.hasKey(s2t("userMaskLinked")) || changed.hasKey(s2t("vectorMaskLinked"));
    }
    var name = s2t("name");
    if (desc.hasKey(name) && desc.getType(name) === DescValueType.STRINGTYPE) facts.newName = desc.getString(name);
    if (facts.targetClass === "layer" && facts.targetEnum) facts.targetName = "";  // the current layer
    return facts;
  }

  function run(desc, eventId) {
    try {
      var name = eventName(eventId);
      var keys = keysForEvent(name, describeEvent(desc));
      writeKeys(new File(Folder.temp.fsName + "/PsNotifiers.ini"), keys);
    } catch (e) {}  // an error here would show Photoshop's error dialog on every event
  }

  return { keysForEvent: keysForEvent, writeKeys: writeKeys, run: run };
})();

// Run by a notifier: the event's descriptor and id. Run by hand (File > Scripts), there are none: nothing to do.
if (typeof arguments !== "undefined" && arguments.length >= 2) PsNotifiers.run(arguments[0], arguments[1]);
