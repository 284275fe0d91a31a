// The parameters of the databases' output that the user has kept.
#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/KeptBlock.h"
#include "hostlayer/kirocontrol/CallNote.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

constexpr kirobc::KeptBlock<PlOutParamBlock> kKeptPelion(L"plout_params", "KIROPLOUT  1");
constexpr kirobc::KeptBlock<VrOutParamBlock> kKeptVaros(L"vrout_params", "KIROVROUT  1");

template <class Block>
int Save(const kirobc::KeptBlock<Block>& kept, const TARNAINFO* info, const char* name, KiroHostValueKind kind) {
    const auto* params = info ? static_cast<const Block*>(info->database.dbOutParams) : nullptr;
    const int result = kirobc::Guarded(kFailure, [&] { return params && kept.Write(*params) ? kSuccess : kFailure; });
    NoteCall(name, {HostPointer(kind, "dbOutParams", params)}, result);
    return result;
}

template <class Block>
int Read(const kirobc::KeptBlock<Block>& kept, Block* params) {
    return kirobc::Guarded(kFailure, [&] { return params && kept.Read(*params) ? kSuccess : kFailure; });
}

}  // namespace

int SavePlParameter(TARNAINFO* info) { return Save(kKeptPelion, info, "SavePlParameter", kKiroHostPlParams); }

int SaveVrParameter(TARNAINFO* info) { return Save(kKeptVaros, info, "SaveVrParameter", kKiroHostVrParams); }

int ReadPlParameter(PlOutParamBlock* params) { return Read(kKeptPelion, params); }

int ReadVrParameter(VrOutParamBlock* params) { return Read(kKeptVaros, params); }
