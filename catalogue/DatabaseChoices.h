// What the commands of the databases open on their way: choices of drives, groups, users, drawings and models, and the
// parameters of what is written.
#pragma once

#include "catalogue/Catalogue.h"

namespace kiro {

Opening PelionDrives();
Opening PelionUsers();  // drive and group are known, and the choice is all that is wanted
Opening PelionFloppy();
Opening PelionDrawings();
Opening PelionDrawingModels();
Opening PelionModels();
Opening PelionParameters(bool plw);
Opening VarosParameters();

}  // namespace kiro
