#include "varosdb/KrVrOutParam.h"

#include "resources/varosdb/KrVrOutParam.ids.h"

KrVrOutParam::KrVrOutParam(TARNAINFO* info) : HostDialog(kVrOutParamDialog), info_(info->database) {}

void KrVrOutParam::OnInit() { InitUtility(); }
