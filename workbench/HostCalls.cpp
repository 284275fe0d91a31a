#include "HostCalls.h"

#include "entry/host/ParamBlocks.h"

namespace kiro {
namespace {

template <class Block>
Json BlockToJson(const RecordView& view, const void* block) {
    return ToJson(view, std::as_bytes(std::span(static_cast<const Block*>(block), 1)));
}

Json ValueToJson(const KiroHostValue& value) {
    switch (value.kind) {
        case kKiroHostInteger:
            return value.integer;
        case kKiroHostReal:
            return value.real;
        case kKiroHostFlag:
            return value.integer != 0;
        default:
            break;
    }
    if (!value.pointer) return nullptr;
    switch (value.kind) {
        case kKiroHostText:
            return Utf8FromEuc(static_cast<const char*>(value.pointer));
        case kKiroHostInParams:
            return BlockToJson<DxfInParamBlock>(kDxfInParams, value.pointer);
        case kKiroHostOutParams:
            return BlockToJson<DxfOutParamBlock>(kDxfOutParams, value.pointer);
        case kKiroHostPlParams:
            return BlockToJson<PlOutParamBlock>(kPlOutParams, value.pointer);
        case kKiroHostVrParams:
            return BlockToJson<VrOutParamBlock>(kVrOutParams, value.pointer);
        default:
            return nullptr;
    }
}

Json CallToJson(const KiroHostCall& call) {
    Json arguments = Json::object();
    for (std::size_t i = 0; i < call.count; ++i) arguments[call.arguments[i].name] = ValueToJson(call.arguments[i]);
    Json json = {{"name", call.name}, {"arguments", std::move(arguments)}};
    if (call.returned.kind != kKiroHostNoValue) json["returned"] = ValueToJson(call.returned);
    return json;
}

}  // namespace

// Nothing may be thrown through the host; what there is no memory for is left out.
void HostCalls::Note(void* calls, const KiroHostCall* call) {
    try {
        static_cast<Json*>(calls)->push_back(CallToJson(*call));
    } catch (const std::exception&) {
    }
}

Json HostModel() {
    std::string text(KiroHostPrintModel(nullptr, 0), '\0');
    KiroHostPrintModel(text.data(), text.size() + 1);
    return Json::parse(text);
}

}  // namespace kiro
