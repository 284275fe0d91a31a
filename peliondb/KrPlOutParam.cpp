#include "peliondb/KrPlOutParam.h"

#include "resources/peliondb/KrPlOutParam.ids.h"

KrPlOutParam::KrPlOutParam(TARNAINFO* info) : HostDialog(kPlOutParamDialog), info_(info->database) {}

void KrPlOutParam::OnInit() { InitUtility(); }
