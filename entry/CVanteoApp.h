// The library's one application object: it owns the resource context that every export makes current for its call.
#pragma once

#include <windows.h>

#include <atomic>

#include "ui/Dialog.h"

class CVanteoApp {
  public:
    ~CVanteoApp();

    HMODULE Module() const;
    // The context that gives the dialogs the system's current controls, also in a host that has none of its own. Made
    // by the first call that asks; INVALID_HANDLE_VALUE when the system cannot make it.
    HANDLE ActivationContext();

  private:
    std::atomic<HANDLE> activationContext_{nullptr};
};

extern CVanteoApp theApp;

// Makes the library's module and activation context current, and the previous ones again on every way out.
class ResourceContext {
  public:
    ResourceContext();
    ResourceContext(const ResourceContext&) = delete;
    ResourceContext& operator=(const ResourceContext&) = delete;
    ~ResourceContext();

  private:
    kiro::ui::ScopedResourceModule module_;
    ULONG_PTR cookie_ = 0;
    bool active_;
};
