#include "tests/dialogs/TemplateCheck.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

constexpr int kClosedComboHeight = 13;
constexpr int kLineHeight = 8;
constexpr int kMarkWidth = 12;  // the circle or box before a text
constexpr int kButtonBorders = 8;
constexpr int kGroupTitleMargin = 6;

// Reads the parts of an extended template, each at its alignment.
class Reader {
  public:
    Reader(const BYTE* data, DWORD size) : at_(data), begin_(data), end_(data + size) {}
    template <class T>
    T Take() {
        T value{};
        if (at_ + sizeof(T) <= end_) memcpy(&value, at_, sizeof(T));
        at_ += sizeof(T);
        return value;
    }
    void Align() { at_ += (4 - (at_ - begin_) % 4) % 4; }
    // A text, or the number that stands in its place.
    std::wstring TakeName() {
        const auto first = Take<WORD>();
        if (first == 0xFFFF) return L"#" + std::to_wstring(Take<WORD>());
        std::wstring text;
        for (WORD unit = first; unit != 0 && at_ < end_; unit = Take<WORD>()) text += static_cast<wchar_t>(unit);
        return text;
    }
    void Skip(std::size_t bytes) { at_ += bytes; }

  private:
    const BYTE* at_;
    const BYTE* begin_;
    const BYTE* end_;
};

const std::map<std::wstring, std::wstring> kSystemClasses = {{L"#128", L"Button"},    {L"#129", L"Edit"},
                                                             {L"#130", L"Static"},    {L"#131", L"ListBox"},
                                                             {L"#132", L"ScrollBar"}, {L"#133", L"ComboBox"}};

TemplateControl ReadControl(Reader& reader) {
    TemplateControl control;
    reader.Align();
    reader.Skip(8);  // help number, extended style
    control.style = reader.Take<DWORD>();
    const int x = reader.Take<short>(), y = reader.Take<short>();
    const int width = reader.Take<short>(), height = reader.Take<short>();
    control.rect = {x, y, x + width, y + height};
    control.id = reader.Take<int>();
    control.className = reader.TakeName();
    if (const auto known = kSystemClasses.find(control.className); known != kSystemClasses.end()) {
        control.className = known->second;
    }
    if (control.Is(L"ComboBox")) control.rect.bottom = y + kClosedComboHeight;
    control.text = reader.TakeName();
    reader.Skip(reader.Take<WORD>());
    return control;
}

DialogTemplate ReadTemplate(HMODULE module, int id) {
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG);
    Reader reader(static_cast<const BYTE*>(LockResource(LoadResource(module, resource))),
                  SizeofResource(module, resource));
    DialogTemplate dialog;
    dialog.id = id;
    reader.Skip(12);  // version, signature, help number, extended style
    dialog.style = reader.Take<DWORD>();
    const int count = reader.Take<WORD>();
    reader.Skip(4);  // place
    dialog.width = reader.Take<short>();
    dialog.height = reader.Take<short>();
    reader.TakeName();  // menu
    reader.TakeName();  // class
    dialog.title = reader.TakeName();
    dialog.points = reader.Take<WORD>();
    reader.Skip(3);  // weight, italic
    dialog.charset = reader.Take<BYTE>();
    dialog.font = reader.TakeName();
    for (int i = 0; i < count; ++i) dialog.controls.push_back(ReadControl(reader));
    return dialog;
}

bool Intersect(const RECT& a, const RECT& b) {
    RECT common{};
    return IntersectRect(&common, &a, &b) != FALSE;
}

bool Holds(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top + kLineHeight &&
           inner.bottom <= outer.bottom;
}

class Checker {
  public:
    explicit Checker(const DialogTemplate& dialog) : dialog_(dialog) {}

    std::vector<std::string> Run() {
        CheckFrame();
        for (const TemplateControl& control : dialog_.controls) {
            if (control.IsVisible()) CheckRoom(control);
        }
        CheckOverlaps();
        CheckTabOrder();
        CheckRadioGroups();
        CheckNumbers();
        return findings_;
    }

  private:
    void Find(const TemplateControl* control, const std::string& what) {
        findings_.push_back(std::to_string(dialog_.id) + "/" + (control ? std::to_string(control->id) : "") + ": " +
                            what);
    }

    void CheckFrame() {
        if (dialog_.font != L"MS UI Gothic" || dialog_.points != 9 || dialog_.charset != SHIFTJIS_CHARSET) {
            Find(nullptr, "another font");
        }
        if (!dialog_.HasCaption()) return;
        const auto cancels = [](const TemplateControl& control) { return control.id == IDCANCEL && control.IsPush(); };
        if (std::none_of(dialog_.controls.begin(), dialog_.controls.end(), cancels)) Find(nullptr, "no way to cancel");
    }

    void CheckRoom(const TemplateControl& control) {
        const RECT& rect = control.rect;
        if (rect.left < 0 || rect.top < 0 || rect.right > dialog_.width || rect.bottom > dialog_.height) {
            Find(&control, "outside the dialog");
        }
        int needed = TextWidth(control.text);
        int room = rect.right - rect.left;
        if (control.IsMark()) needed += kMarkWidth;
        if (control.IsPush()) needed += kButtonBorders;
        if (control.IsGroupBox()) needed += kGroupTitleMargin;
        const bool label = control.Is(L"Static");
        if (label) room *= (std::max)(1L, (rect.bottom - rect.top) / kLineHeight);
        if ((label || control.Is(L"Button")) && needed > room) Find(&control, "no room for its text");
        const bool shows = label ? !control.text.empty() : !control.Is(L"Button") || !control.text.empty();
        if (shows && rect.bottom - rect.top < kLineHeight) Find(&control, "lower than its text");
    }

    void CheckOverlaps() {
        const auto& controls = dialog_.controls;
        for (std::size_t i = 0; i < controls.size(); ++i) {
            for (std::size_t j = i + 1; j < controls.size(); ++j) {
                const TemplateControl &a = controls[i], &b = controls[j];
                if (!a.IsVisible() || !b.IsVisible() || !Intersect(a.rect, b.rect)) continue;
                const bool framed =
                    (a.IsGroupBox() && Holds(a.rect, b.rect)) || (b.IsGroupBox() && Holds(b.rect, a.rect));
                if (!framed) Find(&b, "overlaps " + std::to_string(a.id));
            }
        }
    }

    // From one tab stop to the next the eye goes to the right or down.
    void CheckTabOrder() {
        const TemplateControl* previous = nullptr;
        for (const TemplateControl& control : dialog_.controls) {
            if (!control.IsTabStop()) continue;
            if (previous && control.rect.left < previous->rect.right && control.rect.top < previous->rect.bottom) {
                Find(&control, "the Tab key goes back to it from " + std::to_string(previous->id));
            }
            previous = &control;
        }
    }

    void CheckRadioGroups() {
        bool inRun = false;
        for (const TemplateControl& control : dialog_.controls) {
            const bool radio = control.IsButton(BS_AUTORADIOBUTTON) || control.IsButton(BS_RADIOBUTTON);
            if (radio && !inRun && !(control.style & WS_GROUP)) Find(&control, "starts no group");
            if (!radio && inRun && !(control.style & WS_GROUP))
                Find(&control, "belongs to the radio buttons before it");
            inRun = radio;
        }
    }

    void CheckNumbers() {
        std::set<int> seen;
        for (const TemplateControl& control : dialog_.controls) {
            if (control.id != -1 && !seen.insert(control.id).second) Find(&control, "number used twice");
        }
    }

    const DialogTemplate& dialog_;
    std::vector<std::string> findings_;
};

}  // namespace

bool TemplateControl::IsMark() const {
    return IsButton(BS_RADIOBUTTON) || IsButton(BS_AUTORADIOBUTTON) || IsButton(BS_CHECKBOX) ||
           IsButton(BS_AUTOCHECKBOX);
}

std::vector<DialogTemplate> ReadTemplates(HMODULE module) {
    std::vector<DialogTemplate> dialogs;
    EnumResourceNamesW(
        module, RT_DIALOG,
        [](HMODULE from, LPCWSTR, LPWSTR name, LONG_PTR list) -> BOOL {
            const auto id = static_cast<int>(reinterpret_cast<ULONG_PTR>(name));
            reinterpret_cast<std::vector<DialogTemplate>*>(list)->push_back(ReadTemplate(from, id));
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&dialogs));
    return dialogs;
}

int TextWidth(const std::wstring& text) {
    int width = 0;
    for (const wchar_t unit : text) {
        const bool half = unit < 0x80 || (unit >= 0xFF61 && unit <= 0xFF9F);
        width += half ? 4 : 8;
    }
    return width;
}

std::vector<std::string> CheckTemplate(const DialogTemplate& dialog) { return Checker(dialog).Run(); }
