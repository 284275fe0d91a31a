#include "KrGridAccessible.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "KrGuarded.h"
#include "KrText.h"

namespace {

constexpr int kRowBits = 20;
constexpr LONG kRowMask = (1 << kRowBits) - 1;

HRESULT Guard(auto body) {
    return Guarded(static_cast<HRESULT>(E_OUTOFMEMORY), [&]() -> HRESULT { return body(); });
}

std::wstring TextOf(const GridRows& rows, GridPlace place) { return WideForDisplay(rows.Find(place)->text); }

std::wstring PatternText(const std::vector<double>& lengths) {
    if (lengths.empty()) return L"実線";
    std::wstring text = L"線のパターン";
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        wchar_t length[40];
        std::swprintf(length, std::size(length), L" %ls%g", i % 2 == 0 ? L"描画" : L"空白", lengths[i]);
        text += length;
    }
    return text;
}

}  // namespace

LONG ChildOfPlace(GridPlace place) {
    return ((place.column + 1) << kRowBits) | (static_cast<LONG>(place.row + 1) & kRowMask);
}

GridPlace PlaceOfChild(LONG child) {
    return {static_cast<int>(child & kRowMask) - 1, static_cast<int>(child >> kRowBits) - 1};
}

std::wstring CellName(const GridRows& rows, GridPlace place) {
    const GridColumn* column = rows.FindColumn(place.column);
    return (column ? WideForDisplay(column->title) : std::wstring()) + L" " + std::to_wstring(place.row + 1) + L"行目";
}

// For a row or a cell; E_INVALIDARG for what is none.
template <class Answer>
HRESULT KrGridAccessible::Of(const VARIANT& child, Answer answer) const {
    if (!Window()) return CO_E_OBJNOTCONNECTED;
    if (child.vt != VT_I4 || child.lVal <= 0) return E_INVALIDARG;
    GridPlace place = PlaceOfChild(child.lVal);
    place.row = grid_.View().Order().RowAt(place.row);
    const GridRows& rows = grid_.Rows();
    if (!rows.HasRow(place.row) || (place.column >= 0 && !rows.FindColumn(place.column))) return E_INVALIDARG;
    return Guard([&] { return answer(place); });
}

LONG KrGridAccessible::ChildOf(GridPlace place) const {
    place.row = grid_.View().Order().IndexOf(place.row);
    return ChildOfPlace(place);
}

// ---- What there is ----

STDMETHODIMP KrGridAccessible::get_accChildCount(LONG* count) {
    if (!count) return E_POINTER;
    if (!Window()) return CO_E_OBJNOTCONNECTED;
    *count = grid_.Rows().Rows();
    return S_OK;
}

// No child is an object of its own.
STDMETHODIMP KrGridAccessible::get_accChild(VARIANT child, IDispatch** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return Of(child, [](GridPlace) { return S_FALSE; });
}

STDMETHODIMP KrGridAccessible::get_accRole(VARIANT child, VARIANT* role) {
    if (IsSelf(child)) return GiveNumber(ROLE_SYSTEM_TABLE, role);
    return Of(child,
              [&](GridPlace place) { return GiveNumber(place.column < 0 ? ROLE_SYSTEM_ROW : ROLE_SYSTEM_CELL, role); });
}

// ---- Texts ----

// What stands before the list view in the dialog, and otherwise what the dialog is about.
std::wstring KrGridAccessible::OwnName() {
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    KrAccessible::get_accName(self, &name);
    std::wstring text = name ? name : L"";
    SysFreeString(name);
    if (!text.empty()) return text;
    wchar_t title[256] = L"";
    GetWindowTextW(GetAncestor(Window(), GA_ROOT), title, 256);
    return title;
}

std::wstring KrGridAccessible::RowName(int row) const {
    const GridRows& rows = grid_.Rows();
    std::wstring name;
    for (int column = 0; column < rows.Columns(); ++column) {
        if (column > 0) name += L"、";
        name += WideForDisplay(rows.FindColumn(column)->title) + L" " + TextOf(rows, {row, column});
    }
    return name;
}

STDMETHODIMP KrGridAccessible::get_accName(VARIANT child, BSTR* name) {
    if (IsSelf(child)) return Window() ? Guard([&] { return GiveText(OwnName(), name); }) : CO_E_OBJNOTCONNECTED;
    return Of(child, [&](GridPlace place) {
        return GiveText(place.column < 0 ? RowName(place.row) : CellName(grid_.Rows(), place), name);
    });
}

STDMETHODIMP KrGridAccessible::get_accValue(VARIANT child, BSTR* value) {
    if (IsSelf(child)) return KrAccessible::get_accValue(child, value);
    return Of(child, [&](GridPlace place) {
        return GiveText(place.column < 0 ? std::wstring() : TextOf(grid_.Rows(), place), value);
    });
}

STDMETHODIMP KrGridAccessible::get_accDescription(VARIANT child, BSTR* description) {
    if (IsSelf(child)) return KrAccessible::get_accDescription(child, description);
    return Of(child, [&](GridPlace place) {
        const GridCell* cell = grid_.Rows().Find(place);
        const std::wstring error = cell && cell->error ? L"誤りがあります" : L"";
        return GiveText(error + (cell && cell->pattern ? PatternText(*cell->pattern) : L""), description);
    });
}

STDMETHODIMP KrGridAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
    if (IsSelf(child)) return KrAccessible::get_accDefaultAction(child, action);
    return Of(child, [&](GridPlace) { return GiveText(L"", action); });
}

// ---- States and places ----

LONG KrGridAccessible::StateOf(GridPlace place) const {
    const GridRows& rows = grid_.Rows();
    const GridPlace current = grid_.Current();
    RECT seen{};
    RECT client{};
    GetClientRect(Window(), &client);
    const RECT area = place.column < 0 ? grid_.View().RowRect(place.row) : grid_.View().CellRect(place);
    LONG state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    if (!IntersectRect(&seen, &area, &client)) state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    if (!IsWindowEnabled(Window())) state |= STATE_SYSTEM_UNAVAILABLE;
    if (rows.IsMarked(place.row)) state |= STATE_SYSTEM_CHECKED;
    if (place.column >= 0 && !rows.CanEdit(place)) state |= STATE_SYSTEM_READONLY;
    if (place.column < 0 ? place.row == current.row : grid_.IsSelected(place)) state |= STATE_SYSTEM_SELECTED;
    if (place == current && GetFocus() == Window()) state |= STATE_SYSTEM_FOCUSED;
    return state;
}

STDMETHODIMP KrGridAccessible::get_accState(VARIANT child, VARIANT* state) {
    if (IsSelf(child)) return KrAccessible::get_accState(child, state);
    return Of(child, [&](GridPlace place) { return GiveNumber(StateOf(place), state); });
}

STDMETHODIMP KrGridAccessible::get_accFocus(VARIANT* child) {
    if (!child) return E_POINTER;
    if (!Window()) return CO_E_OBJNOTCONNECTED;
    // An editor is a window of its own.
    if (GetFocus() != Window()) return KrAccessible::get_accFocus(child);
    const GridPlace current = grid_.Current();
    return GiveNumber(current.row < 0 ? CHILDID_SELF : ChildOf(current), child);
}

STDMETHODIMP KrGridAccessible::get_accSelection(VARIANT* children) {
    if (!children) return E_POINTER;
    if (!Window()) return CO_E_OBJNOTCONNECTED;
    VariantInit(children);
    const int row = grid_.Current().row;
    return row < 0 ? S_FALSE : GiveNumber(ChildOf({row, -1}), children);
}

RECT KrGridAccessible::Area(GridPlace place) const {
    RECT area = place.column < 0 ? grid_.View().RowRect(place.row) : grid_.View().CellRect(place);
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

STDMETHODIMP KrGridAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (IsSelf(child)) return KrAccessible::accLocation(left, top, width, height, child);
    if (!left || !top || !width || !height) return E_POINTER;
    return Of(child, [&](GridPlace place) {
        const RECT area = Area(place);
        *left = area.left;
        *top = area.top;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
        return S_OK;
    });
}

STDMETHODIMP KrGridAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
    if (!child) return E_POINTER;
    if (!Window()) return CO_E_OBJNOTCONNECTED;
    POINT point{left, top};
    ScreenToClient(Window(), &point);
    const bool overChild = ChildWindowFromPointEx(Window(), point, CWP_SKIPINVISIBLE) != Window();
    const GridPlace place = overChild ? GridPlace{} : grid_.View().Hit(point);
    return place.row < 0 ? KrAccessible::accHitTest(left, top, child) : GiveNumber(ChildOf(place), child);
}

// ---- From one to the other ----

// Also one that is not there. From a row (column -1) it is another row, or a cell of it.
GridPlace KrGridAccessible::Beside(GridPlace place, LONG direction) const {
    const bool row = place.column < 0;
    const GridOrder& order = grid_.View().Order();
    const auto other = [&](int step) {
        const int index = order.IndexOf(place.row) + step;
        return grid_.Rows().HasRow(index) ? order.RowAt(index) : -1;
    };
    switch (direction) {
        case NAVDIR_UP:
            return {other(-1), place.column};
        case NAVDIR_DOWN:
            return {other(1), place.column};
        case NAVDIR_PREVIOUS:
            return row ? GridPlace{other(-1), -1} : GridPlace{place.row, place.column - 1};
        case NAVDIR_NEXT:
            return row ? GridPlace{other(1), -1} : GridPlace{place.row, place.column + 1};
        case NAVDIR_LEFT:
            return row ? GridPlace{} : GridPlace{place.row, place.column - 1};
        case NAVDIR_RIGHT:
            return row ? GridPlace{} : GridPlace{place.row, place.column + 1};
        case NAVDIR_FIRSTCHILD:
            return row ? GridPlace{place.row, 0} : GridPlace{};
        case NAVDIR_LASTCHILD:
            return row ? GridPlace{place.row, grid_.Rows().Columns() - 1} : GridPlace{};
        default:
            return {};
    }
}

STDMETHODIMP KrGridAccessible::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (!end) return E_POINTER;
    if (!Window()) return CO_E_OBJNOTCONNECTED;
    VariantInit(end);
    const bool inside = direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD;
    const int rows = grid_.Rows().Rows();
    if (IsSelf(start)) {
        if (!inside) return KrAccessible::accNavigate(direction, start, end);
        return rows == 0 ? S_FALSE : GiveNumber(direction == NAVDIR_FIRSTCHILD ? 1 : rows, end);
    }
    return Of(start, [&](GridPlace from) -> HRESULT {
        const GridPlace to = Beside(from, direction);
        const bool wasRow = from.column < 0 && !inside;
        const bool there = wasRow ? grid_.Rows().HasRow(to.row) : grid_.Rows().Has(to);
        return there ? GiveNumber(ChildOf(to), end) : S_FALSE;
    });
}

STDMETHODIMP KrGridAccessible::accSelect(LONG flags, VARIANT child) {
    if (IsSelf(child)) return KrAccessible::accSelect(flags, child);
    return Of(child, [&](GridPlace place) -> HRESULT {
        if (!(flags & (SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION))) return E_INVALIDARG;
        if (place.column < 0) place.column = std::max(grid_.Current().column, 0);
        grid_.GoTo(place);
        return grid_.Current() == place ? S_OK : S_FALSE;
    });
}
