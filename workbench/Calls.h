// The fourteen commands by name, run with records that come as JSON and go back as JSON.
#pragma once

#include <span>
#include <string>

#include "RecordJson.h"

namespace kiro {

struct CallResult {
    // {"export", "returned", "record": {...}, "params": {...}, "calls": [...], "model": {...}}; params only where a
    // block hangs on the record. The last two are told in HostCalls.h; the model is that after the call.
    Json json;
    int exitStatus = 0;  // what the export returned; 0 for true, 1 for false; 0 when it returns nothing
};

struct Export {
    const char* name;
    const wchar_t* title;  // as the host's menu has it
    // input: {"record": {...}, "params": {...}}, both with the members that differ from start.
    CallResult (*run)(const Export& self, const Json& input);
    Json (*start)();  // such an input with every member: a cleared record, the parameters that the user has kept
};

std::span<const Export> Exports();
const Export* FindExport(const std::string& name);

// The record is in memory of its own, with an inaccessible page behind it: a command that writes past it is stopped.
// RecordError when the input does not fit the export. A record may also stand alone, without "record" around it.
CallResult CallExport(const Export& command, const Json& input);

}  // namespace kiro
