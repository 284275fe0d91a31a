#include "entry/CVanteoApp.h"

CVanteoApp theApp;

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for where this module lies

namespace {

constexpr int kManifestId = 2;  // a library's manifest has this number

}  // namespace

CVanteoApp::~CVanteoApp() {
    if (activationContext_ && activationContext_ != INVALID_HANDLE_VALUE) ReleaseActCtx(activationContext_);
}

HMODULE CVanteoApp::Module() const { return reinterpret_cast<HMODULE>(&__ImageBase); }

HANDLE CVanteoApp::ActivationContext() {
    if (!activationContext_) {
        wchar_t path[MAX_PATH];
        const DWORD length = GetModuleFileNameW(Module(), path, MAX_PATH);
        ACTCTXW context{};
        context.cbSize = sizeof context;
        context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
        context.hModule = Module();
        context.lpSource = length > 0 && length < MAX_PATH ? path : nullptr;
        context.lpResourceName = MAKEINTRESOURCEW(kManifestId);
        activationContext_ = CreateActCtxW(&context);
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
