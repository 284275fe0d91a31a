// A host program for one test: a main window, a home folder of its own and an empty model.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "driver/BareDialog.h"
#include "driver/Driver.h"
#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"
#include "ui/Dialog.h"

class TestHost : public testing::Test {
  protected:
    TestHost() {
        wchar_t temp[MAX_PATH];
        GetTempPathW(MAX_PATH, temp);
        static int count = 0;
        home = std::filesystem::path(temp) /
               (L"kiro_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++count));
        // A run that was ended from outside may have left a folder of this name.
        std::error_code ignored;
        std::filesystem::remove_all(home, ignored);
        std::filesystem::create_directories(home / L"DXF");
        std::filesystem::create_directories(home / L"DWG");
        KiroHostSetHome(home.c_str());
        KiroHostLoadModel(nullptr, nullptr, 0);
        MakeMainWindow();
    }
    ~TestHost() override {
        KiroHostSetMainWindow(nullptr);
        DestroyWindow(owner);
        std::error_code ignored;
        std::filesystem::remove_all(home, ignored);
    }

    void MakeMainWindow() {
        owner = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                nullptr, nullptr, nullptr);
        KiroHostSetMainWindow(owner);
    }
    // A file of the home folder.
    std::filesystem::path Write(const std::wstring& name, const std::string& bytes) const {
        const std::filesystem::path path = home / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

    static std::string BytesOf(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void UseModel(const std::u8string& json) const {
        const auto file = Write(L"model.json", {json.begin(), json.end()});
        ASSERT_EQ(0, KiroHostLoadModel(file.c_str(), nullptr, 0));
    }
    // Whether a point is painted in the colour.
    static bool HasColor(HWND window, const RECT& area, COLORREF color) {
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC dc = GetDC(window);
        bool found = false;
        for (int y = area.top; y < area.bottom && !found; ++y)
            for (int x = area.left; x < area.right && !found; ++x) found = GetPixel(dc, x, y) == color;
        ReleaseDC(window, dc);
        return found;
    }

    std::filesystem::path home;
    HWND owner = nullptr;
};

// What a command makes current for its dialogs: the library's templates and the style of its controls. For dialogs that
// a test opens itself.
class LibraryResources {
  public:
    LibraryResources() { ActivateActCtx(Style(), &cookie_); }
    LibraryResources(const LibraryResources&) = delete;
    LibraryResources& operator=(const LibraryResources&) = delete;
    ~LibraryResources() { DeactivateActCtx(0, cookie_); }

  private:
    static HMODULE Library() {
        static const HMODULE library = LoadLibraryW(L"kirovanteo.dll");
        return library;
    }
    static HANDLE Style() {
        static const HANDLE style = kiro::drive::MakeStyleContext(Library());
        return style;
    }
    kiro::ui::ScopedResourceModule module_{Library()};
    ULONG_PTR cookie_ = 0;
};

// A record as a host may hand it over: what the commands do not fill holds rubbish that must stay as it is.
template <class Params>
struct HostRecord {
    bool operator==(const HostRecord& other) const {
        return std::memcmp(&info, &other.info, sizeof info) == 0 &&
               std::memcmp(&params, &other.params, sizeof params) == 0;
    }
    TARNAINFO info;
    Params params;
};
struct ImportRecord : HostRecord<DxfInParamBlock> {
    ImportRecord() {
        std::memset(&info, 0xA5, sizeof info);
        std::memset(&params, 0x5A, sizeof params);
        info.input.inputIsDwg = 0;
        info.input.pictureMatrix = 1;
        std::memset(info.input.layerTableFileName, 0, sizeof info.input.layerTableFileName);
        info.input.importParams = &params;
    }
};
