#include "KrAccessible.h"

#include <utility>

KrAccessible::KrAccessible(HWND window) : window_(window) {
    CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), reinterpret_cast<void**>(&system_));
}

KrAccessible::~KrAccessible() {
    if (system_) system_->Release();
}

void KrAccessible::Disconnect() {
    window_ = nullptr;
    if (IAccessible* const system = std::exchange(system_, nullptr)) system->Release();
    CoDisconnectObject(this, 0);
}

HRESULT KrAccessible::GiveText(const std::wstring& text, BSTR* out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (text.empty()) return S_FALSE;
    *out = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *out ? S_OK : E_OUTOFMEMORY;
}

HRESULT KrAccessible::GiveNumber(LONG number, VARIANT* out) {
    if (!out) return E_POINTER;
    out->vt = VT_I4;
    out->lVal = number;
    return S_OK;
}

// ---- IUnknown and IDispatch ----

STDMETHODIMP KrAccessible::QueryInterface(REFIID id, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible)) return E_NOINTERFACE;
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) KrAccessible::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

STDMETHODIMP_(ULONG) KrAccessible::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

// Every program of this kind calls the functions themselves; by name they cannot be called.
STDMETHODIMP KrAccessible::GetTypeInfoCount(UINT* count) {
    if (count) *count = 0;
    return count ? S_OK : E_POINTER;
}

// ---- As the system has it ----

STDMETHODIMP KrAccessible::get_accParent(IDispatch** parent) {
    return OfSystem([&](IAccessible& system) { return system.get_accParent(parent); });
}
STDMETHODIMP KrAccessible::get_accChildCount(LONG* count) {
    return OfSystem([&](IAccessible& system) { return system.get_accChildCount(count); });
}
STDMETHODIMP KrAccessible::get_accChild(VARIANT child, IDispatch** object) {
    return OfSystem([&](IAccessible& system) { return system.get_accChild(child, object); });
}
STDMETHODIMP KrAccessible::get_accName(VARIANT child, BSTR* name) {
    return OfSystem([&](IAccessible& system) { return system.get_accName(child, name); });
}
STDMETHODIMP KrAccessible::get_accValue(VARIANT child, BSTR* value) {
    return OfSystem([&](IAccessible& system) { return system.get_accValue(child, value); });
}
STDMETHODIMP KrAccessible::get_accDescription(VARIANT child, BSTR* description) {
    return OfSystem([&](IAccessible& system) { return system.get_accDescription(child, description); });
}
STDMETHODIMP KrAccessible::get_accRole(VARIANT child, VARIANT* role) {
    return OfSystem([&](IAccessible& system) { return system.get_accRole(child, role); });
}
STDMETHODIMP KrAccessible::get_accState(VARIANT child, VARIANT* state) {
    return OfSystem([&](IAccessible& system) { return system.get_accState(child, state); });
}
STDMETHODIMP KrAccessible::get_accHelp(VARIANT child, BSTR* help) {
    return OfSystem([&](IAccessible& system) { return system.get_accHelp(child, help); });
}
STDMETHODIMP KrAccessible::get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) {
    return OfSystem([&](IAccessible& system) { return system.get_accHelpTopic(file, child, topic); });
}
STDMETHODIMP KrAccessible::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) {
    return OfSystem([&](IAccessible& system) { return system.get_accKeyboardShortcut(child, shortcut); });
}
STDMETHODIMP KrAccessible::get_accFocus(VARIANT* child) {
    return OfSystem([&](IAccessible& system) { return system.get_accFocus(child); });
}
STDMETHODIMP KrAccessible::get_accSelection(VARIANT* children) {
    return OfSystem([&](IAccessible& system) { return system.get_accSelection(children); });
}
STDMETHODIMP KrAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
    return OfSystem([&](IAccessible& system) { return system.get_accDefaultAction(child, action); });
}
STDMETHODIMP KrAccessible::accSelect(LONG flags, VARIANT child) {
    return OfSystem([&](IAccessible& system) { return system.accSelect(flags, child); });
}
STDMETHODIMP KrAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    return OfSystem([&](IAccessible& system) { return system.accLocation(left, top, width, height, child); });
}
STDMETHODIMP KrAccessible::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    return OfSystem([&](IAccessible& system) { return system.accNavigate(direction, start, end); });
}
STDMETHODIMP KrAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
    return OfSystem([&](IAccessible& system) { return system.accHitTest(left, top, child); });
}
STDMETHODIMP KrAccessible::accDoDefaultAction(VARIANT child) {
    return OfSystem([&](IAccessible& system) { return system.accDoDefaultAction(child); });
}
STDMETHODIMP KrAccessible::put_accValue(VARIANT child, BSTR value) {
    return OfSystem([&](IAccessible& system) { return system.put_accValue(child, value); });
}

// ---- A name ----

STDMETHODIMP KrNamedAccessible::get_accName(VARIANT child, BSTR* name) {
    if (!IsSelf(child) || name_.empty()) return KrAccessible::get_accName(child, name);
    return Window() ? GiveText(name_, name) : CO_E_OBJNOTCONNECTED;
}
