#include "entry/CVanteoApp.h"

CVanteoApp theApp;

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for the start of this DLL in memory

namespace {

constexpr int kManifestId = 2;  // where the system looks for the manifest of a DLL

HMODULE ThisModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

HANDLE MakeActivationContext() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(ThisModule(), path, MAX_PATH);
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    context.hModule = ThisModule();
    context.lpSource = length > 0 && length < MAX_PATH ? path : nullptr;
    context.lpResourceName = MAKEINTRESOURCEW(kManifestId);
    return CreateActCtxW(&context);
}

void Release(HANDLE activationContext) {
    if (activationContext && activationContext != INVALID_HANDLE_VALUE) ReleaseActCtx(activationContext);
}

}  // namespace

CVanteoApp::~CVanteoApp() { Release(activationContext_); }

HMODULE CVanteoApp::Module() const { return ThisModule(); }

HANDLE CVanteoApp::ActivationContext() {
    if (!activationContext_) {
        const HANDLE made = MakeActivationContext();
        HANDLE none = nullptr;
        // Another thread's command may have made one meanwhile.
        if (!activationContext_.compare_exchange_strong(none, made)) Release(made);
    }
    return activationContext_;
}

ResourceContext::ResourceContext()
    : module_(theApp.Module()),
      active_(theApp.ActivationContext() != INVALID_HANDLE_VALUE &&
              ActivateActCtx(theApp.ActivationContext(), &cookie_)) {}

ResourceContext::~ResourceContext() {
    if (active_) DeactivateActCtx(0, cookie_);
}
