// A host of a few lines. A warning of a kind that is not shown needs nobody to answer it.
#include <kirovanteo/kirovanteo.h>

int main() {
    TARNAINFO info{};
    DxfInParamBlock params{};
    info.input.importParams = &params;
    return DxfWarningDialog(2) ? 1 : 0;
}
