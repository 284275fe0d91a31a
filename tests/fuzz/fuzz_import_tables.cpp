#include <cmath>

#include "tests/fuzz/TableFuzz.h"

// What must hold for every table that was read. The result: whether it can be read again as it is written.
static bool Check(const DxfInLayerTable& t) {
    Require(Between(t.layerClassCount, 0, 2047) && Between(t.layerRevisionCount, 0, 2047) &&
            Between(t.layerSwitch, 0, 1));
    bool whole = true;
    for (std::int32_t i = 0; i <= t.layerClassCount; ++i) {
        Require(Between(t.layerClass[i], 1, 256));
        whole &= CheckName(t.layerClassName[i], 68, "=");
    }
    for (std::int32_t i = 0; i <= t.layerRevisionCount; ++i) {
        Require(Between(t.layerRevision[i], 1, 256));
        whole &= CheckName(t.layerRevisionName[i], 58, "=");
    }
    for (std::int32_t i = 0; i < kDxfInColors; ++i) {
        Require(Between(t.colorClass[i], 1, 256) && Between(t.colorRevision[i], 1, 256));
        for (const std::int32_t part : t.colorRgb[i]) Require(Between(part, 0, 255));
    }
    return whole;
}

static bool Check(const DxfInLineTable& t) {
    Require(Between(t.lineTypeCount, 1, 256) && Between(t.polyWidthCount, 1, 50) &&
            Between(t.colorWeightCount, 0, 257));
    bool whole = true;
    for (std::int32_t i = 0; i < t.lineTypeCount; ++i) {
        Require(Between(t.lineTypes[i].lineFont, 1, 63) && Between(t.lineTypes[i].lineWeight, 1, 16));
        whole &= CheckName(t.lineTypeName[i], 100, "=");
    }
    for (std::int32_t i = 0; i < t.polyWidthCount; ++i) {
        const auto& range = t.polyWidths[i];
        Require(range.widthStart >= 0 && range.widthStart <= range.widthEnd && range.widthEnd <= 1000);
        Require(Between(t.polyWidthWeight[i], 1, 16));
    }
    for (const std::int32_t weight : t.lineWidthWeight) Require(Between(weight, t.lineWidthWeight[0] ? 1 : 0, 16));
    for (const std::int32_t weight : t.colorWeight) Require(Between(weight, 1, 16));
    for (const std::int32_t on : {t.polWidthSwitch, t.widWidthSwitch, t.colWidthSwitch}) Require(Between(on, 0, 1));
    return whole;
}

static bool Check(const DxfInStyleTable& t) {
    Require(Between(t.styleCount, 4, 256));
    bool whole = true;
    for (std::int32_t i = 0; i < t.styleCount; ++i) {
        const auto& n = t.styleInts[i];
        const auto& r = t.styleReals[i];
        Require(Between(n[kStyleI1], 0, 2) && Between(n[kStyleI2], 1, 99) && Between(n[kStyleI3], 1, 15));
        for (const auto real : {kStyleR1, kStyleR2, kStyleR5, kStyleR6}) Require(r[real] > 0 && std::isfinite(r[real]));
        Require(r[kStyleR3] >= 1 && r[kStyleR3] <= 2 && r[kStyleR4] >= 0 && r[kStyleR4] < 1);
        // The file has six digits: 0.9999999 becomes 1, which is refused.
        whole &= r[kStyleR4] < 0.999999 && CheckName(t.styleName[i], 20, ",");
        for (const auto real : {kStyleR1, kStyleR2, kStyleR5, kStyleR6}) whole &= r[real] > 1e-300 && r[real] < 1e300;
    }
    Require(std::isfinite(t.spaceVertical) && std::isfinite(t.spaceHorizontal) && std::isfinite(t.textSpace));
    return whole;
}

static bool Check(const DxfInArrowTable& t) {
    Require(Between(t.arrowCount, 4, 256));
    bool whole = true;
    for (std::int32_t i = 0; i < t.arrowCount; ++i) {
        const auto& arrow = t.arrows[i];
        // Refused records leave their marks with the default arrows.
        const bool good = Between(arrow.arrowMark, 1, 4095);
        Require((good || i < 4) && (arrow.arrowAngle == 0 || arrow.arrowAngle == 180));
        whole &= good && CheckName(t.arrowName[i], 45, "=");
    }
    return whole;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The checks look at the lengths of names.
    FuzzTables<DxfInLayerTable, DxfInLineTable, DxfInStyleTable, DxfInArrowTable>(data, size, SIZE_MAX);
    return 0;
}
