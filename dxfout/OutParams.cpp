#include "dxfout/OutParams.h"

#include "entry/host/FixedText.h"
#include "entry/host/kirodxf.h"

DxfOutParamBlock KeptOutParams() {
    DxfOutParamBlock params{};
    if (DxfOutReadParam(&params) == 0) return params;
    params = {};
    params.outputVersion = 3;
    params.curveDivision = 10;
    WriteFixedText(params.submodelBlock, "SUBMODEL");
    WriteFixedText(params.symbolBlock, "SYMBOL");
    WriteFixedText(params.markBlock, "MARK");
    WriteFixedText(params.fcsBlock, "FCS");
    WriteFixedText(params.compositeBlock, "COMPOSITE");
    WriteFixedText(params.hatchBlock, "HATCH");
    WriteFixedText(params.dimensionBlock, "DIMENSION");
    return params;
}
