#include "convert/EntityForms.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace convert {

namespace {

constexpr int kR13 = 1, kR14 = 2, k2000 = 3, k2004 = 4, k2007 = 5, k2010 = 6;

// ACIS bodies, images, tables, multiple leaders and lines and the like need objects beside them.
constexpr EntityForm kForms[] = {
    {"3DFACE", kR13, {{"AcDbFace", nullptr}}},
    {"ARC", kR13, {{"AcDbCircle", nullptr}, {"AcDbArc", ",50,51,"}}},
    {"ATTDEF", kR13, {{"AcDbText", nullptr}, {"AcDbAttributeDefinition", ",2,3,70,73,74,280,"}}},
    {"ATTRIB", kR13, {{"AcDbText", nullptr}, {"AcDbAttribute", ",2,70,73,74,280,"}}},
    {"CIRCLE", kR13, {{"AcDbCircle", nullptr}}},
    {"DIMENSION", kR13, {{"AcDbDimension", ",1,2,3,10,20,30,11,21,31,41,51,53,70,71,72,210,220,230,"}}},
    {"ELLIPSE", kR13, {{"AcDbEllipse", nullptr}}},
    {"HATCH", kR14, {{"AcDbHatch", nullptr}}},
    {"INSERT", kR13, {}},
    {"LEADER", kR13, {{"AcDbLeader", nullptr}}},
    {"LINE", kR13, {{"AcDbLine", nullptr}}},
    {"LWPOLYLINE", kR14, {{"AcDbPolyline", nullptr}}},
    {"MTEXT", kR13, {{"AcDbMText", nullptr}}},
    {"POINT", kR13, {{"AcDbPoint", nullptr}}},
    {"POLYLINE", kR13, {}},
    {"RAY", kR13, {{"AcDbRay", nullptr}}},
    {"SEQEND", kR13, {}},
    {"SOLID", kR13, {{"AcDbTrace", nullptr}}},
    {"SPLINE", kR13, {{"AcDbSpline", nullptr}}},
    {"TEXT", kR13, {{"AcDbText", nullptr}, {"AcDbText", ",73,"}}},
    {"TOLERANCE", kR13, {{"AcDbFcf", nullptr}}},
    {"TRACE", kR13, {{"AcDbTrace", nullptr}}},
    {"VERTEX", kR13, {}},
    {"VIEWPORT", kR13, {{"AcDbViewport", nullptr}}},
    {"XLINE", kR13, {{"AcDbXline", nullptr}}},
};

struct CodeRange {
    const char* type;  // "": of all types
    int first, last;
    int version;
};

constexpr CodeRange kCodeRanges[] = {
    {"MTEXT", 45, 49, k2004},      {"MTEXT", 63, 63, k2004},       {"MTEXT", 75, 79, k2007},
    {"MTEXT", 90, 90, k2004},      {"LWPOLYLINE", 91, 91, k2010},  {"", 160, 169, k2010},
    {"", 290, 299, k2000},         {"", 370, 389, k2000},          {"", 400, 419, k2000},
    {"", 420, 479, k2004},         {"DIMENSION", 280, 280, k2010}, {"DIMENSION", 271, 275, k2000},
    {"ATTRIB", 280, 280, k2007},   {"ATTDEF", 280, 280, k2007},    {"VIEWPORT", 70, 79, k2000},
    {"VIEWPORT", 281, 282, k2000}, {"VIEWPORT", 170, 179, k2000},  {"VIEWPORT", 110, 149, k2000},
    {"VIEWPORT", 90, 99, k2000},   {"VIEWPORT", 12, 17, k2000},    {"VIEWPORT", 22, 27, k2000},
    {"VIEWPORT", 36, 37, k2000},   {"VIEWPORT", 42, 59, k2000},
};

}  // namespace

const EntityForm* FormOf(std::string_view type) {
    const auto* found = std::ranges::lower_bound(kForms, type, {}, &EntityForm::type);
    return found != std::end(kForms) && found->type == type ? found : nullptr;
}

void SubclassesByFlags(std::string_view type, int flags, SubclassForm (&subclasses)[3]) {
    if (type == "INSERT") {
        subclasses[0].marker = flags ? "AcDbMInsertBlock" : "AcDbBlockReference";
    } else if (type == "POLYLINE") {
        subclasses[0].marker = flags & 8    ? "AcDb3dPolyline"
                               : flags & 16 ? "AcDbPolygonMesh"
                               : flags & 64 ? "AcDbPolyFaceMesh"
                                            : "AcDb2dPolyline";
    } else if (type == "VERTEX" && (flags & 192) == 128) {
        subclasses[0].marker = "AcDbFaceRecord";
    } else if (type == "VERTEX") {
        subclasses[0].marker = "AcDbVertex";
        subclasses[1] = {flags & 32             ? "AcDb3dPolylineVertex"
                         : (flags & 192) == 192 ? "AcDbPolyFaceMeshVertex"
                         : flags & 64           ? "AcDbPolygonMeshVertex"
                                                : "AcDb2dVertex",
                         nullptr};
        subclasses[0].codes = ",";
    } else if (type == "DIMENSION") {
        constexpr const char* kByType[] = {
            "AcDbAlignedDimension", "AcDbAlignedDimension",       "AcDb2LineAngularDimension", "AcDbDiametricDimension",
            "AcDbRadialDimension",  "AcDb3PointAngularDimension", "AcDbOrdinateDimension",     "AcDbAlignedDimension"};
        subclasses[1] = {kByType[flags & 7], nullptr};
        if ((flags & 7) == 0) subclasses[2] = {"AcDbRotatedDimension", ","};
    }
}

int SubclassOf(const SubclassForm (&subclasses)[3], int code) {
    char digits[16] = ",";
    *std::to_chars(digits + 1, digits + sizeof digits - 1, code).ptr = ',';
    int rest = -1;
    for (int i = 0; i < 3 && subclasses[i].marker; ++i) {
        if (!subclasses[i].codes)
            rest = i;
        else if (std::string_view(subclasses[i].codes).find(digits) != std::string_view::npos)
            return i;
    }
    return rest;
}

int FirstVersionOf(std::string_view type, int code) {
    if (code < 45 && type != "VIEWPORT") return kR13;
    for (const CodeRange& range : kCodeRanges)
        if (code >= range.first && code <= range.last && (!*range.type || range.type == type)) return range.version;
    return kR13;
}

}  // namespace convert
