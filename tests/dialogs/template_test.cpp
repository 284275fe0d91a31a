// The templates of the built DLL: is there room for every caption on the operators' systems, does nothing overlap, does
// the Tab key follow the eye? Each is made into a window that stays hidden.
#include <algorithm>
#include <set>

#include "tests/dialogs/TestHost.h"

namespace {

constexpr int kLineHeight = 8;
constexpr int kMarkWidth = 12;  // the circle or box before a text
constexpr int kButtonBorders = 8;
constexpr int kGroupTitleMargin = 6;
constexpr int kClosedComboHeight = 13;

struct TemplateControl {
    std::wstring className;
    DWORD style;
    int id;
    std::wstring text;
    RECT rect;  // dialog units; a combo as it is while closed

    bool Has(DWORD wanted) const { return (style & wanted) == wanted; }
    bool IsTabStop() const { return Has(WS_VISIBLE | WS_TABSTOP); }
    bool IsLabel() const { return className == L"Static"; }
    bool IsButton(std::initializer_list<DWORD> types) const {
        return className == L"Button" && std::ranges::count(types, style & BS_TYPEMASK);
    }
    bool IsGroupBox() const { return IsButton({BS_GROUPBOX}); }
    bool IsRadio() const { return IsButton({BS_RADIOBUTTON, BS_AUTORADIOBUTTON}); }
    bool IsMark() const { return IsRadio() || IsButton({BS_CHECKBOX, BS_AUTOCHECKBOX}); }
    bool IsPush() const { return IsButton({BS_PUSHBUTTON, BS_DEFPUSHBUTTON}); }
};

struct DialogTemplate {
    int id = 0;
    bool hasCaption = true;
    bool hasOurFont = true;
    SIZE size{};
    std::vector<TemplateControl> controls;
};

// ---- Reading ----

// In dialog units.
RECT PlaceIn(HWND dialog, HWND window) {
    RECT place{}, unit{0, 0, 400, 800};
    GetClientRect(window, &place);
    if (window != dialog) GetWindowRect(window, &place);
    const int width = place.right - place.left, height = place.bottom - place.top;
    MapWindowPoints(window == dialog ? dialog : nullptr, dialog, reinterpret_cast<POINT*>(&place), 1);
    MapDialogRect(dialog, &unit);
    const int left = MulDiv(place.left, 400, unit.right), top = MulDiv(place.top, 800, unit.bottom);
    return {left, top, left + MulDiv(width, 400, unit.right), top + MulDiv(height, 800, unit.bottom)};
}

TemplateControl ReadControl(HWND dialog, HWND window) {
    wchar_t className[64];
    GetClassNameW(window, className, 64);
    TemplateControl control{className, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), GetDlgCtrlID(window),
                            kiro::drive::Text(window), PlaceIn(dialog, window)};
    if (control.className == L"ComboBox") control.rect.bottom = control.rect.top + kClosedComboHeight;
    return control;
}

// As it lies in the resource: the system does not hand all of it on to the window's font.
bool HasOurFont(HMODULE module, LPCWSTR name) {
    const HRSRC resource = FindResourceW(module, name, RT_DIALOG);
    const std::wstring_view units(static_cast<const wchar_t*>(LockResource(LoadResource(module, resource))),
                                  SizeofResource(module, resource) / sizeof(wchar_t));
    constexpr wchar_t kPoints = 9, kWeight = 400, kCharset = SHIFTJIS_CHARSET << 8;  // over the byte for italic
    return units.find(std::wstring{kPoints, kWeight, kCharset} + L"MS UI Gothic" + L'\0') != units.npos;
}

DialogTemplate ReadTemplate(HMODULE module, LPCWSTR name) {
    const HWND dialog = CreateDialogParamW(
        module, name, nullptr, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    EXPECT_NE(nullptr, dialog) << LOWORD(name);
    const RECT area = PlaceIn(dialog, dialog);
    DialogTemplate result{LOWORD(name),
                          (GetWindowLongW(dialog, GWL_STYLE) & WS_CAPTION) == WS_CAPTION,
                          HasOurFont(module, name),
                          {area.right, area.bottom},
                          {}};
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        result.controls.push_back(ReadControl(dialog, child));
    DestroyWindow(dialog);
    return result;
}

// ---- Judging ----

// What is wrong, a line each, such as "4005: outside the dialog"; the number is the control's.
class Checker {
  public:
    explicit Checker(const DialogTemplate& dialog) : dialog_(dialog) {}

    std::vector<std::string> Run() {
        CheckFrame();
        const TemplateControl* stop = nullptr;
        bool inRadios = false;
        std::set<int> numbers;
        for (const TemplateControl& control : dialog_.controls) {
            if (control.Has(WS_VISIBLE)) CheckRoom(control);
            if (control.IsTabStop()) CheckTabOrder(std::exchange(stop, &control), control);
            if (control.IsRadio() != inRadios && !control.Has(WS_GROUP))
                Find(control, inRadios ? "belongs to the radio buttons before it" : "starts no group");
            inRadios = control.IsRadio();
            if (control.id != -1 && !numbers.insert(control.id).second) Find(control, "number used twice");
        }
        CheckOverlaps();
        return findings_;
    }

  private:
    void Find(const TemplateControl& control, const std::string& what) {
        findings_.push_back(std::to_string(control.id) + ": " + what);
    }

    void CheckFrame() {
        if (!dialog_.hasOurFont) findings_.push_back("another font");
        const auto cancels = [](const TemplateControl& control) { return control.id == IDCANCEL && control.IsPush(); };
        if (dialog_.hasCaption && std::ranges::none_of(dialog_.controls, cancels))
            findings_.push_back("no way to cancel");
    }

    // In "MS UI Gothic" 9 points: 8 dialog units for a full-width character, 4 for a half-width one.
    static int TextWidth(const std::wstring& text) {
        int width = 0;
        for (const wchar_t unit : text) width += unit < 0x80 || (unit >= 0xFF61 && unit <= 0xFF9F) ? 4 : 8;
        return width;
    }

    void CheckRoom(const TemplateControl& control) {
        const RECT& rect = control.rect;
        if (rect.left < 0 || rect.top < 0 || rect.right > dialog_.size.cx || rect.bottom > dialog_.size.cy)
            Find(control, "outside the dialog");
        const int height = rect.bottom - rect.top;
        int needed = TextWidth(control.text), room = rect.right - rect.left;
        if (control.IsMark()) needed += kMarkWidth;
        if (control.IsPush()) needed += kButtonBorders;
        if (control.IsGroupBox()) needed += kGroupTitleMargin;
        if (control.IsLabel()) room *= std::max(1, height / kLineHeight);
        const bool captioned = control.IsLabel() || control.className == L"Button";
        if (captioned && needed > room) Find(control, "no room for its text");
        if ((!captioned || !control.text.empty()) && height < kLineHeight) Find(control, "lower than its text");
    }

    // From one tab stop to the next the eye goes to the right or down.
    void CheckTabOrder(const TemplateControl* previous, const TemplateControl& control) {
        if (previous && control.rect.left < previous->rect.right && control.rect.top < previous->rect.bottom)
            Find(control, "the Tab key goes back to it from " + std::to_string(previous->id));
    }

    static bool Frames(const TemplateControl& box, const TemplateControl& control) {
        const RECT &outer = box.rect, &inner = control.rect;
        return box.IsGroupBox() && inner.left >= outer.left && inner.right <= outer.right &&
               inner.top >= outer.top + kLineHeight && inner.bottom <= outer.bottom;
    }
    void CheckOverlaps() {
        const auto& controls = dialog_.controls;
        for (std::size_t j = 1; j < controls.size(); ++j)
            for (std::size_t i = 0; i < j; ++i) {
                const TemplateControl &a = controls[i], &b = controls[j];
                RECT common{};
                if (a.Has(WS_VISIBLE) && b.Has(WS_VISIBLE) && IntersectRect(&common, &a.rect, &b.rect) &&
                    !Frames(a, b) && !Frames(b, a))
                    Find(b, "overlaps " + std::to_string(a.id));
            }
    }

    const DialogTemplate& dialog_;
    std::vector<std::string> findings_;
};

using Findings = std::vector<std::string>;

}  // namespace

TEST(Templates, OfTheBuiltLibraryHaveRoomAndOrder) {
    const LibraryResources resources;
    int count = 0;
    EnumResourceNamesW(
        GetModuleHandleW(L"kirovanteo.dll"), RT_DIALOG,
        [](HMODULE module, LPCWSTR, LPWSTR name, LONG_PTR counter) -> BOOL {
            const DialogTemplate dialog = ReadTemplate(module, name);
            EXPECT_EQ(Findings(), Checker(dialog).Run()) << dialog.id;
            ++*reinterpret_cast<int*>(counter);
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&count));
    EXPECT_GT(count, 30);
}

// A check that finds nothing would pass all templates.
TEST(Templates, CheckFindsEveryFault) {
    constexpr DWORD kShown = WS_VISIBLE | WS_GROUP, kStop = kShown | WS_TABSTOP;
    constexpr DWORD kRadio = WS_VISIBLE | BS_AUTORADIOBUTTON;
    const std::vector<TemplateControl> controls = {
        {L"Static", kShown, 10, L"右", {190, 10, 210, 18}},
        {L"Static", kShown, 11, L"ファイル", {7, 10, 38, 18}},
        {L"Button", kStop | kRadio, 12, L"追加", {7, 20, 34, 30}},
        {L"Button", kStop, 13, L"参照", {7, 34, 30, 48}},
        {L"Static", kShown, 14, L"a", {47, 10, 67, 17}},
        {L"Static", kShown, 15, L"a", {7, 50, 27, 58}},
        {L"Static", kShown, 16, L"b", {26, 57, 46, 65}},
        {L"Button", kShown | BS_GROUPBOX, 17, L"色", {7, 70, 47, 100}},
        {L"Static", kShown, 18, L"b", {10, 76, 30, 84}},
        {L"Edit", kStop, 19, L"", {7, 130, 47, 143}},
        {L"Edit", kStop, 20, L"", {7, 110, 47, 123}},
        {L"Button", kRadio, 21, L"a", {7, 150, 27, 160}},
        {L"Edit", WS_VISIBLE, 22, L"", {7, 164, 47, 177}},
        {L"Static", kShown, 10, L"b", {7, 180, 27, 188}},
    };
    EXPECT_EQ((Findings{"another font", "no way to cancel", "10: outside the dialog", "11: no room for its text",
                        "12: no room for its text", "13: no room for its text", "14: lower than its text",
                        "20: the Tab key goes back to it from 19", "21: starts no group",
                        "22: belongs to the radio buttons before it", "10: number used twice", "16: overlaps 15",
                        "18: overlaps 17"}),
              Checker({0, true, false, {200, 200}, controls}).Run());
}
