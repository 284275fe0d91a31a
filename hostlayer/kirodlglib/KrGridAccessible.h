// A grid as programs for people who cannot see the screen have it: a table whose children are its rows. A cell is a
// child too, with a number that no row has; it is what has the focus, what the mouse hits, and what is led to from its
// row or from the cells around it.
#pragma once

#include "KrAccessible.h"
#include "KrGridRows.h"
#include "KrGridView.h"

class ReadableGrid {
  public:
    virtual const GridRows& Rows() const = 0;
    virtual const KrGridView& View() const = 0;
    virtual GridPlace Current() const = 0;
    virtual bool IsSelected(GridPlace place) const = 0;  // with the current one
    virtual void GoTo(GridPlace place) = 0;

  protected:
    ~ReadableGrid() = default;
};

// The numbers of rows (column -1) and cells, also in events. A row has the number that the system's list view gives it:
// the place's row is the one on the screen.
LONG ChildOfPlace(GridPlace place);
GridPlace PlaceOfChild(LONG child);

// What a cell is called: the title of its column and the number of its row.
std::wstring CellName(const GridRows& rows, GridPlace place);

class KrGridAccessible final : public KrAccessible {
  public:
    KrGridAccessible(HWND window, ReadableGrid& grid) : KrAccessible(window), grid_(grid) {}

    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* children) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override;

  private:
    template <class Answer>
    HRESULT Of(const VARIANT& child, Answer answer) const;
    std::wstring OwnName();
    std::wstring RowName(int row) const;
    LONG StateOf(GridPlace place) const;
    GridPlace Beside(GridPlace place, LONG direction) const;
    RECT Area(GridPlace place) const;
    LONG ChildOf(GridPlace place) const;  // of a row of the table

    ReadableGrid& grid_;
};
