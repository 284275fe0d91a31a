#include "peliondb/KrPlInDraw2.h"

#include "resources/peliondb/KrPlDraw.ids.h"

KrPlInDraw2::KrPlInDraw2(TARNAINFO* info) : HostDialog(kPlInDraw2Dialog), info_(info->database) {}

void KrPlInDraw2::OnInit() { InitUtility(); }
