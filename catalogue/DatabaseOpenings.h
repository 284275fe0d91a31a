// The dialogs of the databases, over a record as a host hands it over.
#pragma once

#include <cstddef>
#include <memory>

#include "catalogue/Catalogue.h"
#include "catalogue/PelionDrive.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"

namespace kiro {

constexpr std::size_t kDemoDrawings = 64;

struct DatabaseData {
    TARNAINFO info{};
    std::byte drawings[(kDemoDrawings - 1) * sizeof(TarnaDrawing)]{};  // those behind the first
    PlOutParamBlock pelion{};
    VrOutParamBlock varos{};
    std::shared_ptr<PelionDrive> drive;  // for the choice of drive, group and user
};

// Pages, pictures, an active list, a group and a user; the parameters of Pelion or of Varos.
enum class DatabaseKind { kPelion, kPlw, kVaros, kVarosFacom };
std::shared_ptr<DatabaseData> DemoDatabase(DatabaseKind kind);

Opening DatabaseInput(DatabaseKind kind);
Opening DatabaseOutput(DatabaseKind kind);

}  // namespace kiro
