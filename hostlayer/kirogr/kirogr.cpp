#include "entry/host/kirogr.h"

#include "hostlayer/include/KiroHost.h"

namespace {

KrWindow mainWindow = nullptr;

constexpr int kMainWindow = -1;

}  // namespace

KrWindow Grgetwin(int number) { return number == kMainWindow ? mainWindow : nullptr; }

void KiroHostSetMainWindow(KrWindow window) { mainWindow = window; }
