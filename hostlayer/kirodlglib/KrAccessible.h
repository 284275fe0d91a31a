// What programs for people who cannot see the screen learn about a window of ours. It is the system's own answer for a
// window of its kind, except for what a class here says differently.
//
// Children are numbers (CHILDID_SELF: the window itself), as the system's own list view has them.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>
#include <utility>

class KrAccessible : public IAccessible {
  public:
    explicit KrAccessible(HWND window);
    KrAccessible(const KrAccessible&) = delete;
    KrAccessible& operator=(const KrAccessible&) = delete;

    // The window has gone, or soon will: a program that still holds this object gets no more answers.
    void Disconnect();

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override;
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* children) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override;

  protected:
    virtual ~KrAccessible();
    HWND Window() const { return window_; }  // null: disconnected

    static bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }
    static HRESULT GiveText(const std::wstring& text, BSTR* out);  // S_FALSE for no text
    static HRESULT GiveNumber(LONG number, VARIANT* out);

  private:
    template <class Ask>
    HRESULT OfSystem(Ask ask) const {
        return system_ ? ask(*system_) : CO_E_OBJNOTCONNECTED;
    }

    LONG references_ = 1;
    HWND window_;
    IAccessible* system_ = nullptr;
};

// A window that has nothing but a name of its own.
class KrNamedAccessible final : public KrAccessible {
  public:
    using KrAccessible::KrAccessible;
    void SetName(std::wstring name) { name_ = std::move(name); }
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;

  private:
    std::wstring name_;
};

// Gives a window's object to whoever asks for it (WM_GETOBJECT), and takes care of COM on the window's thread.
template <class Accessible>
class KrAccessibleOf {
  public:
    KrAccessibleOf() = default;
    KrAccessibleOf(const KrAccessibleOf&) = delete;
    KrAccessibleOf& operator=(const KrAccessibleOf&) = delete;
    ~KrAccessibleOf() { End(); }

    Accessible* Get() const { return object_; }  // null: nobody has asked yet
    template <class... Of>
    LRESULT Answer(HWND window, WPARAM wParam, Of&... of) {
        if (!object_) {
            initialised_ = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
            object_ = new Accessible(window, of...);
        }
        return LresultFromObject(__uuidof(IAccessible), wParam, object_);
    }
    void End() {
        if (!object_) return;
        object_->Disconnect();
        object_->Release();
        object_ = nullptr;
        if (initialised_) CoUninitialize();
    }

  private:
    Accessible* object_ = nullptr;
    bool initialised_ = false;
};
