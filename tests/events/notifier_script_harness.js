// Runs the example notifier script's own functions under Node, as Photoshop would run them on one event:
//   node notifier_script_harness.js SCRIPT.jsx PsNotifiers.ini STEP.json
// STEP.json is {"event": "exchange", "facts": {...}}: the event's name and what the script read of its
// descriptor. The script's keys go into the ini file through a stand-in for ExtendScript's File that, like
// ExtendScript in BINARY mode, writes one byte per character and refuses characters above 0xFF.
"use strict";
const fs = require("fs");
const vm = require("vm");

const [scriptPath, iniPath, stepPath] = process.argv.slice(2);

class File {
  constructor(path) {
    this.path = path;
    this.encoding = "UTF-8";
    this.mode = null;
    this.buffer = "";
  }
  get exists() { return fs.existsSync(this.path); }
  open(mode) {
    if (this.encoding !== "BINARY") throw new Error("the file must be opened in BINARY encoding");
    this.mode = mode;
    this.buffer = "";
    return mode === "w" || this.exists;
  }
  read() { return fs.readFileSync(this.path).toString("latin1"); }
  write(text) {
    if (this.mode !== "w") throw new Error("write without open('w')");
    for (let i = 0; i < text.length; i++) {
      if (text.charCodeAt(i) > 0xFF) throw new Error("a character above 0xFF in BINARY mode");
    }
    this.buffer += text;
    return true;
  }
  close() {
    if (this.mode === "w") fs.writeFileSync(this.path, Buffer.from(this.buffer, "latin1"));
    this.mode = null;
    return true;
  }
}

const context = vm.createContext({ File });
vm.runInContext(fs.readFileSync(scriptPath, "utf8"), context, { filename: scriptPath });
const step = JSON.parse(fs.readFileSync(stepPath, "utf8"));
const keys = context.PsNotifiers.keysForEvent(step.event, step.facts);
context.PsNotifiers.writeKeys(new File(iniPath), keys);
process.stdout.write(JSON.stringify(keys) + "\n");
