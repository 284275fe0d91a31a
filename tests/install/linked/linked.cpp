// A program that is linked with the library. A warning of a kind that is not shown needs nobody to answer it.
#include <kirovanteo/kirovanteo.h>

int main() { return DxfWarningDialog(2) ? 1 : 0; }
