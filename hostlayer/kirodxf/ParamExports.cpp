// The exported functions for the parameters of imports and exports. The defaults are kept in files of HOME\settings.
#include <optional>

#include "entry/host/kirodxf.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/KeptBlock.h"
#include "hostlayer/kirocontrol/CallNote.h"
#include "hostlayer/kirodxf/CurrentParams.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

// The parameters of the next conversion in one direction, and the file of their defaults.
template <class Block>
class KeptParams {
  public:
    constexpr KeptParams(const wchar_t* name, const char (&mark)[kParamMarkLength + 1]) : file_(name, mark) {}

    void Set(const Block* params) {
        if (params) params_ = *params;
    }
    int Write() const {
        return kirobc::Guarded(kFailure, [this] { return params_ && file_.Write(*params_) ? kSuccess : kFailure; });
    }
    int Read(Block* params) const {
        return kirobc::Guarded(kFailure, [=, this] { return params && file_.Read(*params) ? kSuccess : kFailure; });
    }

    Block Current(const Block& otherwise) const {
        Block params = params_.value_or(otherwise);
        if (!params_) Read(&params);
        return params;
    }

  private:
    kirobc::KeptBlock<Block> file_;
    std::optional<Block> params_;
};

KeptParams<DxfInParamBlock> importParams(L"dxfin_params", "KIRODXFIN  1");
KeptParams<DxfOutParamBlock> exportParams(L"dxfout_params", "KIRODXFOUT 1");

}  // namespace

void setdxfinparam(const DxfInParamBlock* params) {
    importParams.Set(params);
    NoteCall("setdxfinparam", {HostPointer(kKiroHostInParams, "params", params)});
}

int DxfInWriteParam() {
    const int result = importParams.Write();
    NoteCall("DxfInWriteParam", {}, result);
    return result;
}

int DxfInReadParam(DxfInParamBlock* params) { return importParams.Read(params); }

void setdxfotparam(const DxfOutParamBlock* params) {
    exportParams.Set(params);
    NoteCall("setdxfotparam", {HostPointer(kKiroHostOutParams, "params", params)});
}

int DxfOutWriteParam() {
    const int result = exportParams.Write();
    NoteCall("DxfOutWriteParam", {}, result);
    return result;
}

// What there is to save of this host is its model, and that only its program saves.
void d161907cnsout() { NoteCall("d161907cnsout", {}); }

int DxfOutReadParam(DxfOutParamBlock* params) { return exportParams.Read(params); }

DxfInParamBlock CurrentImportParams() { return importParams.Current({}); }

DxfOutParamBlock CurrentExportParams() {
    DxfOutParamBlock newest{};
    newest.outputVersion = 7;
    return exportParams.Current(newest);
}
