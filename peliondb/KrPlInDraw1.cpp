#include "peliondb/KrPlInDraw1.h"

#include "resources/peliondb/KrPlDraw.ids.h"

KrPlInDraw1::KrPlInDraw1(TARNAINFO* info) : HostDialog(kPlInDraw1Dialog), info_(info->database) {}

void KrPlInDraw1::OnInit() { InitUtility(); }
