// How the rows are looked at: in which order, how wide the columns are, and where a text is.
#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

#include "KrGuarded.h"
#include "KrListControlImpl.h"
#include "KrText.h"

namespace {

constexpr wchar_t kLanguage[] = L"ja-JP";

// Upper or lower case, full or half width: all the same.
std::wstring Folded(const std::wstring& text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    std::wstring folded(text.size() * 2, L'\0');  // a voiced kana of full width is two of half width
    const int units = LCMapStringEx(kLanguage, LCMAP_LOWERCASE | LCMAP_HALFWIDTH, text.c_str(), length, folded.data(),
                                    static_cast<int>(folded.size()), nullptr, nullptr, 0);
    folded.resize(static_cast<std::size_t>(std::max(units, 0)));
    return folded;
}

// Numbers come before texts, and what is empty at the end in either direction.
struct SortKey {
    std::optional<double> number;
    std::wstring text;
    bool empty;
};

SortKey KeyOf(const std::string& text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    const bool isNumber = read.ec == std::errc() && read.ptr == end;
    return {isNumber ? std::optional(number) : std::nullopt, WideForDisplay(text), text.empty()};
}

int Compared(const SortKey& left, const SortKey& right) {
    if (left.number && right.number) return *left.number < *right.number ? -1 : *left.number > *right.number;
    if (left.number || right.number) return left.number ? -1 : 1;
    constexpr DWORD kAlike = NORM_IGNORECASE | NORM_IGNOREWIDTH;
    return CompareStringEx(kLanguage, kAlike, left.text.c_str(), -1, right.text.c_str(), -1, nullptr, nullptr, 0) - 2;
}

}  // namespace

// ---- The order ----

void KrListControlImpl::SortBy(int column) {
    if (!rows_.FindColumn(column) || !TakeEdits()) return;
    const Sorting before = sorting_;
    if (before.column != column || order_.IsTables()) {
        sorting_ = {column, false};
    } else if (!before.descending) {
        sorting_.descending = true;
    } else {
        sorting_ = {};
    }
    Sort();
    const std::string title = sorting_.column < 0 ? "" : "「" + rows_.FindColumn(column)->title + "」の";
    MessageText(sorting_.column < 0 ? "表の順に戻しました。"
                : sorting_.descending ? (title + "大きい順に表示しています。表の順番は変わりません。").c_str()
                                      : (title + "小さい順に表示しています。表の順番は変わりません。").c_str());
}

void KrListControlImpl::Sort() {
    std::vector<int> rows;
    if (const int column = sorting_.column; column >= 0) {
        std::vector<SortKey> keys;
        for (int row = 0; row < rows_.Rows(); ++row) keys.push_back(KeyOf(rows_.Find({row, column})->text));
        rows.resize(keys.size());
        std::iota(rows.begin(), rows.end(), 0);
        std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
            const SortKey& one = keys[static_cast<std::size_t>(left)];
            const SortKey& other = keys[static_cast<std::size_t>(right)];
            if (one.empty != other.empty) return other.empty;
            const int compared = Compared(one, other);
            return sorting_.descending ? compared > 0 : compared < 0;
        });
    }
    ForgetSelection();
    range_.Forget();
    view_.Select(current_.row, -1);
    order_.Set(std::move(rows));
    view_.Select(-1, current_.row);
    view_.ShowSorting(sorting_.column, sorting_.descending);
    view_.RepaintAll();
    view_.Reveal(current_.row);
}

void KrListControlImpl::ForgetSorting() {
    if (sorting_.column < 0) return;
    sorting_ = {};
    order_.Set({});
    view_.ShowSorting(-1, false);
}

// ---- Widths ----

// The longest text of the column finds room, as far as the grid has it.
void KrListControlImpl::FitColumn(int column) {
    const GridColumn* const of = rows_.FindColumn(column);
    if (!of || !Commit(true)) return;
    std::size_t longest = 0;
    for (int row = 0; row < rows_.Rows(); ++row) longest = std::max(longest, rows_.Find({row, column})->text.size());
    // Only those are measured that may be the widest.
    int width = view_.TitleWidth(WideForDisplay(of->title));
    for (int row = 0; row < rows_.Rows(); ++row)
        if (rows_.Find({row, column})->text.size() * 2 >= longest)
            width = std::max(width, view_.WidthNeeded({row, column}));
    view_.Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
    view_.KeepResized(column);
    ColumnsChanged();
}

// ---- Finding ----

void KrListControlImpl::OpenFind() {
    if (!TakeEdits() || !view_.List()) return;
    findFrom_ = current_;
    find_.Open(view_.List());
    view_.Reveal(current_.row);
}

void KrListControlImpl::OnFind(Event event) {
    const Busy busy(*this);
    Guarded([&] {
        switch (event) {
            case Event::kTyped:
                Find(findFrom_, true, true);
                break;
            case Event::kNext:
            case Event::kPrevious:
                FindNext(event == Event::kNext);
                break;
            case Event::kClosed:
                find_.Close();
                MessageText("");
                view_.Reveal(current_.row);
                break;
        }
    });
}

void KrListControlImpl::FindNext(bool forwards) {
    if (find_.Text().empty()) return OpenFind();
    Find(current_, forwards, false);
    findFrom_ = current_;
}

// From a place on, as the rows are seen, and around their end. here: that place counts as well.
void KrListControlImpl::Find(GridPlace from, bool forwards, bool here) {
    const std::wstring wanted = Folded(find_.Text());
    const int columns = rows_.Columns();
    const int count = rows_.Rows() * columns;
    if (count == 0 || !TakeEdits()) return;
    if (wanted.empty()) return;
    const int start = from.row < 0 ? 0 : order_.IndexOf(from.row) * columns + std::max(from.column, 0);
    for (int i = here || from.row < 0 ? 0 : 1; i <= count; ++i) {
        const int at = ((forwards ? start + i : start - i) % count + count) % count;
        const GridPlace place{order_.RowAt(at / columns), at % columns};
        if (Folded(WideForDisplay(rows_.Find(place)->text)).find(wanted) == std::wstring::npos) continue;
        if (std::exchange(missed_, false)) MessageText("");
        errorShown_ = false;
        SetCurrent(place, By::kUser);
        // What the dialog found wrong when it heard of the move stays to be read.
        if (!errorShown_ && (forwards ? at < start : at > start)) MessageText("端まで探して、反対側から続けました。");
        return;
    }
    missed_ = true;
    MessageBeep(MB_OK);
    ErrorText("見つかりません。");
}
