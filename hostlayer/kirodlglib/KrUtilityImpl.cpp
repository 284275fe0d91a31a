#include "KrUtilityImpl.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <optional>
#include <string_view>

#include "KrFileChooser.h"
#include "KrGuarded.h"
#include "KrNumber.h"
#include "KrPath.h"
#include "KrText.h"
#include "KrUsedFiles.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "hostlayer/kirodxf/DxfErrorText.h"
#include "hostlayer/kiromdl/ModelFacts.h"

namespace {

constexpr char kFloppyKey[] = "#FLOPPY_WIN#";
constexpr std::size_t kShownName = 80;  // of a file name in a message box

const char* Text(const char* text) { return text ? text : ""; }

std::size_t Room(int size) { return size > 0 ? static_cast<std::size_t>(size) : 0; }

// For a box: one line, and so short that the box fits on the screen; cut in the middle, since both ends tell most.
std::wstring Shown(std::wstring name) {
    std::replace_if(
        name.begin(), name.end(), [](wchar_t c) { return c < 0x20 || c == 0x7F; }, L' ');
    if (name.size() <= kShownName) return name;
    constexpr std::size_t kEnd = kShownName / 2;
    return name.substr(0, kShownName - kEnd - 1) + L"…" + name.substr(name.size() - kEnd);
}

std::wstring Shown(const char* name) { return Shown(WideForDisplay(name)); }

// Replaces the text in a buffer. False, and the buffer is as it was, when it has no room.
bool Replace(const std::optional<std::string>& text, char* buffer, std::size_t size) {
    if (!text || text->size() >= size) return false;
    CopyText(*text, buffer, size);
    return true;
}

// The text of a buffer of that size; none without a NUL in it.
std::optional<std::string> Bounded(const char* text, std::size_t size) {
    const std::size_t length = text ? strnlen(text, size) : size;
    return length < size ? std::optional<std::string>(std::in_place, text, length) : std::nullopt;
}

void CutSpaces(char* text, std::string_view (*cut)(std::string_view)) {
    if (!text) return;
    const std::string_view rest = cut(text);
    CopyText(rest, text, rest.size() + 1);
}

void RemoveFrom(KrStringList& list, const std::string& name) {
    for (int i = list.GetCount() - 1; i >= 0; --i)
        if (SameFileName(list.GetAt(i), name)) list.RemoveAt(i);
}

void CutTo(KrStringList& list, int max) {
    while (list.GetCount() > std::max(max, 0)) list.RemoveAt(list.GetCount() - 1);
}

}  // namespace

// ---- The dialog ----

void KrUtilityImpl::SetParentWindow(KrWindow dialog) { parent_ = dialog; }

void KrUtilityImpl::SetMessageZone() {
    Guarded([&] {
        if (parent_) line_.Attach(parent_);
    });
}

void KrUtilityImpl::MessageText(const char* text) {
    Guarded([&] { line_.Show(WideForDisplay(Text(text)), false); });
}

void KrUtilityImpl::ErrorText(const char* text) {
    Guarded([&] { line_.Show(WideForDisplay(Text(text)), true); });
}

void KrUtilityImpl::SetCaption(const char* caption) {
    Guarded([&] { caption_ = WideForDisplay(Text(caption)); });
}

int KrUtilityImpl::Box(const std::wstring& text, UINT style) const {
    return MessageBoxW(parent_, text.c_str(), caption_.c_str(), style);
}

bool KrUtilityImpl::Report(FileProblem problem, const char* name) const {
    constexpr UINT kDefaultBeep = 0xFFFFFFFF;
    if (problem == FileProblem::kNone) return true;
    const std::wstring shown = Shown(name);
    MessageBeep(kDefaultBeep);
    Box((shown.empty() ? shown : shown + L"\n\n") + ProblemText(problem), MB_OK | MB_ICONEXCLAMATION);
    return false;
}

bool KrUtilityImpl::AskOverwrite(const char* name) const {
    return Box(Shown(name) + L"\n\nファイルが既に存在します。上書きしますか。",
               MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

void KrUtilityImpl::SetFocus(int controlId) {
    const HWND control = GetDlgItem(parent_, controlId);
    // A hidden control would take the focus, and the operator could not see where it is.
    if (!control || !(GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE)) return;
    SendMessageW(parent_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

// ---- File types and the chooser ----

void KrUtilityImpl::SetKeyword(const char* key) {
    Guarded([&] { folderKey_ = key_ = Text(key); });
}

void KrUtilityImpl::SetFloppy(const char* key) {
    Guarded([&] {
        key_ = Text(key);
        folderKey_ = kFloppyKey;
    });
}

void KrUtilityImpl::SetComment(const char* comment) {
    Guarded([&] { comment_ = WideForDisplay(Text(comment)); });
}

void KrUtilityImpl::SetWildcard(const char* pattern) {
    // A text with a byte that is no character is no name that the chooser could start with.
    Guarded([&] { wildcard_ = WideFrom932(Text(pattern)).value_or(std::wstring()); });
}

std::wstring KrUtilityImpl::FolderOf(const char* key) const { return KeyFolder(key ? key : folderKey_.c_str()); }

int KrUtilityImpl::FileDialog(int mode) {
    return Guarded(0, [&] {
        fileName_.clear();
        std::wstring chosen;
        const ChooserResult result =
            ChooseFile({parent_, mode != kKrChooseNew, caption_, comment_, wildcard_, CurrentFolder()}, chosen);
        if (result == ChooserResult::kFailed) Box(L"ファイル選択画面を開けません。", MB_OK | MB_ICONEXCLAMATION);
        if (result != ChooserResult::kChosen) return 0;
        const std::optional<std::string> name = To932(AbsolutePath(chosen, std::wstring()).value_or(chosen));
        if (!name) {
            Box(chosen +
                    L"\n\n選択したファイルの名前に、シフトＪＩＳにない文字があります。\n"
                    L"ファイルの名前を変えてから、選択し直してください。",
                MB_OK | MB_ICONEXCLAMATION);
            return 0;
        }
        if (name->size() >= kKrPathSize) return static_cast<int>(Report(FileProblem::kTooLong, name->c_str()));
        fileName_ = *name;
        return 1;
    });
}

// ---- Checks ----

int KrUtilityImpl::CheckFile(const char* name) {
    return Guarded(0,
                   [&]() -> int { return Report(CheckName(Text(name), CurrentFolder(), true).problem, Text(name)); });
}

int KrUtilityImpl::CheckInputFile(const char* name) {
    return Guarded(0, [&]() -> int {
        const CheckedName checked = CheckName(Text(name), CurrentFolder(), false);
        return Report(checked.problem, Text(name)) && Report(CheckReadable(checked.path), Text(name));
    });
}

int KrUtilityImpl::CheckOutputFile(const char* name) {
    return Guarded(0, [&]() -> int {
        bool exists = false;
        const CheckedName checked = CheckName(Text(name), CurrentFolder(), false);
        return Report(checked.problem, Text(name)) && Report(CheckWritable(checked.path, exists), Text(name)) &&
               (!exists || AskOverwrite(Text(name)));
    });
}

int KrUtilityImpl::CheckFileName(const char* name) {
    return Guarded(
        0, [&]() -> int { return CheckName(Text(name), CurrentFolder(), false).problem == FileProblem::kNone; });
}

int KrUtilityImpl::CheckNumber(const char* text, int kind, double min, double max) {
    std::optional<double> number;
    if (kind == kKrReal) number = ParseReal(Text(text));
    if (kind == kKrInteger || kind == kKrIntegerSigned) number = ParseInteger(Text(text), kind == kKrIntegerSigned);
    return number && *number >= min && *number <= max;
}

int KrUtilityImpl::CheckScale(const char* text, double* value) {
    const std::optional<double> scale = ParseScale(Text(text));
    if (scale && value) *value = *scale;
    return scale.has_value();
}

void KrUtilityImpl::DisplayScale(double scale, char* out, int size) {
    Guarded([&] { CopyText(FormatScale(scale), out, Room(size)); });
}

const char* KrUtilityImpl::DtoA(double value) {
    return Guarded("", [&]() -> const char* {
        CopyText(FormatNumber(value), number_, sizeof number_);
        return number_;
    });
}

int KrUtilityImpl::CheckModelName(const char* name) {
    return Guarded(0, [&]() -> int { return IsModelName(Text(name)); });
}

// ---- Text ----

void KrUtilityImpl::SpaceNull(char* text) { CutSpaces(text, WithoutTrailingSpaces); }

void KrUtilityImpl::ExceptSpace(char* text) { CutSpaces(text, WithoutSpacesAround); }

void KrUtilityImpl::KillFocus(char* text) { CutSpaces(text, WithoutSpacesAround); }

int KrUtilityImpl::ToEUC(char* text, int size) {
    return Guarded(0, [&]() -> int {
        if (!text || size <= 0) return 0;
        const std::string from(text, strnlen(text, Room(size)));
        return HxSjisToEuc(from.data(), from.size(), text, Room(size)) < Room(size);
    });
}

void KrUtilityImpl::ToSJIS(char* text) {
    if (text) EucToSjis(text, text, static_cast<int>(std::strlen(text)) + 1);
}

void KrUtilityImpl::EucToSjis(char* out, const char* in, int size) {
    Guarded([&] {
        const std::string from = Text(in);  // out may be the same buffer
        if (out && size > 0) HxEucToSjis(from.data(), from.size(), out, Room(size));
    });
}

void KrUtilityImpl::SjisToEuc(char* out, const char* in, int size) {
    Guarded([&] {
        const std::string from = Text(in);
        if (out && size > 0) HxSjisToEuc(from.data(), from.size(), out, Room(size));
    });
}

// ---- Paths ----

int KrUtilityImpl::InternalPathName(const char* key, char* path, int size) {
    return Guarded(0, [&]() -> int {
        const std::optional<std::string> name = Bounded(path, Room(size));
        return name && Replace(InternalPath(*name, FolderOf(key)), path, Room(size));
    });
}

int KrUtilityImpl::RealPathName(const char* key, char* path, int size) {
    return Guarded(0, [&]() -> int {
        const std::optional<std::string> name = Bounded(path, Room(size));
        return name && Replace(RealPath(*name, FolderOf(key)), path, Room(size));
    });
}

int KrUtilityImpl::Access(const char* key, const char* path) {
    constexpr int kMissing = -1;
    return Guarded(kMissing, [&] {
        const std::optional<std::wstring> name = WideFrom932(Text(path));
        const std::optional<std::wstring> full = name ? AbsolutePath(*name, FolderOf(key)) : std::nullopt;
        return full && GetFileAttributesW(full->c_str()) != INVALID_FILE_ATTRIBUTES ? 0 : kMissing;
    });
}

// ---- Recently used files ----

int KrUtilityImpl::GetUsedFile(const char* key, int kind, KrStringList* list, int* max, KrWindow combo) {
    return Guarded(0, [&]() -> int {
        if (max) *max = kMaxUsedFiles;
        if (!list) return 0;
        std::vector<std::string> names;
        const bool loaded = kind == kKrUsedFiles && LoadUsedFiles(ListKey(key), names);
        list->RemoveAll();
        for (const std::string& name : names) list->InsertAt(list->GetCount(), name.c_str());
        FillCombo(combo, *list);
        return loaded;
    });
}

int KrUtilityImpl::SetUsedFile(const char* key, int kind, const KrStringList* list, const int* max) {
    return Guarded(0, [&]() -> int {
        if (!list || kind != kKrUsedFiles) return 0;
        const int kept = std::min({list->GetCount(), max ? *max : kMaxUsedFiles, kMaxUsedFiles});
        std::vector<std::string> names;
        for (int i = 0; i < kept; ++i) names.emplace_back(list->GetAt(i));
        return SaveUsedFiles(ListKey(key), names);
    });
}

void KrUtilityImpl::SetFilePath(KrStringList* list, const char* name, KrWindow combo, int max) {
    Guarded([&] {
        const std::string top = Text(name);  // may be one of the list's own texts
        if (!list || top.empty()) return;
        RemoveFrom(*list, top);
        list->InsertAt(0, top.c_str());
        CutTo(*list, max);
        FillCombo(combo, *list);
    });
}

void KrUtilityImpl::DelFilePath(KrStringList* list, const char* name, KrWindow combo, int) {
    Guarded([&] {
        if (!list) return;
        RemoveFrom(*list, std::string(Text(name)));
        FillCombo(combo, *list);
    });
}

// ---- Host texts ----

int KrUtilityImpl::GetMessageText(int number, char* out, int size) {
    const char* ofModel = KiroModelMessageText(number);
    const char* text = ofModel ? ofModel : KnownDxfErrorText(number);
    CopyText(Text(text), out, Room(size));
    return text != nullptr;
}

int KrUtilityImpl::GetFilnameUL(const char* key) { return HxFileTypeIsUpperCase(HxSessionGetFileType(Text(key))); }

KrUtility* KrCreateUtility() { return new (std::nothrow) KrUtilityImpl; }
