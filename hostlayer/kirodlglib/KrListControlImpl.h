// The grid of a dialog, over a list view with virtual rows. Its operations never throw: one that runs out of memory
// does nothing.
//
// KrListControlImpl.cpp holds the operations, KrListControlView.cpp the list view's layout and painting,
// KrListControlInput.cpp what windows and operator send.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "KrCellEditor.h"
#include "KrGridPainter.h"
#include "KrGridRows.h"
#include "entry/host/KrListControl.h"

class KrListControlImpl final : public KrListControl, private CellEditorHost {
  public:
    explicit KrListControlImpl(KrUtility* utility) : utility_(utility), painter_(rows_), editor_(*this, utility) {}
    KrListControlImpl(const KrListControlImpl&) = delete;
    KrListControlImpl& operator=(const KrListControlImpl&) = delete;

    void Release() override;

    void InitList(KrWindow dialog, int listId, int columns, int rows, int limit, int selection) override;
    void SetColumn(int column, const char* title, double width) override;
    void SetExtendedStyle(unsigned long style) override;
    void OnDrawItem(KrDrawItem* request) override;
    void DrawItem() override;

    int AddItem() override;
    int InsertItem() override;
    void DeleteItem() override;
    int GetItemCount() const override { return rows_.Rows(); }
    void SetItemText(int row, int column, const char* text) override;
    int GetItemText(int row, int column, char* out, int size) const override;

    void SetEdit(int column, int kind, unsigned int limit, const char* prompt) override;
    void SetCombo(int column, int kind, const KrStringList* choices, const char* prompt) override;
    void SetRowCombo(int row, int column, int kind, const KrStringList* choices, const char* prompt) override;
    void SetEditMode(int row, int column) override;
    int EndEdit() override;
    void CloseComboBox() override;

    void ClickItem() override;
    void ClickCell(int row, int column) override;
    void GetClickItem(int* row, int* column) const override;
    int GetSelectedItem() const override { return current_.row; }
    int GetSelectedColumn() const override { return current_.row < 0 ? -1 : current_.column; }

    void SetErrorFlag(int row, int column, int on) override;
    void ErrorText(const char* text) override;
    void MessageText(const char* text) override;
    void SetAvailableFlag(int row, int column, int available) override;
    int GetAvailableFlag(int row, int column) const override { return rows_.IsAvailable({row, column}); }
    void SetSelectFlag(int row, int on) override { rows_.Mark(row, on != 0); }
    int GetSelectFlag(int row) const override { return rows_.IsMarked(row); }
    void ClearSelectFlag() override { rows_.ClearMarks(); }
    void SetItemColor(int row, int column, KrColor text, KrColor background) override;
    void SetParentList(KrListControl* parent) override;

    int CheckClassNumber(int row, const char* text) override;
    int CheckRevisionNumber(int row, const char* text) override;

  private:
    // While one of these lives the object does, also when the dialog releases it in the middle of a message.
    class Busy {
      public:
        explicit Busy(KrListControlImpl& grid) : grid_(grid) { ++grid_.busy_; }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;
        ~Busy() {
            if (--grid_.busy_ == 0 && grid_.released_) delete &grid_;
        }

      private:
        KrListControlImpl& grid_;
    };
    enum class By { kProgram, kUser };

    ~KrListControlImpl();
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return list_ ? SendMessageW(list_, message, wParam, lParam) : 0;
    }
    LRESULT SendTo(UINT message, WPARAM wParam, void* data) const {
        return Send(message, wParam, reinterpret_cast<LPARAM>(data));
    }

    // The list view: its columns, rows and places.
    bool Attach(HWND dialog, HWND list);
    void MakeColumns();
    int RowHeight() const;
    int RoomForRows() const;
    void Measure();
    void RowsChanged();
    int WidthForColumns() const;
    void FitColumns();
    void KeepResized(int column);
    int ColumnWidth(int column) const {
        return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
    }
    RECT RowRect(int row) const;
    RECT CellRect(GridPlace place) const;
    GridPlace Hit(POINT point) const;
    bool HasFocus() const;
    void Repaint(int row) const;
    void RepaintAll() const;

    // The current cell.
    void SetCurrent(GridPlace place, By by);
    void Reveal(int row);
    void Notify(unsigned int code, GridPlace place);
    bool MakeCurrent();
    void SetMark(int row, bool on);
    int Insert(int at);

    // Editing.
    bool OpenEditor(KrCellEditor::Start start, bool prompts = true);
    bool Commit(bool takeFocus);
    void OnEditor(EditorEvent event) override;
    void OpenNext(bool forwards);
    void Taken(const KrStringList* choices, const char* prompt, GridComboPtr& combo) const;

    // Grids side by side.
    void Follow(int row);
    void ScrollTo(int top);
    void Lead(void (KrListControlImpl::*follow)(int), int value);
    void Scrolled();

    // Messages of the two windows; none: as usual.
    static LRESULT CALLBACK ListProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR self);
    static LRESULT CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR self);
    std::optional<LRESULT> OnList(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnListMouse(UINT message, LPARAM lParam);
    std::optional<LRESULT> OnListText(UINT message, WPARAM wParam, LPARAM lParam);
    void AfterList(UINT message);
    std::optional<LRESULT> OnHeader(const NMHEADERW& header);
    bool OnKey(WPARAM key);
    void OnCharacter(wchar_t character);
    bool Navigate(WPARAM key);
    bool Press(POINT point, bool right);
    std::optional<LRESULT> OnDialog(UINT message, WPARAM wParam, LPARAM lParam);
    void AnswerText(NMLVDISPINFOW& request) const;
    void Dragged(POINT from);
    void BeforeClick(const NMITEMACTIVATE& click);
    void AfterClick(UINT code);

    int CheckNumber(int row, const char* text, const char* message);

    KrUtility* utility_;
    HWND dialog_ = nullptr;
    HWND list_ = nullptr;
    int listId_ = 0;
    GridRows rows_;
    KrGridPainter painter_;
    KrCellEditor editor_;
    GridPlace current_;
    GridPlace clicked_;
    bool clickPending_ = false;  // a click that the dialog was told of and ClickItem has not dealt with
    bool clickMarks_ = false;
    bool errorShown_ = false;  // the last message that the dialog gave
    bool clickOpens_ = false;
    bool rightPressed_ = false;
    bool fitting_ = false;
    int fitted_ = 0;  // the width that the columns fill
    bool leading_ = false;
    int top_ = 0;
    KrListControlImpl* parent_ = nullptr;
    std::vector<KrListControlImpl*> children_;
    int busy_ = 0;
    bool released_ = false;
};
