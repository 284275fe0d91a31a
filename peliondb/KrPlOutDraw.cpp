#include "peliondb/KrPlOutDraw.h"

#include "resources/peliondb/KrPlDraw.ids.h"

KrPlOutDraw::KrPlOutDraw(TARNAINFO* info) : HostDialog(kPlOutDrawDialog), info_(info->database) {}

void KrPlOutDraw::OnInit() { InitUtility(); }
