#include "peliondb/KrPlInDrive.h"

#include "resources/peliondb/KrPlInDrive.ids.h"

KrPlInDrive::KrPlInDrive(TARNAINFO* info) : HostDialog(kPlInDriveDialog), info_(info->database) {}

void KrPlInDrive::OnInit() { InitUtility(); }
