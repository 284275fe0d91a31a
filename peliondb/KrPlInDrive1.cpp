#include "peliondb/KrPlInDrive1.h"

#include "resources/peliondb/KrPlInDrive.ids.h"

KrPlInDrive1::KrPlInDrive1(TARNAINFO* info) : HostDialog(kPlInDrive1Dialog), info_(info->database) {}

void KrPlInDrive1::OnInit() { InitUtility(); }
