#include "dxfin_tables/KrDxfInTbl_TFont2.h"

#include <memory>

namespace {

struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
struct DcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};

}  // namespace

KrDxfInTbl_TFont2::KrDxfInTbl_TFont2() : Dialog(kDxfInTextFontHelpDialog) {
    BindMessage(WM_DRAWITEM, [](WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        if (wParam != kFigureBox) return std::nullopt;
        DrawFigure(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    });
}

// As large beside the texts as it is at 96 dots per inch, in the middle of its box.
void KrDxfInTbl_TFont2::DrawFigure(const DRAWITEMSTRUCT& request) {
    const std::unique_ptr<HBITMAP__, BitmapDeleter> figure(
        LoadBitmapW(kiro::ui::ResourceModule(), MAKEINTRESOURCEW(kTextFontFigure)));
    const std::unique_ptr<HDC__, DcDeleter> from(CreateCompatibleDC(request.hDC));
    BITMAP size{};
    if (!from || !GetObjectW(figure.get(), sizeof size, &size)) return;
    const auto dpi = static_cast<int>(GetDpiForWindow(request.hwndItem));
    const int width = MulDiv(size.bmWidth, dpi, USER_DEFAULT_SCREEN_DPI);
    const int height = MulDiv(size.bmHeight, dpi, USER_DEFAULT_SCREEN_DPI);
    const HGDIOBJ before = SelectObject(from.get(), figure.get());
    SetStretchBltMode(request.hDC, HALFTONE);
    SetBrushOrgEx(request.hDC, 0, 0, nullptr);
    StretchBlt(request.hDC, (request.rcItem.left + request.rcItem.right - width) / 2,
               (request.rcItem.top + request.rcItem.bottom - height) / 2, width, height, from.get(), 0, 0, size.bmWidth,
               size.bmHeight, SRCCOPY);
    SelectObject(from.get(), before);
}
