// What a command has the stand-in host do beyond its dialogs, and what it leaves of the model, as JSON.
#pragma once

#include "RecordJson.h"
#include "hostlayer/include/KiroHost.h"

namespace kiro {

// Notes the calls while it lives. One at a time.
class HostCalls {
  public:
    HostCalls() { KiroHostObserveCalls(Note, &calls_); }
    HostCalls(const HostCalls&) = delete;
    HostCalls& operator=(const HostCalls&) = delete;
    ~HostCalls() { KiroHostObserveCalls(nullptr, nullptr); }

    // [{"name": "DxfOutFloppy", "arguments": {"floppy": false, ...}, "returned": 0}, ...] in their order; "returned"
    // only where the function returns something.
    const Json& List() const { return calls_; }

  private:
    static void Note(void* calls, const KiroHostCall* call);

    Json calls_ = Json::array();
};

Json HostModel();  // in the form of a model file

}  // namespace kiro
