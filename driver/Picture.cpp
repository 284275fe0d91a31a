#include "driver/Picture.h"

// gdiplus.h uses the min and max of windows.h.
#include <algorithm>
using std::max;
using std::min;
#include <objidl.h>

#include <gdiplus.h>

#include <cstring>
#include <memory>
#include <type_traits>

#include "driver/Driver.h"

namespace kiro::drive {
namespace {

constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

struct DeleteDcOf {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
struct DeleteObjectOf {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDcOf>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteObjectOf>;
using Region = std::unique_ptr<std::remove_pointer_t<HRGN>, DeleteObjectOf>;

class WindowDc {
  public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetWindowDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }
    HDC Get() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

// A 32-bit picture in memory, top row first, white at the start.
class Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        bitmap_.reset(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits_, nullptr, 0));
        if (!bitmap_) throw Failure("no memory for a picture");
        before_ = SelectObject(dc_.get(), bitmap_.get());
        std::memset(bits_, 0xFF, static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() { SelectObject(dc_.get(), before_); }

    void Draw(HWND window, const RECT& area, POINT origin) {
        const int x = area.left - origin.x;
        const int y = area.top - origin.y;
        const Region shape(CreateRectRgn(0, 0, 0, 0));
        const bool shaped = GetWindowRgn(window, shape.get()) != ERROR;
        if (shaped) {
            OffsetRgn(shape.get(), x, y);
            SelectClipRgn(dc_.get(), shape.get());
        }
        const WindowDc source(window);
        BitBlt(dc_.get(), x, y, area.right - area.left, area.bottom - area.top, source.Get(), 0, 0, SRCCOPY);
        if (shaped) SelectClipRgn(dc_.get(), nullptr);
    }

    void Save(const std::filesystem::path& png) {
        GdiFlush();
        Gdiplus::Bitmap image(width_, height_, width_ * 4, PixelFormat32bppRGB, static_cast<BYTE*>(bits_));
        if (image.Save(png.c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok)
            throw Failure("the picture cannot be written: " + png.string());
    }

  private:
    int width_;
    int height_;
    MemoryDc dc_;
    Bitmap bitmap_;
    HGDIOBJ before_ = nullptr;
    void* bits_ = nullptr;
};

void StartGdiPlus() {
    static const Gdiplus::Status status = [] {
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        return Gdiplus::GdiplusStartup(&token, &input, nullptr);
    }();
    if (status != Gdiplus::Ok) throw Failure("GDI+ does not start");
}

}  // namespace

void Picture(const std::vector<HWND>& windows, const std::filesystem::path& png) {
    StartGdiPlus();
    RECT whole{};
    std::vector<RECT> areas(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (!GetWindowRect(windows[i], &areas[i])) throw Failure("a picture of a window that is gone");
        UnionRect(&whole, &whole, &areas[i]);
        // Without a window manager the first dialog of a process is not drawn as the active one.
        if (GetWindowLongW(windows[i], GWL_STYLE) & WS_SYSMENU && IsWindowEnabled(windows[i]))
            Send(windows[i], WM_NCACTIVATE, TRUE);
        // Also what its thread is in the middle of painting, which has nothing left to be updated.
        Send(windows[i], WM_NULL);
        RedrawWindow(windows[i], nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        Send(windows[i], WM_NULL);
    }
    Canvas canvas(whole.right - whole.left, whole.bottom - whole.top);
    for (std::size_t i = 0; i < windows.size(); ++i) canvas.Draw(windows[i], areas[i], {whole.left, whole.top});
    canvas.Save(png);
}

void Picture(HWND window, const std::filesystem::path& png) { Picture(std::vector<HWND>{window}, png); }

}  // namespace kiro::drive
